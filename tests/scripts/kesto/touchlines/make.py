from workfiles import *

write("ALONE.VQT", lines("01/01/2009|10:30:00|KESTO|"))
