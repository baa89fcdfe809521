#!/usr/bin/env python3
"""Makes shapes by chance, has the program write bending data of them, and reads that back with a
reader of its own.

usage: bending_data.py PROGRAM FOLDER [SHAPES [SEED]]

The reader knows the format of the records alone. It recomputes checksums, redraws each shape from
its legs and lays it over the one that the drawing has, holds numbers, lengths and masses against
the bar list, and turns over every bit that a checksum can see.
"""

import json
import math
import pathlib
import random
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

HEADERS = {
    "BF2D": "jriplnedgsv",
    "BF3D": "jriplnedgsv",
    "BFMA": "jriplnegsmbv",
}
DENSITY = 7850.0


def fail(what, *more):
    sys.exit("\n  ".join([what, *map(str, more)]))


# The reader


def checksum(text):
    return 96 - sum(text.encode("ascii")) % 32


class Record:
    """A line taken apart: kind, header fields by letter, geometry fields in their order."""

    def __init__(self, line):
        if len(line) > 1000:
            fail("a record of more than 1,000 characters", line)
        begin = line.rindex("@C") + 1
        if line[begin + 1:] != f"{checksum(line[:begin + 1])}@":
            fail("a wrong checksum", line)
        self.kind, rest = line[:begin].split("@", 1)
        self.line = line
        self.blocks = []
        fields = rest.split("@")[:-1]
        for field in fields:
            if field[0].isupper():
                self.blocks.append((field[0], []))
                field = field[1:]
            self.blocks[-1][1].append(field)
        self.header = {field[0]: field[1:] for field in self.fields("H")}
        letters = "".join(field[0] for field in self.fields("H"))
        if letters not in (HEADERS[self.kind], HEADERS[self.kind] + "c"):
            fail("header fields", letters, line)

    def fields(self, letter):
        found = [fields for name, fields in self.blocks if name == letter]
        return found[0] if found else []

    def number(self, letter):
        return float(self.header[letter])


def legs_of(record):
    """Pairs of (leg or arc, bend behind it); arcs are (radius, opening)."""
    legs = []
    for field in record.fields("G"):
        letter, value = field[0], float(field[1:])
        if letter == "l":
            legs.append([value, None])
        elif letter == "r":
            legs.append([(value, None), None])
        elif isinstance(legs[-1][0], tuple) and legs[-1][0][1] is None:
            legs[-1][0] = (legs[-1][0][0], value)
        else:
            legs[-1][1] = value
    return legs


def share(degrees, d, s):
    """What the bend at its end takes of a leg, from the leg's outermost point."""
    return (s / 2 + d) * math.tan(math.radians(min(abs(degrees), 90)) / 2)


def redrawn(record):
    """The centre line of a plane shape: points where straight parts begin and end, and the middle
    of each bend."""
    d, s = record.number("d"), record.number("s")
    radius = (s + d) / 2
    legs = legs_of(record)
    at, way = complex(0, 0), complex(1, 0)
    points = [at]
    for place, (length, bend) in enumerate(legs):
        before = share(legs[place - 1][1], d, s) if place else 0
        straight = length - before - share(bend, d, s)
        at += way * straight
        points.append(at)
        if bend:
            side = 1j if bend > 0 else -1j
            center = at + way * side * radius
            for part in (0.5, 1.0):
                turn = complex(math.cos(math.radians(bend * part)),
                               math.sin(math.radians(bend * part)))
                points.append(center + (at - center) * turn)
            at = points[-1]
            way *= turn
    return points


# Shapes by chance


def item(parent, name, kind, value):
    ElementTree.SubElement(parent, name).set(kind, value)


def place(parent, name, point):
    found = ElementTree.SubElement(parent, name)
    for axis, value in zip("XYZ", point):
        found.set(axis, f"{value:.7f}")


def roller(d):
    return 4 * d if d <= 16 else 7 * d


def drawn(legs, bends, d):
    """The centre line of a bar whose axis has these legs and turns, as `redrawn` gives it."""
    radius = (roller(d) + d) / 2
    reaches = [radius * math.tan(math.radians(abs(bend)) / 2) for bend in bends]
    at, way = complex(0, 0), complex(1, 0)
    points = [at]
    for number, leg in enumerate(legs):
        before = reaches[number - 1] if number else 0
        behind = reaches[number] if number < len(bends) else 0
        at += way * (leg - before - behind)
        points.append(at)
        if number < len(bends):
            bend = bends[number]
            center = at + way * (1j if bend > 0 else -1j) * radius
            for part in (0.5, 1.0):
                turn = complex(math.cos(math.radians(bend * part)),
                               math.sin(math.radians(bend * part)))
                points.append(center + (at - center) * turn)
            at = points[-1]
            way *= turn
    return points


