from workfiles import *

write("Ad050409.adl", adminLog([traderLimit(alias="SEVENTH", message="0123456789abcdefghij\rlost")]))
