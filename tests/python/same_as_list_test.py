"""What the package reads is what the program lists.

usage: same_as_list_test.py PROGRAM [DRAWINGS [FIRST_SEED]]

As many random drawings, 40 unless told, 1000 with QUORVAN_LONG_TESTS=1 in the environment, go through
`quorvan.read` and `quorvan list --json`, and must come out the same, item by item. Where something is
wrong with an item the listing shows what stands there; the package then names it among the problems, and
keeps the value of a new object.
"""

import json
import math
import os
import subprocess
import sys
import tempfile
from dataclasses import fields
from pathlib import Path

import quorvan
from quorvan._library import library
from quorvan.elements import DrawingControl, Formwork, Other, Point
from random_drawings import Drawing

# The items that may be missing, as the library's tables have it.
OPTIONAL = {(library.quorvanClassName(number), library.quorvanClassItemName(number, item).decode())
            for number in range(library.quorvanClassCount())
            for item in range(library.quorvanClassItemCount(number))
            if library.quorvanClassItemIsOptional(number, item)}


def number(value):
    """A number as JSON can have it."""
    if math.isnan(value):
        return "nan"
    return value if math.isfinite(value) else ("inf" if value > 0 else "-inf")


def value_of(value):
    if isinstance(value, Point):
        return [number(coordinate) for coordinate in value]
    if isinstance(value, list):
        return [value_of(entry) for entry in value]
    return number(value) if isinstance(value, float) else value


def segments(formwork):
    starts, ends = formwork.points[0::2], formwork.points[1::2]
    return [{"start": value_of(start), "end": value_of(end), "bulge": value_of(bulge)}
            for start, end, bulge in zip(starts, ends, formwork.bulges)]


def items_of(element):
    """The items under the names and in the form of the listing, each with its name in the file."""
    for member in fields(element):
        item = member.metadata.get("item")
        if item is None:
            continue
        if isinstance(element, Formwork):
            yield item, "Segments", segments(element)
        elif member.name == "points":
            yield item, "Points", value_of(element.points)
        else:
            yield item, item, value_of(getattr(element, member.name))


def differences(element, listed):
    """The names of what is not as it is listed."""
    listed = dict(listed)
    if listed.pop("class") != (element.class_name if isinstance(element, Other)
                               else element.CLASS_NAME):
        yield "class"
        return
    new = {item: value for item, _, value in items_of(type(element)())}
    reasons = {problem.item: problem.reason for problem in element.problems}
    for item, name, value in items_of(element):
        reason = reasons.pop(item, None)
        if name not in listed:
            # An optional item may be missing without a word.
            may_be_missing = (element.CLASS_NAME.encode(), item) in OPTIONAL
            is_same = value == new[item] and (reason is not None or may_be_missing)
        else:
            is_same = reason != "missing" and (reason is not None or value == listed.pop(name))
        if not is_same:
            yield name
        listed.pop(name, None)
    yield from reasons
    yield from listed


def control_and_elements(drawing):
    """The last record apart from the others, as the listing has it."""
    elements = list(drawing)
    if not elements or not isinstance(elements[-1], DrawingControl):
        return None, elements
    last = elements.pop()
    missing = {problem.item for problem in last.problems if problem.reason == "missing"}
    return {name: value for item, name, value in (
        ("DrawingName", "name", last.drawing_name), ("ZantoVersion", "version", last.zanto_version),
        ("ServicePack", "servicePack", last.service_pack),
        ("CheckSum", "checkSum", last.check_sum)) if item not in missing}, elements


def main(program, count=None, first="1"):
    count = count or ("1000" if os.environ.get("QUORVAN_LONG_TESTS") == "1" else "40")
    elements = 0
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "drawing.xml"
        for seed in range(int(first), int(first) + int(count)):
            drawing = Drawing(seed)
            path.write_bytes(drawing.bytes)
            run = subprocess.run([program, "list", "--json", path], capture_output=True, check=True)
            listed = json.loads(run.stdout)
            control, read = control_and_elements(quorvan.read(path))
            if control != listed["drawing"]:
                sys.exit(f"drawing {seed}: {control}\n  listed: {listed['drawing']}")
            if len(read) != len(listed["elements"]):
                sys.exit(f"drawing {seed}: another number of elements")
            for mine, theirs in zip(read, listed["elements"]):
                if names := list(differences(mine, theirs)):
                    sys.exit(f"drawing {seed}: {names}\n  read:   {mine}\n  listed: {theirs}")
                if mine.problems and not drawing.is_odd:
                    sys.exit(f"drawing {seed}: problems where there are none\n  read: {mine}")
            elements += len(read)
    print(f"{count} drawings with {elements} elements are the same")


if __name__ == "__main__":
    main(*sys.argv[1:])
