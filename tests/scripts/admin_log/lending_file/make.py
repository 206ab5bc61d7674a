from workfiles import *

sections = ([traderLimit(alias="BRANCH-EAST", flags=b"abcdefghijklmnopq"), traderLimit(traderNo=8)],
            [scripLimit(opCode=15, message="OK")], [groupLimit()], [activity(oldPwd="", newPwd="")])
write("SAd050409.adl", adminLog(*sections, date="05/04/2009"))
write("Ad050409.adl", adminLog(*sections, date="05/04/2009"))
