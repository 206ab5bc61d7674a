from workfiles import *

for day in ("21", "22"):
    write("export/TR%s0509.B01" % day, header("V", date=day + "/05/2009"), trade144(trdId=1), trade144(trdId=2, side="S"))
