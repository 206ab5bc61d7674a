from workfiles import *

sections = ([traderLimit(), traderLimit(traderNo=8)], [scripLimit(), scripLimit(traderId=8)], [groupLimit()], [activity()])
# The last scrip lacks its last byte, and the sections behind it are gone.
write("AdCut.adl", adminLog(*sections)[:36 + 2 * 122 + 2 * 88 - 1])
write("AdHuge.adl", adminLog(*sections, traderLimitCount=2**31 - 1, scripLimitCount=2**31 - 1, groupLimitCount=2**31 - 1,
                             activityCount=2**31 - 1))
for number, field in enumerate(("traderLimitCount", "scripLimitCount", "groupLimitCount", "activityCount"), 1):
    write("AdMinus%d.adl" % number, adminLog(*sections, **{field: -1}))
write("AdNone.adl", adminLog(*sections, traderLimitCount=-4))
