from workfiles import *

write("export/TR010109.B01", header(),
      trade132(trdId=1, side="B", qty=100),
      trade132(trdId=2, side="S", qty=40, scripId="BOLT", scripCode=500020))
