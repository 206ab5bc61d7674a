from workfiles import delimited, lines, write


def entry(number):
    return delimited(500101, 1000, "N", number, "BS"[number % 2], "C", 25, 100 * number, "01/01/2009", "R1042", "Y", number,
                     "CN/%d" % number, "NONE", number % 3)


write("FORTY.UPD", lines("01/01/09|10:30:00|", *(entry(i) for i in range(1, 41))))
write("FORTYONE.UPD", lines("01/01/09|10:30:00|", *(entry(i) for i in range(1, 42))))
write("TWO.UPD", lines("01/01/09|10:30:00|", entry(1), entry(2)))
