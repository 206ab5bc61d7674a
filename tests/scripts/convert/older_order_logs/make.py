from workfiles import *

old = (order112(recDay=5, recMonth=9, recYear=3, actionCode=14), order112("09:05:03", side="S", trigRate=12000, recYear=103))
three = (order136(), clientRectification(side="L"), typeRectification(side="S"))
write("OR211103.LOG", header(kind="O", date="21/11/2003"), *old, order112()[:111])
write("OR221103.LOG", header(kind="O", date="22/11/2003"), *three)
write("OR250507.LOG", header(kind="O", date="25/05/2007"), *three)
write("OR260507.LOG", header(kind="O", date="26/05/2007"), *three)
write("SOR211103.LOG", header(kind="O", date="21/11/2003"), *three)
