"""The elements of a drawing, a dataclass for each class.

Members bear the names of the items. Lengths and angles are in the units of the producing program. What
is missing in the file has the value of a new object, and stands in `problems`.

What stands between the two lines is made from the item tables of the library;
`QUORVAN_UPDATE_GOLDEN=1 tools_tests --gtest_filter='*ReaderSources*'` writes it anew.
"""

from __future__ import annotations

from dataclasses import dataclass, field
from typing import Any, ClassVar, NamedTuple


class Point(NamedTuple):
    """A point or a vector."""

    x: float
    y: float
    z: float


ORIGIN = Point(0.0, 0.0, 0.0)


class Problem(NamedTuple):
    """An item that could not be read, or not all of it."""

    item: str
    reason: str


def item(name: str, default: Any) -> Any:
    """A member that holds the item of that name."""
    if isinstance(default, list):
        return field(default_factory=list, metadata={"item": name})
    return field(default=default, metadata={"item": name})


@dataclass
class Element:
    """What every element has."""

    CLASS_NAME: ClassVar[str] = ""

    version: int = 0
    index: int = 0
    problems: list[Problem] = field(default_factory=list)


@dataclass
class Other(Element):
    """An element of a class that is not known."""

    class_name: str = ""


# --- made from the item tables --------------------------------------------------------------------


@dataclass
class Bar(Element):
    """What every bar and link has."""

    steel_grade: str = item("SteelGrade", "")
    adherence: str = item("Adherence", "")
    diameter: float = item("Diameter", 0.0)
    reference: int = item("Reference", 0)
    hidden: bool = item("Hidden", False)


@dataclass
class Line(Element):
    """A line segment of the drawing."""

    CLASS_NAME: ClassVar[str] = "CKtZantoLine"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    color: int = item("Color", 0)


@dataclass
class Circle(Element):
    """A circle of the drawing."""

    CLASS_NAME: ClassVar[str] = "CKtZantoCircle"

    center: Point = item("Center", ORIGIN)
    radius: float = item("Radius", 0.0)
    color: int = item("Color", 0)


@dataclass
class Text(Element):
    """A single line of text."""

    CLASS_NAME: ClassVar[str] = "CKtZantoText"

    contents: str = item("Contents", "")
    location: Point = item("Location", ORIGIN)
    angle: float = item("Angle", 0.0)
    justification_x: int = item("JustificationX", 0)
    justification_y: int = item("JustificationY", 0)
    color: int = item("Color", 0)
    height: float = item("Height", 0.0)


@dataclass
class FilledPolygon(Element):
    """A filled polygon of the drawing."""

    CLASS_NAME: ClassVar[str] = "CKtFilledPolygon"

    points: list[Point] = item("Vector", [])
    color: int = item("Color", 0)


@dataclass
class Mesh(Element):
    """A sheet of welded mesh."""

    CLASS_NAME: ClassVar[str] = "CKtZantoMesh"

    type: str = item("Type", "")
    reference: str = item("Reference", "")
    angle: float = item("Angle", 0.0)
    extension_x: float = item("ExtensionX", 0.0)
    extension_y: float = item("ExtensionY", 0.0)
    points: list[Point] = item("Vector", [])


@dataclass
class Formwork(Element):
    """An outline of the concrete. Two points and one bulge a segment."""

    CLASS_NAME: ClassVar[str] = "CKtZantoFormwork"

    points: list[Point] = item("Vector", [])
    bulges: list[Point] = field(default_factory=list)


@dataclass
class StraightBar(Bar):
    """A straight bar with a hook at either end."""

    CLASS_NAME: ClassVar[str] = "CKtZantoStraightBar"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    hook_length1: float = item("HookLength1", 0.0)
    hook_length2: float = item("HookLength2", 0.0)
    hook1_up: bool = item("Hook1Up", False)
    hook2_up: bool = item("Hook2Up", False)
    hook_angle1: float = item("HookAngle1", 0.0)
    hook_angle2: float = item("HookAngle2", 0.0)


@dataclass
class LBar(Bar):
    """A bar bent once (L shape)."""

    CLASS_NAME: ClassVar[str] = "CKtZantoLBar"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    point3: Point = item("Point3", ORIGIN)
    hook_length1: float = item("HookLength1", 0.0)
    hook_angle1: float = item("HookAngle1", 0.0)
    hook_length2: float = item("HookLength2", 0.0)
    hook_angle2: float = item("HookAngle2", 0.0)


