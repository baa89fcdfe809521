#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>
#include <vector>

namespace quorvan::tool {

namespace {

constexpr int kOutlineParts = 16;

const ItemValue& itemOf(const std::vector<ItemValue>& items, std::string_view name) {
  static const ItemValue kNone;
  const ItemValue* const found = findItem(items, name);
  return found == nullptr ? kNone : *found;
}

Color colorIn(const std::vector<ItemValue>& items, ShapeSink& sink) {
  return sink.ink(itemOf(items, "Color").integer);
}

Path outlineOf(const std::vector<Coordinates>& points, const Sheet& sheet) {
  Path path;
  for (const Coordinates& point : points) {
    if (path.steps().empty()) {
      path.moveTo(sheet.place(point));
    } else {
      path.lineTo(sheet.place(point));
    }
  }
  if (!path.steps().empty()) {
    path.close();
  }
  return path;
}

void drawLine(const std::vector<ItemValue>& items, ShapeSink& sink) {
  Path path;
  path.moveTo(sink.sheet().place(itemOf(items, "Point1").point));
  path.lineTo(sink.sheet().place(itemOf(items, "Point2").point));
  sink.addPath(Layer::kLines, {colorIn(items, sink), pen::kThin}, std::move(path));
}

void drawCircle(const std::vector<ItemValue>& items, ShapeSink& sink) {
  sink.addCircle(Layer::kCircles, {colorIn(items, sink), pen::kThin},
                 sink.sheet().place(itemOf(items, "Center").point),
                 itemOf(items, "Radius").number * sink.sheet().factor());
}

AlignX alignXOf(std::int64_t justification) {
  return justification == 1 ? AlignX::kCentre : justification == 2 ? AlignX::kRight : AlignX::kLeft;
}

AlignY alignYOf(std::int64_t justification) {
  return justification == 1 ? AlignY::kMiddle : justification == 2 ? AlignY::kTop : AlignY::kBase;
}

void drawText(const std::vector<ItemValue>& items, ShapeSink& sink) {
  Lettering text;
  text.text = itemOf(items, "Contents").text;
  text.at = sink.sheet().place(itemOf(items, "Location").point);
  text.height = sink.heightOf(itemOf(items, "Height").number);
  text.angle = sink.context().radians(itemOf(items, "Angle").number);
  text.alignX = alignXOf(itemOf(items, "JustificationX").integer);
  text.alignY = alignYOf(itemOf(items, "JustificationY").integer);
  sink.addText(Layer::kTexts, colorIn(items, sink), std::move(text));
}

void drawFill(const std::vector<ItemValue>& items, ShapeSink& sink) {
  sink.addPath(Layer::kFills,
               {colorOf(itemOf(items, "Color").integer, sink.context().colors), 0.0, true},
               outlineOf(itemOf(items, "Vector").points, sink.sheet()));
}

// The outline of the sheet, its diagonal, and on that its name.
void drawMesh(const std::vector<ItemValue>& items, ShapeSink& sink) {
  const std::vector<Coordinates>& points = itemOf(items, "Vector").points;
  if (points.empty()) {
    return;
  }
  sink.addPath(Layer::kMeshes, {ink::kMeshes, pen::kMedium}, outlineOf(points, sink.sheet()));
  const PlanePoint first = sink.sheet().place(points.front());
  const PlanePoint across = sink.sheet().place(points[points.size() / 2]);
  Path diagonal;
  diagonal.moveTo(first);
  diagonal.lineTo(across);
  sink.addPath(Layer::kMeshes, {ink::kMeshes, pen::kThin}, std::move(diagonal));
  PlanePoint direction = directionOf(across - first);
  if (direction.x < 0.0) {
    direction = direction * -1.0;
  }
  const std::string& reference = itemOf(items, "Reference").text;
  const std::string& type = itemOf(items, "Type").text;
  Lettering name;
  name.text = reference + (reference.empty() || type.empty() ? "" : " \u2013 ") + type;
  name.height = sink.context().lettering;
  name.angle = std::atan2(direction.y, direction.x);
  name.alignX = AlignX::kCentre;
  std::vector<PlanePoint> places;
  for (const double share : {0.5, 0.35, 0.65, 0.2, 0.8}) {
    places.push_back(first + (across - first) * share + leftOf(direction));
  }
  sink.addLabel(Layer::kMeshes, ink::kMeshes, std::move(name), std::move(places));
}

// What each of the outlines encloses.
void addConcrete(const Path& path, ShapeSink& sink) {
  std::vector<PlanePoint> outline;
  PlanePoint at;
  for (const PathStep& step : path.steps()) {
    if (step.kind == PathStep::Kind::kMove) {
      sink.addConcrete(outline);
      outline.clear();
    }
    for (int i = 1; step.kind == PathStep::Kind::kArc && i < kOutlineParts; ++i) {
      outline.push_back(step.center + turned(at - step.center, step.sweep * i / kOutlineParts));
    }
    outline.push_back(step.to);
    at = step.to;
  }
  sink.addConcrete(outline);
}

// The segments that join each other make one path.
void drawFormwork(const std::vector<ItemValue>& items, ShapeSink& sink) {
  const Style style{ink::kFormwork, pen::kFormwork};
  Path path;
  const Coordinates* last = nullptr;
  for (const Segment& segment : itemOf(items, "Vector").segments) {
    const PlanePoint start = sink.sheet().place(segment.start);
    const PlanePoint end = sink.sheet().place(segment.end);
    if (last == nullptr || *last != segment.start) {
      path.moveTo(start);
    }
    if (segment.bulge == Coordinates()) {
      path.lineTo(end);
    } else {
      path.arcThrough((start + end) * 0.5 + sink.sheet().direction(segment.bulge), end);
    }
    last = &segment.end;
  }
  addConcrete(path, sink);
  sink.addPath(Layer::kFormwork, style, std::move(path));
}

}  // namespace

void drawGraphic(const Element& element, const std::vector<ItemValue>& items, ShapeSink& sink) {
  if (element.schema == nullptr) {
    return;
  }
  switch (element.schema->id) {
    case items::ElementClass::kLine:
      return drawLine(items, sink);
    case items::ElementClass::kCircle:
      return drawCircle(items, sink);
    case items::ElementClass::kText:
      return drawText(items, sink);
    case items::ElementClass::kFilledPolygon:
      return drawFill(items, sink);
    case items::ElementClass::kMesh:
      return drawMesh(items, sink);
    case items::ElementClass::kFormwork:
      return drawFormwork(items, sink);
    case items::ElementClass::kStraightBar:
    case items::ElementClass::kLBar:
    case items::ElementClass::kUBar:
    case items::ElementClass::kPin:
    case items::ElementClass::kPointBar:
    case items::ElementClass::kPolygonBar:
    case items::ElementClass::kFrameRect:
    case items::ElementClass::kFrameCirc:
    case items::ElementClass::kStirrup:
    case items::ElementClass::kRepartition:
    case items::ElementClass::kDrawingControl:
      return;
  }
}

}  // namespace quorvan::tool
