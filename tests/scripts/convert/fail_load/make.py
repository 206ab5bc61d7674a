from workfiles import *

write("BR230404.BIN", header(kind="B"), broker132())
write("AD010109.adm", header(kind="A"), admin144(), admin144())
write("AD260710.adm", header(fileKind="V", kind="A", date="26/07/2010"), admin176(), admin176())
write("AD230710.adm", header(fileKind="V", kind="A", date="23/07/2010"), *[admin168()] * 4)
write("OR250509.LOG", header(kind="O", date="25/05/2009"), order136(), clientRectification())
write("AB", header(kind="B"))
