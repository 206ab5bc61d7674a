from workfiles import *

write("export/CT010109.B01", header("B"),
      kestoTrade(trdId=1, time="12:00:00", scripId="BOLT", clientId="C9", side="T"),
      kestoTrade(trdId=2, time="11:00:00", scripId="AXLE", clientId="C1", side="M", qty=10, rate=3000000),
      kestoTrade(trdId=3, time="10:00:00", scripId="AXLE", clientId="C9", side="S", qty=20, rate=1000000),
      kestoTrade(trdId=4, time="10:00:00", scripId="BOLT", clientId="C1", side="X"),
      kestoTrade(trdId=5, time="10:00:00", scripId="BOLT", clientId="C1", side="V", tradeType="P"))
