#!/usr/bin/env python3
"""Makes shapes by chance, has the program write bending data of them, and reads that back with a
reader of its own.

usage: bending_data.py PROGRAM FOLDER [SHAPES [SEED]]

The reader knows the format of the records alone. It recomputes checksums, redraws each shape from
its legs and lays it over the one that the drawing has, holds numbers, lengths and masses against
the bar list, and turns over every bit that a checksum can see.
"""

import cmath
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


def traced(parts):
    """Points along a course of straight parts (numbers) and arcs (radius, signed degrees): where
    parts begin and end, and quarters of each arc."""
    at, way = complex(0, 0), complex(1, 0)
    points = [at]
    for part in parts:
        if not isinstance(part, tuple):
            at += way * part
            points.append(at)
            continue
        radius, angle = part
        center = at + way * (1j if angle > 0 else -1j) * radius
        for quarter in (0.25, 0.5, 0.75, 1.0):
            turn = cmath.exp(1j * math.radians(angle * quarter))
            points.append(center + (at - center) * turn)
        at = points[-1]
        way *= turn
    return points


def redrawn(record):
    """The centre line of a plane shape, as parts: legs are outside dimensions, arcs are of the axis
    and follow the bends at their ends."""
    d, s = record.number("d"), record.number("s")
    legs = legs_of(record)
    parts = []
    for place, (length, bend) in enumerate(legs):
        before = legs[place - 1][1] if place else 0
        if isinstance(length, tuple):
            parts.append(length)
        else:
            parts.append(length - share(before, d, s) - share(bend, d, s))
        if bend:
            parts.append(((s + d) / 2, bend))
    return parts


# Shapes by chance


def item(parent, name, kind, value):
    ElementTree.SubElement(parent, name).set(kind, value)


def place(parent, name, point):
    found = ElementTree.SubElement(parent, name)
    for axis, value in zip("XYZ", point):
        found.set(axis, f"{value:.7f}")


def roller(d):
    return 4 * d if d <= 16 else 7 * d


def corner_of(angle, is_hook):
    """Up to where a bend has a corner: a hook beyond a right angle begins on the line that it
    touches at the end of the bar."""
    return math.radians(min(abs(angle), 90) if is_hook else abs(angle)) / 2


