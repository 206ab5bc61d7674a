from workfiles import lines, write

for name in ("BU010109.TXT", "HERE.DAT"):
    write(name, lines("500101|1|1|2|3|4|5|6|"))
write("EMPTY.DAT")
