from workfiles import lines, write

write("TD.TRD", lines("TraderWise Limits|418|01/01/2009|12|", "second", "third", "1|ANAND|y|n|", "2|BHARATI|y|n|"))
write("SC.TSL", lines("Scripwise Limits|418|01/01/2009|12|", "second", "1|2|3|4|5|", "2|3|4|5|6|"))
write("KL.TRD", lines("Binary Limits|418|01/01/2009|12|", "1|ANAND|0|100|200|", "2|BHARATI|536838143|300|400|"))
write("KS.TSL", lines("Scripwise Limits|418|01/01/2009|12|", "ALFA|1|100|200|", "BETA|2|300|400|"))
