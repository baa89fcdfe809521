#!/usr/bin/env python3
"""Makes drawings by chance, judges their detailing from docs/tool.md alone, and holds the findings
801 to 810 of the program against that.

usage: second_opinion.py PROGRAM FOLDER [DRAWINGS [SEED]]

Nothing here is the program's: the drawings are made so that the truth about them is known, outlines
are polygons in their order, and every gap is measured against every line.
"""

import json
import math
import pathlib
import random
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

SLACK = 0.1  # mm and degrees by which a limit may be missed
LINKS = ("CKtZantoFrameRect", "CKtZantoFrameCirc", "CKtZantoStirrup")
PROJECTIONS = {6: 110, 8: 115, 10: 120, 12: 125, 16: 130, 20: 190, 25: 240, 32: 305, 40: 380}
RADII = {6: 2.5, 8: 2.75, 10: 3.5, 12: 4.25, 16: 7.5, 20: 14, 25: 30, 32: 43, 40: 58}
DIAMETERS = [6, 8, 10, 12, 14, 16, 20, 25, 32]


def fail(what, *more):
    sys.exit("\n  ".join([what, *map(str, more)]))


# Drawings by chance


class Bar:
    """What a bar is, beside what of it is filed."""

    def __init__(self, name, chance, mark):
        self.name = name
        self.mark = mark
        self.d = chance.choice(DIAMETERS)
        self.is_smooth = chance.random() < 0.15
        self.is_hidden = chance.random() < 0.1
        self.hooks = [None, None]  # pairs of length and degrees
        self.legs = []  # of the axis, without hooks
        self.bends = []  # signed degrees between the legs
        self.line = []  # what is drawn of it
        self.ring = None  # centre and radius
        self.overlap = 0.0
        self.index = 0

    @property
    def is_link(self):
        return self.name in LINKS


def hook_by_chance(chance):
    if chance.random() < 0.35:
        return None
    return chance.choice([40, 55, 70, 90, 100, 120, 150, 200, 260, 400]), chance.choice(
        [45, 90, 90, 135, 135, 150, 180])


def along(start, degrees, length):
    angle = math.radians(degrees)
    return (start[0] + length * math.cos(angle), start[1] + length * math.sin(angle))


def walk(start, way, legs, bends):
    points = [start]
    for number, leg in enumerate(legs):
        points.append(along(points[-1], way, leg))
        if number < len(bends):
            way += bends[number]
    return points


def bar_by_chance(chance, mark):
    name = "CKtZanto" + chance.choice(["StraightBar", "StraightBar", "LBar", "UBar", "Pin", "PolygonBar",
                                       "PolygonBar", "PointBar", "FrameRect", "FrameCirc", "Stirrup"])
    bar = Bar(name, chance, mark)
    start = (chance.uniform(-500, 4500), chance.uniform(-500, 2500))
    way = chance.choice([0, 90, 180, chance.uniform(0, 360)])
    leg = lambda: chance.choice([45, 60, 90, 130, 200, 400, 900, 2500])
    if name == "CKtZantoPointBar":
        bar.ring = (start, 0.0)
        return bar, start
    bar.hooks = [hook_by_chance(chance), hook_by_chance(chance)]
    if name == "CKtZantoFrameCirc":
        bar.ring = (start, chance.choice([150, 400, 2600, 4000, 9000]))
        bar.overlap = chance.choice([0, 300])
    elif name in ("CKtZantoStraightBar", "CKtZantoPin"):
        bar.legs = [chance.choice([300, 900, 2500, 6000, 13000])]
    elif name == "CKtZantoLBar":
        bar.legs, bar.bends = [leg(), leg()], [chance.choice([30, 60, 90, 90, 110, 155]) * chance.choice([-1, 1])]
    elif name == "CKtZantoUBar":
        side, bend = leg(), 90 * chance.choice([-1, 1])
        bar.legs, bar.bends = [side, leg(), side], [bend, bend]
    elif name == "CKtZantoStirrup":
        bar.legs = [leg()]
    elif name == "CKtZantoFrameRect":
        bar.legs, bar.bends = [leg() + 30, leg() + 40], [90]
    elif chance.random() < 0.3:  # an arc in facets
        turn, count = chance.choice([5, 10, 20]), chance.randint(3, 12)
        facet = chance.choice([60, 300, 1500])
        bar.legs = [facet] * (count + 1)
        bar.bends = [turn * chance.choice([-1, 1])] * count
        if chance.random() < 0.5:
            bar.legs[0] = bar.legs[-1] = 1000
    else:
        count = chance.randint(2, 6)
        bar.legs = [leg() for _ in range(count)]
        bar.bends = [chance.choice([31, 45, 60, 90, 90, 90, 120]) * chance.choice([-1, 1])
                     for _ in range(count - 1)]
    if bar.legs:
        bar.line = walk(start, way, bar.legs, bar.bends)
    if bar.is_link:
        bar.hooks[1] = bar.hooks[0]
    return bar, start


