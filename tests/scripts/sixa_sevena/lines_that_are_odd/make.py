from workfiles import delimited, lines, write


def entry(number, side, value, **fields):
    values = dict(date="01/01/2009", client="R1042", contract="CN/%d" % number, comments="NONE", block=0)
    values.update(fields)
    return delimited(500101, 1000, "N", number, side, "C", 25, value, values["date"], values["client"], "Y", number,
                     values["contract"], values["comments"], values["block"])


write("HEADER.UPD", lines("25/05/99|10:30:00"))
write("longdate.nup", lines("25/05/2009|10:30|", entry(1, "B", 1234567)))
odd = lines("1/1/09|9:05:03|MORE|", entry(1, "B", 1234567, block=1), entry(2, "L", 5), entry(3, "S", -1234),
            "500102|7|D|8|L|N|9|10", "", entry(4, "B", 9223372036854775807, comments=""),
            entry(5, "S", 100, contract="C" * 30, comments="D" * 60), entry(6, "B", 99, client="CLIENT/000001X", block=1))
write("ODD.UPD", odd)
write("ODD.SUPD", odd)
