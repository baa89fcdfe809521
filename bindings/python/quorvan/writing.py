"""Writing a drawing. One filing at a time in a process, from one thread."""

from __future__ import annotations

import os
from contextlib import contextmanager
from typing import Iterator, Sequence, Union

from ._library import check, doubles, library

Coordinates = Sequence[float]


class Filing:
    """An open filing; every method files one element. Raises QuorvanError."""

    def line(self, start: Coordinates, end: Coordinates, color: int = 7) -> None:
        check(library.exportLineChecked(*start, *end, color))

    def circle(self, center: Coordinates, radius: float, color: int = 7) -> None:
        check(library.exportCircleChecked(*center, radius, color))

    def text(self, contents: str, location: Coordinates, *, height: float, angle: float = 0,
             color: int = 7, justification_x: int = 0, justification_y: int = 0) -> None:
        check(library.exportTextChecked(contents, *location, angle, color, justification_x,
                                        justification_y, height))

    def filled_polygon(self, points: Sequence[Coordinates], color: int = 7) -> None:
        check(library.exportFilledPolygonChecked(len(points), *_columns(points), color))

    def formwork(self, points: Sequence[Coordinates],
                 bulges: Sequence[Coordinates] = ()) -> None:
        """Two points a segment, and one bulge a segment; without bulges all are straight."""
        of_segments = bulges or [(0.0, 0.0, 0.0)] * (len(points) // 2)
        if len(of_segments) != len(points) // 2:
            raise ValueError("a formwork has one bulge for every two points")
        check(library.exportFormworkChecked(len(points), *_columns(points),
                                            *_columns(of_segments)))

    def mesh(self, reference: str, kind: str, extension_x: float, extension_y: float, angle: float,
             points: Sequence[Coordinates]) -> None:
        check(library.exportMeshChecked(reference, kind, extension_x, extension_y, angle,
                                        len(points), *_columns(points)))

    def straight_bar(self, start: Coordinates, end: Coordinates, *, steel_grade: str,
                     adherence: str, reference: int, diameter: float, hidden: bool = False,
                     hook_lengths: tuple[float, float] = (0, 0),
                     hooks_up: tuple[bool, bool] = (False, False),
                     hook_angles: tuple[float, float] = (0, 0)) -> None:
        check(library.exportBarStraightChecked(*start, *end, *hook_lengths, *hooks_up, *hook_angles,
                                               steel_grade, adherence, reference, diameter, hidden))

    def polygon_bar(self, points: Sequence[Coordinates], *, steel_grade: str, adherence: str,
                    reference: int, diameter: float, hidden: bool = False,
                    hook_lengths: tuple[float, float] = (0, 0), side: bool = False,
                    hook_angles: tuple[float, float] = (0, 0)) -> None:
        check(library.exportBarPolygonChecked(len(points), *_columns(points), *hook_lengths, side,
                                              *hook_angles, steel_grade, adherence, reference,
                                              diameter, hidden))

    def stirrup(self, start: Coordinates, end: Coordinates, *, hook_length: float,
                hook_angle: float, steel_grade: str, adherence: str, reference: int,
                diameter: float, hidden: bool = False) -> None:
        check(library.exportStirrupChecked(*start, *end, hook_length, hook_angle, steel_grade,
                                           adherence, reference, diameter, hidden))

    def frame_rect(self, point1: Coordinates, point2: Coordinates, point3: Coordinates, *,
                   hook_length: float, hook_angle: float, steel_grade: str, adherence: str,
                   reference: int, diameter: float, hidden: bool = False) -> None:
        check(library.exportFrameRectChecked(*point1, *point2, *point3, hook_length, hook_angle,
                                             steel_grade, adherence, reference, diameter, hidden))

    def series_frame(self, point1: Coordinates, point2: Coordinates, class_name: str, *,
                     hook_length: float, hook_angle: float, steel_grade: str, adherence: str,
                     reference: int, diameter: float, hidden: bool = False, series: int = 0,
                     view_point: int = 2) -> None:
        """One frame of a series, of which there must be two at the least."""
        check(library.pushRepartitionFrameRectChecked(
            *point1, *point2, class_name, hook_length, hook_angle, steel_grade, adherence,
            reference, diameter, hidden, series, view_point, 0))


def _columns(points: Sequence[Coordinates]) -> tuple[object, object, object]:
    return (doubles([point[0] for point in points]), doubles([point[1] for point in points]),
            doubles([point[2] for point in points]))


@contextmanager
def filing(path: Union[str, os.PathLike[str]], *, drawing_name: str = "", version: str = "",
           service_pack: int = 0, check_sum: int = 0) -> Iterator[Filing]:
    """Files what is filed inside the block, and saves it when the block ends; nothing is saved when an
    exception leaves it, or saving fails. Elements are added to those of a file that is there."""
    check(library.startFilingChecked(os.fspath(path)))
    try:
        yield Filing()
        check(library.endFilingChecked(version, service_pack, drawing_name, check_sum))
    except BaseException:
        library.quorvanAbandonFiling()
        raise
