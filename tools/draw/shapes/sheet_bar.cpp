#include <tools/draw/shapes/sheet_bar.h>

#include <algorithm>
#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kUpright = 1e-9;

// 1 where the left of the direction is up on the sheet; an upright bar has its left for up.
double sideOfUp(PlanePoint direction) {
  const double up = leftOf(direction).y;
  if (std::abs(up) > kUpright) {
    return up > 0.0 ? 1.0 : -1.0;
  }
  return direction.y > 0.0 ? 1.0 : -1.0;
}

// The bar in mm, in the plane of the sheet.
Bar flattened(const Bar& bar, const DrawContext& context) {
  const Sheet& sheet = context.sheet;
  const double unit = sheet.unit();
  const double millimetres = unit / sheet.factor();
  Bar flat;
  flat.shape = bar.shape;
  flat.isClosed = bar.isClosed;
  flat.side = bar.side;
  flat.diameter = std::abs(bar.diameter) * unit;
  flat.radius = std::abs(bar.radius) * unit;
  flat.overlap = std::max(0.0, bar.overlap * unit);
  flat.line.reserve(bar.line.size());
  for (const Coordinates& point : bar.line) {
    const PlanePoint place = sheet.place(point);
    flat.line.push_back({place.x * millimetres, place.y * millimetres, 0.0});
  }
  for (std::size_t i = 0; i < bar.hooks.size(); ++i) {
    flat.hooks[i] = {bar.hooks[i].length * unit, context.radians(bar.hooks[i].angle)};
  }
  flat.isHookUp = bar.isHookUp;
  if (bar.shape == BarShape::kStraight && flat.line.size() > 1) {
    const Coordinates& a = flat.line.front();
    const Coordinates& b = flat.line.back();
    const bool isLeftUp = sideOfUp(directionOf({b.x - a.x, b.y - a.y})) > 0.0;
    for (bool& isUp : flat.isHookUp) {
      isUp = isUp == isLeftUp;
    }
  }
  return flat;
}

BentBar bentOnSheet(const Bar& bar, const DrawContext& context) {
  BendingRules rules;
  rules.angles = AngleUnit::kRadians;
  return bend(flattened(bar, context), kLengthUnits[0], rules);
}

}  // namespace

SheetBar::SheetBar(const Bar& bar, const DrawContext& context)
    : m_bent(bentOnSheet(bar, context)), m_factor(context.sheet.factor() / context.sheet.unit()) {}

std::vector<PlanePoint> SheetBar::axis() const {
  std::vector<PlanePoint> points;
  points.reserve(m_bent.axis.size());
  for (const Coordinates& point : m_bent.axis) {
    points.push_back(PlanePoint{point.x, point.y} * m_factor);
  }
  return points;
}

double SheetBar::radius() const noexcept {
  double least = 0.0;
  bool isFound = false;
  for (const Bend& bend : m_bent.bends) {
    if (!bend.isHook) {
      least = isFound ? std::min(least, bend.radius) : bend.radius;
      isFound = true;
    }
  }
  return onSheet(least);
}

HookShape SheetBar::hook(bool atStart, PlanePoint end, PlanePoint direction, double side) const {
  HookShape shape;
  shape.end = end;
  shape.direction = direction;
  shape.side = side;
  shape.bend = atStart ? m_bent.bends.front() : m_bent.bends.back();
  shape.bend.radius = onSheet(shape.bend.radius);
  shape.straight = onSheet((atStart ? m_bent.legs.front() : m_bent.legs.back()).straight);
  return shape;
}

HookShape SheetBar::hook(bool atStart, PlanePoint end, PlanePoint direction) const {
  const Bend& bend = atStart ? m_bent.bends.front() : m_bent.bends.back();
  // Looking out of the start, left and right are those of the way turned round.
  const bool isLeft = (bend.isLeft != m_bent.isTurnedOver) != atStart;
  return hook(atStart, end, direction, isLeft ? 1.0 : -1.0);
}

Path SheetBar::path() const {
  const std::vector<PlanePoint> points = axis();
  Path path;
  if (points.size() < 2) {
    return path;
  }
  const std::size_t last = points.size() - 1;
  if (m_bent.beginsWithHook) {
    beginWithHook(path, hook(true, points[0], directionOf(points[0] - points[1])));
  } else {
    path.moveTo(points[0]);
  }
  const std::size_t first = m_bent.beginsWithHook ? 1 : 0;
  for (std::size_t i = 1; i < last; ++i) {
    path.bendAt(points[i], points[i + 1], onSheet(m_bent.bends[first + i - 1].radius));
  }
  if (m_bent.endsWithHook) {
    const HookShape end = hook(false, points[last], directionOf(points[last] - points[last - 1]));
    path.lineTo(hookBegin(end));
    endWithHook(path, end);
  } else {
    path.lineTo(points[last]);
  }
  return path;
}

}  // namespace quorvan::tool
