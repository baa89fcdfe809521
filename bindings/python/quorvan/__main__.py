"""python -m quorvan info FILE: what is in a drawing."""

from __future__ import annotations

import sys
from collections import Counter

from . import QuorvanError, read
from .elements import Other


def info(path: str) -> int:
    try:
        drawing = read(path)
    except QuorvanError as error:
        print(f"{path}: {error}", file=sys.stderr)
        return 1
    control = drawing.control
    if control is not None:
        print(f"drawing {control.drawing_name}, version {control.zanto_version}")
    counts = Counter(element.class_name if isinstance(element, Other) else element.CLASS_NAME
                     for element in drawing)
    for name, count in sorted(counts.items()):
        print(f"{count:7} {name}")
    problems = sum(len(element.problems) for element in drawing)
    print(f"{len(drawing):7} elements, {problems} items missing or of another kind")
    return 0


def main(arguments: list[str]) -> int:
    if len(arguments) != 2 or arguments[0] != "info":
        print(__doc__, file=sys.stderr)
        return 2
    return info(arguments[1])


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
