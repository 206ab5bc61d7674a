from workfiles import *

write("export/TR010109.B01", header(memberId=5, traderId=7, date="03/04/0905", time="09:05:03"), trade132())
