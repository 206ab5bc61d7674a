from workfiles import *

write("AdZürich.adl", adminLog([traderLimit()], [scripLimit()], [groupLimit()], [activity()],
                              date="05/03/0304", time="09:05:03"))
write("AdEmpty.adl", adminLog())
