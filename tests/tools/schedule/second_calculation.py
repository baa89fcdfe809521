#!/usr/bin/env python3
"""Makes drawings by chance, reckons their bar lists from the transfer files alone, and holds the
program's lists against them.

usage: second_calculation.py PROGRAM FOLDER [DRAWINGS [SEED]]

The transfer files are written here after docs/format.md, the lists are reckoned after docs/tool.md
and share no line with the program. Series of straight bars are laid out bar by bar, so that their
true lengths are known, too.
"""

import collections
import json
import math
import pathlib
import random
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

SHAPES = {
    "CKtZantoStraightBar": "straight bar",
    "CKtZantoLBar": "L bar",
    "CKtZantoUBar": "U bar",
    "CKtZantoPin": "pin",
    "CKtZantoPointBar": "bar seen end-on",
    "CKtZantoPolygonBar": "polygon bar",
    "CKtZantoFrameRect": "rectangular frame",
    "CKtZantoFrameCirc": "circular frame",
    "CKtZantoStirrup": "stirrup",
}
HOOKED_TWICE = ("CKtZantoFrameRect", "CKtZantoFrameCirc", "CKtZantoStirrup")


# Drawings by chance


class Drawing:
    """A transfer file under way, and what its maker knows about it."""

    def __init__(self):
        self.root = ElementTree.Element("Document")
        self.counts = collections.Counter()
        self.truths = {}  # index of a repartition: the lengths of its bars from end to end

    def add(self, name, index=None):
        self.counts[name] += 1
        element = ElementTree.SubElement(self.root, name)
        element.set("version", "1")
        element.set("index", str(self.counts[name] if index is None else index))
        return element


def number(element, name, value):
    ElementTree.SubElement(element, name).set("double", f"{value:.7f}")


def long(element, name, value):
    ElementTree.SubElement(element, name).set("long", str(value))


def text(element, name, value):
    ElementTree.SubElement(element, name).set("string", value)


def point(element, name, value):
    item = ElementTree.SubElement(element, name)
    for axis, coordinate in zip("XYZ", value):
        item.set(axis, f"{coordinate:.7f}")


def steel(element, chance, mark, diameter=None):
    text(element, "SteelGrade", chance.choice(["B500B", "B500B", "B500A"]))
    text(element, "Adherence", "Ha")
    number(element, "Diameter", diameter or chance.choice([6, 8, 10, 12, 14, 16, 20, 25, 32]))
    long(element, "Reference", mark)
    text(element, "Hidden", chance.choice(["True", "False", "False"]))


def somewhere(chance):
    return [round(chance.uniform(-5000, 5000), 1), round(chance.uniform(-5000, 5000), 1), 0.0]


def beyond(start, angle, length):
    return [start[0] + length * math.cos(angle), start[1] + length * math.sin(angle), start[2]]


def a_hook(chance):
    """A length and an angle in degrees."""
    if chance.random() < 0.4:
        return 0.0, 0.0
    return chance.choice([150.0, 220.5, 300.0]), chance.choice([45.0, 90.0, 90.0, 135.0, 180.0])


def hooks(element, chance, order):
    """In the order of the class: lengths and angles of the first and second hook."""
    pairs = [a_hook(chance), a_hook(chance)]
    for name in order:
        which = int(name[-1]) - 1
        number(element, name, pairs[which][0 if "Length" in name else 1])


TURN_BY_TURN = ["HookLength1", "HookAngle1", "HookLength2", "HookAngle2"]
LENGTHS_FIRST = ["HookLength1", "HookLength2", "HookAngle1", "HookAngle2"]


def straight_bar(drawing, chance, mark, angle=None):
    element = drawing.add("CKtZantoStraightBar")
    start = somewhere(chance)
    way = chance.uniform(0, 6.2) if angle is None else angle
    point(element, "Point1", start)
    point(element, "Point2", beyond(start, way, chance.choice([1200, 2500.4, 4000])))
    pairs = [a_hook(chance), a_hook(chance)]
    number(element, "HookLength1", pairs[0][0])
    number(element, "HookLength2", pairs[1][0])
    text(element, "Hook1Up", chance.choice(["True", "False"]))
    text(element, "Hook2Up", chance.choice(["True", "False"]))
    number(element, "HookAngle1", pairs[0][1])
    number(element, "HookAngle2", pairs[1][1])
    steel(element, chance, mark)
    return element


