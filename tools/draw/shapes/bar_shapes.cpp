#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>
#include <numbers>

#include <tools/draw/shapes/hooks.h>

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

// To which side of the way from the first to the last point the bar bends there: 1 for left.
double bendSide(const std::vector<PlanePoint>& points, bool atStart) {
  const std::size_t corner = atStart ? 1 : points.size() - 2;
  const double turn =
      crossOf(points[corner] - points[corner - 1], points[corner + 1] - points[corner]);
  return turn < 0.0 ? -1.0 : 1.0;
}

// The side of the way to which the hook turns.
double hookSide(const Bar& bar, const std::vector<PlanePoint>& points, bool atStart) {
  switch (bar.shape) {
    case BarShape::kStraight: {
      const PlanePoint way = points.back() - points.front();
      const double up = sideOfUp(way);
      return bar.isHookUp[atStart ? 0 : 1] ? up : -up;
    }
    case BarShape::kPolygon:
      return bar.side ? 1.0 : -1.0;
    case BarShape::kL:
    case BarShape::kU:
      return points.size() < 3 ? 1.0 : bendSide(points, atStart);
    case BarShape::kPin:
    case BarShape::kPoint:
    case BarShape::kFrameRect:
    case BarShape::kFrameCirc:
    case BarShape::kStirrup:
      break;
  }
  return 1.0;
}

HookShape hookOf(const Bar& bar, const std::vector<PlanePoint>& points, bool atStart,
                 const ShapeSink& sink) {
  const Hook& hook = bar.hooks[atStart ? 0 : 1];
  HookShape shape;
  shape.end = atStart ? points.front() : points.back();
  shape.direction =
      directionOf(atStart ? points.front() - points[1] : points.back() - points[points.size() - 2]);
  // Looking out of the start, left and right are those of the way turned round.
  shape.side = (atStart ? -1.0 : 1.0) * hookSide(bar, points, atStart);
  shape.angle = sink.context().radians(hook.angle);
  shape.length = hook.length * sink.sheet().factor();
  shape.radius = bendRadius(bar, sink.sheet());
  // The other half of the last leg belongs to its other end.
  shape.room = lengthOf(shape.end - (atStart ? points[1] : points[points.size() - 2])) / 2.0;
  return shape;
}

// The points of the bar on the sheet, without those that fall on the one before.
std::vector<PlanePoint> pointsOf(const Bar& bar, const Sheet& sheet) {
  std::vector<PlanePoint> points;
  for (const Coordinates& point : bar.line) {
    const PlanePoint place = sheet.place(point);
    if (points.empty() || !(place == points.back())) {
      points.push_back(place);
    }
  }
  return points;
}

}  // namespace

double penOf(double diameter, const Sheet& sheet) noexcept {
  constexpr double kThinnest = 0.35;
  constexpr double kThickestLeast = 0.8;
  const double width = std::abs(diameter) * sheet.factor();
  if (!sheet.isPaper()) {
    return width;
  }
  const double least =
      std::clamp(0.3 + 0.0125 * std::abs(diameter) * sheet.unit(), kThinnest, kThickestLeast);
  return width > least ? std::min(width, pen::kThickest) : least;
}

double bendRadius(const Bar& bar, const Sheet& sheet) noexcept {
  constexpr double kLastThin = 16.0;     // mm, of the diameter
  constexpr double kRounding = 0.01;     // mm
  constexpr double kThinMandrel = 4.0;   // diameters
  constexpr double kThickMandrel = 7.0;  // diameters
  const double diameter = std::abs(bar.diameter);
  const bool isThick = diameter * sheet.unit() > kLastThin + kRounding;
  return ((isThick ? kThickMandrel : kThinMandrel) + 1.0) / 2.0 * diameter * sheet.factor();
}

void drawBar(const Bar& bar, ShapeSink& sink) {
  std::vector<PlanePoint> points = pointsOf(bar, sink.sheet());
  if (points.empty()) {
    return;
  }
  const double width = penOf(bar.diameter, sink.sheet());
  // A bar along the view is a point as well.
  if (bar.shape == BarShape::kPoint || points.size() == 1) {
    sink.addCircle(Layer::kEndOn, {ink::kBars, 0.0, true}, points.front(), width / 2.0);
    return;
  }
  const HookShape first = hookOf(bar, points, true, sink);
  const HookShape last = hookOf(bar, points, false, sink);
  points.front() = hookBegin(first);
  points.back() = hookBegin(last);
  Path path;
  beginWithHook(path, first);
  Path line;
  line.addRounded(points, false, bendRadius(bar, sink.sheet()));
  path.append(line);
  endWithHook(path, last);
  Style style{ink::kBars, width};
  style.isBar = true;
  sink.addPath(Layer::kBars, style, std::move(path));
}

}  // namespace quorvan::tool
