from workfiles import *

five = (quote("11:00:00", scripCode=3, scripId="C", bidClientId="B2", offerClientId="F2", quoteId=5, offerRate=0),
        quote("10:00:00", scripCode=2, scripId="A", bidClientId="B3", offerClientId="F1", quoteId=4, actionCode=2,
              message=b"Forty characters, to the end of its cell"),
        quote("09:00:00", scripCode=1, scripId="B", bidClientId="B1", offerClientId="F3", quoteId=3, actionCode=9, bidRate=0),
        quote("11:00:00", scripCode=1, scripId="A", bidClientId="B1", offerClientId="F3", quoteId=-2, actionCode=6,
              message="Deleted\nby the trader"))
write("QO.LOG", header(kind="Q", date="25/05/2009"), *five)
write("SQO.LOG", header(kind="Q", date="25/05/2009"), *five)
