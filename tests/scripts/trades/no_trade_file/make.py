from workfiles import *

write("export/TR1.B01", header("X"), trade132())
write("export/TR2.B01", header("V", "B"), trade144())
write("export/STR3.B01", header("N", "b"), trade144())
