"""Writing a drawing. One filing at a time in a process, from one thread."""

from __future__ import annotations

import os
from contextlib import contextmanager
from typing import Any, Callable, Iterator, Sequence, TypedDict, Union

from ._library import check, doubles, library
from .elements import (Bar, Circle, DrawingControl, Element, FilledPolygon, Formwork, FrameCirc,
                       FrameRect, LBar, Line, Mesh, Pin, PointBar, PolygonBar, Stirrup, StraightBar,
                       Text, UBar)

Coordinates = Sequence[float]
Pair = tuple[float, float]


class Filing:
    """An open filing; every method files one element.

    What the library refuses raises QuorvanError. What it could not file as it is given raises before
    anything is filed: ValueError for points that have not three coordinates, lists that do not fit
    each other and texts with a null character; OverflowError for numbers that do not fit into the 32
    bits of the file.
    """

    def add(self, element: Element) -> None:
        """Files what a drawing holds. A series is not filed as a whole but frame by frame, and of a
        class that is not known nothing is known to file: TypeError."""
        file_it = _ADDERS.get(type(element))
        if file_it is None:
            raise TypeError(f"{type(element).__name__} cannot be filed as it is")
        file_it(self, element)

    def line(self, start: Coordinates, end: Coordinates, color: int = 7) -> None:
        check(library.exportLineChecked(*_xyz(start, end), _color(color)))

    def circle(self, center: Coordinates, radius: float, color: int = 7) -> None:
        check(library.exportCircleChecked(*_xyz(center), radius, _color(color)))

    def text(self, contents: str, location: Coordinates, *, height: float, angle: float = 0,
             color: int = 7, justification_x: int = 0, justification_y: int = 0) -> None:
        check(library.exportTextChecked(_wide(contents), *_xyz(location), angle, _color(color),
                                        _long(justification_x), _long(justification_y), height))

    def filled_polygon(self, points: Sequence[Coordinates], color: int = 7) -> None:
        check(library.exportFilledPolygonChecked(len(points), *_columns(points), _color(color)))

    def formwork(self, points: Sequence[Coordinates],
                 bulges: Sequence[Coordinates] = ()) -> None:
        """Two points a segment, and one bulge a segment; without bulges all are straight."""
        of_segments = bulges or [(0.0, 0.0, 0.0)] * (len(points) // 2)
        if len(points) % 2 != 0 or len(of_segments) != len(points) // 2:
            raise ValueError("a formwork has two points and one bulge for every segment")
        check(library.exportFormworkChecked(len(points), *_columns(points),
                                            *_columns(of_segments)))

    def mesh(self, reference: str, kind: str, extension_x: float, extension_y: float, angle: float,
             points: Sequence[Coordinates]) -> None:
        check(library.exportMeshChecked(_wide(reference), _wide(kind), extension_x, extension_y,
                                        angle, len(points), *_columns(points)))

    def straight_bar(self, start: Coordinates, end: Coordinates, *, steel_grade: str,
                     adherence: str, reference: int, diameter: float, hidden: bool = False,
                     hook_lengths: Pair = (0, 0),
                     hooks_up: tuple[bool, bool] = (False, False),
                     hook_angles: Pair = (0, 0)) -> None:
        check(library.exportBarStraightChecked(
            *_xyz(start, end), *_pair(hook_lengths), bool(hooks_up[0]), bool(hooks_up[1]),
            *_pair(hook_angles), *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def polygon_bar(self, points: Sequence[Coordinates], *, steel_grade: str, adherence: str,
                    reference: int, diameter: float, hidden: bool = False,
                    hook_lengths: Pair = (0, 0), side: bool = False,
                    hook_angles: Pair = (0, 0)) -> None:
        check(library.exportBarPolygonChecked(
            len(points), *_columns(points), *_pair(hook_lengths), bool(side), *_pair(hook_angles),
            *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def l_bar(self, point1: Coordinates, point2: Coordinates, point3: Coordinates, *,
              steel_grade: str, adherence: str, reference: int, diameter: float,
              hidden: bool = False, hook_lengths: Pair = (0, 0),
              hook_angles: Pair = (0, 0)) -> None:
        (length1, length2), (angle1, angle2) = hook_lengths, hook_angles
        check(library.exportLBarChecked(
            *_xyz(point1, point2, point3), length1, angle1, length2, angle2,
            *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def u_bar(self, point1: Coordinates, point2: Coordinates, point3: Coordinates, *,
              steel_grade: str, adherence: str, reference: int, diameter: float,
              hidden: bool = False, hook_lengths: Pair = (0, 0),
              hook_angles: Pair = (0, 0)) -> None:
        (length1, length2), (angle1, angle2) = hook_lengths, hook_angles
        check(library.exportUBarChecked(
            *_xyz(point1, point2, point3), length1, angle1, length2, angle2,
            *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def pin(self, start: Coordinates, end: Coordinates, *, steel_grade: str, adherence: str,
            reference: int, diameter: float, hidden: bool = False, hook_lengths: Pair = (0, 0),
            hook_angles: Pair = (0, 0)) -> None:
        check(library.exportPinChecked(
            *_xyz(start, end), *_pair(hook_lengths), *_pair(hook_angles),
            *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def point_bar(self, point: Coordinates, *, steel_grade: str, adherence: str, reference: int,
                  diameter: float, hidden: bool = False) -> None:
        check(library.exportPointBarChecked(
            *_xyz(point), *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def stirrup(self, start: Coordinates, end: Coordinates, *, hook_length: float,
                hook_angle: float, steel_grade: str, adherence: str, reference: int,
                diameter: float, hidden: bool = False) -> None:
        check(library.exportStirrupChecked(
            *_xyz(start, end), hook_length, hook_angle,
            *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def frame_rect(self, point1: Coordinates, point2: Coordinates, point3: Coordinates, *,
                   hook_length: float, hook_angle: float, steel_grade: str, adherence: str,
                   reference: int, diameter: float, hidden: bool = False) -> None:
        check(library.exportFrameRectChecked(
            *_xyz(point1, point2, point3), hook_length, hook_angle,
            *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def frame_circ(self, center: Coordinates, start_point: Coordinates, frame_radius: float, *,
                   recover_length: float, hook_length: float, hook_angle: float, steel_grade: str,
                   adherence: str, reference: int, diameter: float, hidden: bool = False) -> None:
        check(library.exportFrameCircChecked(
            *_xyz(center, start_point), frame_radius, recover_length, hook_length, hook_angle,
            *_bar(steel_grade, adherence, reference, diameter, hidden)))

    def series_frame(self, point1: Coordinates, point2: Coordinates, class_name: str, *,
                     hook_length: float, hook_angle: float, steel_grade: str, adherence: str,
                     reference: int, diameter: float, hidden: bool = False, series: int = 0,
                     view_point: int = 2) -> None:
        """One frame of a series, of which there must be two at the least."""
        check(library.pushRepartitionFrameRectChecked(
            *_xyz(point1, point2), _wide(class_name), hook_length, hook_angle,
            *_bar(steel_grade, adherence, reference, diameter, hidden), _long(series),
            _long(view_point), 0))

    def drawing_control(self, *, zanto_version: str = "", service_pack: int = 0,
                        check_sum: int = 0, drawing_name: str = "") -> None:
        """A record beside the one that every filing ends with."""
        check(library.exportDrawingControlChecked(_wide(zanto_version), _long(service_pack),
                                                  _long(check_sum), _wide(drawing_name)))


def _xyz(*points: Coordinates) -> list[float]:
    coordinates: list[float] = []
    for point in points:
        if len(point) != 3:
            raise ValueError("a point has three coordinates")
        coordinates.extend(point)
    return coordinates


def _columns(points: Sequence[Coordinates]) -> tuple[Any, Any, Any]:
    coordinates = _xyz(*points)
    return doubles(coordinates[0::3]), doubles(coordinates[1::3]), doubles(coordinates[2::3])


def _pair(values: Pair) -> Pair:
    first, second = values
    return first, second


def _bar(steel_grade: str, adherence: str, reference: int, diameter: float,
         hidden: bool) -> tuple[str, str, int, float, bool]:
    return _wide(steel_grade), _wide(adherence), _long(reference), diameter, bool(hidden)


def _wide(text: str) -> str:
    if "\0" in text:
        raise ValueError("a text ends at a null character")
    return text


def _long(number: int) -> int:
    if not -2**31 <= number < 2**31:
        raise OverflowError(f"{number} does not fit into 32 bits")
    return number


def _color(number: int) -> int:
    if not 0 <= number < 2**32:
        raise OverflowError(f"{number} is no colour: it has 32 bits without sign")
    return number


class _BarAttributes(TypedDict):
    steel_grade: str
    adherence: str
    reference: int
    diameter: float
    hidden: bool


def _attributes(bar: Bar) -> _BarAttributes:
    return {"steel_grade": bar.steel_grade, "adherence": bar.adherence, "reference": bar.reference,
            "diameter": bar.diameter, "hidden": bar.hidden}


_ADDERS: dict[type[Element], Callable[[Filing, Any], None]] = {
    Line: lambda to, of: to.line(of.point1, of.point2, of.color),
    Circle: lambda to, of: to.circle(of.center, of.radius, of.color),
    Text: lambda to, of: to.text(of.contents, of.location, height=of.height, angle=of.angle,
                                 color=of.color, justification_x=of.justification_x,
                                 justification_y=of.justification_y),
    FilledPolygon: lambda to, of: to.filled_polygon(of.points, of.color),
    Mesh: lambda to, of: to.mesh(of.reference, of.type, of.extension_x, of.extension_y, of.angle,
                                 of.points),
    Formwork: lambda to, of: to.formwork(of.points, of.bulges),
    StraightBar: lambda to, of: to.straight_bar(
        of.point1, of.point2, hook_lengths=(of.hook_length1, of.hook_length2),
        hooks_up=(of.hook1_up, of.hook2_up), hook_angles=(of.hook_angle1, of.hook_angle2),
        **_attributes(of)),
    LBar: lambda to, of: to.l_bar(
        of.point1, of.point2, of.point3, hook_lengths=(of.hook_length1, of.hook_length2),
        hook_angles=(of.hook_angle1, of.hook_angle2), **_attributes(of)),
    UBar: lambda to, of: to.u_bar(
        of.point1, of.point2, of.point3, hook_lengths=(of.hook_length1, of.hook_length2),
        hook_angles=(of.hook_angle1, of.hook_angle2), **_attributes(of)),
    Pin: lambda to, of: to.pin(
        of.point1, of.point2, hook_lengths=(of.hook_length1, of.hook_length2),
        hook_angles=(of.hook_angle1, of.hook_angle2), **_attributes(of)),
    PointBar: lambda to, of: to.point_bar(of.point1, **_attributes(of)),
    PolygonBar: lambda to, of: to.polygon_bar(
        of.points, hook_lengths=(of.hook_length1, of.hook_length2), side=of.side,
        hook_angles=(of.hook_angle1, of.hook_angle2), **_attributes(of)),
    FrameRect: lambda to, of: to.frame_rect(
        of.point1, of.point2, of.point3, hook_length=of.hook_length1, hook_angle=of.hook_angle1,
        **_attributes(of)),
    FrameCirc: lambda to, of: to.frame_circ(
        of.center, of.start_point, of.frame_radius, recover_length=of.recover_length,
        hook_length=of.hook_length1, hook_angle=of.hook_angle1, **_attributes(of)),
    Stirrup: lambda to, of: to.stirrup(of.point1, of.point2, hook_length=of.hook_length1,
                                       hook_angle=of.hook_angle1, **_attributes(of)),
    DrawingControl: lambda to, of: to.drawing_control(
        zanto_version=of.zanto_version, service_pack=of.service_pack, check_sum=of.check_sum,
        drawing_name=of.drawing_name),
}


@contextmanager
def filing(path: Union[str, os.PathLike[str]], *, drawing_name: str = "", version: str = "",
           service_pack: int = 0, check_sum: int = 0) -> Iterator[Filing]:
    """Files what is filed inside the block, and saves it when the block ends; nothing is saved when an
    exception leaves it, or saving fails. Elements are added to those of a file that is there."""
    check(library.startFilingChecked(_wide(os.fsdecode(path))))
    try:
        yield Filing()
        check(library.endFilingChecked(_wide(version), _long(service_pack), _wide(drawing_name),
                                       _long(check_sum)))
    except BaseException:
        library.quorvanAbandonFiling()
        raise
