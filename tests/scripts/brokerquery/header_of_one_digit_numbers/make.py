from workfiles import *

write("BR.BIN", header(kind="B", memberId=5, traderId=7, date="03/04/0905", time="09:05:03"), broker132())
