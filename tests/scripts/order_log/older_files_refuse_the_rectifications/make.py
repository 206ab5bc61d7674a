from workfiles import *

three = (order136("10:15:30"), clientRectification(time="10:16:00", side="L"), typeRectification(time="10:17:00", side="S"))
write("OR211103.LOG", header(kind="O", date="21/11/2003"), order112("10:15:30", message=b"Forty characters, to the end of its cell"),
      order112("10:16:30", side="S", scripCode=0x4e4e, message="Order accepted, and kept by the exchange"))
write("OR221103.LOG", header(kind="O", date="22/11/2003"), *three)
write("OR250507.LOG", header(kind="O", date="25/05/2007"), *three)
write("OR260507.LOG", header(kind="O", date="26/05/2007"), *three)
write("SOR211103.LOG", header(kind="O", date="21/11/2003"), *three, order136("10:18:00", side="L"), order136("10:19:00", side="S"))
