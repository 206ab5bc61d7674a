from workfiles import lines, write

# The rest of a line behind its ninth field is not looked at.
overlong = "BETA|2|100|200|300|400|500|600|700|"
write("LONG.SAV", lines("As on : 31/12/99|10:30:00|EQUITY|", overlong + "." * (89 - len(overlong)),
                        "ALFA|1|0|-5|300|400|500|600|0|"))
overlong = "BETA|2|100|200|300|400|500|600|700|800|900|"
write("longk.sav.old", lines("31/12/99|10:30:00|KESTO|", overlong + "." * (94 - len(overlong)),
                         "ALFA|1|0|-5|-300|400|500|600|-7|800|-9|OP|", "GAMMA|3||2|3|4|5|6|7|8|9|OP|"))
