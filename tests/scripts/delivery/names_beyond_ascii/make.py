from workfiles import *

write("export/DELYé1ü6.2É5", auctionHeader(memberName="LAKEVIEW & SØNS"), dely(side="B", brokerName="ÅCME", scripName="Ünit"))
