from workfiles import *

write("TR010109.B01", header(), trade132())
write("in/def.dat", header(), trade132())
write("abc.dat", header(), trade132())
write("AD010109.adm", header(kind="A"), admin144())
write("OR250509.LOG", header(kind="O", date="25/05/2009"), order136(), clientRectification())
