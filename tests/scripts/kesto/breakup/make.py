from workfiles import *

write("NONE.DAT")
