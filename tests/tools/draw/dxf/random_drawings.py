"""Drawings made by chance, as `quorvan write` takes them."""

import math
import random

WORDS = ("cadre ø8", "Ø 12 / e=200", "3 HA16 e=20", "étrier", "100 % ^ 2", "%%c25 %%p5", "a≤b", "", "niv. +3,20",
         "Œuvre – coupe", "⌀20", "tab\there", "^J", "\\P{\\H2x;}", "中文", "😀", " ")


def point(chance, size=20000):
    return [round(chance.uniform(-size, size), chance.choice((0, 1, 7))), round(chance.uniform(-size, size), 3), 0]


def beside(chance, place, size):
    angle = chance.uniform(0, 2 * math.pi) if chance.random() < 0.6 else chance.randrange(8) * math.pi / 4
    length = chance.uniform(0.2 * size, size)
    return [round(place[0] + length * math.cos(angle), 4), round(place[1] + length * math.sin(angle), 4), 0]


def steel(chance):
    return {"SteelGrade": "B500B", "Adherence": chance.choice(("Ha", "Dx")),
            "Diameter": chance.choice((6, 8, 10, 12, 14, 16, 20, 25, 32, 40, 12.7)),
            "Reference": chance.randrange(1, 60), "Hidden": False}


def hooks(chance, names):
    values = {}
    for name in names:
        has = chance.random() < 0.6
        values["HookLength" + name] = round(chance.uniform(60, 400), 1) if has else 0
        values["HookAngle" + name] = chance.choice((45, 90, 135, 180)) if has else 0
    return values


def polygon(chance, middle, size):
    """Corners round a middle: they go round it once, whatever their distance."""
    count = chance.randrange(3, 13)
    corners = []
    for i in range(count):
        angle = (i + chance.uniform(0.1, 0.9)) * 2 * math.pi / count
        reach = chance.uniform(0.2, 1) * size
        corners.append([round(middle[0] + reach * math.cos(angle), 3), round(middle[1] + reach * math.sin(angle), 3), 0])
    return corners


def formwork(chance, place):
    segments = []
    for _ in range(chance.randrange(1, 6)):
        end = beside(chance, place, 4000)
        bulge = [0, 0, 0]
        if chance.random() < 0.4:
            way = (end[0] - place[0], end[1] - place[1])
            rise = chance.choice((-0.9, -0.5, -0.1, 0.1, 0.5, 0.7))
            bulge = [round(-way[1] * rise, 4), round(way[0] * rise, 4), 0]
        segments.append({"start": place, "end": end, "bulge": bulge})
        place = end
    return {"class": "CKtZantoFormwork", "Segments": segments}


def text(chance, place):
    return {"class": "CKtZantoText", "Contents": " ".join(chance.sample(WORDS, chance.randrange(1, 3))), "Location": place,
            "Angle": chance.choice((0, 0, 30, 45, 90, 180, 270, 359.5, -90)), "JustificationX": chance.randrange(3),
            "JustificationY": chance.randrange(3), "Color": chance.randrange(256),
            "Height": chance.choice((62.5, 87.5, 1.8, 125))}


def graphic(chance, place):
    kind = chance.randrange(6)
    if kind == 0:
        return {"class": "CKtZantoLine", "Point1": place, "Point2": beside(chance, place, 5000),
                "Color": chance.randrange(257)}
    if kind == 1:
        return {"class": "CKtZantoCircle", "Center": place, "Radius": round(chance.uniform(1, 900), 3),
                "Color": chance.randrange(256)}
    if kind == 2:
        return text(chance, place)
    if kind == 3:
        return {"class": "CKtFilledPolygon", "Points": polygon(chance, place, 800), "Color": chance.randrange(256)}
    if kind == 4:
        return {"class": "CKtZantoMesh", "Type": "ST 25", "Reference": chance.choice(("M1", "", "T–2")), "Angle": 0,
                "ExtensionX": 6000, "ExtensionY": 2400, "Points": polygon(chance, place, 2000)}
    return formwork(chance, place)


