from workfiles import *

trades = [broker132(trdId=1001 + i) for i in range(51)]
write("BR51.BIN", header(kind="B"), *trades)
write("BR50.BIN", header(kind="B"), *trades[:50])
write("BR3.BIN", header(kind="B"), *trades[:3])