class Shape:
    """A plane bar whose outside legs are whole millimetres: its legs, hooks among them, and the bends
    between. What of it is filed depends on the class."""

    kind = "BF2D"

    def __init__(self, chance, mark):
        self.chance = chance
        self.mark = mark
        self.d = chance.choice([6, 8, 10, 12, 14, 16, 20, 25, 32])
        self.number = chance.randint(1, 3)
        self.radius = (roller(self.d) + self.d) / 2
        self.least = int(12 * (roller(self.d) + 2 * self.d))
        self.bends = []
        self.outside = []
        self.has_hooks = [False, False]
        self.make()
        self.legs = [self.axis(number) for number in range(len(self.outside))]

    def leg(self):
        return self.chance.randint(self.least, self.least + 2000)

    def hook(self):
        return self.chance.randint(roller(self.d) + 2 * self.d, roller(self.d) + 2 * self.d + 300)

    def add_hooks(self, sides, angles=(45, 90, 90, 135, 150, 180), both=False):
        """Hooks that turn to these sides; both alike where the file has one for both."""
        one = (self.hook(), self.chance.choice(angles)) if both else None
        for end in (0, 1):
            if not both and self.chance.random() < 0.4:
                continue
            length, angle = one or (self.hook(), self.chance.choice(angles))
            self.has_hooks[end] = True
            place = 0 if end == 0 else len(self.outside)
            self.outside.insert(place, length)
            self.bends.insert(0 if end == 0 else len(self.bends), sides[end] * angle)

    def is_hook(self, bend):
        return (bend == 0 and self.has_hooks[0]) or (
            bend == len(self.bends) - 1 and self.has_hooks[1])

    def axis(self, number):
        """The leg of the axis, from corner to corner."""
        length = self.outside[number]
        for bend in range(max(0, number - 1), min(number + 1, len(self.bends))):
            half = corner_of(self.bends[bend], self.is_hook(bend))
            if abs(self.bends[bend]) <= 90 or self.is_hook(bend):
                length -= self.d / 2 * math.tan(half)
            else:
                length += self.radius * math.tan(half) - self.radius - self.d / 2
        return length

    def parts(self):
        """The centre line: straight parts and bends."""
        reaches = [self.radius * math.tan(corner_of(angle, self.is_hook(bend)))
                   for bend, angle in enumerate(self.bends)]
        parts = []
        for number, leg in enumerate(self.legs):
            parts.append(leg - sum(reaches[max(0, number - 1):number + 1]))
            if number < len(self.bends):
                parts.append((self.radius, self.bends[number]))
        return parts

    def length(self):
        return sum(self.outside)

    def inner(self):
        """Legs and bends without hooks."""
        first, last = (1 if has else 0 for has in self.has_hooks)
        return (self.legs[first:len(self.legs) - last], self.bends[first:len(self.bends) - last])

    def corners(self):
        legs, bends = self.inner()
        way = self.chance.uniform(0, 2 * math.pi)
        at = [self.chance.uniform(-9000, 9000), self.chance.uniform(-9000, 9000), 0.0]
        points = [at]
        for number, leg in enumerate(legs):
            at = [at[0] + leg * math.cos(way), at[1] + leg * math.sin(way), 0.0]
            points.append(at)
            if number < len(bends):
                way += math.radians(bends[number])
        return points

    def file_hooks(self, element, names):
        for name in names:
            end = int(name[-1]) - 1
            length = self.legs[-1 if end else 0] if self.has_hooks[end] else 0.0
            angle = abs(self.bends[-1 if end else 0]) if self.has_hooks[end] else 0.0
            item(element, name, "double", f"{length if 'Length' in name else angle:.7f}")

    def file_steel(self, element):
        item(element, "SteelGrade", "string", "B500B")
        item(element, "Adherence", "string", "Ha")
        item(element, "Diameter", "double", f"{self.d:.7f}")
        item(element, "Reference", "long", str(self.mark))
        item(element, "Hidden", "string", "False")

    def file(self, root):
        points = self.corners()
        for number in range(self.number):
            element = ElementTree.SubElement(root, self.name)
            element.set("version", "1")
            element.set("index", str(len(root.findall(self.name))))
            self.file_items(element, points, number)
            self.file_steel(element)

    def file_points(self, element, points):
        for which, point in enumerate(points):
            place(element, f"Point{which + 1}", point)


LENGTHS_FIRST = ["HookLength1", "HookLength2", "HookAngle1", "HookAngle2"]
TURN_BY_TURN = ["HookLength1", "HookAngle1", "HookLength2", "HookAngle2"]


class PolygonBar(Shape):
    name = "CKtZantoPolygonBar"

    def make(self):
        count = self.chance.randint(1, 6)
        angles = [90, 90, 90, 45, 30, 60, 117.5, 135, 12.25]
        self.bends = [self.chance.choice(angles) * self.chance.choice([-1, 1])
                      for _ in range(count - 1)]
        self.outside = [self.leg() for _ in range(count)]
        self.side = self.chance.choice([-1, 1])
        if self.chance.random() < 0.5:
            self.add_hooks((self.side, self.side))

    def file_items(self, element, points, number):
        if number and not any(self.has_hooks):
            points = points[::-1]  # equal shapes give equal records, from whichever end
        item(element, "NoPoints", "long", str(len(points)))
        self.file_points(element, points)
        self.file_hooks(element, LENGTHS_FIRST[:2])
        item(element, "Side", "long", str(int(self.side > 0)))
        self.file_hooks(element, LENGTHS_FIRST[2:])