def reinforcement(chance, place):
    kind = chance.randrange(9)
    second = beside(chance, place, 6000)
    third = beside(chance, second, 3000)
    common = steel(chance)
    if kind == 0:
        return {"class": "CKtZantoStraightBar", "Point1": place, "Point2": second, "Hook1Up": chance.random() < 0.5,
                "Hook2Up": chance.random() < 0.5, **hooks(chance, "12"), **common}
    if kind in (1, 2):
        return {"class": ("CKtZantoLBar", "CKtZantoUBar")[kind - 1], "Point1": place, "Point2": second, "Point3": third,
                **hooks(chance, "12"), **common}
    if kind == 3:
        return {"class": "CKtZantoPin", "Point1": place, "Point2": second, **hooks(chance, "12"), **common}
    if kind == 4:
        return {"class": "CKtZantoPointBar", "Point1": place, **common}
    if kind == 5:
        points = [place, second, third]
        for _ in range(chance.randrange(4)):
            points.append(beside(chance, points[-1], 2500))
        return {"class": "CKtZantoPolygonBar", "Points": points, "Side": chance.random() < 0.5, **hooks(chance, "12"),
                **common}
    if kind == 6:
        across = (second[1] - place[1], place[0] - second[0])
        share = chance.uniform(0.2, 1)
        corner = [round(second[0] + across[0] * share, 4), round(second[1] + across[1] * share, 4), 0]
        return {"class": "CKtZantoFrameRect", "Point1": place, "Point2": second, "Point3": corner, **hooks(chance, "1"),
                **common}
    if kind == 7:
        radius = round(chance.uniform(100, 900), 1)
        return {"class": "CKtZantoFrameCirc", "Center": place, "StartPoint": [place[0], place[1] + radius, 0],
                "FrameRadius": radius, "RecoverLength": chance.choice((0, 300)), **hooks(chance, "1"), **common}
    return {"class": "CKtZantoStirrup", "Point1": place, "Point2": second, **hooks(chance, "1"), **common}


def leaning(chance, bar, is_along_x):
    """How far a straight bar goes along x, or y, for each unit across it; None for one that is not straight, or flat."""
    if bar["class"] not in ("CKtZantoPin", "CKtZantoStraightBar") or chance.random() < 0.4:
        return None
    x, y = (bar["Point2"][i] - bar["Point1"][i] for i in (0, 1))
    along, across = (x, y) if is_along_x else (y, x)
    return along / across if abs(along) < 3 * abs(across) else None


def series(chance, place, bar, index):
    """A repartition of a bar that is in the drawing, along x or y: of bars square to that, or like the bar, or each of
    a length of its own and at an angle that the drawing says by where the last one crosses the line."""
    count = chance.randrange(2, 12)
    step = round(chance.uniform(50, 300), 1)
    steps = [step if chance.random() < 0.8 else 2 * step for _ in range(count - 1)]
    reach = round(chance.uniform(100, 2000), 1)
    way = sum(steps)
    is_along_x = chance.random() < 0.5
    tops = [reach] * count
    bottoms = [-reach] * count
    lean = leaning(chance, bar, is_along_x)
    if lean is not None and chance.random() < 0.5:
        length = math.dist(bar["Point1"], bar["Point2"])
        tops = [round(length / math.hypot(1, lean) - reach, 4)] * count
    elif lean is not None:
        tops = [reach + 50 * i for i in range(count)]
        bottoms = [-round(chance.uniform(100, 2000), 1) for _ in range(count)]
        # Distances are positive to the left of the line.
        way += lean * (tops[0] - tops[-1]) * (1 if is_along_x else -1)
    end = [place[0] + way, place[1], 0] if is_along_x else [place[0], place[1] + way, 0]
    return {"class": "CKtZantoRepartition", "Point1": place, "Point2": end, "Bulge": [0, 0, 0], "ViewPoint": 2,
            "Axis": [1, 0, 0] if is_along_x else [0, 1, 0], "AxisDistancesTop": tops, "AxisDistancesBottom": bottoms,
            "Positions": steps, "DefClassName": bar["class"], "Index": index, "Hidden": False}


def frame(reach=40000):
    """Lines round everything, by which pictures of different programs are laid over each other."""
    corners = [[x * reach, y * reach, 0] for x, y in ((-1, -1), (1, -1), (1, 1), (-1, 1))]
    return [{"class": "CKtZantoLine", "Point1": a, "Point2": b, "Color": 7}
            for a, b in zip(corners, corners[1:] + corners[:1])]


def drawing(seed, count=60):
    """A drawing of so many elements in a frame; the same for the same seed. Hidden bars come once each."""
    chance = random.Random(seed)
    elements = frame()
    numbers = {"CKtZantoLine": len(elements)}
    bars = []
    for _ in range(count):
        place = point(chance)
        kind = chance.random()
        if kind < 0.12 and bars:
            element = series(chance, place, *chance.choice(bars))
        else:
            element = (graphic if kind < 0.5 else reinforcement)(chance, place)
        numbers[element["class"]] = numbers.get(element["class"], 0) + 1
        if "Diameter" in element:
            bars.append((element, numbers[element["class"]]))
            element["Hidden"] = chance.random() < 0.15
        elements.append(element)
    return {"drawing": {"name": f"random {seed}", "version": "1", "servicePack": 0, "checkSum": 0}, "elements": elements}
