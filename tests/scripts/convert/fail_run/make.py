from workfiles import *

write("TR010109.B01", header(), *[trade132(trdId=1001 + i) for i in range(4)])
write("TR250509.B01", header(fileKind="V", date="25/05/2009"), trade144())
write("BB010109.BIN", header(fileKind="B", kind="B"), *[kestoBroker(trdId=1001 + i) for i in range(4)])
write("OR250509.LOG", header(kind="O", date="25/05/2009"), order136(), order136(), clientRectification())
write("AD010109.adm", header(kind="A"), admin144())
