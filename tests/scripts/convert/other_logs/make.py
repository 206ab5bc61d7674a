from workfiles import *

message = "Accepted by the exchange\nafter some time"
write("QO250509.LOG", header(kind="Q", date="25/05/2009"), quote(), quote(bidRate=0, offerRate=0, actionCode=5, message=message),
      quote("09:05:03", actionCode=6)[:125])
orders = (consolidatedOrder(actionCode=9, message=message), consolidatedOrder(side="S", trigRate=12300, thirdRate=5))
write("BO250509.BIN", header(kind="L", date="25/05/2009"), *orders)
write("SBo250509.BIN", header(kind="L", date="25/05/2009"), *orders, consolidatedOrder(side="L"))
deletions = (adminDeletion(message=message), adminDeletion("09:05:03", side="S", trigRate=12300, retention=9))
for letter in "NVJSXB":
    write("Adel" + letter + ".adl", header(fileKind=letter, kind="J", date="25/05/2009"), *deletions)
# A century of one digit
write("TrdRect.dat", header(fileKind="S", kind="S", date="25/05/0509"), tradeRectification(message=message),
      tradeRectification("09:05:03", letter="S", firstClientType=99, secondClientType=89, behindTime="7"))
