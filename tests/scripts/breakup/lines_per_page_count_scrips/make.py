from workfiles import delimited, lines, write


def scrip(code):
    return delimited(code, *(kind if i == 0 else 10 * kind + i for kind in range(1, 5) for i in range(7)), *range(51, 62))


write("PAGE6.DAT", lines(*(scrip(500101 + i) for i in range(6))))
write("PAGE7.DAT", lines(*(scrip(500101 + i) for i in range(7))))
