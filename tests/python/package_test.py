"""The Python package: what it reads, against a parser of the test's own; what it writes; its errors."""

import dataclasses
import os
import random
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as tree
from collections import Counter
from ctypes import ArgumentError
from pathlib import Path

import quorvan
from quorvan.elements import CLASSES, Formwork, Line, Other, Point, Repartition, StraightBar

DATA = Path(__file__).parent.parent
DRAWINGS = sorted((DATA / "examples" / "golden").glob("*.xml")) + [
    DATA / "tools" / "golden" / "sample.xml", DATA / "export" / "golden" / "small_drawing.xml"]


def point_of(item):
    return Point(*(float(item.get(name)) for name in "XYZ"))


def expected_value(item, element):
    """The value of an item by its form in the file."""
    if item.get("double") is not None:
        return float(item.get("double"))
    if item.tag == "NoPoints":
        return [point_of(element.find(f"Point{n}")) for n in range(1, int(item.get("long")) + 1)]
    if item.get("long") is not None:
        number = int(item.get("long"))
        return number % 2**32 if item.tag == "Color" else number
    if item.get("string") is not None:
        return item.get("string")
    if item.get("X") is not None:
        return point_of(item)
    if len(item) and item[0].get("double") is not None:
        return [float(entry.get("double")) for entry in item]
    return [point_of(entry) for entry in item if entry.tag.startswith("Point")]


class Reading(unittest.TestCase):
    def test_every_item_is_what_stands_in_the_file(self):
        items = 0
        for path in DRAWINGS:
            drawing = quorvan.read(path)
            root = tree.parse(path).getroot()
            self.assertEqual(len(drawing), len(root))
            for found, element in zip(drawing, root):
                self.assertEqual(found.CLASS_NAME, element.tag)
                self.assertEqual(found.index, int(element.get("index")))
                self.assertEqual(found.problems, [])
                for member in dataclasses.fields(found):
                    if "item" not in member.metadata:
                        continue
                    item = element.find(member.metadata["item"])
                    value = getattr(found, member.name)
                    expected = expected_value(item, element)
                    if isinstance(value, bool):
                        expected = expected in ("True", 1)
                    self.assertEqual(value, expected, (path, element.tag, item.tag))
                    items += 1
        self.assertGreater(items, 500)

    def test_bars_series_and_control_are_found(self):
        drawing = quorvan.read(DATA / "examples" / "golden" / "beam-b12.xml")
        self.assertTrue(all(bar.diameter > 0 for bar in drawing.bars()))
        self.assertTrue(drawing.series())
        for series in drawing.series():
            self.assertIsInstance(series, Repartition)
            self.assertEqual(drawing.bar_of(series).CLASS_NAME, series.def_class_name)
        self.assertEqual(drawing.control.drawing_name, "B12")

    def test_missing_items_and_unknown_classes_are_told(self):
        drawing = quorvan.read_bytes(
            b"<Document><Foreign index='3'/><CKtZantoLine><Color string='x'/></CKtZantoLine>"
            b"</Document>")
        self.assertEqual(drawing.elements[0], Other(index=3, class_name="Foreign"))
        self.assertEqual(drawing.elements[1].problems,
                         [("Point1", "missing"), ("Point2", "missing"),
                          ("Color", "of another kind")])

    def test_every_known_class_has_its_items(self):
        from quorvan._library import library
        self.assertEqual(len(CLASSES), library.quorvanClassCount())
        for number in range(library.quorvanClassCount()):
            kind = CLASSES[library.quorvanClassName(number).decode()]
            items = {library.quorvanClassItemName(number, item).decode()
                     for item in range(library.quorvanClassItemCount(number))}
            members = {member.metadata["item"] for member in dataclasses.fields(kind)
                       if "item" in member.metadata}
            self.assertEqual(members, items)

    def test_the_table_has_a_row_for_each_element(self):
        try:
            import pandas
        except ImportError:
            self.skipTest("pandas is not here")
        drawing = quorvan.read(DATA / "examples" / "golden" / "beam-b12.xml")
        table = drawing.to_dataframe()
        self.assertIsInstance(table, pandas.DataFrame)
        self.assertEqual(list(table["class"]), [element.CLASS_NAME for element in drawing])
        bars = table[table["diameter"].notna()]
        self.assertEqual(list(bars["diameter"]), [bar.diameter for bar in drawing.bars()])
        self.assertEqual(bars.groupby("reference")["class"].count().to_dict(),
                         Counter(bar.reference for bar in drawing.bars()))
        self.assertEqual(list(bars["point1"].dropna()),
                         [bar.point1 for bar in drawing.bars() if hasattr(bar, "point1")])
        self.assertEqual(len(quorvan.read_bytes(b"<Document/>").to_dataframe()), 0)

    def test_a_file_that_is_read_stays_as_it_is(self):
        for content in (b"<Document ><CKtZantoLine index = '1'/></Document >\n", b"<Document>"):
            with tempfile.TemporaryDirectory() as folder:
                path = Path(folder) / "drawing.xml"
                path.write_bytes(content)
                try:
                    quorvan.read(path)
                except quorvan.QuorvanError:
                    self.assertEqual(content, b"<Document>")
                self.assertEqual(path.read_bytes(), content)
                self.assertEqual(list(path.parent.iterdir()), [path])

    def test_errors_are_exceptions(self):
        with self.assertRaises(FileNotFoundError):
            quorvan.read("missing.xml")
        with self.assertRaises(quorvan.QuorvanError) as raised:
            quorvan.read_bytes(b"<a>\n<b></a>")
        self.assertEqual((raised.exception.number, raised.exception.line), (32, 2))


