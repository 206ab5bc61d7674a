from workfiles import write

write("EMPTY.TRD")
