from workfiles import lines, write

write("TWO.DAT", lines("500102|1|1|2|3|4|5|6|", "500101|2|11|12|13|14|15|16|"))
write("TWOK.DAT", lines("500102|1|1|2|3|4|", "500101|2|11|12|13|14|"))