def pin(drawing, chance, mark):
    element = drawing.add("CKtZantoPin")
    start = somewhere(chance)
    point(element, "Point1", start)
    point(element, "Point2", beyond(start, chance.uniform(0, 6.2), chance.choice([500, 700])))
    hooks(element, chance, LENGTHS_FIRST)
    steel(element, chance, mark)
    return element


def bent_bar(drawing, chance, mark, name):
    element = drawing.add(name)
    start = somewhere(chance)
    way = chance.uniform(0, 6.2)
    corner = beyond(start, way, chance.choice([600, 800]))
    turn = chance.choice([-1, 1]) * math.radians(chance.choice([30, 60, 90, 90, 110]))
    point(element, "Point1", start)
    point(element, "Point2", corner)
    point(element, "Point3", beyond(corner, way + turn, chance.choice([900, 1300])))
    hooks(element, chance, TURN_BY_TURN)
    steel(element, chance, mark)
    return element


def polygon_bar(drawing, chance, mark):
    element = drawing.add("CKtZantoPolygonBar")
    points = [somewhere(chance)]
    way = chance.uniform(0, 6.2)
    for _ in range(chance.randint(1, 5)):
        points.append(beyond(points[-1], way, chance.choice([600, 850.3, 1400])))
        way += chance.choice([-1, 1]) * math.radians(chance.choice([0, 30, 45, 90, 90, 120]))
    if chance.random() < 0.3:
        points[-1][2] += 400
    long(element, "NoPoints", len(points))
    for place, one in enumerate(points):
        point(element, f"Point{place + 1}", one)
    pairs = [a_hook(chance), a_hook(chance)]
    number(element, "HookLength1", pairs[0][0])
    number(element, "HookLength2", pairs[1][0])
    long(element, "Side", chance.choice([0, 1]))
    number(element, "HookAngle1", pairs[0][1])
    number(element, "HookAngle2", pairs[1][1])
    steel(element, chance, mark)
    return element


def link(drawing, chance, mark, name):
    element = drawing.add(name)
    if name == "CKtZantoFrameCirc":
        center = somewhere(chance)
        radius = chance.choice([200, 350.5])
        point(element, "Center", center)
        point(element, "StartPoint", beyond(center, 0, radius))
        number(element, "FrameRadius", radius)
        number(element, "RecoverLength", chance.choice([0, 300]))
    else:
        start = somewhere(chance)
        way = chance.choice([0, 0.3, 1.57])
        second = beyond(start, way, chance.choice([400, 650]))
        point(element, "Point1", start)
        point(element, "Point2", second)
        if name == "CKtZantoFrameRect":
            point(element, "Point3", beyond(second, way + math.pi / 2, chance.choice([500, 900])))
    length, angle = a_hook(chance)
    number(element, "HookLength1", length)
    number(element, "HookAngle1", angle)
    steel(element, chance, mark, chance.choice([6, 8, 10]))
    return element


def point_bar(drawing, chance, mark):
    element = drawing.add("CKtZantoPointBar")
    point(element, "Point1", somewhere(chance))
    steel(element, chance, mark)
    return element


def mesh(drawing, chance):
    element = drawing.add("CKtZantoMesh")
    text(element, "Type", chance.choice(["ST 25 C", "ST 40 C"]))
    text(element, "Reference", chance.choice(["T1", "T2"]))
    number(element, "Angle", 0)
    number(element, "ExtensionX", chance.choice([2400, 6000]))
    number(element, "ExtensionY", 1200)
    ElementTree.SubElement(element, "Vector").set("size", "0")
    return element


