from workfiles import *

write(
    "BR.BIN",
    header(kind="B"),
    broker132(scripId="NAVE", rate=10000, qty=10),
    broker132(scripId="MAST", rate=5000, qty=5, side="S"),
    broker132(scripId="NAVE", rate=20000, qty=8, side="S"),
    broker132(scripId="MAST", rate=4000, qty=5),
    broker132(scripId="KEEL", rate=99, qty=3),
    broker132(scripId="MAST", rate=100, qty=1, side="X"),
)
write(
    "BR.SBIN",
    header(fileKind="V", kind="B"),
    broker160(scripId="NAVE", rate=10000, qty=10),
    broker160(scripId="MAST", rate=5000, qty=5, side="S"),
    broker160(scripId="NAVE", rate=20000, qty=8, side="S"),
    broker160(scripId="MAST", rate=4000, qty=5),
    broker160(scripId="KEEL", rate=99, qty=3),
    broker160(scripId="MAST", rate=100, qty=1, side="X"),
)
write(
    "BB.BIN",
    header(fileKind="B", kind="B"),
    kestoBroker(scripId="NAVE", rate=1000000, qty=10),
    kestoBroker(scripId="MAST", rate=500000, qty=5, legCode="M"),
    kestoBroker(scripId="NAVE", rate=2000000, qty=8, legCode="V"),
    kestoBroker(scripId="MAST", rate=400000, qty=5, legCode="T"),
    kestoBroker(scripId="KEEL", rate=16666, qty=3),
    kestoBroker(scripId="MAST", rate=10000, qty=1, legCode="X"),
)
