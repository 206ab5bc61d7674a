from workfiles import *

write("export/TR0.B01")
write("export/TR1.B01", header()[:23])
write("export/TR2.B01", header())
write("export/TR3.B01", header(), trade132()[:131])
write("export/TR4.B01", header(), trade132(), b"?????")
