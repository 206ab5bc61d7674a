from workfiles import *

write("BR.BIN", header(kind="B"), broker132())
