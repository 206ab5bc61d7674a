from workfiles import *

write("Ad050409.adl", adminLog(
    [traderLimit(traderNo=9, alias="BRANCH-WEST", time="09:05:03"),
     traderLimit(traderNo=2, message="Limit set by the administrator\r\nof this member", time="10:00:00", opCode=11),
     traderLimit(traderNo=9, time="09:05:02", opCode=21)],
    [scripLimit(traderId=4), scripLimit(traderId=3, opCode=10), scripLimit(traderId=4, time="09:00:00")],
    [groupLimit(traderId=4, time="09:00:01"), groupLimit(traderId=4, time="09:00:00"), groupLimit(traderId=-1)],
    [activity(traderId=4), activity(traderId=3, oprType="LOGON"), activity(traderId=4, time="09:00:00")],
    memberId=418, date="05/04/2009"))
write("AdTraders.adl", adminLog([traderLimit(), traderLimit()]))
