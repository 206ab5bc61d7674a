from workfiles import *

write("BR010109.BIN", header(kind="B"), broker132(tailText="TAIL%s"), broker132(side="S", clientId="C0002", rate=-5))
write("BR250509.BIN", header(fileKind="V", kind="B", date="25/05/2009"), broker160(tailText="TAIL"),
      broker160(side="S", settlementPart1=-1, settlementPart2=2000000, scripGroup="GROUP OF THE SCRIP"))
lends = [broker160(leadingNumber=i, side=side, instId="OWN", tailText="MUMBAI") for i, side in enumerate("LSB")]
write("BR250509.SBIN", header(fileKind="V", kind="B", date="25/05/2009"), *lends)
lends = [broker132(leadingNumber=i, side=side, instId="OWN", tailText="MUMBAI") for i, side in enumerate("LSB")]
write("BR010109.SBIN", header(fileKind="V", kind="B", date="25/05/2009"), *lends)
