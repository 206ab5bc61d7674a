from workfiles import lines, write

for name in ("TD010109.TXT", "HERE.TSL"):
    write(name, lines("Scripwise Limits|418|01/01/2009|12|", "second", "1|2|3|4|5|"))
