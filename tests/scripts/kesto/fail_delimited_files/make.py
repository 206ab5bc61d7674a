from workfiles import *

row = delimited("AXLE", 500010, 52500, 1500, 61250, 53000, 1700, 62375, 52750, 52625, 120000, "OP", 7)
write("TWO.VQT", lines("01/01/2009|10:30:00|KESTO|", row, row))
write("TWO.DAT", lines(delimited(*range(1, 77)), delimited(*range(76, 0, -1))))
write("TWO.TRD", lines(delimited("Binary Limits", 418, "01/01/2009", 12), delimited(1, "ANAND", 0, 100, 200),
                       delimited(2, "BHARATI", 64, 300, 400)))
write("TWO.TSL", lines(delimited("Scripwise Limits", 418, "01/01/2009", 12), delimited("AXLE", 500010, 100, 200)))