def item(parent, name, kind, value):
    ElementTree.SubElement(parent, name).set(kind, value)


def real(parent, name, value):
    item(parent, name, "double", f"{value:.7f}")


def place(parent, name, point):
    found = ElementTree.SubElement(parent, name)
    for axis, value in zip("XYZ", (*point, 0.0)):
        found.set(axis, f"{value:.7f}")


class Drawing:
    def __init__(self):
        self.root = ElementTree.Element("Document")
        self.counts = {}
        self.bars = []
        self.series = []
        self.outlines = []  # lists of points; closed where the first comes again
        self.has_arcs = False

    def add(self, name):
        self.counts[name] = self.counts.get(name, 0) + 1
        element = ElementTree.SubElement(self.root, name)
        element.set("version", "1")
        element.set("index", str(self.counts[name]))
        return element

    def add_bar(self, bar, start):
        element = self.add(bar.name)
        bar.index = self.counts[bar.name]
        if bar.name == "CKtZantoFrameCirc":
            place(element, "Center", bar.ring[0])
            place(element, "StartPoint", (start[0] + bar.ring[1], start[1]))
            real(element, "FrameRadius", bar.ring[1])
            real(element, "RecoverLength", bar.overlap)
        elif bar.name == "CKtZantoPolygonBar":
            item(element, "NoPoints", "long", str(len(bar.line)))
        points = [start] if bar.name == "CKtZantoPointBar" else bar.line
        filed = points[:3] if bar.name == "CKtZantoUBar" else points
        for number, point in enumerate(filed):
            place(element, f"Point{number + 1}", point)
        for number in (1, 2) if not bar.is_link else (1,):
            hook = bar.hooks[number - 1] or (0.0, 0.0)
            if bar.name != "CKtZantoPointBar":
                real(element, f"HookLength{number}", hook[0])
                real(element, f"HookAngle{number}", hook[1])
        if bar.name == "CKtZantoStraightBar":
            item(element, "Hook1Up", "string", "True")
            item(element, "Hook2Up", "string", "True")
        if bar.name == "CKtZantoPolygonBar":
            item(element, "Side", "long", "1")
        item(element, "SteelGrade", "string", "B500B")
        item(element, "Adherence", "string", "Dx" if bar.is_smooth else "Ha")
        real(element, "Diameter", bar.d)
        item(element, "Reference", "long", str(bar.mark))
        item(element, "Hidden", "string", str(bar.is_hidden))
        self.bars.append(bar)

    def add_series(self, bar, chance):
        """Bars across a line along x; `slope` is how far they lean."""
        count = chance.randint(2, 8)
        steps = [chance.choice([15, 30, 45, 60, 100, 200]) for _ in range(count - 1)]
        lean = bar.line[1][0] - bar.line[0][0], bar.line[1][1] - bar.line[0][1]
        if abs(lean[1]) < 0.05 * math.hypot(*lean):
            return  # a bar along the line was drawn in another view
        half = abs(lean[1]) / 2
        element = self.add("CKtZantoRepartition")
        place(element, "Point1", (0.0, 0.0))
        place(element, "Point2", (sum(steps), 0.0))
        place(element, "Bulge", (0.0, 0.0))
        item(element, "ViewPoint", "long", "2")
        place(element, "Axis", (sum(steps), 0.0))
        for name, stem, values in (("AxisDistancesTop", "DistanceTop", [half] * count),
                                   ("AxisDistancesBottom", "DistanceBottom", [-half] * count),
                                   ("Positions", "Positions", steps)):
            found = ElementTree.SubElement(element, name)
            found.set("size", str(len(values)))
            for number, value in enumerate(values):
                real(found, f"{stem}{number + 1}", value)
        item(element, "DefClassName", "string", bar.name)
        item(element, "Index", "long", str(bar.index))
        item(element, "Hidden", "string", "False")
        share = abs(lean[1]) / math.hypot(*lean)
        self.series.append((bar, self.counts["CKtZantoRepartition"],
                            [step * share for step in steps]))

    def add_formwork(self, chance):
        left, low = chance.uniform(-300, 3000), chance.uniform(-300, 2000)
        width, height = chance.uniform(300, 5000), chance.uniform(300, 2000)
        corners = [(left, low), (left + width, low), (left + width, low + height), (left, low + height)]
        kind = chance.randrange(4)
        sides = list(zip(corners, corners[1:] + corners[:1]))
        if kind == 0:
            sides = sides[:3]
        bulge = height / 2 if kind == 1 else 0.0  # a half circle for the right side
        self.has_arcs = self.has_arcs or kind == 1
        groups = [[side] for side in sides] if chance.random() < 0.5 else [sides]
        for group in groups:
            element = self.add("CKtZantoFormwork")
            vector = ElementTree.SubElement(element, "Vector")
            vector.set("size", str(2 * len(group)))
            for number, (one, other) in enumerate(group):
                place(vector, f"Point{2 * number + 1}", one)
                place(vector, f"Point{2 * number + 2}", other)
                isRight = (one, other) == (corners[1], corners[2])
                place(vector, f"Bulge{number + 1}", (bulge if isRight else 0.0, 0.0))
        outline = [sides[0][0]]
        for one, other in sides:
            if bulge and one == corners[1]:
                center = (left + width, low + height / 2)
                outline += [along(center, -90 + 180 * part / 400, height / 2) for part in range(1, 400)]
            outline.append(other)
        self.outlines.append(outline)


