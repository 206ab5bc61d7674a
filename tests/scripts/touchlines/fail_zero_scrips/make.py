from workfiles import lines, write

write("EMPTY.SAV")
write("HEADER.SAV", lines("As on : 01/01/09|10:30:00|EQUITY|"))