class SpatialBar(PolygonBar):
    kind = "BF3D"

    def make(self):
        count = self.chance.randint(3, 6)
        self.side = 1
        self.bends = [90] * (count - 1)
        self.outside = [self.leg() for _ in range(count)]

    def corners(self):
        """Along the axes, never twice along one, and out of the plane in the third."""
        axes = [0, 1, 2]
        self.chance.shuffle(axes)
        at = [0.0, 0.0, 0.0]
        points = [at]
        for number, leg in enumerate(self.legs):
            at = list(at)
            at[axes[number % 3]] += leg * self.chance.choice([-1, 1])
            points.append(at)
        return points


class StraightBar(Shape):
    name = "CKtZantoStraightBar"

    def make(self):
        self.outside = [self.leg()]
        self.sides = [self.chance.choice([-1, 1]), self.chance.choice([-1, 1])]
        self.add_hooks(self.sides)

    def file_items(self, element, points, number):
        self.file_points(element, points)
        self.file_hooks(element, LENGTHS_FIRST[:2])
        for end in (0, 1):
            item(element, f"Hook{end + 1}Up", "string", str(self.sides[end] > 0))
        self.file_hooks(element, LENGTHS_FIRST[2:])


class Pin(Shape):
    name = "CKtZantoPin"

    def make(self):
        self.outside = [self.leg()]
        self.add_hooks((1, 1))

    def file_items(self, element, points, number):
        self.file_points(element, points)
        self.file_hooks(element, LENGTHS_FIRST)


class LBar(Shape):
    name = "CKtZantoLBar"

    def make(self):
        side = self.chance.choice([-1, 1])
        self.outside = [self.leg(), self.leg()]
        self.bends = [side * self.chance.choice([90, 90, 45, 60, 110])]
        self.add_hooks((side, side))

    def file_items(self, element, points, number):
        self.file_points(element, points[:3])
        self.file_hooks(element, TURN_BY_TURN)


class UBar(LBar):
    name = "CKtZantoUBar"

    def make(self):
        side = self.chance.choice([-1, 1])
        first = self.leg()
        self.outside = [first, self.leg(), first]
        self.bends = [side * 90, side * 90]
        if self.chance.random() < 0.7:  # with both hooks the legs stay equal
            self.add_hooks((side, side), (90, 135, 180), True)


class FrameRect(Shape):
    name = "CKtZantoFrameRect"

    def make(self):
        side = self.chance.choice([-1, 1])
        sides = [self.leg(), self.leg()]
        self.outside = sides + sides
        self.bends = [side * 90] * 3
        self.add_hooks((side, side), (90, 135, 150), True)

    def file_items(self, element, points, number):
        self.file_points(element, points[:3])
        self.file_hooks(element, TURN_BY_TURN[:2])


class FrameCirc(Shape):
    name = "CKtZantoFrameCirc"

    def make(self):
        self.ring = self.chance.randint(150, 900)
        self.overlap = self.chance.choice([0, 200, self.chance.uniform(50, 900)])
        self.has_hooks = [self.chance.random() < 0.6] * 2
        self.hooked = (self.hook(), self.chance.choice([90, 135, 150]))
        self.outside = []

    def opening(self):
        return 360 + math.degrees(self.overlap / self.ring)

    def hook_axis(self):
        return self.hooked[0] - self.d / 2

    def parts(self):
        ring = [(self.ring, self.opening())]
        if not self.has_hooks[0]:
            return ring
        straight, bend = self.hook_axis() - self.radius, (self.radius, self.hooked[1])
        return [straight, bend, *ring, bend, straight]

    def length(self):
        around = self.ring * math.radians(self.opening())
        return around + (2 * self.hooked[0] if self.has_hooks[0] else 0)

    def corners(self):
        return [[self.chance.uniform(-9000, 9000), 0.0, 0.0]]

    def file_items(self, element, points, number):
        center = points[0]
        place(element, "Center", center)
        place(element, "StartPoint", [center[0] + self.ring, center[1], 0.0])
        item(element, "FrameRadius", "double", f"{self.ring:.7f}")
        item(element, "RecoverLength", "double", f"{self.overlap:.7f}")
        has = self.has_hooks[0]
        item(element, "HookLength1", "double", f"{self.hook_axis() if has else 0:.7f}")
        item(element, "HookAngle1", "double", f"{self.hooked[1] if has else 0:.7f}")


