from workfiles import *

write("TR250509.B01", header(fileKind="V", date="25/05/2009"), trade144(side="S"))
write("STR250509.B01", header(fileKind="V", date="25/05/2009"), trade144(side="L"))
write("QO250509.LOG", header(kind="Q", date="25/05/2009"), quote())
