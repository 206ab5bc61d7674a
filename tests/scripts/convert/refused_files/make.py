from workfiles import *

# Pairs of letters that are no kind, beside pairs that are
for letters in ("VO", "BA", "ST", "SN", "CB", "NX"):
    write(letters + ".BIN", header(fileKind=letters[0], kind=letters[1]), trade144(), trade144())
write("EMPTY.BIN")
write("CUT.BIN", header()[:23])
write("HEADER.BIN", header())
write("HEADERO.BIN", header(kind="O", date="25/05/2009"))
write("TAIL.BIN", header(), trade132()[:131])
write("ONE.BIN", header(), trade132())
write("ADMIN.BIN", header(fileKind="V", kind="A", date="01/01/2009"), admin168())
