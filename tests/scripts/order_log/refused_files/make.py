from workfiles import *

write("ORTRADES.LOG", header(kind="T"), order136())
write("ORV.LOG", header(fileKind="V", kind="O"), order136())
write("ORQUOTES.LOG", header(kind="Q"), order136())
write("ORSHORT.LOG", header(kind="O")[:23])
write("ORNOTHNG.LOG")