def make_bar(drawing, chance, mark):
    kind = chance.randrange(9)
    if kind == 0 or kind == 1:
        return straight_bar(drawing, chance, mark)
    if kind == 2:
        return pin(drawing, chance, mark)
    if kind == 3:
        return bent_bar(drawing, chance, mark, "CKtZantoLBar")
    if kind == 4:
        return bent_bar(drawing, chance, mark, "CKtZantoUBar")
    if kind == 5:
        return polygon_bar(drawing, chance, mark)
    if kind == 6:
        return point_bar(drawing, chance, mark)
    return link(drawing, chance, mark, chance.choice(HOOKED_TWICE))


def spoil(element, chance):
    """Makes one bar such that it cannot be counted."""
    fault = chance.randrange(4)
    if fault == 0:
        element.find("Diameter").set("double", "0.0000000")
    elif fault == 1:
        element.find("Diameter").set("double", "twelve")
    elif fault == 2 and element.find("HookLength1") is not None:
        element.find("HookLength1").set("double", chance.choice(["inf", "nan"]))
    elif element.find("Point1") is not None:
        element.remove(element.find("Point1"))


def numbers_list(element, name, stem, values):
    item = ElementTree.SubElement(element, name)
    item.set("size", str(len(values)))
    for place, value in enumerate(values):
        number(item, f"{stem}{place + 1}", value)


def repartition(drawing, repeated, index, view, lists, line):
    """`line` is where the base line begins and the direction that is filed as the axis."""
    element = drawing.add("CKtZantoRepartition")
    start, axis = line
    point(element, "Point1", start)
    point(element, "Point2", [start[i] + axis[i] for i in range(3)])
    bulge = ElementTree.SubElement(element, "Bulge")
    for coordinate in "XYZ":
        bulge.set(coordinate, "0")
    long(element, "ViewPoint", view)
    item = ElementTree.SubElement(element, "Axis")
    for coordinate, value in zip("XYZ", axis):
        item.set(coordinate, repr(value))
    top, bottom, positions = lists
    numbers_list(element, "AxisDistancesTop", "DistanceTop", top)
    numbers_list(element, "AxisDistancesBottom", "DistanceBottom", bottom)
    numbers_list(element, "Positions", "Positions", positions)
    text(element, "DefClassName", repeated)
    long(element, "Index", index)
    text(element, "Hidden", "False")
    return element


def series_of_links(drawing, chance, bar):
    count = chance.randint(2, 12)
    step = chance.choice([150.0, 200.0, 166.6666667])
    lists = ([-200.0] * count, [200.0] * count, [step] * (count - 1))
    index = int(bar.get("index"))
    views = [2, 3] if chance.random() < 0.25 else [chance.choice([2, 3])]
    for view in views:
        repartition(drawing, bar.tag, index, view, lists, (somewhere(chance), [1.0, 0.0, 0.0]))


def series_in_section(drawing, chance, bar):
    count = chance.randint(2, 8)
    lists = ([40.0] * count, [460.0] * count, [150.0] * count)
    repartition(drawing, bar.tag, int(bar.get("index")), 1, lists, ([0, 0, 0], [0.0, 0.0, 0.0]))


def distance_from(line, direction, place):
    """To the left of the direction above 0."""
    away = [place[0] - line[0], place[1] - line[1]]
    length = math.hypot(*direction[:2])
    return (direction[0] * away[1] - direction[1] * away[0]) / length


def series_laid_out(drawing, chance, bar, varies):
    """Bars parallel to the repeated one, laid out one by one and measured from a line along x or y
    through the middle of the first."""
    ends = [coordinates(bar.find(name)) for name in ("Point1", "Point2")]
    drawn = math.dist(*ends)
    way = math.atan2(ends[1][1] - ends[0][1], ends[1][0] - ends[0][0])
    isAlongX = abs(math.cos(way)) < 1e-9 or (abs(math.sin(way)) > 0.3 and chance.random() < 0.5)
    if not isAlongX and abs(math.cos(way)) < 0.2:
        isAlongX = True
    axis = [10.0, 0.0, 0.0] if isAlongX else [0.0, 10.0, 0.0]
    if not varies:
        lengths = [drawn] * chance.randint(2, 9)
    else:
        lengths = [drawn * (0.5 + 0.1 * k) for k in range(chance.randint(2, 9))]
    step = chance.choice([150.0, 200.0])
    middle = somewhere(chance)
    top, bottom = [], []
    for place, length in enumerate(lengths):
        half = [math.cos(way) * length / 2, math.sin(way) * length / 2]
        at = [middle[i] + axis[i] / 10 * step * place for i in range(2)]
        top.append(distance_from(middle, axis, [at[0] - half[0], at[1] - half[1]]))
        bottom.append(distance_from(middle, axis, [at[0] + half[0], at[1] + half[1]]))
    lists = (top, bottom, [step] * (len(lengths) - 1))
    element = repartition(drawing, bar.tag, int(bar.get("index")), chance.choice([2, 3]), lists,
                          (middle, axis))
    drawing.truths[element.get("index")] = lengths


