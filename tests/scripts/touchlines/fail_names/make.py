from workfiles import lines, write

for name in ("TL010109.TXT", "HERE.SAV"):
    write(name, lines("As on : 01/01/09|10:30:00|EQUITY|", "ALFA|1|1|2|3|4|5|6|7|"))
