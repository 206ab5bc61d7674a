from workfiles import *

write("BR.BIN", header(kind="?"), broker132())