class Mesh:
    """A sheet from stock, some times over."""

    def __init__(self, chance, mark):
        self.mark = f"M{mark}"
        self.type = chance.choice(["ST 25 C", "ST 40 C", "Q188A"])
        self.width, self.height = chance.randint(500, 6000), chance.randint(500, 2400)
        self.number = chance.randint(1, 4)

    def file(self, root):
        for _ in range(self.number):
            element = ElementTree.SubElement(root, "CKtZantoMesh")
            element.set("version", "1")
            element.set("index", str(len(root.findall("CKtZantoMesh"))))
            item(element, "Type", "string", self.type)
            item(element, "Reference", "string", self.mark)
            item(element, "Angle", "double", "0.0000000")
            item(element, "ExtensionX", "double", f"{self.width:.7f}")
            item(element, "ExtensionY", "double", f"{self.height:.7f}")
            ElementTree.SubElement(element, "Vector").set("size", "0")


CLASSES = [PolygonBar, PolygonBar, SpatialBar, StraightBar, Pin, LBar, UBar, FrameRect, FrameCirc]


# The two held against each other


def normed(points):
    """Moved and turned so that the first straight part lies along x."""
    way = points[1] - points[0]
    turn = way.conjugate() / abs(way)
    return [(point - points[0]) * turn for point in points]


def apart(one, other):
    return max(abs(a - b) for a, b in zip(one, other))


def lay_over(record, shape):
    mine = normed(traced(redrawn(record)))
    parts = shape.parts()
    ways = []
    for way in (parts, parts[::-1]):
        points = traced(way)
        ways += [points, [point.conjugate() for point in points]]
    best = min(apart(mine, normed(way)) for way in ways)
    if len(mine) != len(ways[0]) or best > 0.5:
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
    is_ring = shape.name == "CKtZantoFrameCirc"
    expected = shape.length() if reading == "legs" else row["bent"]["centreLine"]
    if abs(record.number("l") - expected) > (0.56 if is_ring or reading == "axis" else 0.001):
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
    if record.kind != shape.kind:
        fail(f"mark {shape.mark}: kind", record.line)
    if shape.kind == "BF3D":
        check_spatial(record, shape)
        return
    lay_over(record, shape)
    first = next((float(field[1:]) for field in record.fields("G")
                  if field[0] == "w" and float(field[1:])), 1)
    if first < 0:
        fail(f"mark {shape.mark} does not begin to the left", record.line)


def check_mesh(record, mesh):
    expected = {"p": mesh.mark, "l": str(mesh.width), "b": str(mesh.height), "m": mesh.type,
                "n": str(mesh.number), "e": "", "g": "", "s": ""}
    found = {letter: record.header[letter] for letter in expected}
    if record.kind != "BFMA" or found != expected or record.fields("G"):
        fail(f"mesh {mesh.mark}", record.line, expected)


def run(program, *arguments):
    done = subprocess.run([program, *map(str, arguments)], capture_output=True, check=False)
    if done.returncode != 0:
        fail(" ".join(map(str, arguments)), done.stdout.decode(), done.stderr.decode())
    return done.stdout


def check_batch(program, folder, shapes, meshes):
    root = ElementTree.Element("Document")
    for one in (*shapes, *meshes):
        one.file(root)
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
        if sorted(record.header["p"] for record in records) != sorted(
                str(one.mark) for one in (*shapes, *meshes)):
            fail("marks of the records")
        of_mark = {record.header["p"]: record for record in records}
        for shape in shapes:
            check_record(of_mark[str(shape.mark)], shape, rows[shape.mark], reading)
        for mesh in meshes:
            check_mesh(of_mark[mesh.mark], mesh)
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
        shapes = [chance.choice(CLASSES)(chance, mark) for mark in marks]
        meshes = [Mesh(chance, mark) for mark in range(1, 20)]
        records = check_batch(program, folder, shapes, meshes)
    turned = check_bits(program, folder, records[:10])
    print(f"{count} shapes agree, {turned} turned bits are found")


if __name__ == "__main__":
    main()