class Shape:
    """A plane polygon bar whose outside legs are whole millimetres, or a bar in space."""

    def __init__(self, chance, mark):
        self.mark = mark
        self.d = chance.choice([6, 8, 10, 12, 14, 16, 20, 25, 32])
        count = chance.randint(1, 6)
        self.isSpatial = count >= 3 and chance.random() < 0.2
        angles = [90] if self.isSpatial else [90, 90, 90, 45, 30, 60, 117.5, 135, 12.25]
        self.bends = [chance.choice(angles) * chance.choice([-1, 1]) for _ in range(count - 1)]
        least = 3 * (roller(self.d) + 2 * self.d)
        self.outside = [chance.randint(int(4 * least), int(4 * least) + 2000)
                        for _ in range(count)]
        self.legs = [self.axis(number) for number in range(count)]
        self.number = chance.randint(1, 3)

    def axis(self, number):
        """The leg of the axis, from corner to corner."""
        radius = (roller(self.d) + self.d) / 2
        length = self.outside[number]
        for bend in self.bends[max(0, number - 1):number + 1]:
            angle = math.radians(abs(bend))
            if abs(bend) <= 90:
                length -= self.d / 2 * math.tan(angle / 2)
            else:
                length += radius * math.tan(angle / 2) - radius - self.d / 2
        return length

    def corners(self, chance):
        if self.isSpatial:
            return self.steps(chance)
        way = chance.uniform(0, 2 * math.pi)
        at = [chance.uniform(-9000, 9000), chance.uniform(-9000, 9000), 0.0]
        points = [at]
        for number, leg in enumerate(self.legs):
            at = [at[0] + leg * math.cos(way), at[1] + leg * math.sin(way), 0.0]
            points.append(at)
            if number < len(self.bends):
                way += math.radians(self.bends[number])
        return points

    def steps(self, chance):
        """Along the axes, never twice along one, and out of the plane in the third."""
        axes = [0, 1, 2]
        chance.shuffle(axes)
        order = [axes[number % 3] for number in range(len(self.legs))]
        at = [0.0, 0.0, 0.0]
        points = [at]
        for axis, leg in zip(order, self.legs):
            at = list(at)
            at[axis] += leg * chance.choice([-1, 1])
            points.append(at)
        return points

    def file(self, root, chance):
        points = self.corners(chance)
        for number in range(self.number):
            if number:
                points = points[::-1]
            element = ElementTree.SubElement(root, "CKtZantoPolygonBar")
            element.set("version", "1")
            element.set("index", str(len(root.findall("CKtZantoPolygonBar"))))
            item(element, "NoPoints", "long", str(len(points)))
            for which, point in enumerate(points):
                place(element, f"Point{which + 1}", point)
            for name in ("HookLength1", "HookLength2"):
                item(element, name, "double", "0.0000000")
            item(element, "Side", "long", "1")
            for name in ("HookAngle1", "HookAngle2"):
                item(element, name, "double", "0.0000000")
            item(element, "SteelGrade", "string", "B500B")
            item(element, "Adherence", "string", "Ha")
            item(element, "Diameter", "double", f"{self.d:.7f}")
            item(element, "Reference", "long", str(self.mark))
            item(element, "Hidden", "string", "False")


# The two held against each other


def normed(points):
    """Moved and turned so that the first straight part lies along x."""
    way = points[1] - points[0]
    turn = way.conjugate() / abs(way)
    return [(point - points[0]) * turn for point in points]


def apart(one, other):
    return max(abs(a - b) for a, b in zip(one, other))


def lay_over(record, shape):
    mine = normed(redrawn(record))
    theirs = drawn(shape.legs, shape.bends, shape.d)
    ways = [theirs, theirs[::-1]]
    ways += [[point.conjugate() for point in way] for way in ways]
    best = min(apart(mine, normed(way)) for way in ways)
    if len(mine) != len(theirs) or best > 0.5:
        fail(f"mark {shape.mark} lies {best:.2f} mm beside its drawing", record.line)


def check_spatial(record, shape):
    values = [float(field[1:]) for field in record.fields("G")]
    offsets = [values[i:i + 3] for i in range(0, len(values), 3)]
    lengths = [math.hypot(*offset) for offset in offsets]
    if max(abs(a - b) for a, b in zip(lengths, shape.outside)) > 0.5 and max(
            abs(a - b) for a, b in zip(lengths[::-1], shape.outside)) > 0.5:
        fail(f"mark {shape.mark}: legs in space", lengths, shape.outside)
    if offsets[0][0] <= 0 or offsets[0][1] or offsets[0][2] or offsets[1][1] <= 0:
        fail(f"mark {shape.mark} does not lie along x and y", record.line)


