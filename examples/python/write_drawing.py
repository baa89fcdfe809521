#!/usr/bin/env python3
"""A host in Python that writes a small drawing: the elevation of a beam with its bottom bar and
its links.

    write_drawing.py LIBRARY FILE

On Windows LIBRARY is quorvan.dll, elsewhere libquorvan.so. Lengths are in millimetres.
"""

import sys
from ctypes import CDLL, POINTER, c_bool, c_double, c_int, c_long, c_ulong, c_wchar_p

DOUBLES = POINTER(c_double)

# The flat functions that this host uses, as <quorvan/export/export.h> declares them. All of them
# return nothing.
SIGNATURES = {
    "startFiling": [c_wchar_p],
    "endFiling": [c_wchar_p, c_long, c_wchar_p, c_int],
    "exportFormwork": [c_int] + 6 * [DOUBLES],
    "exportText": [c_wchar_p] + 4 * [c_double] + [c_ulong, c_int, c_int, c_double],
    "exportBarStraight": 8 * [c_double] + 2 * [c_bool] + 2 * [c_double]
    + [c_wchar_p, c_wchar_p, c_long, c_double, c_bool],
    "exportFrameRect": 11 * [c_double] + [c_wchar_p, c_wchar_p, c_long, c_double, c_bool],
    "pushRepartitionFrameRect": 6 * [c_double] + [c_wchar_p] + 2 * [c_double]
    + [c_wchar_p, c_wchar_p, c_long, c_double, c_bool, c_long, c_int, c_int],
}


def open_library(path):
    library = CDLL(path)
    for name, arguments in SIGNATURES.items():
        function = getattr(library, name)
        function.argtypes = arguments
        function.restype = None
    return library


def doubles(*values):
    return (c_double * len(values))(*values)


def write_drawing(quorvan, path):
    # Four sides of 5000 x 500, two points and one bulge for each side, straight.
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
    for link in range(24):
        x = 200 + 200 * link
        quorvan.pushRepartitionFrameRect(x, 30, 0, x, 470, 0, "CKtZantoFrameRect", 80, 135,
                                         "B500B", "HA", 2, 8, False, 1, 1, 0)
    quorvan.endFiling("2025", 1, "B12", 42)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    write_drawing(open_library(sys.argv[1]), sys.argv[2])
