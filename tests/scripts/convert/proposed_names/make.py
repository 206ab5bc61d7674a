from workfiles import *

write("OR230404.ORD", header(kind="O"))
write("TR230404.B01", header())
write("BR230404.BIN", header(kind="B"))
write("QO230404.B01", header(kind="Q"))
write("BO230404.BIN", header(kind="L"))
write("AD230404.adm", header(kind="A"))
write("Adel2304.adl", header(kind="J"))
write("TrdRect.dat", header(fileKind="S", kind="S"))
write("STRADE.B01", header(fileKind="S", kind="T"))
write("SOR23.SORD", header(kind="O"))
write("OTHER.XYZ", header(fileKind="X", kind="X"))
write("short/A", header(kind="O"))
write("caf\u00e9.bin", header(kind="B"))
# No header, or not all of one, is a file of any other kind
write("EMPTY.BIN")
write("CUT.BIN", header(kind="B")[:23])