def check_record(record, shape, row, reading):
    """The header against the shape and against the row of the list."""
    expected = sum(shape.outside) if reading == "legs" else row["bent"]["centreLine"]
    if abs(record.number("l") - expected) > (0 if reading == "legs" else 0.56):
        fail(f"mark {shape.mark}: length", record.line, expected)
    if record.number("n") != shape.number or row["number"] != shape.number:
        fail(f"mark {shape.mark}: number", record.line, row["number"], shape.number)
    mass = math.pi / 4 * shape.d ** 2 * record.number("l") * DENSITY / 1e9
    if abs(record.number("e") - mass) > 0.0006:
        fail(f"mark {shape.mark}: mass", record.line, mass)
    listed = row["mass"] / row["number"] * record.number("l") / row["bent"]["centreLine"]
    if abs(mass - listed) > 0.006 + 0.002 * mass:
        fail(f"mark {shape.mark}: mass of the list", mass, listed)
    if record.number("d") != shape.d or record.number("s") != roller(shape.d):
        fail(f"mark {shape.mark}: diameter or roller", record.line)
    if shape.isSpatial != (record.kind == "BF3D"):
        fail(f"mark {shape.mark}: kind", record.line)
    if shape.isSpatial:
        check_spatial(record, shape)
    else:
        lay_over(record, shape)
        first = next((bend for _, bend in legs_of(record) if bend), 1)
        if first < 0:
            fail(f"mark {shape.mark} does not begin to the left", record.line)


def run(program, *arguments):
    done = subprocess.run([program, *map(str, arguments)], capture_output=True, check=False)
    if done.returncode != 0:
        fail(" ".join(map(str, arguments)), done.stdout.decode(), done.stderr.decode())
    return done.stdout


def check_batch(program, folder, shapes, chance):
    root = ElementTree.Element("Document")
    for shape in shapes:
        shape.file(root, chance)
    path = folder / "shapes.xml"
    ElementTree.ElementTree(root).write(path, encoding="ISO-8859-1", xml_declaration=True)
    done = run(program, "bars", path, "--json", "--angles", "deg", "--schedule", "iso3766",
               "--round-lengths", "0")
    rows = {row["mark"]: row for row in json.loads(done)["bars"]}
    if len(rows) != len(shapes):
        fail("rows of the list", len(rows), len(shapes))
    for reading in ("legs", "axis"):
        job = folder / "job.abs"
        run(program, "bars", path, "--angles", "deg", "--cut-length", reading, "-o", job)
        text = job.read_bytes()
        if text.count(b"\r\n") != text.count(b"\n") or not text.isascii():
            fail("line ends or characters")
        records = [Record(line) for line in text.decode("ascii").split("\r\n")[:-1]]
        if [record.header["p"] for record in records] != [str(shape.mark) for shape in shapes]:
            fail("marks of the records")
        for record, shape in zip(records, shapes):
            check_record(record, shape, rows[shape.mark], reading)
        found = json.loads(run(program, "check", "--json", job))["files"][0]["findings"]
        if found:
            fail("check finds something", *found[:3])
    return records


def check_bits(program, folder, records):
    """Every bit that changes the sum, one a line; each line must have an error."""
    lines = []
    for record in records:
        end = record.line.rindex("@C") + 1
        data = record.line.encode("ascii")
        for byte in range(end):
            for bit in range(5):
                turned = bytearray(data)
                turned[byte] ^= 1 << bit
                if turned[byte] not in (10, 13):
                    lines.append(bytes(turned))
    job = folder / "bits.abs"
    job.write_bytes(b"".join(line + b"\r\n" for line in lines))
    done = subprocess.run([program, "check", "--json", str(job)], capture_output=True, check=False)
    found = json.loads(done.stdout)["files"][0]["findings"]
    bad = {one["line"] for one in found if one["severity"] == "error"}
    missed = [number for number in range(1, len(lines) + 1) if number not in bad]
    if missed:
        fail(f"{len(missed)} of {len(lines)} turned bits are not found", lines[missed[0] - 1])
    return len(lines)


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 300
    seed = int(sys.argv[4]) if len(sys.argv) > 4 else 1
    folder.mkdir(parents=True, exist_ok=True)
    chance = random.Random(seed)
    batch = 500
    for begin in range(0, count, batch):
        marks = range(begin + 1, min(begin + batch, count) + 1)
        records = check_batch(program, folder, [Shape(chance, mark) for mark in marks], chance)
    turned = check_bits(program, folder, records[:10])
    print(f"{count} shapes agree, {turned} turned bits are found")


if __name__ == "__main__":
    main()
