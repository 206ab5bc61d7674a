from workfiles import *

write("export/STR250509.B02", header("N", date="25/05/2009"),
      trade144(trdId=1, side="B"), trade144(trdId=2, side="L", tradeType="G"), trade144(trdId=3, side="L", tradeType="D"))
