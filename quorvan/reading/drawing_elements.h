// The elements of a drawing as plain values, one struct a class, for <quorvan/reading/reader.h>.
//
// C++17 and nothing but inline code: whichever compiler built the library, any other may use them.
// Members bear the names of the items; lengths and angles are in the units of the producing
// program, texts are UTF-8. What is missing in the file has the value that it has here, and stands
// in `problems`.
//
// What stands between the two lines is made from the item tables of the library;
// `QUORVAN_UPDATE_GOLDEN=1 tools_tests --gtest_filter='*ReaderSources*'` writes it anew.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include <quorvan/errors/error.h>

namespace quorvan::drawing {

struct Point {
  double x = 0;
  double y = 0;
  double z = 0;
};

struct Vector {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// An item that could not be read, or not all of it.
struct Problem {
  const char* item;  // its name; lives as long as the library
  QuorvanResult reason;
};

/// What every element has.
struct ElementBase {
  std::int32_t version = 0;
  std::int32_t index = 0;
  std::size_t place = 0;  // among all elements of the file, from 0
  /// Required items that are missing, and items of another kind or incomplete.
  std::vector<Problem> problems;
};

/// An element of a class that is not known here.
struct Other : ElementBase {
  std::string className;
};

// --- made from the item tables -------------------------------------------------------------------

/// What every bar and link has.
struct BarBase : ElementBase {
  std::string steelGrade;
  std::string adherence;
  double diameter = 0;
  std::int32_t reference = 0;
  bool hidden = false;
};

/// A line segment of the drawing.
struct Line : ElementBase {
  static constexpr const char* kClassName = "CKtZantoLine";
  Point point1;
  Point point2;
  std::uint32_t color = 0;
};

/// A circle of the drawing.
struct Circle : ElementBase {
  static constexpr const char* kClassName = "CKtZantoCircle";
  Point center;
  double radius = 0;
  std::uint32_t color = 0;
};

/// A single line of text.
struct Text : ElementBase {
  static constexpr const char* kClassName = "CKtZantoText";
  std::string contents;
  Point location;
  double angle = 0;
  std::int32_t justificationX = 0;
  std::int32_t justificationY = 0;
  std::uint32_t color = 0;
  double height = 0;
};

/// A filled polygon of the drawing.
struct FilledPolygon : ElementBase {
  static constexpr const char* kClassName = "CKtFilledPolygon";
  std::vector<Point> points;
  std::uint32_t color = 0;
};

/// A sheet of welded mesh.
struct Mesh : ElementBase {
  static constexpr const char* kClassName = "CKtZantoMesh";
  std::string type;
  std::string reference;
  double angle = 0;
  double extensionX = 0;
  double extensionY = 0;
  std::vector<Point> points;
};

/// An outline of the concrete. Two points and one bulge a segment.
struct Formwork : ElementBase {
  static constexpr const char* kClassName = "CKtZantoFormwork";
  std::vector<Point> points;
  std::vector<Vector> bulges;
};

/// A straight bar with a hook at either end.
struct StraightBar : BarBase {
  static constexpr const char* kClassName = "CKtZantoStraightBar";
  Point point1;
  Point point2;
  double hookLength1 = 0;
  double hookLength2 = 0;
  bool hook1Up = false;
  bool hook2Up = false;
  double hookAngle1 = 0;
  double hookAngle2 = 0;
};

/// A bar bent once (L shape).
struct LBar : BarBase {
  static constexpr const char* kClassName = "CKtZantoLBar";
  Point point1;
  Point point2;
  Point point3;
  double hookLength1 = 0;
  double hookAngle1 = 0;
  double hookLength2 = 0;
  double hookAngle2 = 0;
};

/// A bar bent twice (U shape).
struct UBar : BarBase {
  static constexpr const char* kClassName = "CKtZantoUBar";
  Point point1;
  Point point2;
  Point point3;
  double hookLength1 = 0;
  double hookAngle1 = 0;
  double hookLength2 = 0;
  double hookAngle2 = 0;
};

/// A pin: a straight tie with hooks.
struct Pin : BarBase {
  static constexpr const char* kClassName = "CKtZantoPin";
  Point point1;
  Point point2;
  double hookLength1 = 0;
  double hookLength2 = 0;
  double hookAngle1 = 0;
  double hookAngle2 = 0;
};

/// A bar seen end-on.
struct PointBar : BarBase {
  static constexpr const char* kClassName = "CKtZantoPointBar";
  Point point1;
};

/// A bent bar given by its polyline.
struct PolygonBar : BarBase {
  static constexpr const char* kClassName = "CKtZantoPolygonBar";
  std::vector<Point> points;
  double hookLength1 = 0;
  double hookLength2 = 0;
  bool side = false;
  double hookAngle1 = 0;
  double hookAngle2 = 0;
};

/// A closed rectangular link.
struct FrameRect : BarBase {
  static constexpr const char* kClassName = "CKtZantoFrameRect";
  Point point1;
  Point point2;
  Point point3;
  double hookLength1 = 0;
  double hookAngle1 = 0;
};

/// A closed circular link.
struct FrameCirc : BarBase {
  static constexpr const char* kClassName = "CKtZantoFrameCirc";
  Point center;
  Point startPoint;
  double frameRadius = 0;
  double recoverLength = 0;
  double hookLength1 = 0;
  double hookAngle1 = 0;
};

/// An open link given by two points.
struct Stirrup : BarBase {
  static constexpr const char* kClassName = "CKtZantoStirrup";
  Point point1;
  Point point2;
  double hookLength1 = 0;
  double hookAngle1 = 0;
};

/// A distribution of identical bars along a line. It has an index of its own and that of the bar.
struct Repartition : ElementBase {
  static constexpr const char* kClassName = "CKtZantoRepartition";
  Point point1;
  Point point2;
  Vector bulge;
  std::int32_t viewPoint = 0;
  Vector axis;
  std::vector<double> axisDistancesTop;
  std::vector<double> axisDistancesBottom;
  std::vector<double> positions;
  std::string defClassName;
  std::int32_t barIndex = 0;
  bool hidden = false;
};

/// The record that names the drawing and closes every transfer.
struct DrawingControl : ElementBase {
  static constexpr const char* kClassName = "CKtDrawingControl";
  std::string zantoVersion;
  std::int32_t servicePack = 0;
  std::int32_t checkSum = 0;
  std::string drawingName;
};

/// Any element. The alternatives stand in the order of the class numbers, see quorvanClassName.
using Element = std::variant<Line, Circle, Text, FilledPolygon, Mesh, Formwork, StraightBar, LBar,
                             UBar, Pin, PointBar, PolygonBar, FrameRect, FrameCirc, Stirrup,
                             Repartition, DrawingControl, Other>;

// eachItem(element, use) calls use(name, member) for every item in the order of the file; the
// points and bulges of one item come as use(name, points, bulges).

template <class Bar, class Use>
void eachBarItem(Bar& e, Use&& use) {
  use("SteelGrade", e.steelGrade);
  use("Adherence", e.adherence);
  use("Diameter", e.diameter);
  use("Reference", e.reference);
  use("Hidden", e.hidden);
}

template <class Use>
void eachItem(Line& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("Color", e.color);
}

template <class Use>
void eachItem(Circle& e, Use&& use) {
  use("Center", e.center);
  use("Radius", e.radius);
  use("Color", e.color);
}

template <class Use>
void eachItem(Text& e, Use&& use) {
  use("Contents", e.contents);
  use("Location", e.location);
  use("Angle", e.angle);
  use("JustificationX", e.justificationX);
  use("JustificationY", e.justificationY);
  use("Color", e.color);
  use("Height", e.height);
}

template <class Use>
void eachItem(FilledPolygon& e, Use&& use) {
  use("Vector", e.points);
  use("Color", e.color);
}

template <class Use>
void eachItem(Mesh& e, Use&& use) {
  use("Type", e.type);
  use("Reference", e.reference);
  use("Angle", e.angle);
  use("ExtensionX", e.extensionX);
  use("ExtensionY", e.extensionY);
  use("Vector", e.points);
}

template <class Use>
void eachItem(Formwork& e, Use&& use) {
  use("Vector", e.points, e.bulges);
}

template <class Use>
void eachItem(StraightBar& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("HookLength1", e.hookLength1);
  use("HookLength2", e.hookLength2);
  use("Hook1Up", e.hook1Up);
  use("Hook2Up", e.hook2Up);
  use("HookAngle1", e.hookAngle1);
  use("HookAngle2", e.hookAngle2);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(LBar& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("Point3", e.point3);
  use("HookLength1", e.hookLength1);
  use("HookAngle1", e.hookAngle1);
  use("HookLength2", e.hookLength2);
  use("HookAngle2", e.hookAngle2);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(UBar& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("Point3", e.point3);
  use("HookLength1", e.hookLength1);
  use("HookAngle1", e.hookAngle1);
  use("HookLength2", e.hookLength2);
  use("HookAngle2", e.hookAngle2);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(Pin& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("HookLength1", e.hookLength1);
  use("HookLength2", e.hookLength2);
  use("HookAngle1", e.hookAngle1);
  use("HookAngle2", e.hookAngle2);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(PointBar& e, Use&& use) {
  use("Point1", e.point1);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(PolygonBar& e, Use&& use) {
  use("NoPoints", e.points);
  use("HookLength1", e.hookLength1);
  use("HookLength2", e.hookLength2);
  use("Side", e.side);
  use("HookAngle1", e.hookAngle1);
  use("HookAngle2", e.hookAngle2);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(FrameRect& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("Point3", e.point3);
  use("HookLength1", e.hookLength1);
  use("HookAngle1", e.hookAngle1);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(FrameCirc& e, Use&& use) {
  use("Center", e.center);
  use("StartPoint", e.startPoint);
  use("FrameRadius", e.frameRadius);
  use("RecoverLength", e.recoverLength);
  use("HookLength1", e.hookLength1);
  use("HookAngle1", e.hookAngle1);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(Stirrup& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("HookLength1", e.hookLength1);
  use("HookAngle1", e.hookAngle1);
  eachBarItem(e, use);
}

template <class Use>
void eachItem(Repartition& e, Use&& use) {
  use("Point1", e.point1);
  use("Point2", e.point2);
  use("Bulge", e.bulge);
  use("ViewPoint", e.viewPoint);
  use("Axis", e.axis);
  use("AxisDistancesTop", e.axisDistancesTop);
  use("AxisDistancesBottom", e.axisDistancesBottom);
  use("Positions", e.positions);
  use("DefClassName", e.defClassName);
  use("Index", e.barIndex);
  use("Hidden", e.hidden);
}

template <class Use>
void eachItem(DrawingControl& e, Use&& use) {
  use("ZantoVersion", e.zantoVersion);
  use("ServicePack", e.servicePack);
  use("CheckSum", e.checkSum);
  use("DrawingName", e.drawingName);
}

// --- end of what is made -------------------------------------------------------------------------

}  // namespace quorvan::drawing
