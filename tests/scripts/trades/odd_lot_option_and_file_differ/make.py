from workfiles import *

write("export/TO010109.B01", header(), trade132(tradeType="O"), trade132())
write("export/TR010109.B01", header(), trade132(), trade132(tradeType="O"))
