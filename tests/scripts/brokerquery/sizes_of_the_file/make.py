from workfiles import *

write("HEADER.BIN", header(kind="B"))
write("TAIL.BIN", header(kind="B"), broker132(), broker132(side="S"), b"a tail")
