from workfiles import lines, write

write("HERE.UPD", lines("01/01/09|10:30:00|", "500101|"))
write("EMPTY.SNUP")
