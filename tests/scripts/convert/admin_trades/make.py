from workfiles import *

write("AD010109.adm", header(kind="A"), admin144(tailText="MUMBAI"), admin144(side="S", orderType="O", rate=-5),
      admin144(tradeTime=b"FIFTEEN LETTERS", tradeDate=b"FIFTEEN LETTERS"))
late = [admin176(number=1001 + i, side="BS"[i % 2], leadingNumber=i) for i in range(3)]
write("AD240710.adm", header(fileKind="V", kind="A", date="24/07/2010"), *late)
write("AD010109.SADM", header(fileKind="N", kind="A"), *[admin176(side=side) for side in "LSB"])
early = [admin168(number=1001 + i, side="BS"[i % 2], leadingNumber=i) for i in range(24)]
for date in ("23/07/2010", "30/06/2010"):
    write("AD%s%s%s.adm" % (date[0:2], date[3:5], date[8:]), header(fileKind="V", kind="A", date=date), *early)
write("AD010810.adm", header(fileKind="V", kind="A", date="01/08/2010"), late[0])
write("LAST168.SADM", header(fileKind="V", kind="A", date="26/07/2010"), *early[:22])
