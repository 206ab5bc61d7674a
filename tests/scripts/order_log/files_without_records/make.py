from workfiles import *

write("ORONLYY.LOG", header(kind="O", date="25/05/2009"), clientRectification(), clientRectification(time="11:00:00"))
write("ORONLYI.LOG", header(kind="O", date="25/05/2009"), typeRectification(), order136())
write("OREMPTY.LOG", header(kind="O", date="25/05/2009"))
write("ORSHORT.LOG", header(kind="O", date="25/05/2009"), order136()[:135])
write("BOEMPTY.BIN", header(kind="L", date="25/05/2009"), b"part of a record")
write("ORUNKNWN.LOG", header(kind="O", date="25/05/2009"), order136(recordKind="n"), order136(recordKind="?"))
