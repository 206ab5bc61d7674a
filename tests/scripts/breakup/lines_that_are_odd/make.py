from workfiles import delimited, lines, write

write("ODD.DAT", lines(
    delimited(500102, 1, 1, 2, 3, 4, 5, 6) + delimited(2, 7, 8, 9, 10, 11, 12) + "   " + delimited(3, *range(13, 19)) + "\t" +
    delimited(4, *range(19, 25)) + "\t\t" + delimited(*range(31, 42)),
    delimited(500101, 4, -1), "", delimited(500102, 9, 99), delimited(500101, 2, "x", 5), "first|1|",
    delimited(500103, 2) + " " * 190 + delimited(7, 1, 8)))
write("oddk.dat", lines(
    delimited(500102, 1, 1, 2, 3, 4) + delimited(2, 5, 6, 7, 8) + "  " + delimited(*range(31, 41)),
    delimited(500102, 3, 91, 92, 93), "", delimited(500101, 0, 5), delimited(500103, 2) + " " * 190 + delimited(7, 1, 8)))
