from workfiles import *

write("BR.BIN", header(kind="B"), broker132(), broker132(clientId="C0002", trdId=1002),
      broker132(clientId="C0003", trdId=1003, side="S"))
