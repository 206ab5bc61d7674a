from workfiles import *

write("QOORDERS.LOG", header(kind="O"), quote())
write("QOV.LOG", header(fileKind="V", kind="Q"), quote())
write("QOSHORT.LOG", header(kind="Q")[:23])
write("QONOTHNG.LOG")
write("QOEMPTY.LOG", header(kind="Q"))
write("QOPART.LOG", header(kind="Q"), quote()[:125])
