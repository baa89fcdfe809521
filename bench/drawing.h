// The drawing that every peer writes and reads: the same elements, item by item.
//
// The items of each kind stand once, in visitItems: a peer brings a sink that writes them or a
// source that reads them. Values have at most seven decimals, so that what is read can be compared
// with what was written.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

namespace bench {

struct Point {
  double x = 0;
  double y = 0;
  double z = 0;
};

struct Steel {
  std::wstring grade;
  std::wstring adherence;
  double diameter = 0;
  long reference = 0;
  bool hidden = false;
};

struct Line {
  static constexpr const char* kClass = "CKtZantoLine";
  Point start, end;
  long color = 0;
};

struct Circle {
  static constexpr const char* kClass = "CKtZantoCircle";
  Point center;
  double radius = 0;
  long color = 0;
};

struct Text {
  static constexpr const char* kClass = "CKtZantoText";
  std::wstring contents;
  Point location;
  double angle = 0, height = 0;
  long justificationX = 0, justificationY = 0, color = 0;
};

struct Polygon {
  static constexpr const char* kClass = "CKtFilledPolygon";
  std::vector<Point> points;
  long color = 0;
};

struct StraightBar {
  static constexpr const char* kClass = "CKtZantoStraightBar";
  Point point1, point2;
  double hookLength1 = 0, hookLength2 = 0, hookAngle1 = 0, hookAngle2 = 0;
  bool hook1Up = false, hook2Up = false;
  Steel steel;
};

struct BentBar {
  Point point1, point2, point3;
  double hookLength1 = 0, hookAngle1 = 0, hookLength2 = 0, hookAngle2 = 0;
  Steel steel;
};
struct LBar : BentBar {
  static constexpr const char* kClass = "CKtZantoLBar";
};
struct UBar : BentBar {
  static constexpr const char* kClass = "CKtZantoUBar";
};

struct Stirrup {
  static constexpr const char* kClass = "CKtZantoStirrup";
  Point point1, point2;
  double hookLength1 = 0, hookAngle1 = 0;
  Steel steel;
};

struct FrameRect {
  static constexpr const char* kClass = "CKtZantoFrameRect";
  Point point1, point2, point3;
  double hookLength1 = 0, hookAngle1 = 0;
  Steel steel;
};

using Kinds = std::tuple<Line, Circle, Text, Polygon, StraightBar, LBar, UBar, Stirrup, FrameRect>;
using Element =
    std::variant<Line, Circle, Text, Polygon, StraightBar, LBar, UBar, Stirrup, FrameRect>;

struct Control {
  static constexpr const char* kClass = "CKtDrawingControl";
  std::wstring version = L"25.1";
  long servicePack = 2;
  long checkSum = 4711;
  std::wstring name = L"Poutre continue P12, \u00e9tage 3";
};

struct Drawing {
  std::vector<Element> elements;
  Control control;
};

/// The same drawing for the same number of elements.
Drawing makeDrawing(std::size_t elements);

/// One number for all values of an element; those of a drawing are added, in any order.
std::uint64_t checksum(const Element& element);
std::uint64_t checksum(const Drawing& drawing);

// --- the items of each kind, in the order of the file ------------------------------------------

template <class Steel, class Visitor>
void visitSteel(Steel& steel, Visitor& v) {
  v.text("SteelGrade", steel.grade);
  v.text("Adherence", steel.adherence);
  v.number("Diameter", steel.diameter);
  v.integer("Reference", steel.reference);
  v.flag("Hidden", steel.hidden);
}

// A row an item: as long as there are items.
template <class E, class Visitor>
void visitItems(E& e, Visitor& v) {  // NOLINT(readability-function-size)
  using Kind = std::remove_const_t<E>;
  if constexpr (std::is_same_v<Kind, Line>) {
    v.point("Point1", e.start);
    v.point("Point2", e.end);
    v.integer("Color", e.color);
  } else if constexpr (std::is_same_v<Kind, Circle>) {
    v.point("Center", e.center);
    v.number("Radius", e.radius);
    v.integer("Color", e.color);
  } else if constexpr (std::is_same_v<Kind, Text>) {
    v.text("Contents", e.contents);
    v.point("Location", e.location);
    v.number("Angle", e.angle);
    v.integer("JustificationX", e.justificationX);
    v.integer("JustificationY", e.justificationY);
    v.integer("Color", e.color);
    v.number("Height", e.height);
  } else if constexpr (std::is_same_v<Kind, Polygon>) {
    v.points("Vector", e.points);
    v.integer("Color", e.color);
  } else if constexpr (std::is_same_v<Kind, StraightBar>) {
    v.point("Point1", e.point1);
    v.point("Point2", e.point2);
    v.number("HookLength1", e.hookLength1);
    v.number("HookLength2", e.hookLength2);
    v.flag("Hook1Up", e.hook1Up);
    v.flag("Hook2Up", e.hook2Up);
    v.number("HookAngle1", e.hookAngle1);
    v.number("HookAngle2", e.hookAngle2);
    visitSteel(e.steel, v);
  } else if constexpr (std::is_same_v<Kind, Stirrup>) {
    v.point("Point1", e.point1);
    v.point("Point2", e.point2);
    v.number("HookLength1", e.hookLength1);
    v.number("HookAngle1", e.hookAngle1);
    visitSteel(e.steel, v);
  } else if constexpr (std::is_same_v<Kind, Control>) {
    v.text("ZantoVersion", e.version);
    v.integer("ServicePack", e.servicePack);
    v.integer("CheckSum", e.checkSum);
    v.text("DrawingName", e.name);
  } else {
    v.point("Point1", e.point1);
    v.point("Point2", e.point2);
    v.point("Point3", e.point3);
    v.number("HookLength1", e.hookLength1);
    v.number("HookAngle1", e.hookAngle1);
    if constexpr (!std::is_same_v<Kind, FrameRect>) {
      v.number("HookLength2", e.hookLength2);
      v.number("HookAngle2", e.hookAngle2);
    }
    visitSteel(e.steel, v);
  }
}

}  // namespace bench
