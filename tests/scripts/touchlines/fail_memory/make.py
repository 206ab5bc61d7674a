from workfiles import lines, write

write("TWO.SAV", lines("As on : 01/01/09|10:30:00|EQUITY|", "BETA|2|100|200|300|400|500|600|700|",
                       "ALFA|1|100|200|300|400|500|600|700|"))
write("TWOK.SAV", lines("01/01/2009|10:30:00|KESTO|", "BETA|2|100|200|300|400|500|600|700|800|900|OP|",
                        "ALFA|1|100|200|300|400|500|600|700|800|900|OP|"))
