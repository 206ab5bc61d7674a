from workfiles import *

sides = "XSTMVX"
rates = (12345, -12345, 99, -99, 1234500, 100)
write("CT010109.B01", header(fileKind="B"), *[kestoTrade(side=side, rate=rate) for side, rate in zip(sides, rates)])
write("BB010109.BIN", header(fileKind="B", kind="B"), *[kestoBroker(legCode=side, rate=rate) for side, rate in zip(sides, rates)])