def random_drawing(chance):
    drawing = Drawing()
    bars = []
    for mark in range(1, chance.randint(2, 7)):
        for _ in range(chance.randint(1, 4)):
            bars.append(make_bar(drawing, chance, mark))
    if chance.random() < 0.3:
        spoil(chance.choice(bars), chance)
    if chance.random() < 0.3:
        mesh(drawing, chance)
    for bar in bars:
        whole = bar.find("Point1") is not None
        if chance.random() > 0.4 or bar.tag == "CKtZantoPointBar":
            continue
        if bar.tag != "CKtZantoStraightBar" or not whole:
            series_of_links(drawing, chance, bar)
        elif chance.random() < 0.3:
            series_in_section(drawing, chance, bar)
        else:
            series_laid_out(drawing, chance, bar, chance.random() < 0.6)
    if chance.random() < 0.1:
        repartition(drawing, "CKtZantoUBar", chance.choice([-1, 99]), 2,
                    ([1.0, 1.0], [0.0, 0.0], [100.0]), ([0, 0, 0], [1.0, 0.0, 0.0]))
    return drawing


# The list, from the file alone


def coordinates(item):
    return [float(item.get(axis)) for axis in "XYZ"]


def items(element):
    return {child.tag: child for child in element}


def value_of(item):
    return float(item.get("double"))