def drawing_by_chance(chance):
    drawing = Drawing()
    for _ in range(chance.choice([0, 1, 2, 3])):
        drawing.add_formwork(chance)
    for mark in range(1, chance.randint(4, 14)):
        for _ in range(chance.choice([1, 1, 2])):
            bar, start = bar_by_chance(chance, mark)
            drawing.add_bar(bar, start)
            if bar.name == "CKtZantoStraightBar" and chance.random() < 0.6:
                drawing.add_series(bar, chance)
    control = drawing.add("CKtDrawingControl")
    item(control, "DrawingName", "string", "D")
    return drawing


# The second opinion


def roller(d, options):
    if "mandrel" in options:
        return options["mandrel"]
    return least_roller(d)


def least_roller(d):
    return 4 * d if d <= 16 else 7 * d


class Bent:
    """Legs with hooks, and between them turns in degrees; `takes` is what a turn takes of a leg."""

    def __init__(self, bar, options, reads_straight):
        self.radius = (roller(bar.d, options) + bar.d) / 2
        legs, bends = list(bar.legs), list(bar.bends)
        self.unknown = set()
        if bar.name == "CKtZantoFrameRect":
            legs, bends = legs + legs, [90, 90, 90]
        elif bar.name == "CKtZantoStirrup":
            width = roller(bar.d, options) + bar.d
            legs, bends, self.unknown = [legs[0], width, legs[0], width], [90, 90, 90], {1, 3}
        elif bar.ring:
            legs = [2 * math.pi * bar.ring[1] + bar.overlap]
        self.is_ring = bar.ring is not None
        self.hook_first = bar.hooks[0] is not None
        self.hook_last = bar.hooks[1] is not None
        self.is_hook = [False] * len(bends)
        if self.hook_first:
            legs.insert(0, bar.hooks[0][0])
            bends.insert(0, bar.hooks[0][1])
            self.is_hook.insert(0, True)
            self.unknown = {number + 1 for number in self.unknown}
        if self.hook_last:
            legs.append(bar.hooks[1][0])
            bends.append(bar.hooks[1][1])
            self.is_hook.append(True)
        self.ring_leg = (1 if self.hook_first else 0) if self.is_ring else None
        self.bends = bends
        self.legs = legs
        if reads_straight:
            if self.hook_first:
                legs[0] += self.takes(0)
            if self.hook_last:
                legs[-1] += self.takes(len(bends) - 1)
        self.rooms = [leg - sum(self.takes(bend) for bend in (number - 1, number)
                                if 0 <= bend < len(bends)) for number, leg in enumerate(legs)]

    def takes(self, bend):
        most = 90 if self.is_hook[bend] else 180 * 0.999
        return self.radius * math.tan(math.radians(min(abs(self.bends[bend]), most)) / 2)

    def centre_line(self):
        shares = [1.0] * len(self.bends)
        for number, leg in enumerate(self.legs):
            wanted = leg - self.rooms[number]
            if wanted > leg * (1 + 1e-9):
                for bend in (number - 1, number):
                    if 0 <= bend < len(self.bends):
                        shares[bend] = min(shares[bend], leg / wanted)
        total = sum(self.legs)
        for bend, share in enumerate(shares):
            total += share * (self.radius * math.radians(abs(self.bends[bend])) - 2 * self.takes(bend))
        return total

    def arcs(self):
        """Runs of facets: (first bend, last bend, radius)."""
        found, first = [], 0
        like = lambda a, b: min(a, b) >= 0.9 * max(a, b)
        while first < len(self.bends):
            last = first
            flat = lambda bend: not self.is_hook[bend] and abs(self.bends[bend]) <= 30.0000001
            while (flat(first) and last + 1 < len(self.bends) and flat(last + 1)
                   and self.bends[last] * self.bends[last + 1] > 0
                   and like(abs(self.bends[last]), abs(self.bends[last + 1]))
                   and like(self.legs[first + 1], self.legs[last + 1])):
                last += 1
            if last - first >= 2:
                found.append((first, last, self.legs[first + 1] / 2 / math.sin(
                    math.radians(abs(self.bends[first + 1])) / 2)))
            first = last + 1
        return found


