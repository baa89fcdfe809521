#!/usr/bin/env python3
"""A host in Python that writes a small drawing: the elevation of a beam with its bottom bar and
its links.

    write_drawing.py LIBRARY FILE [LINKS]

On Windows LIBRARY is quorvan.dll, elsewhere libquorvan.so. Lengths are in millimetres. Whatever goes
wrong is told, and what can be saved is saved.
"""

import sys
from ctypes import CDLL, POINTER, c_char_p, c_double, c_int, c_long, c_ubyte, c_ulong, c_wchar_p

DOUBLES = POINTER(c_double)
BAD_SERIES = 16

# The flat functions that this host uses, as <quorvan/export/checked.h> declares them, there with
# "Checked" behind their names. All of them return a result: 0, or the number of an error.
SIGNATURES = {
    "startFiling": [c_wchar_p],
    "stopFiling": [],
    "endFiling": [c_wchar_p, c_long, c_wchar_p, c_int],
    "exportFormwork": [c_int] + 6 * [DOUBLES],
    "exportText": [c_wchar_p] + 4 * [c_double] + [c_ulong, c_int, c_int, c_double],
    "exportBarStraight": 8 * [c_double] + 2 * [c_ubyte] + 2 * [c_double]
    + [c_wchar_p, c_wchar_p, c_long, c_double, c_ubyte],
    "exportFrameRect": 11 * [c_double] + [c_wchar_p, c_wchar_p, c_long, c_double, c_ubyte],
    "pushRepartitionFrameRect": 6 * [c_double] + [c_wchar_p] + 2 * [c_double]
    + [c_wchar_p, c_wchar_p, c_long, c_double, c_ubyte, c_long, c_int, c_int],
}


class QuorvanError(Exception):
    """What the library could not do."""

    def __init__(self, number, text):
        super().__init__(f"error {number}: {text}")
        self.number = number


class Quorvan:
    """The functions of the library, which raise QuorvanError."""

    def __init__(self, path):
        self._library = CDLL(path)
        self._library.quorvanLastErrorText.restype = c_char_p
        for name, arguments in SIGNATURES.items():
            function = getattr(self._library, name + "Checked")
            function.argtypes = arguments
            function.restype = c_int
            function.errcheck = self._check
            setattr(self, name, function)

    def _check(self, result, _function, arguments):
        if result != 0:
            raise QuorvanError(result, self._library.quorvanLastErrorText().decode("utf-8"))
        return arguments


def doubles(*values):
    return (c_double * len(values))(*values)


def write_drawing(quorvan, path, links):
    # Four sides of 5000 x 500, two points a side, one bulge a side: straight.
    xs = doubles(0, 5000, 5000, 5000, 5000, 0, 0, 0)
    ys = doubles(0, 0, 0, 500, 500, 500, 500, 0)
    zs = doubles(0, 0, 0, 0, 0, 0, 0, 0)
    straight = doubles(0, 0, 0, 0)

    quorvan.startFiling(path)
    quorvan.exportFormwork(8, xs, ys, zs, straight, straight, straight)
    quorvan.exportText("Poutre B12 – 1 ø 20", 0, 600, 0, 0, 7, 0, 0, 100)
    quorvan.exportBarStraight(30, 40, 0, 4970, 40, 0, 150, 150, True, True, 90, 90,
                              "B500B", "HA", 1, 20, False)
    quorvan.exportFrameRect(200, 30, 0, 200, 470, 0, 200, 470, 240, 80, 135,
                            "B500B", "HA", 2, 8, False)
    for link in range(links):
        x = 200 + 200 * link
        quorvan.pushRepartitionFrameRect(x, 30, 0, x, 470, 0, "CKtZantoFrameRect", 80, 135,
                                         "B500B", "HA", 2, 8, False, 1, 1, 0)
    try:
        quorvan.endFiling("2025", 1, "B12", 42)
    except QuorvanError as error:
        if error.number == BAD_SERIES:
            # Saves the drawing without the series.
            quorvan.stopFiling()
            quorvan.endFiling("2025", 1, "B12", 42)
        raise


def main(arguments):
    if len(arguments) not in (2, 3):
        print(__doc__, file=sys.stderr)
        return 2
    try:
        write_drawing(Quorvan(arguments[0]), arguments[1],
                      int(arguments[2]) if len(arguments) == 3 else 24)
    except QuorvanError as error:
        print(f"{arguments[1]}: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