class Bar:
    def __init__(self, element):
        self.element = element
        self.tag = element.tag
        self.index = element.get("index")
        self.items = items(element)
        self.reason = self.fault()
        if self.reason is None:
            self.mark = int(self.items["Reference"].get("long"))
            self.diameter = value_of(self.items["Diameter"])
            self.grade = self.items["SteelGrade"].get("string")

    def fault(self):
        """Why it cannot be counted; None where it can."""
        needed = ["HookLength1", "HookLength2", "Diameter"] + [f"Point{k}" for k in (1, 2, 3)]
        known = {"CKtZantoPointBar": ["Point1", "Diameter"],
                 "CKtZantoFrameCirc": ["FrameRadius", "RecoverLength", "HookLength1", "Diameter"],
                 "CKtZantoFrameRect": ["Point1", "Point2", "Point3", "HookLength1", "Diameter"],
                 "CKtZantoStirrup": ["Point1", "Point2", "HookLength1", "Diameter"],
                 "CKtZantoStraightBar": ["Point1", "Point2", "HookLength1", "HookLength2",
                                         "Diameter"],
                 "CKtZantoPin": ["Point1", "Point2", "HookLength1", "HookLength2", "Diameter"],
                 "CKtZantoPolygonBar": ["Point1", "HookLength1", "HookLength2", "Diameter"],
                 }.get(self.tag, needed)
        for name in known:
            if name not in self.items:
                return "missing or no number"
            if "double" in self.items[name].attrib:
                try:
                    given = float(self.items[name].get("double"))
                except ValueError:
                    return "missing or no number"
                if not math.isfinite(given):
                    return "missing or no number"
        if not 0 < value_of(self.items["Diameter"]) < 1e10:
            return "no diameter"
        return None

    def line(self):
        """The axis without hooks, from point to point."""
        def at(name):
            return coordinates(self.items[name])
        if self.tag == "CKtZantoPolygonBar":
            return [at(f"Point{k + 1}") for k in range(int(self.items["NoPoints"].get("long")))]
        if self.tag in ("CKtZantoStraightBar", "CKtZantoPin"):
            return [at("Point1"), at("Point2")]
        if self.tag == "CKtZantoStirrup":
            return [at("Point1"), at("Point2"), at("Point1")]
        first, second, third = at("Point1"), at("Point2"), at("Point3")
        fourth = [a + c - b for a, b, c in zip(first, second, third)]
        if self.tag == "CKtZantoLBar":
            return [first, second, third]
        if self.tag == "CKtZantoUBar":
            return [first, second, third, fourth]
        return [first, second, third, fourth, first]

    def hooks(self):
        """Lengths, and angles in radians; links have theirs twice."""
        first = (value_of(self.items["HookLength1"]),
                 math.radians(value_of(self.items["HookAngle1"])))
        if self.tag in HOOKED_TWICE:
            return [first, first]
        return [first, (value_of(self.items["HookLength2"]),
                        math.radians(value_of(self.items["HookAngle2"])))]

    def axis(self, span=None):
        """With sharp corners and nothing deducted; `span` in the place of its own length."""
        both = sum(length for length, _ in self.hooks())
        if self.tag == "CKtZantoFrameCirc":
            return (both + 2 * math.pi * value_of(self.items["FrameRadius"]) +
                    value_of(self.items["RecoverLength"]))
        if span is not None:
            return both + span
        line = self.line()
        return both + sum(math.dist(a, b) for a, b in zip(line, line[1:]))

    def centre_line(self, span=None):
        """Along bends over rollers of 4 diameters up to 16 mm and 7 above; None where a leg is too
        short for its bends."""
        d = self.diameter
        radius = (4 * d if d <= 16 else 7 * d) / 2 + d / 2
        hooked = [pair for pair in self.hooks() if pair[0] > 0]
        if self.tag == "CKtZantoFrameCirc":
            length = self.axis()
            for _, angle in hooked:
                length -= 2 * radius * math.tan(min(angle, math.pi / 2) / 2) - radius * angle
            return length
        line = self.line()
        legs, turns = [], []
        if self.tag == "CKtZantoStirrup":
            length = math.dist(line[0], line[1])
            legs = [length, 2 * radius, length, 2 * radius]
            turns = [math.pi / 2] * 3
        else:
            for before, here, after in zip(line, line[1:], line[2:]):
                one = [b - a for a, b in zip(before, here)]
                other = [b - a for a, b in zip(here, after)]
                cosine = (sum(a * b for a, b in zip(one, other)) /
                          (math.hypot(*one) * math.hypot(*other)))
                turns.append(math.acos(max(-1.0, min(1.0, cosine))))
            legs = [math.dist(a, b) for a, b in zip(line, line[1:])]
            if span is not None:
                legs = [span]
        bends = [(turn, radius * math.tan(turn / 2)) for turn in turns]
        pairs = self.hooks()
        if pairs[0][0] > 0:
            legs.insert(0, pairs[0][0])
            bends.insert(0, (pairs[0][1], radius * math.tan(min(pairs[0][1], math.pi / 2) / 2)))
        if pairs[1][0] > 0:
            legs.append(pairs[1][0])
            bends.append((pairs[1][1], radius * math.tan(min(pairs[1][1], math.pi / 2) / 2)))
        # Legs without a bend between them are one.
        place = 0
        while place < len(bends):
            if bends[place][0] < 1e-4:
                legs[place:place + 2] = [legs[place] + legs[place + 1]]
                del bends[place]
            else:
                place += 1
        for place, leg in enumerate(legs):
            taken = (bends[place - 1][1] if place > 0 else 0) + (
                bends[place][1] if place < len(bends) else 0)
            if taken > leg * (1 + 1e-9):
                return None
        return sum(legs) + sum(radius * angle - 2 * reach for angle, reach in bends)


