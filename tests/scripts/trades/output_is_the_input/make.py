from workfiles import *

write("TR010109.B01", header(), trade132())