class Opinion:
    def __init__(self, options):
        self.options = options
        self.found = []  # (code, class, index, item, mark, value, limit)
        self.is_cover_known = True
        self.left_out = {}

    def say(self, code, bar, item_name, value, limit):
        self.found.append((code, bar.name, str(bar.index), item_name, bar.mark, value, limit))

    def leave_out(self, code):
        self.left_out[code] = self.left_out.get(code, 0) + 1

    def judge_bar(self, bar):
        if bar.name == "CKtZantoPointBar":
            return
        meaning = self.options.get("hooks")
        least = Bent(bar, self.options, meaning == "straight")
        most = Bent(bar, self.options, meaning != "corner")
        arcs = least.arcs()
        facets = {bend for first, last, _ in arcs for bend in range(first, last + 1)}
        length = least.centre_line()
        if length > self.options["stock"] + SLACK:
            self.say(804, bar, "", length, self.options["stock"])
        if "mandrel" in self.options and set(range(len(least.bends))) - facets:
            if self.options["mandrel"] < least_roller(bar.d) - 0.001:
                self.say(805, bar, "Diameter", self.options["mandrel"], least_roller(bar.d))
        if "ec2" in self.options["rules"]:
            self.judge_link(bar, least, most)
            self.judge_smooth(bar, least, facets)
        if "bs8666" in self.options["rules"]:
            self.judge_ends(bar, least, most, facets)
            self.judge_legs(bar, least, facets)
            self.judge_arcs(bar, arcs)

    def judge_link(self, bar, least, most):
        if not bar.is_link:
            return
        if not bar.hooks[0] or bar.hooks[0][1] < 90:
            self.leave_out(801)
            return
        limit = max(5 * bar.d, 50) if bar.hooks[0][1] >= 135 else max(10 * bar.d, 70)
        if most.rooms[0] < limit - SLACK:
            self.say(801, bar, "HookLength1", most.rooms[0], limit)
        elif least.rooms[0] < limit - SLACK:
            self.leave_out(801)

    def judge_smooth(self, bar, least, facets):
        if not bar.is_smooth or bar.is_link or bar.d <= 8:
            return
        turns = [0 if bend in facets else abs(least.bends[bend])
                 for bend in ((0, len(least.bends) - 1) if least.bends else ())] or [0, 0]
        if min(turns) < 150:
            self.say(810, bar, "Adherence", min(turns), 150)

    def end_item(self, bar, least, is_last):
        if (least.hook_last if is_last else least.hook_first):
            return "HookLength2" if is_last and not bar.is_link else "HookLength1"
        if bar.name == "CKtZantoPolygonBar":
            return "NoPoints"
        return "Point3" if is_last else "Point1"

    def judge_ends(self, bar, least, most, facets):
        bend_width = bar.d + roller(bar.d, self.options) / 2
        shorts = []
        for is_last in (False, True):
            bend = len(least.bends) - 1 if is_last else 0
            leg = len(least.legs) - 1 if is_last else 0
            if not least.bends or bend in facets or leg == least.ring_leg or (is_last and bar.is_link):
                continue
            limits = [max(5 * bar.d, 90) + bend_width]
            if bar.is_link and abs(least.bends[bend]) < 150:
                limits = [max(10 * bar.d, 90) + bend_width]
            elif "mandrel" not in self.options and bar.d in PROJECTIONS:
                limits.append(PROJECTIONS[bar.d])
            value, other = most.rooms[leg] + bend_width, least.rooms[leg] + bend_width
            if value < min(limits) - SLACK:
                shorts.append((self.end_item(bar, least, is_last), value, min(limits)))
            elif value < max(limits) - SLACK or other < min(limits) - SLACK:
                self.leave_out(802)
        if len(shorts) == 2 and shorts[0][2] == shorts[1][2] and abs(shorts[0][1] - shorts[1][1]) < 0.1:
            shorts.pop()
        for short in shorts:
            self.say(802, bar, *short)

    def judge_legs(self, bar, least, facets):
        worst = None
        for leg in range(1, len(least.legs) - 1):
            before, behind = least.bends[leg - 1], least.bends[leg]
            if leg in least.unknown:
                self.leave_out(803)
                continue
            # Which side a hook goes to follows from the next corner, but for the classes that say it.
            alike = before * behind > 0 or least.is_hook[leg - 1] or least.is_hook[leg]
            turns_back = alike and abs(before) == abs(behind) == 90 and abs(least.rooms[leg]) <= 1.05
            if leg == least.ring_leg or {leg - 1, leg} & facets or turns_back:
                continue
            worst = leg if worst is None or least.rooms[leg] < least.rooms[worst] else worst
        if worst is not None and least.rooms[worst] < 4 * bar.d - SLACK:
            self.say(803, bar, "", least.rooms[worst], 4 * bar.d)

    def judge_arcs(self, bar, arcs):
        radii = [radius for _, _, radius in arcs]
        if bar.name == "CKtZantoFrameCirc":
            radii = [bar.ring[1]]
        if not radii:
            return
        if bar.d not in RADII:
            self.leave_out(809)
        elif max(radii) > RADII[bar.d] * 1000 + SLACK:
            self.say(809, bar, "FrameRadius" if bar.ring else "", max(radii), RADII[bar.d] * 1000)

    def judge_series(self, series):
        bar, index, gaps = series
        limit = max(bar.d, 20, self.options.get("aggregate", 0) + 5 if "aggregate" in self.options else 0)
        if "ec2" in self.options["rules"] and min(gaps) - bar.d < limit - SLACK:
            self.found.append((806, "CKtZantoRepartition", str(index), "Positions", bar.mark,
                               min(gaps) - bar.d, limit))

    def judge_places(self, drawing):
        lines = [pair for outline in drawing.outlines for pair in zip(outline, outline[1:])]
        if not lines:
            return
        inside, outside = set(), []
        for bar in drawing.bars:
            if bar.is_hidden:
                continue
            body = Body(bar)
            passing = any(body.is_passed_by(line) for line in lines)
            if not passing and not body.lies_in(drawing.outlines):
                outside.append(bar)
                continue
            inside.add(bar.mark)
            # Which chords of an arc are drawn on through a bar depends on how the arc is cut.
            self.is_cover_known = self.is_cover_known and not (passing and drawing.has_arcs)
            if "cover" not in self.options:
                continue
            cover = min((gap for line in lines for gap in body.gaps(line, passing)),
                        default=math.inf)
            if cover < self.options["cover"] - SLACK:
                self.say(807, bar, "", cover, self.options["cover"])
        for bar in outside:
            if bar.mark in inside:
                self.leave_out(808)
            else:
                self.say(808, bar, "", 0, 1)


