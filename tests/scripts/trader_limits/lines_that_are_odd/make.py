from workfiles import lines, write

write("THREE.TRD", lines("TraderWise Limits|418|01/01/2009|12|", "second", "third"))
write("odd.tsl", lines("TraderWise Limits|418|01/01/2009|12|", "second", "third", "1|ANAND|y|n|", "||||||||", "2",
                       "", "3|CHARU|y|n|"))
write("HEADER.TRD", lines("Scripwise Limits|418|01/01/2009|12|"))
write("FULL.TSL", lines("Scripwise Limits|418|01/01/2009|12|", "second", "1|7|591000|100|200|", "2|8|591259|300|400|", "",
                        "3|9|591518|500|600|"))