class Series:
    def __init__(self, element):
        have = items(element)
        self.index = element.get("index")

        def numbers(name):
            return [value_of(child) for child in have[name]]
        self.top = numbers("AxisDistancesTop")
        self.bottom = numbers("AxisDistancesBottom")
        self.positions = numbers("Positions")
        self.name = have["DefClassName"].get("string")
        self.target = have["Index"].get("long")
        self.view = int(have["ViewPoint"].get("long"))
        self.axis = coordinates(have["Axis"])
        self.number = len(self.top)
        self.steps = tuple(self.positions[:self.number - 1])

    def spans(self, bar):
        """The lengths of its bars where they differ, else None."""
        if (self.name != "CKtZantoStraightBar" or self.view == 1 or
                len(self.positions) != self.number - 1):
            return None
        ends = bar.line()
        way = [b - a for a, b in zip(*ends)]
        sine = abs(self.axis[0] * way[1] - self.axis[1] * way[0]) / (
            math.hypot(*self.axis[:2]) * math.hypot(*way))
        if sine < math.sin(math.radians(1)):
            sine = 1
        spans = [abs(a - b) / sine for a, b in zip(self.top, self.bottom)]
        return spans if max(spans) - min(spans) > 1 else None


class List:
    """Numbers and lengths by mark, shape, diameter and grade, and what is left out."""

    def __init__(self, path, once, measure):
        self.once = once
        self.measure = measure
        root = ElementTree.parse(path).getroot()
        self.bars = [Bar(element) for element in root if element.tag in SHAPES]
        self.series = [Series(e) for e in root if e.tag == "CKtZantoRepartition"]
        self.left = collections.Counter()
        self.lengths = collections.defaultdict(list)
        self.unsure = set()
        self.spans = {}
        for element in root:
            if element.tag == "CKtZantoMesh":
                self.left[element.tag, element.get("index"), 1, "sheets have"] += 1
        self.reckon()

    def reckon(self):
        known = {(bar.tag, bar.index): bar for bar in self.bars}
        uses = collections.defaultdict(list)
        for one in self.series:
            bar = known.get((one.name, one.target))
            if bar is None:
                self.left["CKtZantoRepartition", one.index, one.number, "the bar that"] += 1
            else:
                uses[bar].append(one)
        dropped = self.seen_again(uses) if self.once else set()
        for bar in self.bars:
            self.count(bar, uses.get(bar, []), dropped)
        self.settle_end_on(uses)

    @staticmethod
    def seen_again(uses):
        """Series of one mark with the same number and steps as one in another view."""
        groups = collections.defaultdict(list)
        for bar, series in uses.items():
            mark = int(bar.items["Reference"].get("long"))
            for one in series:
                groups[mark, one.number, min(one.steps, one.steps[::-1])].append(one)
        dropped = set()
        for group in groups.values():
            group.sort(key=lambda one: int(one.index))
            views = collections.Counter(one.view for one in group)
            if len(views) > 1:
                most = max(views.values())
                kept = next(one.view for one in group if views[one.view] == most)
                dropped.update(one for one in group if one.view != kept)
        return dropped

    def count(self, bar, series, dropped):
        counted = [one for one in series if one not in dropped]
        times = sum(one.number for one in counted) if series else 1
        if bar.reason:
            self.left[bar.tag, bar.index, times, bar.reason] += 1
            return
        key = (bar.mark, SHAPES[bar.tag], bar.diameter, bar.grade)
        if bar.tag == "CKtZantoPointBar":
            return
        if bar.tag == "CKtZantoStirrup":
            self.left[bar.tag, bar.index, times, "its width"] += 1
        self.lengths[key] += []
        if not series:
            self.add(key, bar, None, 1)
        for one in counted:
            spans = one.spans(bar)
            if spans is None:
                self.add(key, bar, None, one.number)
                continue
            self.spans[one.index] = spans
            for span in spans:
                self.add(key, bar, span, 1)

    def add(self, key, bar, span, times):
        length = bar.axis(span) if self.measure == "axis" else bar.centre_line(span)
        if length is None:
            self.unsure.add(key)
            length = 0.0
        self.lengths[key] += [length] * times

    def settle_end_on(self, uses):
        rows = {(mark, diameter, grade) for mark, _, diameter, grade in self.lengths}
        self.alone = collections.Counter()
        for bar in self.bars:
            if bar.tag != "CKtZantoPointBar" or bar.reason:
                continue
            if (bar.mark, bar.diameter, bar.grade) not in rows:
                self.left[bar.tag, bar.index, 1, "seen end-on"] += 1
                self.alone[bar.mark, SHAPES[bar.tag], bar.diameter, bar.grade] += 1


