from workfiles import *

write("OR.LOG", header(kind="O", date="25/05/2009"), order136())
