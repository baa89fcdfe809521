"""Reading a drawing."""

from __future__ import annotations

import os
from ctypes import byref, c_char_p, c_double, c_int, c_int32, c_size_t, c_uint32, c_void_p
from dataclasses import asdict, dataclass, field, fields
from functools import cache
from typing import Any, Callable, Iterator, NamedTuple, Optional, TypeVar, Union

from ._library import INCOMPLETE, NO_ITEM, NO_MORE, OTHER_KIND, check, library
from .elements import CLASSES, Bar, DrawingControl, Element, Other, Point, Problem, Repartition

E = TypeVar("E", bound=Element)

_REASONS = {
    NO_ITEM: "missing",
    OTHER_KIND: "of another kind",
    INCOMPLETE: "incomplete",
}


@dataclass
class Drawing:
    """The elements of a drawing, in the order of the file."""

    elements: list[Element] = field(default_factory=list)

    def __iter__(self) -> Iterator[Element]:
        return iter(self.elements)

    def __len__(self) -> int:
        return len(self.elements)

    def of(self, kind: type[E]) -> list[E]:
        """The elements of one class, or of all that derive from it."""
        return [element for element in self.elements if isinstance(element, kind)]

    def bars(self) -> list[Bar]:
        """All bars and links."""
        return self.of(Bar)

    def series(self) -> list[Repartition]:
        """The series of like bars."""
        return self.of(Repartition)

    def bar_of(self, series: Repartition) -> Optional[Element]:
        """The bar that the series repeats; None where it is not in the drawing."""
        for element in self.elements:
            if element.CLASS_NAME == series.def_class_name and element.index == series.bar_index:
                return element
        return None

    @property
    def control(self) -> Optional[DrawingControl]:
        """The last drawing control record."""
        records = self.of(DrawingControl)
        return records[-1] if records else None

    def to_dataframe(self) -> Any:
        """A pandas table with a row for each element."""
        import pandas

        rows = []
        for element in self.elements:
            name = element.class_name if isinstance(element, Other) else element.CLASS_NAME
            rows.append({"class": name, **asdict(element)})
        return pandas.DataFrame(rows)


def read(path: Union[str, os.PathLike[str]]) -> Drawing:
    """The drawing in the file, which is never written. Raises QuorvanError."""
    return _read(lambda file: int(library.quorvanOpenFile(os.fsdecode(path), file)))


def read_bytes(content: bytes) -> Drawing:
    """The drawing in the bytes of a file. Raises QuorvanError."""
    return _read(lambda file: int(library.quorvanOpenMemory(content, len(content), file)))


def _read(open_file: Callable[[Any], int]) -> Drawing:
    file = c_void_p()
    check(open_file(byref(file)))
    try:
        return Drawing(list(_elements(file)))
    finally:
        library.quorvanCloseFile(file)


def _elements(file: c_void_p) -> Iterator[Element]:
    handle = c_void_p()
    while True:
        result = library.quorvanNextElement(file, None, byref(handle))
        if result == NO_MORE:
            return
        check(result)
        yield _element(handle)


def _element(handle: c_void_p) -> Element:
    name: str = library.quorvanElementClass(handle).decode("utf-8")
    kind = CLASSES.get(name)
    element = kind() if kind is not None else Other(class_name=name)
    element.version = library.quorvanElementVersion(handle)
    element.index = library.quorvanElementIndex(handle)
    if kind is not None:
        for row in _items_of(library.quorvanElementClassNumber(handle)):
            _read_item(element, handle, row)
    return element


class _Item(NamedTuple):
    """What the library's table of a class says of one item."""

    name: bytes
    member: str
    kind: int
    is_optional: bool


@cache
def _items_of(number: int) -> list[_Item]:
    kind = CLASSES[library.quorvanClassName(number).decode("ascii")]
    members = {member.metadata["item"]: member.name
               for member in fields(kind) if "item" in member.metadata}
    names = [library.quorvanClassItemName(number, item)
             for item in range(library.quorvanClassItemCount(number))]
    return [_Item(name, members[name.decode("ascii")], library.quorvanClassItemKind(number, item),
                  library.quorvanClassItemIsOptional(number, item) != 0)
            for item, name in enumerate(names)]


def _read_item(element: Element, handle: c_void_p, row: _Item) -> None:
    place = library.quorvanItem(handle, row.name)
    result, value = _READERS[row.kind](place)
    if row.kind == _SEGMENTS and value is not None:
        result_of_bulges, bulges = _points(place, library.quorvanReadBulges)
        setattr(element, "bulges", bulges)
        result = result or result_of_bulges
    if value is not None:
        setattr(element, row.member, value)
    if result == 0 or (result == NO_ITEM and row.is_optional):
        return
    if result not in _REASONS:
        check(result)
    element.problems.append(Problem(row.name.decode("ascii"), _REASONS[result]))


Read = tuple[int, Any]


def _long(place: Any) -> Read:
    value = c_int32()
    result = library.quorvanReadLong(place, byref(value))
    return result, value.value if result == 0 else None


def _color(place: Any) -> Read:
    value = c_uint32()
    result = library.quorvanReadColor(place, byref(value))
    return result, value.value if result == 0 else None


def _double(place: Any) -> Read:
    value = c_double()
    result = library.quorvanReadDouble(place, byref(value))
    return result, value.value if result == 0 else None


def _flag(place: Any) -> Read:
    value = c_int()
    result = library.quorvanReadFlag(place, byref(value))
    return result, value.value != 0 if result == 0 else None


def _text(place: Any) -> Read:
    value = c_char_p()
    length = c_size_t()
    result = library.quorvanReadText(place, byref(value), byref(length))
    if result != 0 or value.value is None:
        return result, None
    return result, value.value.decode("utf-8")


def _point(place: Any) -> Read:
    xyz = (c_double * 3)()
    result = library.quorvanReadPoint(place, xyz)
    return result, Point(*xyz) if result == 0 else None


def _numbers(place: Any, function: Any, width: int) -> tuple[int, Optional[list[float]]]:
    count = c_size_t()
    result = function(place, None, 0, byref(count))
    if result not in (0, INCOMPLETE):
        return result, None
    numbers = (c_double * (width * count.value))()
    if count.value:
        result = function(place, numbers, count.value, byref(count))
    return result, list(numbers)


def _points(place: Any, function: Any) -> Read:
    result, numbers = _numbers(place, function, 3)
    if numbers is None:
        return result, None
    return result, [Point(*numbers[i:i + 3]) for i in range(0, len(numbers), 3)]


_SEGMENTS = 9
_READERS: dict[int, Callable[[Any], Read]] = {
    1: _long,
    2: _color,
    3: _double,
    4: _text,
    5: _flag,
    6: _point,
    7: _point,
    8: lambda place: _points(place, library.quorvanReadPoints),
    _SEGMENTS: lambda place: _points(place, library.quorvanReadPoints),
    10: lambda place: _numbers(place, library.quorvanReadDoubles, 1),
}