# The two held against each other


REASONS = ("the bar that", "seen end-on", "its width", "missing or no number", "no diameter",
           "no length", "sheets have")


def reason_of(sentence):
    return next(reason for reason in REASONS if reason in sentence)


def fail(path, what, mine, theirs):
    sys.exit(f"{path}: {what}\n  reckoned here: {mine}\n  the program:   {theirs}")


def compare(path, mine, rows, left, by_length):
    theirs = collections.defaultdict(lambda: [0, 0.0, []])
    for row in rows:
        key = (row["mark"], row["shape"], row["diameter"], row["grade"])
        theirs[key][0] += row["number"]
        if row["length"] is not None:
            theirs[key][1] += row["totalLength"]
            theirs[key][2] += [row["length"]] * row["number"]
    expected = {key: len(lengths) for key, lengths in mine.lengths.items()}
    expected.update(mine.alone)
    found = {key: one[0] for key, one in theirs.items()}
    if expected != found:
        fail(path, "numbers", sorted(expected.items()), sorted(found.items()))
    for key, lengths in mine.lengths.items():
        if key in mine.unsure:
            continue
        # Rows are rounded to a millimetre a bar and a centimetre a total.
        tolerance = 0.001 * len(lengths) * 1.6 + 0.006 * (1 + len(lengths))
        if abs(sum(lengths) / 1000 - theirs[key][1]) > tolerance:
            fail(path, f"total length of {key}", sum(lengths) / 1000, theirs[key][1])
        if by_length:
            for one, other in zip(sorted(lengths), sorted(theirs[key][2])):
                if abs(one - other) > 2.1:
                    fail(path, f"lengths of {key}", sorted(lengths), sorted(theirs[key][2]))
    program = collections.Counter(
        (one["class"], one["index"], one["number"], reason_of(one["reason"])) for one in left)
    if program != mine.left:
        fail(path, "what is not in the sums", sorted(mine.left - program),
             sorted(program - mine.left))


def check_folder(program, folder, drawings):
    forms = [("axis", False, []), ("axis", True, ["--views", "once", "--by-length"]),
             ("iso3766", False, ["--schedule", "iso3766", "--round-lengths", "0", "--by-length"])]
    for measure, once, options in forms:
        done = subprocess.run([program, "bars", "--json", "--angles", "deg", *options, folder],
                              capture_output=True, check=False)
        if done.returncode != 0:
            sys.exit(done.stderr.decode())
        result = json.loads(done.stdout)
        rows, left = collections.defaultdict(list), collections.defaultdict(list)
        for row in result["bars"]:
            rows[row["file"]].append(row)
        for one in result["notInSums"]:
            left[one["file"]].append(one)
        total = sum(row["mass"] or 0 for row in result["bars"])
        if abs(total - result["mass"]) > 0.006 * (len(result["bars"]) + 1):
            sys.exit(f"{folder}: {total} kg in rows, {result['mass']} kg in all")
        for path, drawing in drawings.items():
            mine = List(path, once, measure)
            for index, spans in mine.spans.items():
                for span, truth in zip(spans, drawing.truths[index]):
                    if abs(span - truth) > 1e-3:
                        fail(path, f"lengths of series {index}", span, truth)
            compare(path, mine, rows[path], left[path], "--by-length" in options)


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 300
    seed = int(sys.argv[4]) if len(sys.argv) > 4 else 1
    batch = 100
    for begin in range(0, count, batch):
        place = folder / "drawings"
        place.mkdir(parents=True, exist_ok=True)
        drawings = {}
        for which in range(begin, min(begin + batch, count)):
            drawing = random_drawing(random.Random(seed * 1000003 + which))
            path = place / f"{which - begin:03}.xml"
            ElementTree.ElementTree(drawing.root).write(path, encoding="ISO-8859-1",
                                                        xml_declaration=True)
            drawings[str(path)] = drawing
        check_folder(program, str(place), drawings)
        for path in drawings:
            pathlib.Path(path).unlink()
    print(f"{count} drawings agree")


if __name__ == "__main__":
    main()
