from workfiles import *

write("OR.LOG", header(kind="O", date="25/05/2009"), order136("10:15:30"), order136("10:16:30"))