def minus(a, b):
    return (a[0] - b[0], a[1] - b[1])


def cross(a, b):
    return a[0] * b[1] - a[1] * b[0]


def apart(point, line):
    way, to = minus(line[1], line[0]), minus(point, line[0])
    square = way[0] ** 2 + way[1] ** 2
    share = max(0, min(1, (way[0] * to[0] + way[1] * to[1]) / square)) if square else 0
    return math.hypot(to[0] - share * way[0], to[1] - share * way[1])


def parts(line, one, other):
    """Whether the line without ends runs between two points."""
    way = minus(line[1], line[0])
    return cross(way, minus(one, line[0])) * cross(way, minus(other, line[0])) < 0


def meet(a, b):
    return parts(a, *b) and parts(b, *a)


class Body:
    def __init__(self, bar):
        self.ring, self.width = bar.ring, bar.d
        points = list(bar.line)
        if bar.name == "CKtZantoFrameRect":
            a, b, c = points
            points = [a, b, c, (a[0] + c[0] - b[0], a[1] + c[1] - b[1]), a]
        self.legs = list(zip(points, points[1:]))

    def is_passed_by(self, line):
        if self.ring:
            ends = max(math.dist(self.ring[0], end) for end in line)
            return apart(self.ring[0], line) < self.ring[1] < ends
        return any(meet(leg, line) for leg in self.legs)

    def lies_in(self, outlines):
        if self.ring:
            spots = [along(self.ring[0], way, self.ring[1]) for way in (0, 90, 180, 270)]
        else:
            spots = [((a[0] * (1 - t) + b[0] * t), (a[1] * (1 - t) + b[1] * t))
                     for a, b in self.legs for t in (0, 0.5, 1)]
        closed = [outline for outline in outlines if outline[0] == outline[-1]]
        open_points = [point for outline in outlines if outline[0] != outline[-1] for point in outline]
        for spot in spots:
            if open_points and all(min(p[axis] for p in open_points) <= spot[axis]
                                   <= max(p[axis] for p in open_points) for axis in (0, 1)):
                return True
            for outline in closed:
                turns = sum(math.atan2(cross(minus(a, spot), minus(b, spot)),
                                       minus(a, spot)[0] * minus(b, spot)[0]
                                       + minus(a, spot)[1] * minus(b, spot)[1])
                            for a, b in zip(outline, outline[1:]))
                if abs(turns) > math.pi:
                    return True
        return False

    def gaps(self, line, passing):
        if self.ring:
            if not (passing and self.is_passed_by(line)):
                if self.is_passed_by(line):
                    yield 0.0
                near = apart(self.ring[0], line)
                far = max(math.dist(self.ring[0], end) for end in line)
                yield max(0.0, max(near - self.ring[1], self.ring[1] - far) - self.width / 2)
            return
        for leg in self.legs:
            if not (passing and parts(line, *leg)):
                yield self.gap(leg, line)

    def gap(self, leg, line):
        length = math.dist(*leg)
        way = tuple(value / length for value in minus(leg[1], leg[0]))
        half = (-way[1] * self.width / 2, way[0] * self.width / 2)
        for end in line:
            to = minus(end, leg[0])
            if 0 <= to[0] * way[0] + to[1] * way[1] <= length and abs(cross(way, to)) <= self.width / 2:
                return 0.0
        edge = [(p[0] + s * half[0], p[1] + s * half[1]) for p, s in
                ((leg[0], 1), (leg[1], 1), (leg[1], -1), (leg[0], -1), (leg[0], 1))]
        least = math.inf
        for side in zip(edge, edge[1:]):
            if meet(side, line):
                return 0.0
            least = min(least, apart(side[0], line), apart(side[1], line),
                        apart(line[0], side), apart(line[1], side))
        return least


