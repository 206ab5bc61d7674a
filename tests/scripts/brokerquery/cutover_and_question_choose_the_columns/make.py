from workfiles import *

trades = (broker160(), broker160(side="S", tradeType="T", clientId="C0002"))
write("OLD.BIN", header(fileKind="V", kind="B", date="21/05/2009"), *trades)
write("NEW.BIN", header(fileKind="V", kind="B", date="22/05/2009"), *trades)
