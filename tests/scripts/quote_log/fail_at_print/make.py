from workfiles import *

write("QO.LOG", header(kind="Q", date="25/05/2009"), quote("10:15:30"), quote("10:16:30"), quote("10:17:30"))
