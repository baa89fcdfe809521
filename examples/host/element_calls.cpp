#include "element_calls.h"

#include <quorvan/export/export.h>

#include <map>

namespace {

using Call = std::function<void()>;

// --- graphic elements ---------------------------------------------------------------------------

Call lineCall(JsonElement& element) {
  const Point start = element.point("Point1");
  const Point end = element.point("Point2");
  const unsigned long color = element.color("Color");
  return [=] { exportLine(start.x, start.y, start.z, end.x, end.y, end.z, color); };
}

Call circleCall(JsonElement& element) {
  const Point center = element.point("Center");
  const double radius = element.number("Radius");
  const unsigned long color = element.color("Color");
  return [=] { exportCircle(center.x, center.y, center.z, radius, color); };
}

Call textCall(JsonElement& element) {
  const CString contents = element.text("Contents");
  const Point at = element.point("Location");
  const double angle = element.number("Angle");
  const int justificationX = element.whole("JustificationX");
  const int justificationY = element.whole("JustificationY");
  const unsigned long color = element.color("Color");
  const double height = element.number("Height");
  return [=] {
    exportText(contents, at.x, at.y, at.z, angle, color, justificationX, justificationY, height);
  };
}

Call filledPolygonCall(JsonElement& element) {
  const Points points = element.points("Points");
  const unsigned long color = element.color("Color");
  return [=] {
    exportFilledPolygon(points.count(), points.xs.data(), points.ys.data(), points.zs.data(),
                        color);
  };
}

Call meshCall(JsonElement& element) {
  const CString type = element.text("Type");
  const CString reference = element.text("Reference");
  const double angle = element.number("Angle");
  const double extensionX = element.number("ExtensionX");
  const double extensionY = element.number("ExtensionY");
  const Points points = element.points("Points");
  return [=] {
    exportMesh(reference, type, extensionX, extensionY, angle, points.count(), points.xs.data(),
               points.ys.data(), points.zs.data());
  };
}

// Two points and one bulge a segment.
Call formworkCall(JsonElement& element) {
  Points points;
  Points bulges;
  for (JsonElement& segment : element.list("Segments", "segment")) {
    points.add(segment.point("start"));
    points.add(segment.point("end"));
    bulges.add(segment.point("bulge"));
    segment.expectNoOtherItem();
  }
  return [=] {
    exportFormwork(points.count(), points.xs.data(), points.ys.data(), points.zs.data(),
                   bulges.xs.data(), bulges.ys.data(), bulges.zs.data());
  };
}

// --- bars and links -----------------------------------------------------------------------------

struct Steel {
  CString grade;
  CString adherence;
  double diameter;
  int reference;
  bool hidden;
};

Steel steelOf(JsonElement& element) {
  return {element.text("SteelGrade"), element.text("Adherence"), element.number("Diameter"),
          element.whole("Reference"), element.flag("Hidden")};
}

struct Hook {
  double length;
  double angle;
};

Hook firstHookOf(JsonElement& element) {
  return {element.number("HookLength1"), element.number("HookAngle1")};
}

Hook secondHookOf(JsonElement& element) {
  return {element.number("HookLength2"), element.number("HookAngle2")};
}

Call straightBarCall(JsonElement& element) {
  const Point a = element.point("Point1");
  const Point b = element.point("Point2");
  const Hook hook1 = firstHookOf(element);
  const Hook hook2 = secondHookOf(element);
  const bool hook1Up = element.flag("Hook1Up");
  const bool hook2Up = element.flag("Hook2Up");
  const Steel steel = steelOf(element);
  return [=] {
    exportBarStraight(a.x, a.y, a.z, b.x, b.y, b.z, hook1.length, hook2.length, hook1Up, hook2Up,
                      hook1.angle, hook2.angle, steel.grade, steel.adherence, steel.reference,
                      steel.diameter, steel.hidden);
  };
}

Call polygonBarCall(JsonElement& element) {
  Points points = element.points("Points");
  const Hook hook1 = firstHookOf(element);
  const Hook hook2 = secondHookOf(element);
  const bool side = element.flag("Side");
  const Steel steel = steelOf(element);
  return [=]() mutable {
    exportBarPolygon(points.count(), points.xs.data(), points.ys.data(), points.zs.data(),
                     hook1.length, hook2.length, side, hook1.angle, hook2.angle, steel.grade,
                     steel.adherence, steel.reference, steel.diameter, steel.hidden);
  };
}

// The L and the U bar take the same arguments.
template <auto exportLegs>
Call legsCall(JsonElement& element) {
  const Point a = element.point("Point1");
  const Point b = element.point("Point2");
  const Point c = element.point("Point3");
  const Hook hook1 = firstHookOf(element);
  const Hook hook2 = secondHookOf(element);
  const Steel steel = steelOf(element);
  return [=] {
    exportLegs(a.x, a.y, a.z, b.x, b.y, b.z, c.x, c.y, c.z, hook1.length, hook1.angle, hook2.length,
               hook2.angle, steel.grade, steel.adherence, steel.reference, steel.diameter,
               steel.hidden);
  };
}

Call pinCall(JsonElement& element) {
  const Point a = element.point("Point1");
  const Point b = element.point("Point2");
  const Hook hook1 = firstHookOf(element);
  const Hook hook2 = secondHookOf(element);
  const Steel steel = steelOf(element);
  return [=] {
    exportPin(a.x, a.y, a.z, b.x, b.y, b.z, hook1.length, hook2.length, hook1.angle, hook2.angle,
              steel.grade, steel.adherence, steel.reference, steel.diameter, steel.hidden);
  };
}

Call pointBarCall(JsonElement& element) {
  const Point at = element.point("Point1");
  const Steel steel = steelOf(element);
  return [=] {
    exportPointBar(at.x, at.y, at.z, steel.grade, steel.adherence, steel.reference, steel.diameter,
                   steel.hidden);
  };
}

Call stirrupCall(JsonElement& element) {
  const Point a = element.point("Point1");
  const Point b = element.point("Point2");
  const Hook hook = firstHookOf(element);
  const Steel steel = steelOf(element);
  return [=] {
    exportStirrup(a.x, a.y, a.z, b.x, b.y, b.z, hook.length, hook.angle, steel.grade,
                  steel.adherence, steel.reference, steel.diameter, steel.hidden);
  };
}

Call frameRectCall(JsonElement& element) {
  const Point a = element.point("Point1");
  const Point b = element.point("Point2");
  const Point c = element.point("Point3");
  const Hook hook = firstHookOf(element);
  const Steel steel = steelOf(element);
  return [=] {
    exportFrameRect(a.x, a.y, a.z, b.x, b.y, b.z, c.x, c.y, c.z, hook.length, hook.angle,
                    steel.grade, steel.adherence, steel.reference, steel.diameter, steel.hidden);
  };
}

Call frameCircCall(JsonElement& element) {
  const Point center = element.point("Center");
  const Point start = element.point("StartPoint");
  const double radius = element.number("FrameRadius");
  const double overlap = element.number("RecoverLength");
  const Hook hook = firstHookOf(element);
  const Steel steel = steelOf(element);
  return [=] {
    exportFrameCirc(center.x, center.y, center.z, start.x, start.y, start.z, radius, overlap,
                    hook.length, hook.angle, steel.grade, steel.adherence, steel.reference,
                    steel.diameter, steel.hidden);
  };
}

using CallMaker = Call (*)(JsonElement& element);

const std::map<std::string, CallMaker>& callMakers() {
  static const std::map<std::string, CallMaker> makers = {
      {"CKtFilledPolygon", filledPolygonCall},
      {"CKtZantoCircle", circleCall},
      {"CKtZantoFormwork", formworkCall},
      {"CKtZantoFrameCirc", frameCircCall},
      {"CKtZantoFrameRect", frameRectCall},
      {"CKtZantoLBar", legsCall<exportLBar>},
      {"CKtZantoLine", lineCall},
      {"CKtZantoMesh", meshCall},
      {"CKtZantoPin", pinCall},
      {"CKtZantoPointBar", pointBarCall},
      {"CKtZantoPolygonBar", polygonBarCall},
      {"CKtZantoStirrup", stirrupCall},
      {"CKtZantoStraightBar", straightBarCall},
      {"CKtZantoText", textCall},
      {"CKtZantoUBar", legsCall<exportUBar>},
  };
  return makers;
}

}  // namespace

