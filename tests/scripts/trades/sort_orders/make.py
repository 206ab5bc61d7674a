from workfiles import *

# In file order the trdIds are 1 to 6. Equal keys keep this order.
write("export/TR010109.B01", header(),
      trade132(trdId=1, time="11:00:00", clientId="C2", scripId="BOLT", scripCode=30),
      trade132(trdId=2, time="10:00:00", clientId="C2", scripId="axle", scripCode=-10, side="S"),
      trade132(trdId=3, time="10:00:00", clientId="C1", scripId="BOLT", scripCode=30),
      trade132(trdId=4, time="11:00:00", clientId="C2", scripId="AXLE", scripCode=20, side="S"),
      trade132(trdId=5, time="9:59:59", clientId="C10", scripId="BOLT", scripCode=30),
      trade132(trdId=6, time="10:00:00", clientId="C1", scripId="BOLT", scripCode=30))
