from workfiles import delimited, lines, write

write("TWO.UPD", lines(
    "01/01/09|10:30:00|",
    delimited(500102, 1001, "N", 1, "B", "C", 25, 1234567, "01/01/2009", "R1042", "Y", 501, "CN/1", "NONE", 1),
    delimited(500101, 1002, "D", 2, "S", "N", 50, 5, "01/01/2009", "R1187", "N", 502, "CN/2", "NONE", 0)))
