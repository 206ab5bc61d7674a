from workfiles import *

write("CTZürich.b01", header(fileKind="C"), kestoTrade())
