from workfiles import *

trades = (broker160(), broker160(side="S", tradeType="T", clientId="C0002"))
write("NEW.BIN", header(fileKind="V", kind="B", date="25/05/2009"), *trades)
write("LEND.SBIN", header(fileKind="N", kind="B", date="21/05/2009"), *trades)
write("SBR.BIN", header(fileKind="V", kind="B", date="25/05/2009"), *trades)
