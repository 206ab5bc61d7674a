from workfiles import *

# One record of a text that is no normal one, and a tail shorter than a record
short = (trade132(scripId="BOND%d", side="S", tradeType="O", rate=-5, qty=7, cliTyp="NRI", unread="TAIL%s TEXT"),)
write("TR010109.B01", header(), trade132(unread="BEHIND"), *short, trade132()[:131])
long = (trade144(clientText="SECOND"), trade144(scripId="BOND%d", side="S", settlementYear=-1, settlementNo=2000000, scGr="B1"))
write("TR250509.B01", header(fileKind="V", date="25/05/2009"), *long, trade144()[:143])
lends = (trade144(side="L"), trade144(side="S"), trade144())
write("STR250509.B01", header(fileKind="V", date="25/05/2009"), *lends)
write("NLEND.SORD", header(date="25/05/2009"), *lends)
