from workfiles import *

write("Ad050409.adl", adminLog([], [], [], [activity(traderId=number) for number in range(1, 52)]))
