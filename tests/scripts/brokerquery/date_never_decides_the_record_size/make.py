from workfiles import *

write("BR.BIN", header(kind="B", date="25/05/2009"), broker132(), broker132(side="S", qty=40))
