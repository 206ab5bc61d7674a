from workfiles import *

write("QO.LOG", header(kind="Q", date="05/03/0304", time="09:05:03"), quote("10:15:30"), quote("10:16:30"))
