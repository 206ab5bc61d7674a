from workfiles import *

write("NONE.TRD")
write("TITLE.TSL", lines(delimited("Scripwise Limits", 418, "01/01/2009", 12)))