class Writing(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = Path(self.folder.name) / "drawing.xml"

    def test_random_bars_come_back(self):
        numbers = random.Random(1)
        for _ in range(100):
            self.path.unlink(missing_ok=True)
            bars = [StraightBar(index=i + 1, version=1,
                                point1=Point(*(numbers.randint(-9999, 9999) / 4
                                               for _ in range(3))),
                                point2=Point(1, 2, 3), steel_grade="B500\u00e9", adherence="Ha",
                                diameter=numbers.randint(1, 80) / 2, reference=i,
                                hook_length1=numbers.randint(0, 9), hook1_up=i % 2 == 0)
                    for i in range(numbers.randint(1, 8))]
            with quorvan.filing(self.path, drawing_name="P\u0151") as filing:
                for bar in bars:
                    filing.straight_bar(bar.point1, bar.point2, steel_grade=bar.steel_grade,
                                        adherence=bar.adherence, reference=bar.reference,
                                        diameter=bar.diameter, hook_lengths=(bar.hook_length1, 0),
                                        hooks_up=(bar.hook1_up, False))
            drawing = quorvan.read(self.path)
            self.assertEqual(drawing.bars(), bars)
            self.assertEqual(drawing.control.drawing_name, "P\u0151")

    def test_the_other_elements_come_back(self):
        square = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
        bar = dict(steel_grade="B500B", adherence="Ha", reference=1, diameter=8)
        with quorvan.filing(self.path) as filing:
            filing.line((0, 0, 0), (1, 2, 3), color=0xFFFFFFFF)
            filing.circle((1, 2, 3), 4)
            filing.text("t", (1, 2, 3), height=5)
            filing.filled_polygon(square)
            filing.formwork(square)
            filing.mesh("R", "T", 1, 2, 3, square)
            filing.polygon_bar(square, side=True, **bar)
            filing.stirrup((0, 0, 0), (1, 0, 0), hook_length=1, hook_angle=135, **bar)
            filing.frame_rect(*square[:3], hook_length=1, hook_angle=135, **bar)
            for x in (0, 100):
                filing.series_frame((x, 0, 0), (x, 9, 0), "CKtZantoStirrup", hook_length=1,
                                    hook_angle=135, **bar)
        drawing = quorvan.read(self.path)
        self.assertEqual(len(drawing), 11)
        self.assertEqual(drawing.of(Line)[0].color, 0xFFFFFFFF)
        self.assertEqual(len(drawing.elements[4].bulges), 2)
        self.assertEqual(drawing.series()[0].positions, [100.0])

    def test_every_class_is_filed_as_it_was_read(self):
        numbers = random.Random(7)

        def value_for(member):
            default = member.default if member.default is not dataclasses.MISSING else []
            if isinstance(default, bool):
                return numbers.random() < 0.5
            if isinstance(default, Point):
                return Point(*(numbers.randint(-999, 999) / 8 for _ in range(3)))
            if isinstance(default, list):
                return [value_for(Line.__dataclass_fields__["point1"]) for _ in range(4)]
            if isinstance(default, int):
                return numbers.randint(0, 2**31 - 1)
            return numbers.randint(0, 99) / 4 if isinstance(default, float) else "t\u0151"

        filed = []
        for kind in CLASSES.values():
            if kind is not Repartition:
                values = {member.name: value_for(member) for member in dataclasses.fields(kind)
                          if "item" in member.metadata}
                if kind is Formwork:
                    values["bulges"] = [Point(1, 2, 3), Point(-1, 0, 0)]
                filed.append(kind(version=1, index=1, **values))
        with quorvan.filing(self.path) as filing:
            for element in filed:
                filing.add(element)
            with self.assertRaises(TypeError):
                filing.add(Repartition())
            with self.assertRaises(TypeError):
                filing.add(Other())
        self.assertEqual(quorvan.read(self.path).elements[:-1], filed)

    def test_what_cannot_be_filed_as_it_is_given_is_refused(self):
        attributes = dict(steel_grade="S", adherence="A", reference=1, diameter=8)
        with quorvan.filing(self.path) as filing:
            for error, call in (
                    (ValueError, lambda: filing.line((0, 0), (1, 2, 3))),
                    (ValueError, lambda: filing.line((0, 0, 0, 0), (1, 2, 3))),
                    (ValueError, lambda: filing.text("a\0b", (0, 0, 0), height=1)),
                    (ValueError, lambda: filing.formwork([(0, 0, 0)])),
                    (ValueError, lambda: filing.formwork([(0, 0, 0)] * 4, [(0, 0, 0)])),
                    (ValueError, lambda: filing.pin((0, 0, 0), (1, 0, 0), hook_lengths=(1, 2, 3),
                                                    **attributes)),
                    (OverflowError, lambda: filing.line((0, 0, 0), (1, 2, 3), -1)),
                    (OverflowError, lambda: filing.line((0, 0, 0), (1, 2, 3), 2**32)),
                    (OverflowError, lambda: filing.point_bar(
                        (0, 0, 0), **{**attributes, "reference": 2**31})),
                    (ArgumentError, lambda: filing.circle((0, 0, 0), "wide"))):
                with self.assertRaises(error):
                    call()
        self.assertEqual(len(quorvan.read(self.path)), 1)

    def test_a_failed_filing_saves_nothing_and_the_next_one_works(self):
        with self.assertRaises(quorvan.QuorvanError) as raised:
            with quorvan.filing(self.path) as filing:
                filing.series_frame((0, 0, 0), (0, 9, 0), "CKtZantoStirrup", hook_length=1,
                                    hook_angle=135, steel_grade="S", adherence="A", reference=1,
                                    diameter=8)
        self.assertEqual(raised.exception.number, 16)
        with self.assertRaises(ZeroDivisionError):
            with quorvan.filing(self.path):
                raise ZeroDivisionError
        with self.assertRaises(quorvan.QuorvanError) as raised:
            with quorvan.filing(self.path.parent / "missing" / "drawing.xml"):
                pass
        self.assertEqual(raised.exception.number, 13)
        self.assertFalse(self.path.exists())
        with quorvan.filing(self.path) as filing:
            filing.line((0, 0, 0), (1, 2, 3))
        self.assertEqual(len(quorvan.read(self.path)), 2)


class Command(unittest.TestCase):
    def test_info_counts_the_elements(self):
        run = subprocess.run(
            [sys.executable, "-m", "quorvan", "info", DATA / "tools" / "golden" / "sample.xml"],
            capture_output=True, check=True, encoding="utf-8",
            env={**os.environ, "PYTHONIOENCODING": "utf-8"})
        self.assertIn("2 CKtZantoLine", run.stdout)
        self.assertIn("20 elements, 0 items missing", run.stdout)

    def test_info_tells_an_error(self):
        run = subprocess.run([sys.executable, "-m", "quorvan", "info", "missing.xml"],
                             capture_output=True, check=False, encoding="utf-8")
        self.assertEqual(run.returncode, 1)
        self.assertIn("there is no such file", run.stderr)


if __name__ == "__main__":
    unittest.main()