Call elementCall(const std::string& className, JsonElement& element) {
  if (className == "CKtZantoRepartition") {
    element.fail("cannot be written: repartitions come from the frames of a \"series\"");
  }
  const auto found = callMakers().find(className);
  if (found == callMakers().end()) {
    element.fail("is of no class that can be written");
  }
  return found->second(element);
}

Call frameCall(JsonElement& frame) {
  const Point first = {frame.number("value1"), frame.number("value2"), frame.number("value3")};
  const Point second = {frame.number("value4"), frame.number("value5"), frame.number("value6")};
  const CString className = frame.text("className");
  const Hook hook = {frame.number("hookLength1"), frame.number("hookAngle1")};
  const Steel steel = {frame.text("steelGrade"), frame.text("adherence"), frame.number("diameter"),
                       frame.whole("reference"), frame.flag("hidden")};
  const int keyC = frame.whole("keyC");
  const int viewPoint = frame.whole("viewPoint");
  const int lastInt = frame.whole("lastInt");
  return [=] {
    pushRepartitionFrameRect(first.x, first.y, first.z, second.x, second.y, second.z, className,
                             hook.length, hook.angle, steel.grade, steel.adherence, steel.reference,
                             steel.diameter, steel.hidden, keyC, viewPoint, lastInt);
  };
}
