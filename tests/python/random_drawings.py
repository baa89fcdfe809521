"""Random transfer files: every class and kind of item, in several encodings, with what is met in the
field: items missing, of another kind or twice, lists that announce more or less than they have, classes
that are not known."""

from dataclasses import fields
from random import Random
from xml.sax.saxutils import quoteattr

from quorvan.elements import CLASSES, Point

ENCODINGS = ("utf-8", "iso-8859-1", "utf-16", "us-ascii")
LETTERS = "abcXYZ019 .-_/\u00e9\u00f8\u00df\u0151\u2013\U0001f9f1<>&\"'"
ENTRY_NAMES = {"AxisDistancesTop": "DistanceTop", "AxisDistancesBottom": "DistanceBottom"}


class Drawing:
    """One drawing from a seed; `bytes` are those of its file."""

    def __init__(self, seed):
        self.random = Random(seed)
        self.is_odd = self.random.random() < 0.5
        names = [*CLASSES, "CKtForeign"]
        elements = [self.element(self.random.choice(names), number + 1)
                    for number in range(self.random.randint(0, 30))]
        encoding = self.random.choice(ENCODINGS)
        text = (f'<?xml version="1.0" encoding="{encoding.upper()}"?>\n<Document>'
                f'{self.space().join(elements)}</Document>')
        self.bytes = text.encode(encoding, "xmlcharrefreplace")

    def happens(self, share):
        return self.is_odd and self.random.random() < share

    def space(self):
        return self.random.choice(("", "", "\n  ", "<!-- c -->"))

    def number(self):
        if self.happens(0.05):
            return self.random.choice(("", "x", "1e400", " 7.5mm", "1e-320", "+4."))
        return self.random.choice((
            f"{self.random.uniform(-1e5, 1e5):.7f}", f"{self.random.randint(-9999, 9999)}.0000000",
            repr(self.random.uniform(-1, 1)), "-0.0000000"))

    def whole(self):
        if self.happens(0.05):
            return self.random.choice(("", "x", "4294967296", "-99999999999", " 12 ", "3.9"))
        return str(self.random.choice((0, 1, -1, 7, self.random.randint(-2**31, 2**31 - 1))))

    def text(self):
        return "".join(self.random.choices(LETTERS, k=self.random.randint(0, 12)))

    def flag(self, name):
        if name == "Side":
            return f'long="{self.whole()}"'
        return f'string="{self.random.choice(("True", "False", "TRUE", "", "1"))}"'

    def point(self, name):
        coordinates = [f' {axis}="{self.number()}"' for axis in "XYZ" if not self.happens(0.01)]
        return f"<{name}{''.join(coordinates)}/>"

    def count(self):
        return self.random.choice((0, 1, 2, 3, 4, 12))

    def announced(self, count):
        return count + self.random.choice((-1, 1, 1000)) if self.happens(0.1) else count

    def points(self, name, with_bulges):
        count = 2 * self.count() if with_bulges else self.count()
        entries = []
        for number in range(1, count + 1):
            if not self.happens(0.02):
                entries.append(self.point(f"Point{number}"))
            if with_bulges and number % 2 == 0 and not self.happens(0.02):
                entries.append(self.point(f"Bulge{number // 2}"))
        return f'<{name} size="{self.announced(count)}">{"".join(entries)}</{name}>'

    def numbered_points(self):
        count = self.count()
        entries = [self.point(f"Point{number}") for number in range(1, count + 1)
                   if not self.happens(0.02)]
        return f'<NoPoints long="{self.announced(count)}"/>{"".join(entries)}'

    def doubles(self, name):
        entry = ENTRY_NAMES.get(name, name)
        count = self.count()
        entries = [f'<{entry}{number} double="{self.number()}"/>' for number in range(1, count + 1)
                   if not self.happens(0.02)]
        return f'<{name} size="{self.announced(count)}">{"".join(entries)}</{name}>'

    def item(self, kind, member):
        name = member.metadata["item"]
        if self.happens(0.02):
            return f'<{name} {self.random.choice(("bool", "Long", "value"))}="1"/>'
        if name == "NoPoints":
            return self.numbered_points()
        if name == "Vector":
            return self.points(name, kind.CLASS_NAME == "CKtZantoFormwork")
        if name == "Adherence" and self.happens(0.2):
            return f'<{name} long="{self.whole()}"/>'
        default = member.default
        if isinstance(default, bool):
            return f"<{name} {self.flag(name)}/>"
        if isinstance(default, Point):
            return self.point(name)
        if isinstance(default, int):
            return f'<{name} long="{self.whole()}"/>'
        if isinstance(default, float):
            return f'<{name} double="{self.number()}"/>'
        if isinstance(default, str):
            return f"<{name} string={quoteattr(self.text())}/>"
        return self.doubles(name)

    def element(self, name, index):
        kind = CLASSES.get(name)
        if kind is None:
            return f'<{name} index="{index}"><Strange double="1"/></{name}>'
        items = []
        for member in fields(kind):
            if "item" not in member.metadata or self.happens(0.03):
                continue
            items.append(self.item(kind, member))
            if self.happens(0.02):
                items.append(self.item(kind, member))
        if self.happens(0.1):
            items.append('<Strange long="1"/>')
        if self.happens(0.1):
            self.random.shuffle(items)
        attributes = "" if self.happens(0.1) else f' version="1" index="{index}"'
        return f"<{name}{attributes}>{self.space().join(items)}</{name}>"
