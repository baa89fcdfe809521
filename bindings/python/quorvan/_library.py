"""The library's functions, and their errors as exceptions."""

from __future__ import annotations

import os
import sys
from ctypes import (CDLL, POINTER, c_char_p, c_double, c_int, c_int32, c_long, c_size_t, c_ubyte,
                    c_uint32, c_ulong, c_void_p, c_wchar_p)
from pathlib import Path
from typing import Any, Sequence

OUT_OF_MEMORY = 1
BAD_SERIES = 16
NO_FILE = 30
NO_MORE = 40
NO_ITEM = 41
OTHER_KIND = 42
INCOMPLETE = 43


class QuorvanError(Exception):
    """What the library could not do: its number, its text, and the place in the file (0 where it is
    not known)."""

    def __init__(self, number: int, text: str, line: int = 0, column: int = 0) -> None:
        place = f" (line {line}, column {column})" if line else ""
        super().__init__(f"{text}{place}")
        self.number = number
        self.text = text
        self.line = line
        self.column = column


class QuorvanFileNotFoundError(QuorvanError, FileNotFoundError):
    """There is no such file."""


DOUBLES = POINTER(c_double)
_BAR: list[Any] = [c_wchar_p, c_wchar_p, c_long, c_double, c_ubyte]

# Name, result and arguments of each function in use.
_SIGNATURES: list[tuple[str, Any, list[Any]]] = [
    ("quorvanLastErrorText", c_char_p, []),
    ("quorvanLastErrorLine", c_int, []),
    ("quorvanLastErrorColumn", c_int, []),
    ("quorvanOpenFile", c_int, [c_wchar_p, POINTER(c_void_p)]),
    ("quorvanOpenMemory", c_int, [c_char_p, c_size_t, POINTER(c_void_p)]),
    ("quorvanCloseFile", None, [c_void_p]),
    ("quorvanNextElement", c_int, [c_void_p, c_char_p, POINTER(c_void_p)]),
    ("quorvanElementClass", c_char_p, [c_void_p]),
    ("quorvanElementClassNumber", c_int, [c_void_p]),
    ("quorvanElementVersion", c_int32, [c_void_p]),
    ("quorvanElementIndex", c_int32, [c_void_p]),
    ("quorvanItem", c_void_p, [c_void_p, c_char_p]),
    ("quorvanReadLong", c_int, [c_void_p, POINTER(c_int32)]),
    ("quorvanReadColor", c_int, [c_void_p, POINTER(c_uint32)]),
    ("quorvanReadDouble", c_int, [c_void_p, DOUBLES]),
    ("quorvanReadFlag", c_int, [c_void_p, POINTER(c_int)]),
    ("quorvanReadText", c_int, [c_void_p, POINTER(c_char_p), POINTER(c_size_t)]),
    ("quorvanReadPoint", c_int, [c_void_p, DOUBLES]),
    ("quorvanReadPoints", c_int, [c_void_p, DOUBLES, c_size_t, POINTER(c_size_t)]),
    ("quorvanReadBulges", c_int, [c_void_p, DOUBLES, c_size_t, POINTER(c_size_t)]),
    ("quorvanReadDoubles", c_int, [c_void_p, DOUBLES, c_size_t, POINTER(c_size_t)]),
    ("quorvanClassCount", c_int, []),
    ("quorvanClassName", c_char_p, [c_int]),
    ("quorvanClassItemCount", c_int, [c_int]),
    ("quorvanClassItemName", c_char_p, [c_int, c_int]),
    ("quorvanClassItemKind", c_int, [c_int, c_int]),
    ("quorvanClassItemIsOptional", c_int, [c_int, c_int]),
    ("startFilingChecked", c_int, [c_wchar_p]),
    ("stopFilingChecked", c_int, []),
    ("quorvanAbandonFiling", c_int, []),
    ("endFilingChecked", c_int, [c_wchar_p, c_long, c_wchar_p, c_int]),
    ("exportDrawingControlChecked", c_int, [c_wchar_p, c_long, c_long, c_wchar_p]),
    ("exportLineChecked", c_int, 6 * [c_double] + [c_ulong]),
    ("exportCircleChecked", c_int, 4 * [c_double] + [c_ulong]),
    ("exportTextChecked", c_int,
     [c_wchar_p] + 4 * [c_double] + [c_ulong, c_int, c_int, c_double]),
    ("exportFilledPolygonChecked", c_int, [c_int] + 3 * [DOUBLES] + [c_ulong]),
    ("exportFormworkChecked", c_int, [c_int] + 6 * [DOUBLES]),
    ("exportMeshChecked", c_int,
     [c_wchar_p, c_wchar_p] + 3 * [c_double] + [c_int] + 3 * [DOUBLES]),
    ("exportBarStraightChecked", c_int,
     8 * [c_double] + [c_ubyte, c_ubyte, c_double, c_double] + _BAR),
    ("exportBarPolygonChecked", c_int,
     [c_int] + 3 * [DOUBLES] + [c_double, c_double, c_ubyte, c_double, c_double] + _BAR),
    ("exportLBarChecked", c_int, 13 * [c_double] + _BAR),
    ("exportUBarChecked", c_int, 13 * [c_double] + _BAR),
    ("exportPinChecked", c_int, 10 * [c_double] + _BAR),
    ("exportPointBarChecked", c_int, 3 * [c_double] + _BAR),
    ("exportStirrupChecked", c_int, 8 * [c_double] + _BAR),
    ("exportFrameRectChecked", c_int, 11 * [c_double] + _BAR),
    ("exportFrameCircChecked", c_int, 10 * [c_double] + _BAR),
    ("pushRepartitionFrameRectChecked", c_int,
     6 * [c_double] + [c_wchar_p, c_double, c_double] + _BAR + [c_long, c_int, c_int]),
]


def _path() -> str:
    """The library inside the package, or the one that QUORVAN_LIBRARY names."""
    named = os.environ.get("QUORVAN_LIBRARY")
    if named:
        return named
    name = "quorvan.dll" if sys.platform == "win32" else "libquorvan.so"
    return str(Path(__file__).parent / "native" / name)


def _load() -> CDLL:
    library = CDLL(_path())
    for name, result, arguments in _SIGNATURES:
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library


library: Any = _load()


def check(result: int) -> None:
    """Raises for the number of an error."""
    if result == 0:
        return
    text = library.quorvanLastErrorText().decode("utf-8")
    if result == OUT_OF_MEMORY:
        raise MemoryError(text)
    kind = QuorvanFileNotFoundError if result == NO_FILE else QuorvanError
    raise kind(result, text, library.quorvanLastErrorLine(), library.quorvanLastErrorColumn())


def doubles(values: Sequence[float]) -> Any:
    return (c_double * len(values))(*values)