# The two held against each other


def options_by_chance(chance):
    options = {"rules": chance.choice(["ec2", "bs8666", "ec2,bs8666"]), "stock": 12000.0}
    if chance.random() < 0.3:
        options["stock"] = chance.choice([6000.0, 14000.0])
    if chance.random() < 0.5:
        options["cover"] = chance.choice([25, 40, 55.5])
    if chance.random() < 0.5:
        options["aggregate"] = chance.choice([8, 16, 32])
    if chance.random() < 0.3:
        options["mandrel"] = chance.choice([32, 50, 100])
    if chance.random() < 0.6:
        options["hooks"] = chance.choice(["corner", "straight"])
    return options


def arguments_of(options):
    arguments = ["--rules", options["rules"], "--angles", "deg", "--stock", options["stock"] / 1000]
    for name in ("cover", "aggregate", "mandrel", "hooks"):
        if name in options:
            arguments += ["--" + name, options[name]]
    return list(map(str, arguments))


def are_equal(one, other):
    return one[0] == other[0] and one[3:5] == other[3:5] and abs(one[5] - other[5]) < 0.12 and abs(
        one[6] - other[6]) < 0.01


def hold(program, path, drawing, options):
    opinion = Opinion(options)
    for bar in drawing.bars:
        opinion.judge_bar(bar)
    for series in drawing.series:
        opinion.judge_series(series)
    opinion.judge_places(drawing)
    done = subprocess.run([program, "check", "--json", str(path), *arguments_of(options)],
                          capture_output=True, check=False)
    if done.stderr or not done.stdout:
        fail("the program says", done.stderr.decode(), arguments_of(options))
    file = json.loads(done.stdout)["files"][0]
    marks = {(bar.name, str(bar.index)): bar.mark for bar in drawing.bars}
    marks.update({("CKtZantoRepartition", str(index)): bar.mark for bar, index, _ in drawing.series})
    said, times = [], 0
    codes = [code for code in range(801, 811) if code != 807 or opinion.is_cover_known]
    opinion.found = [one for one in opinion.found if one[0] in codes]
    for one in file["findings"]:
        if one["code"] in codes:
            said.append((one["code"], one["class"], one["index"], one["item"],
                         marks[one["class"], one["index"]], one["value"], one["limit"]))
            more = re.search(r"so with (\d+) more of mark", one["found"])
            times += 1 + (int(more[1]) if more else 0)
            if not one["clause"] or not one["remedy"] or one["severity"] != "warning" or not one["line"]:
                fail("a finding that does not say all", one)
    for one in said:
        if not any(are_equal(one, other) and one[:3] == other[:3] for other in opinion.found):
            fail(f"{path}: found for nothing", one, arguments_of(options))
    for one in opinion.found:
        if not any(are_equal(one, other) for other in said):
            fail(f"{path}: not found", one, arguments_of(options))
    if times != len(opinion.found):
        fail(f"{path}: found {times} times, not {len(opinion.found)}", arguments_of(options))
    counts = {}
    for one in file["notChecked"]:
        count = re.match(r"\d+ ", one["reason"])
        if count:
            counts[one["code"]] = counts.get(one["code"], 0) + int(count[0])
    if counts != opinion.left_out:
        fail(f"{path}: not checked", counts, opinion.left_out, arguments_of(options))
    return [one[0] for one in opinion.found]


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 200
    seed = int(sys.argv[4]) if len(sys.argv) > 4 else 1
    folder.mkdir(parents=True, exist_ok=True)
    tally = {}
    for number in range(count):
        chance = random.Random(f"{seed}/{number}")
        drawing = drawing_by_chance(chance)
        path = folder / "drawing.xml"
        ElementTree.ElementTree(drawing.root).write(path, encoding="ISO-8859-1", xml_declaration=True)
        for code in hold(program, path, drawing, options_by_chance(chance)):
            tally[code] = tally.get(code, 0) + 1
    missing = [code for code in range(801, 811) if code not in tally]
    if missing and count >= 100:
        fail("rules that no drawing broke", missing)
    print(f"{count} drawings agree:", ", ".join(f"{code} {tally[code]} times" for code in sorted(tally)))


if __name__ == "__main__":
    main()
