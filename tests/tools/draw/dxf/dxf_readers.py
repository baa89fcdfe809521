#!/usr/bin/env python3
"""Reads the DXF of `quorvan draw` with readers that are not its own.

usage: dxf_readers.py CHECK PROGRAM PROJECT FOLDER [COUNT]

CHECK is ezdxf, ogr, librecad or npm; COUNT is the number of drawings made by chance. Ends with 77 where the
reader is not on this system.
"""

import json
import math
import pathlib
import re
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import random_drawings  # noqa: E402

MISSING = 77
VERSIONS = ("R12", "2000")
NEAR = 1e-6


def run(*arguments, **options):
    done = subprocess.run([str(one) for one in arguments], capture_output=True, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{arguments}: exit code {done.returncode}\n{done.stdout.decode()[-2000:]}{done.stderr.decode()[-2000:]}")
    return done.stdout


def need(program):
    if shutil.which(program) is None:
        print(f"{program} is not on this system")
        sys.exit(MISSING)
    return program


def ensure(is_so, *what):
    if not is_so:
        sys.exit("not so: " + " ".join(str(one) for one in what))


def near(a, b, within=NEAR):
    return math.isclose(a, b, rel_tol=1e-12, abs_tol=within)


def near_point(a, b, within=NEAR):
    return near(a[0], b[0], within) and near(a[1], b[1], within)


def number(file):
    """Gives each class indexes from 1, by which its elements are found again."""
    numbers = {}

    def numbered(tag):
        name = tag[1].decode()
        numbers[name] = numbers.get(name, 0) + 1
        return b'<%s version="1" index="%d"' % (tag[1], numbers[name])
    file.write_bytes(re.sub(rb'<(CKt\w+) version="1" index="-?\d+"', numbered, file.read_bytes()))


class Shop:
    def __init__(self, program, project, folder, count):
        self.program = program
        self.folder = pathlib.Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        project = pathlib.Path(project)
        self.examples = []
        for path in sorted((project / "examples/drawings").glob("*.json")) + [project / "tests/tools/data/sample.json"]:
            self.examples.append(self.file(path.stem, json.loads(path.read_text(encoding="utf-8"))))
        self.files = self.examples + [
            self.file(f"random-{seed}", random_drawings.drawing(seed)) for seed in range(count)]

    def file(self, name, drawing):
        source = self.folder / (name + ".json")
        source.write_text(json.dumps(drawing), encoding="utf-8")
        file = self.folder / (name + ".xml")
        file.unlink(missing_ok=True)
        run(self.program, "write", source, "-o", file)
        number(file)
        return file

    def draw(self, file, ending, *options):
        picture = file.with_suffix(ending)
        run(self.program, "draw", file, "-o", picture, *options)
        return picture

    def elements(self, file):
        """What the file has, by class and index."""
        numbers = {}
        elements = {}
        for element in json.loads(run(self.program, "list", "--json", file))["elements"]:
            name = element["class"]
            numbers[name] = numbers.get(name, 0) + 1
            elements[name, numbers[name]] = element
        return elements


# What a text becomes, reckoned apart from the program.
def expected_text(text):
    text = re.sub("[⌀∅]|[Øø](?= ?[0-9])", "%%c", text)
    text = text.replace("^", "^ ")
    text = "".join(" " if ord(one) < 32 or 127 <= ord(one) < 160 else one for one in text)
    return "".join("?" if ord(one) > 0xFFFF else one for one in text)


def decoded(text):
    return re.sub(r"\\U\+([0-9A-F]{4})", lambda code: chr(int(code[1], 16)), text)


def expected_layer(element, bar=None):
    kinds = {"CKtZantoLine": "LINES", "CKtZantoCircle": "CIRCLES", "CKtZantoText": "TEXTS", "CKtFilledPolygon": "FILLS",
             "CKtZantoMesh": "MESHES", "CKtZantoFormwork": "FORMWORK", "CKtZantoPointBar": "END-ON"}
    links = ("CKtZantoFrameRect", "CKtZantoFrameCirc", "CKtZantoStirrup")
    name = element["class"]
    if bar is not None:
        kind = "REPARTITIONS_" + ("LINKS" if bar["class"] in links else "BARS")
    else:
        kind = kinds.get(name, "LINKS" if name in links else "BARS")
    steel = element if bar is None else bar
    if "Diameter" in steel:
        kind += "_" + f"{steel['Diameter']:g}".replace(".", "_")
    return kind + ("_HIDDEN" if element.get("Hidden") else "")


def area(points):
    return abs(sum(a[0] * b[1] - a[1] * b[0] for a, b in zip(points, points[1:] + points[:1]))) / 2


class Entities:
    """The entities of a drawing as ezdxf reads them, by the element that is behind them."""

    def __init__(self, document):
        self.document = document
        self.by_element = {}
        for entity in document.modelspace():
            data = entity.get_xdata("QUORVAN")
            key = (data[0].value, data[1].value)
            ensure([tag.code for tag in data] == [1000, 1071, 1000], "the data of", entity)
            self.by_element.setdefault(key, []).append(entity)

    def of(self, key):
        return self.by_element.get(key, [])


def vertices(polyline):
    """The corners with their bulges; whether it is closed; its width."""
    if polyline.dxftype() == "LWPOLYLINE":
        return ([(x, y, bulge) for x, y, bulge in polyline.get_points("xyb")], polyline.closed,
                polyline.dxf.get("const_width", 0))
    points = [(v.dxf.location.x, v.dxf.location.y, v.dxf.get("bulge", 0)) for v in polyline.vertices]
    return points, polyline.is_closed, polyline.dxf.get("default_start_width", 0)


def only(entities, *kinds):
    ensure(all(one.dxftype() in kinds for one in entities), [one.dxftype() for one in entities], "not among", kinds)
    return entities


def check_line(element, entities, _):
    (line,) = only(entities, "LINE")
    ensure(near_point(line.dxf.start, element["Point1"]) and near_point(line.dxf.end, element["Point2"]), element)


def check_circle(element, entities, _):
    (circle,) = only(entities, "CIRCLE")
    ensure(near_point(circle.dxf.center, element["Center"]) and near(circle.dxf.radius, element["Radius"]), element)


def check_text(element, entities, is_degrees):
    if not expected_text(element["Contents"]).strip():
        return ensure(not entities, element)
    (text,) = only(entities, "TEXT")
    ensure(decoded(text.dxf.text) == expected_text(element["Contents"]), element, repr(text.dxf.text))
    ensure(near(text.dxf.height, element["Height"]), element)
    angle = element["Angle"] if is_degrees else math.degrees(element["Angle"])
    ensure(near((text.dxf.get("rotation", 0) - angle + 180) % 360, 180), element)
    across, up = text.dxf.get("halign", 0), text.dxf.get("valign", 0)
    ensure((across, up) == (element["JustificationX"], {0: 0, 1: 2, 2: 3}[element["JustificationY"]]), element)
    place = text.dxf.align_point if across or up else text.dxf.insert
    ensure(near_point(place, element["Location"]), element, place)


def check_fill(element, entities, _):
    points = [tuple(point[:2]) for point in element["Points"]]
    if entities[0].dxftype() == "HATCH":
        (hatch,) = only(entities, "HATCH")
        (path,) = hatch.paths
        ensure(hatch.dxf.solid_fill == 1 and path.is_closed, element)
        ensure(len(path.vertices) == len(points), element)
        ensure(all(near_point(a, b) for a, b in zip(path.vertices, points)), element)
        return None
    covered = 0
    for solid in only(entities, "SOLID"):
        a, b, d, c = (tuple(solid.dxf.get(f"vtx{i}"))[:2] for i in range(4))
        covered += area([a, b, c, d])
    return ensure(near(covered, area(points), 1e-3), element, covered)


def check_mesh(element, entities, _):
    outline, diagonal = only(entities, "POLYLINE", "LWPOLYLINE", "LINE")
    corners, is_closed, width = vertices(outline)
    points = element["Points"]
    ensure(is_closed and not width and len(corners) == len(points), element)
    ensure(all(near_point(a, b) for a, b in zip(corners, points)), element)
    ensure(near_point(diagonal.dxf.start, points[0]) and near_point(diagonal.dxf.end, points[len(points) // 2]), element)


def check_formwork(element, entities, _):
    segments = element["Segments"]
    ensure(len(only(entities, "LINE", "ARC", "CIRCLE")) >= len(segments), element)
    for segment in segments:
        start, end = segment["start"], segment["end"]
        crown = [(a + b) / 2 + c for a, b, c in zip(start, end, segment["bulge"])]
        ensure(any(runs(entity, start, end, crown) for entity in entities) or segment["bulge"] != [0, 0, 0] and
               sum(on_arc(entity, place) for entity in entities for place in (start, end, crown)) >= 3, segment)


def on_arc(entity, place):
    return entity.dxftype() == "ARC" and near(math.dist(tuple(entity.dxf.center)[:2], place[:2]), entity.dxf.radius, 1e-4)


def runs(entity, start, end, crown):
    """Whether the entity goes from start to end, either way, and over the crown."""
    if entity.dxftype() == "LINE":
        ends = (entity.dxf.start, entity.dxf.end)
    elif entity.dxftype() == "ARC":
        ends = (entity.start_point, entity.end_point)
    else:
        return False
    if not any(near_point(a, start, 1e-4) and near_point(b, end, 1e-4) for a, b in (ends, ends[::-1])):
        return False
    if entity.dxftype() == "LINE":
        return near_point([(a + b) / 2 for a, b in zip(start, end)], crown)
    around = (math.degrees(math.atan2(crown[1] - entity.dxf.center.y, crown[0] - entity.dxf.center.x))
              - entity.dxf.start_angle) % 360
    return on_arc(entity, crown) and around <= (entity.dxf.end_angle - entity.dxf.start_angle) % 360 + 1e-6


def bend_radius(diameter):
    return 2.5 * diameter if diameter <= 16 else 4 * diameter


def arcs_of(corners):
    """Radius and corner of each arc of a polyline."""
    found = []
    for (x1, y1, bulge), (x2, y2, _) in zip(corners, corners[1:]):
        if bulge:
            chord = math.hypot(x2 - x1, y2 - y1)
            found.append((chord * (1 + bulge * bulge) / (4 * abs(bulge)), 4 * math.atan(bulge)))
    return found


def is_bent(a, b, c):
    """A bar that goes straight on has no bend, and none can be drawn where it comes straight back."""
    turn = abs(math.remainder(math.atan2(c[1] - b[1], c[0] - b[0]) - math.atan2(b[1] - a[1], b[0] - a[0]), math.tau))
    return 1e-5 < turn < math.pi - 1e-5


def check_bar(element, entities, _):
    """Its width, its ends where it has no hooks, its bends no wider than the roller makes them."""
    points = element.get("Points") or [element[name] for name in ("Point1", "Point2", "Point3") if name in element]
    if element["class"] == "CKtZantoUBar":
        a, b, c = points
        points = points + [[c[i] + a[i] - b[i] for i in range(3)]]
    (bar,) = only(entities, "POLYLINE", "LWPOLYLINE")
    corners, is_closed, width = vertices(bar)
    ensure(near(width, element["Diameter"]) and not is_closed, element)
    for place, corner, other in ((points[0], corners[0], "HookLength1"), (points[-1], corners[-1], "HookLength2")):
        if not element.get(other):
            ensure(near_point(place, corner, 1e-5), element, corner)
        else:
            # A hook's end lies no further from the bar's end than the hook is long.
            ensure(math.dist(place[:2], corner[:2]) <= element[other] * 1.001 + 4 * element["Diameter"] * 2, element)
    arcs = arcs_of(corners)
    ensure(all(radius <= bend_radius(element["Diameter"]) + 1e-4 for radius, _ in arcs), element, arcs)
    turned = [sweep for _, sweep in arcs]
    bends = sum(is_bent(*three) for three in zip(points, points[1:], points[2:])) + sum(1 for name in ("HookLength1", "HookLength2") if element.get(name))
    ensure(len(turned) == bends, element, len(turned))
    for corner in points[1:-1]:
        ensure(any(math.dist(corner[:2], one[:2]) < 3000 for one in corners), element)


def check_end_on(element, entities, _):
    (circle,) = [one for one in entities if one.dxftype() == "CIRCLE"]
    ensure(near_point(circle.dxf.center, element["Point1"]) and near(circle.dxf.radius, element["Diameter"] / 2), element)
    ensure(len(only(entities, "CIRCLE", "POLYLINE", "HATCH")) == 2, element)


def check_link(element, entities, _):
    for entity in only(entities, "POLYLINE", "LWPOLYLINE"):
        ensure(near(vertices(entity)[2], element["Diameter"]), element)
    if element["class"] == "CKtZantoFrameRect":
        a, b, c = (element[name] for name in ("Point1", "Point2", "Point3"))
        corners = [a, b, c, [a[i] + c[i] - b[i] for i in range(3)]]
        (ring,) = [vertices(one)[0] for one in entities if vertices(one)[1]]
        # Each side of the ring lies on a side of the frame.
        for x, y, _ in ring:
            ensure(min(distance((x, y), p, q) for p, q in zip(corners, corners[1:] + corners[:1])) < 1e-4, element)
    if element["class"] == "CKtZantoFrameCirc":
        starts = [corner for one in entities for corner in vertices(one)[0]]
        check_ring_start(element, starts)
        ensure(any(near(math.dist(element["Center"][:2], one[:2]), element["FrameRadius"], 1e-4) for one in starts), element)


def check_ring_start(element, corners):
    """It begins at its start, with a hook as much short of it as the bend reaches, which is no more than the
    hook is long; one without hook or overlap is a full circle."""
    if not element["HookLength1"]:
        ensure(not element["RecoverLength"] or any(near_point(one, element["StartPoint"], 1e-4) for one in corners), element)
        return
    x, y = element["Center"][:2]
    radius, diameter, angle = element["FrameRadius"], element["Diameter"], math.radians(abs(element["HookAngle1"]))
    bend = (5 if diameter <= 16 else 8) / 2 * diameter
    least = most = min(bend * math.tan(min(angle, math.pi / 2) / 2), element["HookLength1"]) / radius
    if element["RecoverLength"] <= 0 and angle < 1.8:
        most = max(least, 0.4)  # right-angled hooks run side by side
    begin = math.atan2(element["StartPoint"][1] - y, element["StartPoint"][0] - x)
    turns = [math.remainder(math.atan2(one[1] - y, one[0] - x) - begin, math.tau) for one in corners
             if near(math.dist((x, y), one[:2]), radius, 1e-4)]
    ensure(any(least - 1e-5 <= abs(turn) <= most + 1e-5 for turn in turns), element, turns, least, most)


def distance(place, a, b):
    way = (b[0] - a[0], b[1] - a[1])
    return abs(way[0] * (place[1] - a[1]) - way[1] * (place[0] - a[0])) / math.hypot(*way)


def bars_of_series(document, entities):
    """From where to where its bars go, and how wide they are, blocks taken apart."""
    bars = []
    for entity in entities:
        if entity.dxftype() == "INSERT":
            (bar,) = document.blocks.get(entity.dxf.name)
            (start, end), _, width = vertices(bar)
            ensure((start[0], start[1]) == (0, 0) and bar.dxf.layer == "0", bar)
            bars.append((tuple(entity.dxf.insert)[:2], (entity.dxf.insert[0] + end[0], entity.dxf.insert[1] + end[1]), width))
        elif entity.dxftype() in ("POLYLINE", "LWPOLYLINE"):
            (start, end), _, width = vertices(entity)
            bars.append((start[:2], end[:2], width))
    return bars


def check_series(element, entities, document, bar, is_random):
    tops, bottoms, steps = (element[name] for name in ("AxisDistancesTop", "AxisDistancesBottom", "Positions"))
    if len(steps) + 1 != len(tops):
        return ensure(not entities, element)
    bars = bars_of_series(document, entities)
    ensure(len(bars) == len(tops), element, len(bars))
    ensure(all(near(width, bar["Diameter"]) for _, _, width in bars), element)
    ensure(sum(one.dxftype() == "LINE" for one in entities) >= len(bars), "a stroke at each bar of", element)
    if is_random:
        along = 0 if element["Axis"][0] else 1
        lean = leaning(element, bar, along)
        # The first bar crosses the line at its beginning; from there the steps are those of the bars' first points.
        at = element["Point1"][along] + lean * (bars[0][0][1 - along] - element["Point1"][1 - along])
        for i, (start, end, _) in enumerate(bars):
            at += steps[i - 1] if i else 0
            ensure(near(start[along], at, 1e-5), element, start)
            ensure(near(end[along] - start[along], lean * (end[1 - along] - start[1 - along]), 1e-5), element, end)
            length = abs(tops[i] - bottoms[i])
            ensure(near(abs(end[1 - along] - start[1 - along]), length, 1e-5), element, length)
    return None


def leaning(element, bar, along):
    """How far the bars of a series go along its line for each unit across it. Where they are not all at one distance,
    the last one crosses the line at its end; else they lie as the bar that it repeats, where that is straight and, at
    its angle, as long; else square to the line."""
    tops, bottoms = element["AxisDistancesTop"], element["AxisDistancesBottom"]
    if tops[0] != tops[-1]:
        left = 1 if along == 0 else -1
        way = element["Point2"][along] - element["Point1"][along] - sum(element["Positions"])
        return way / (left * (tops[0] - tops[-1]))
    if bar["class"] not in ("CKtZantoPin", "CKtZantoStraightBar"):
        return 0
    way = [b - a for a, b in zip(bar["Point1"], bar["Point2"])]
    length = math.hypot(*way)
    lean = way[along] / way[1 - along] if way[1 - along] else math.inf
    is_so_long = any(abs(abs(top - bottom) * math.hypot(1, lean) - length) <= 0.02 * length
                     for top, bottom in zip(tops, bottoms))
    return lean if is_so_long else 0


CHECKS = {"CKtZantoLine": check_line, "CKtZantoCircle": check_circle, "CKtZantoText": check_text,
          "CKtFilledPolygon": check_fill, "CKtZantoMesh": check_mesh, "CKtZantoFormwork": check_formwork,
          "CKtZantoPointBar": check_end_on, "CKtZantoFrameRect": check_link, "CKtZantoFrameCirc": check_link,
          "CKtZantoStirrup": check_link}


def audit(ezdxf, picture, version):
    document = ezdxf.readfile(picture)
    ensure(document.dxfversion == {"R12": "AC1009", "2000": "AC1015"}[version], document.dxfversion)
    auditor = document.audit()
    ensure(not auditor.errors, [one.message for one in auditor.errors[:3]])
    # Of polylines in blocks of R12 this reader says so of its own files, too.
    fixes = [one.message for one in auditor.fixes if not one.message.startswith("Deleted SEQEND")]
    ensure(not fixes, fixes[:3])
    if version == "2000":
        ensure(not auditor.fixes, auditor.fixes[:3])
    return document


def raw_groups(picture):
    lines = picture.read_bytes().decode("cp1252").split("\r\n")
    ensure(lines.pop() == "" and len(lines) % 2 == 0, picture)
    return [(int(code), value) for code, value in zip(lines[::2], lines[1::2])]


def entities_of(groups):
    """The groups of each entity of the drawing."""
    begin = groups.index((2, "ENTITIES"))
    entities = []
    for code, value in groups[begin + 1:]:
        if code == 0:
            if value == "ENDSEC":
                break
            entities.append([])
        entities[-1].append((code, value))
    return entities


def comparable(groups):
    """Groups in a form in which two writers of the same things agree."""
    result = []
    for code, value in groups:
        if code in (5, 330):
            continue
        if code in range(10, 60) or code in range(210, 240):
            value = round(float(value), 6) + 0.0
        elif code in range(60, 100) or code == 1071:
            value = int(value)
        else:
            value = decoded(str(value)).upper()
        result.append((code, value))
    return sorted(result, key=str)


# What a writer may say or not, because it is what a reader takes where nothing is said.
SAID_OR_NOT = {(70, 0), (71, 0), (50, 0.0), (72, 0), (73, 0), (41, 1.0), (62, 256), (30, 0.0), (31, 0.0), (43, 0.0),
               (6, "BYLAYER"), (39, 0.0), (51, 0.0), (42, 0.0), (40, 0.0), (97, 0), (210, 0.0), (220, 0.0), (230, 1.0),
               (38, 0.0), (75, 0), (73, 1), (100, "ACDBENTITY"), (7, "STANDARD"), (66, 1), (10, 0.0), (20, 0.0)}


def made_anew(layout, entity):
    """The same entity as the reader makes one itself, from its places and measures."""
    dxf = entity.dxf
    kind = entity.dxftype()
    look = {name: dxf.get(name) for name in ("layer", "color") if dxf.hasattr(name)}
    if kind == "LINE":
        made = layout.add_line(dxf.start, dxf.end, dxfattribs=look)
    elif kind == "POINT":
        made = layout.add_point(dxf.location, dxfattribs=look)
    elif kind == "CIRCLE":
        made = layout.add_circle(dxf.center, dxf.radius, dxfattribs=look)
    elif kind == "ARC":
        made = layout.add_arc(dxf.center, dxf.radius, dxf.start_angle, dxf.end_angle, dxfattribs=look)
    elif kind == "TEXT":
        places = {name: dxf.get(name) for name in ("insert", "halign", "valign", "align_point", "rotation")
                  if dxf.hasattr(name)}
        made = layout.add_text(dxf.text, dxfattribs={"height": dxf.height, **places, **look})
    elif kind == "SOLID":
        made = layout.add_solid([dxf.vtx0, dxf.vtx1, dxf.vtx2, dxf.vtx3], dxfattribs=look)
        made.dxf.vtx2, made.dxf.vtx3 = dxf.vtx2, dxf.vtx3
    elif kind == "INSERT":
        made = layout.add_blockref(dxf.name, dxf.insert, dxfattribs=look)
    elif kind == "LWPOLYLINE":
        corners, is_closed, width = vertices(entity)
        made = layout.add_lwpolyline(corners, "xyb", close=is_closed, dxfattribs={"const_width": width, **look})
    elif kind == "POLYLINE":
        corners, is_closed, width = vertices(entity)
        made = layout.add_polyline2d(corners, format="xyb", close=is_closed, dxfattribs=look)
        if width:
            made.dxf.default_start_width = made.dxf.default_end_width = width
    else:
        (path,) = entity.paths
        made = layout.add_hatch(dxfattribs=look)
        made.paths.add_polyline_path(path.vertices, is_closed=True, flags=3)
        # It matters for outlines within outlines alone.
        made.set_solid_fill(dxf.get("color", 256), style=dxf.hatch_style)
        made.set_seed_points(entity.seeds)
    made.set_xdata("QUORVAN", entity.get_xdata("QUORVAN"))
    return made


def compare_structure(document, picture):
    """Every entity has the same groups as one that the reader makes itself."""
    import ezdxf
    from ezdxf.lldxf.tagwriter import TagCollector
    layout = ezdxf.new(document.dxfversion).modelspace()
    ours = [one for one in entities_of(raw_groups(picture)) if one[0][1] not in ("VERTEX", "SEQEND")]
    theirs = list(document.modelspace())
    ensure(len(ours) == len(theirs), len(ours), len(theirs))
    for mine, entity in zip(ours, theirs):
        collector = TagCollector(dxfversion=document.dxfversion, optional=False)
        made_anew(layout, entity).export_dxf(collector)
        again = []
        for tag in collector.tags:
            if tag.code == 0 and again:
                break
            again.append((tag.code, tag.value))
        flat = comparable(again)
        mine = comparable(mine)
        missing = [one for one in flat if one not in mine and one not in SAID_OR_NOT]
        beyond = [one for one in mine if one not in flat and one not in SAID_OR_NOT]
        ensure(not missing and not beyond, entity, "without", missing, "beyond", beyond)
        marks = [value for code, value in mine if code == 100]
        ensure(marks == [value for code, value in flat if code == 100], marks)


# What strict readers look for.
MARKS = {"AcDbSymbolTable", "AcDbSymbolTableRecord", "AcDbViewportTableRecord", "AcDbLinetypeTableRecord",
         "AcDbLayerTableRecord", "AcDbTextStyleTableRecord", "AcDbRegAppTableRecord", "AcDbDimStyleTable",
         "AcDbDimStyleTableRecord", "AcDbBlockTableRecord", "AcDbEntity", "AcDbBlockBegin", "AcDbBlockEnd",
         "AcDbDictionary", "AcDbDictionaryWithDefault", "AcDbPlotSettings", "AcDbLayout", "AcDbMlineStyle"}


def compare_tables(ezdxf, picture):
    """Tables, dictionaries and classes as the reader's own new files have them."""
    import io
    stream = io.StringIO()
    ezdxf.new("R2000").write(stream)
    lines = stream.getvalue().splitlines()
    theirs = [(int(code), value) for code, value in zip(lines[::2], lines[1::2])]
    ours = raw_groups(picture)

    def names(groups, kind):
        return [groups[i + 1][1].upper() for i, group in enumerate(groups) if group == (0, kind)]
    ensure(names(ours, "SECTION") == names(theirs, "SECTION"), names(ours, "SECTION"))
    ensure(names(ours, "TABLE") == names(theirs, "TABLE"), names(ours, "TABLE"))
    for groups in (ours, theirs):
        marks = {value for code, value in groups if code == 100}
        ensure(MARKS <= marks, MARKS - marks)
    handles = [value for code, value in ours if code in (5, 105)]
    seed = ours[ours.index((9, "$HANDSEED")) + 1][1]
    handles.remove(seed)
    ensure(len(handles) == len(set(handles)), "a handle twice")
    ensure(max(int(one, 16) for one in handles) < int(seed, 16), seed)
    owners = {value for code, value in ours if code in (330, 340, 350, 390) and value != "0"}
    ensure(owners <= set(handles), owners - set(handles))


def check_ezdxf(shop):
    try:
        import ezdxf
    except ImportError:
        print("python3-ezdxf is not on this system")
        sys.exit(MISSING)
    count = 0
    for file in shop.files:
        elements = shop.elements(file)
        # The drawings of this project have degrees.
        for version in VERSIONS:
            picture = shop.draw(file, ".dxf", "--dxf", version, "--angles", "deg", "--colors", "index")
            document = audit(ezdxf, picture, version)
            compare_structure(document, picture)
            if version == "2000":
                compare_tables(ezdxf, picture)
            entities = Entities(document)
            for key, element in elements.items():
                compare(document, entities.of(key), key, element, elements, "random" in file.stem)
                count += 1
        for bars in ("axis", "outline"):
            audit(ezdxf, shop.draw(file, ".dxf", "--bars", bars, "--angles", "deg"), "R12")
    print(f"{len(shop.files)} drawings, {count} elements compared")


def compare(document, entities, key, element, elements, is_random):
    name = element["class"]
    if name == "CKtDrawingControl":
        return ensure(not entities, key)
    if name == "CKtZantoRepartition":
        bar = elements.get((element["DefClassName"], element["Index"]))
        if bar is None:
            return None
        layers = {one.dxf.layer for one in entities}
        lines = "REPARTITIONS" + ("_HIDDEN" if element["Hidden"] else "")
        ensure(layers <= {lines, expected_layer(element, bar)}, element, layers)
        ensure(all(one.get_xdata("QUORVAN")[2].value == str(bar["Reference"]) for one in entities), key)
        return check_series(element, entities, document, bar, is_random)
    layers = {one.dxf.layer for one in entities}
    ensure(layers <= {expected_layer(element)}, element, layers)
    colors = {one.dxf.get("color", 256) for one in entities}
    ensure(colors <= {element.get("Color", 256)}, element, colors)
    mark = str(element.get("Reference", ""))
    ensure(all(one.get_xdata("QUORVAN")[2].value == mark for one in entities), key)
    return CHECKS.get(name, check_bar)(element, entities, True)


def features_of(listing):
    """The features that GDAL lists: layer and coordinates of each."""
    features = []
    for block in listing.split("OGRFeature(")[1:]:
        layer = re.search(r"Layer \(String\) = (.*)", block)
        shape = re.search(r"^  ([A-Z ]+) \((.*)\)$", block, re.MULTILINE)
        places = [tuple(map(float, one.split()[:2])) for one in re.split(r"[(),]+", shape[2]) if one.strip()]
        features.append((layer[1], shape[1], places))
    return features


def check_ogr(shop):
    need("ogrinfo")
    count = 0
    for file in shop.files:
        elements = shop.elements(file)
        for version in VERSIONS:
            picture = shop.draw(file, ".dxf", "--dxf", version, "--angles", "deg", "--colors", "index")
            by_layer = {}
            for layer, shape, places in features_of(run("ogrinfo", "-al", "-q", picture).decode("utf-8")):
                by_layer.setdefault(layer, []).append((shape, places))
            for element in elements.values():
                count += compare_feature(element, by_layer, elements)
    print(f"{len(shop.files)} drawings, {count} elements found by GDAL")


def compare_feature(element, by_layer, elements):
    """Whether a feature of the element's layer goes through its points."""
    name = element["class"]
    if name == "CKtZantoRepartition":
        bar = elements.get((element["DefClassName"], element["Index"]))
        if bar is not None and len(element["Positions"]) + 1 == len(element["AxisDistancesTop"]):
            found = by_layer.get(expected_layer(element, bar), [])
            ensure(len(found) >= len(element["AxisDistancesTop"]), element)
        return 1
    wanted = {"CKtZantoLine": ("Point1", "Point2"), "CKtZantoPin": (), "CKtZantoStraightBar": ()}.get(name)
    if wanted is None:
        return 0
    ends = [("Point1", "HookLength1"), ("Point2", "HookLength2")]
    points = [element[one] for one in wanted] or [element[one] for one, hook in ends if not element[hook]]
    found = by_layer.get(expected_layer(element), [])
    ensure(any(all(any(near_point(a, b, 1e-5) for b in places) for a in points) for _, places in found), element)
    return 1


PARSE = """
const Parser = require('dxf-parser');
const fs = require('fs');
const drawing = new Parser().parseSync(fs.readFileSync(process.argv[1], 'latin1'));
console.log(JSON.stringify({entities: drawing.entities, blocks: drawing.blocks,
                            layers: Object.keys(drawing.tables.layer.layers)}));
"""


def check_npm(shop):
    need("npm")
    run("npm", "install", "--no-audit", "--no-fund", "--prefix", shop.folder, "dxf-parser")
    import ezdxf
    count = 0
    for file in shop.files:
        for version in VERSIONS:
            picture = shop.draw(file, ".dxf", "--dxf", version, "--angles", "deg")
            parsed = json.loads(run("node", "-e", PARSE, picture.resolve(), cwd=shop.folder))
            known = {"LINE", "CIRCLE", "ARC", "TEXT", "INSERT", "POLYLINE", "LWPOLYLINE", "SOLID", "POINT"}
            theirs = [one for one in parsed["entities"] if one["type"] in known]
            document = ezdxf.readfile(picture)
            ours = [one for one in document.modelspace() if one.dxftype() in known]
            ensure([one["type"] for one in theirs] == [one.dxftype() for one in ours], picture)
            for mine, other in zip(ours, theirs):
                compare_parsed(mine, other)
                count += 1
            names = {layer.dxf.name for layer in document.layers} - {"Defpoints"}
            ensure(set(parsed["layers"]) == names, parsed["layers"])
    print(f"{len(shop.files)} drawings, {count} entities as the parser of npm reads them")


def compare_parsed(mine, other):
    def at(place, point):
        ensure(near(place["x"], point[0]) and near(place["y"], point[1]), mine, other)
    ensure(mine.dxf.layer == other["layer"], other)
    kind = mine.dxftype()
    if kind == "LINE":
        at(other["vertices"][0], mine.dxf.start)
        at(other["vertices"][1], mine.dxf.end)
    elif kind in ("CIRCLE", "ARC"):
        at(other["center"], mine.dxf.center)
        ensure(near(other["radius"], mine.dxf.radius), other)
        if kind == "ARC":
            ensure(near(math.degrees(other["startAngle"]), mine.dxf.start_angle, 1e-5), other)
            ensure(near(math.degrees(other["endAngle"]), mine.dxf.end_angle, 1e-5), other)
    elif kind == "TEXT":
        at(other["startPoint"], mine.dxf.insert)
        ensure(near(other["textHeight"], mine.dxf.height), other)
        ensure((other.get("halign") or 0) == mine.dxf.get("halign", 0), other)
        ensure((other.get("valign") or 0) == mine.dxf.get("valign", 0), other)
    elif kind == "INSERT":
        at(other["position"], mine.dxf.insert)
        ensure(other["name"] == mine.dxf.name, other)
    elif kind in ("POLYLINE", "LWPOLYLINE"):
        corners, is_closed, _ = vertices(mine)
        ensure(len(corners) == len(other["vertices"]) and bool(other["shape"]) == is_closed, other)
        for corner, place in zip(corners, other["vertices"]):
            at(place, corner)
            ensure(near(place.get("bulge") or 0, corner[2], 1e-9), other)


# What is drawn alike on paper and in CAD programs: without letters, whose fonts differ.
LAID_OVER = ("--layers", "fills,formwork,lines,circles,links,bars,end-on")
# The program of the other picture draws bars without their width, and fine lines faintly. The drawings made by chance
# are therefore laid over each other by their frame, at a scale at which the widest pen of ours covers four pixels, and
# the weights of layers, which it does draw, are no wider.
WIDE = 4000  # pixels
WIDE_EXAMPLE = 2000
SMALL = ("--scale", "100")
ASTRAY = 4  # pixels: half of that pen, and one for the rounding of each picture
MOST_ASTRAY = 0.002


def inked(pdf):
    """What a PDF shows, cut off around its ink."""
    import numpy
    from PIL import Image
    run("pdftoppm", "-r", "400", "-gray", "-singlefile", "-scale-to-x", "5000", "-scale-to-y", "-1", pdf,
        pdf.with_suffix(""))
    Image.MAX_IMAGE_PIXELS = None
    gray = numpy.asarray(Image.open(pdf.with_suffix(".pgm")))
    rows, columns = (numpy.flatnonzero((gray < 250).any(axis=axis)) for axis in (1, 0))
    return Image.fromarray(gray[rows[0]:rows[-1] + 1, columns[0]:columns[-1] + 1])


def grown(ink):
    import numpy
    wide = numpy.pad(ink, ASTRAY)
    result = numpy.zeros_like(ink)
    for y in range(2 * ASTRAY + 1):
        for x in range(2 * ASTRAY + 1):
            result |= wide[y:y + ink.shape[0], x:x + ink.shape[1]]
    return result


def astray(picture, mine, other, width):
    """How much of the one's ink lies away from the other's, and the other way round."""
    import numpy
    from PIL import Image
    shapes = [one.size[1] / one.size[0] for one in (mine, other)]
    ensure(abs(shapes[0] - shapes[1]) <= 0.004, "proportions of", picture, shapes)
    size = (width, round(width * shapes[0]))
    # The program fills its page to the edge, and what lies there is half cut off.
    inside = (slice(2 * ASTRAY, -2 * ASTRAY),) * 2
    mine, other = (numpy.asarray(one.resize(size, Image.BOX))[inside] < 235 for one in (mine, other))
    return (other & ~grown(mine)).sum() / other.sum(), (mine & ~grown(other)).sum() / mine.sum()


def check_librecad(shop):
    """Its PDF of our DXF, laid over our own PDF."""
    need("librecad")
    need("pdftoppm")
    import os
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=str(shop.folder.resolve()))
    for file in shop.files:
        own = file.with_suffix(".pdf")
        scale, width = ((), WIDE_EXAMPLE) if file in shop.examples else (SMALL, WIDE)
        run(shop.program, "draw", file, "-o", own, *LAID_OVER, "--title", "none", "--marks", "none", "--angles", "deg",
            "--window", "all", "--hidden", "solid", *scale)
        ours = inked(own)
        for version in VERSIONS:
            picture = file.with_name(f"{file.stem}-{version}.dxf")
            run(shop.program, "draw", file, "-o", picture, *LAID_OVER, "--dxf", version, "--angles", "deg", "--hidden",
                "solid", *scale)
            run("librecad", "dxf2pdf", "-a", "-m", picture.name, cwd=shop.folder, env=environment)
            beyond, missing = astray(picture, ours, inked(picture.with_suffix(".pdf")), width)
            print(f"{picture.name}: {beyond:.3%} of the ink beyond, {missing:.3%} missing")
            ensure(beyond <= MOST_ASTRAY and missing <= MOST_ASTRAY, picture)


def main():
    check, program, project, folder, *rest = sys.argv[1:]
    shop = Shop(program, project, folder, int(rest[0]) if rest else 12)
    checks = {"ezdxf": check_ezdxf, "ogr": check_ogr, "npm": check_npm, "librecad": check_librecad}
    checks[check](shop)


if __name__ == "__main__":
    main()
