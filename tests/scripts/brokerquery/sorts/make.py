from workfiles import *

write(
    "BR.BIN",
    header(kind="B"),
    broker132(traderNo=9, scripCode=30, scripId="NAVE", tradeTime="11:00:00", clientId="C2", trdId=1),
    broker132(traderNo=-1, scripCode=200, scripId="MAST", tradeTime="10:00:00", clientId="C9", trdId=2),
    broker132(traderNo=10, scripCode=30, scripId="mast", tradeTime="11:00:00", clientId="C1", trdId=3),
    broker132(traderNo=9, scripCode=30, scripId="NAVE", tradeTime="11:00:00", clientId="C2", trdId=4, side="S"),
    broker132(traderNo=9, scripCode=-5, scripId="KEEL", tradeTime="09:30:00", clientId="c1", trdId=5),
    broker132(traderNo=2, scripCode=200, scripId="MAST", tradeTime="10:00:00", clientId="C2", trdId=6),
)