@dataclass
class UBar(Bar):
    """A bar bent twice (U shape)."""

    CLASS_NAME: ClassVar[str] = "CKtZantoUBar"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    point3: Point = item("Point3", ORIGIN)
    hook_length1: float = item("HookLength1", 0.0)
    hook_angle1: float = item("HookAngle1", 0.0)
    hook_length2: float = item("HookLength2", 0.0)
    hook_angle2: float = item("HookAngle2", 0.0)


@dataclass
class Pin(Bar):
    """A pin: a straight tie with hooks."""

    CLASS_NAME: ClassVar[str] = "CKtZantoPin"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    hook_length1: float = item("HookLength1", 0.0)
    hook_length2: float = item("HookLength2", 0.0)
    hook_angle1: float = item("HookAngle1", 0.0)
    hook_angle2: float = item("HookAngle2", 0.0)


@dataclass
class PointBar(Bar):
    """A bar seen end-on."""

    CLASS_NAME: ClassVar[str] = "CKtZantoPointBar"

    point1: Point = item("Point1", ORIGIN)


@dataclass
class PolygonBar(Bar):
    """A bent bar given by its polyline."""

    CLASS_NAME: ClassVar[str] = "CKtZantoPolygonBar"

    points: list[Point] = item("NoPoints", [])
    hook_length1: float = item("HookLength1", 0.0)
    hook_length2: float = item("HookLength2", 0.0)
    side: bool = item("Side", False)
    hook_angle1: float = item("HookAngle1", 0.0)
    hook_angle2: float = item("HookAngle2", 0.0)


@dataclass
class FrameRect(Bar):
    """A closed rectangular link."""

    CLASS_NAME: ClassVar[str] = "CKtZantoFrameRect"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    point3: Point = item("Point3", ORIGIN)
    hook_length1: float = item("HookLength1", 0.0)
    hook_angle1: float = item("HookAngle1", 0.0)


@dataclass
class FrameCirc(Bar):
    """A closed circular link."""

    CLASS_NAME: ClassVar[str] = "CKtZantoFrameCirc"

    center: Point = item("Center", ORIGIN)
    start_point: Point = item("StartPoint", ORIGIN)
    frame_radius: float = item("FrameRadius", 0.0)
    recover_length: float = item("RecoverLength", 0.0)
    hook_length1: float = item("HookLength1", 0.0)
    hook_angle1: float = item("HookAngle1", 0.0)


@dataclass
class Stirrup(Bar):
    """An open link given by two points."""

    CLASS_NAME: ClassVar[str] = "CKtZantoStirrup"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    hook_length1: float = item("HookLength1", 0.0)
    hook_angle1: float = item("HookAngle1", 0.0)


@dataclass
class Repartition(Element):
    """A distribution of identical bars along a line. It has an index of its own and that of the
    bar."""

    CLASS_NAME: ClassVar[str] = "CKtZantoRepartition"

    point1: Point = item("Point1", ORIGIN)
    point2: Point = item("Point2", ORIGIN)
    bulge: Point = item("Bulge", ORIGIN)
    view_point: int = item("ViewPoint", 0)
    axis: Point = item("Axis", ORIGIN)
    axis_distances_top: list[float] = item("AxisDistancesTop", [])
    axis_distances_bottom: list[float] = item("AxisDistancesBottom", [])
    positions: list[float] = item("Positions", [])
    def_class_name: str = item("DefClassName", "")
    bar_index: int = item("Index", 0)
    hidden: bool = item("Hidden", False)


@dataclass
class DrawingControl(Element):
    """The record that names the drawing and closes every transfer."""

    CLASS_NAME: ClassVar[str] = "CKtDrawingControl"

    zanto_version: str = item("ZantoVersion", "")
    service_pack: int = item("ServicePack", 0)
    check_sum: int = item("CheckSum", 0)
    drawing_name: str = item("DrawingName", "")


_KINDS: tuple[type[Element], ...] = (
    Line, Circle, Text, FilledPolygon, Mesh, Formwork, StraightBar, LBar, UBar, Pin, PointBar,
    PolygonBar, FrameRect, FrameCirc, Stirrup, Repartition, DrawingControl,
)

# --- end of what is made --------------------------------------------------------------------------

# The dataclass of each class name.
CLASSES: dict[str, type[Element]] = {kind.CLASS_NAME: kind for kind in _KINDS}
