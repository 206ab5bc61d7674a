from workfiles import *

write("QO.LOG", header(kind="Q", date="05/03/2010"), quote("10:15:30"), quote("10:16:30"))
