from workfiles import *

write("QO.LOG", header(kind="Q", date="25/05/2009"), quote())
