#!/usr/bin/env python3
"""Makes a drawing of a whole job: one drawing again and again, in rows.

usage: job_drawing.py FILE ELEMENTS OUTPUT

FILE is a transfer file whose elements are repeated until there are ELEMENTS, or a few more. Marks go on
from ten copies to the next ten.
"""

import math
import pathlib
import re
import sys

ELEMENT = re.compile(r'<(CKt\w+) version="1" index="[0-9]+">.*?</\1>', re.DOTALL)
PLACE = re.compile(r'(<(?!Bulge|Axis)\w+) X="([-0-9.]+)" Y="([-0-9.]+)"')
MARK = re.compile(r'<Reference long="([0-9]+)"/>')


def copies(elements, number):
    places = [(float(x), float(y)) for element in elements for _, x, y in PLACE.findall(element.group(0))]
    width = 1.05 * (max(x for x, _ in places) - min(x for x, _ in places))
    height = 1.05 * (max(y for _, y in places) - min(y for _, y in places))
    columns = math.ceil(math.sqrt(number * height / width))
    made = {}
    for i in range(number):
        across, up, marks = i % columns * width, i // columns * height, i // 10 * 20
        for element in elements:
            index = made[element.group(1)] = made.get(element.group(1), 0) + 1
            text = re.sub(r'index="[0-9]+"', f'index="{index}"', element.group(0), count=1)
            text = PLACE.sub(lambda match: f'{match.group(1)} X="{float(match.group(2)) + across:.7f}" '
                                           f'Y="{float(match.group(3)) + up:.7f}"', text)
            yield MARK.sub(lambda match: f'<Reference long="{int(match.group(1)) + marks}"/>', text)


def write_job(file, number, output):
    drawing = pathlib.Path(file).read_text(encoding="latin-1")
    elements = list(ELEMENT.finditer(drawing))
    drawn = [element for element in elements if element.group(1) != "CKtDrawingControl"]
    with open(output, "w", encoding="latin-1") as out:
        out.write(drawing[:elements[0].start()])
        out.writelines(copies(drawn, math.ceil(number / len(drawn))))
        out.write("".join(one.group(0) for one in elements if one not in drawn) + "</Document>\n")


if __name__ == "__main__":
    write_job(sys.argv[1], int(sys.argv[2]), sys.argv[3])
