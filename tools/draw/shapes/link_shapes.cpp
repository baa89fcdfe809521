#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tools/draw/shapes/hooks.h>

namespace quorvan::tool {

namespace {

constexpr double kHooksApart = 2.0;    // diameters between the two hooks of a link
constexpr double kStirrupWidth = 5.0;  // diameters: as narrow as the bends allow

struct Link {
  const Bar& bar;
  ShapeSink& sink;
  Style style;
  double diameter;  // on the sheet
  double hookLength;
  double hookAngle;

  // A hook at the end of a side that comes from `from`; 1 for one bent to the left.
  void hook(PlanePoint from, PlanePoint end, double side, double radius) const {
    if (!(hookLength > 0.0)) {
      return;
    }
    const HookShape shape{end,    directionOf(end - from),   side, hookAngle, hookLength,
                          radius, lengthOf(end - from) / 2.0};
    Path tail;
    tail.moveTo(hookBegin(shape));
    endWithHook(tail, shape);
    sink.addPath(Layer::kLinks, style, std::move(tail));
  }
};

void drawFrame(const Link& link) {
  std::vector<PlanePoint> corners;
  for (const Coordinates& point : link.bar.line) {
    corners.push_back(link.sink.sheet().place(point));
  }
  Path path;
  path.addRounded(corners, true, bendRadius(link.bar, link.sink.sheet()));
  link.sink.addPath(Layer::kLinks, link.style, std::move(path));
  if (corners.size() != 4) {
    return;
  }
  // Both sides that meet in the first corner end in a hook, bent to the inside.
  const double side = crossOf(corners[1] - corners[0], corners[3] - corners[0]) > 0.0 ? -1.0 : 1.0;
  const double radius = bendRadius(link.bar, link.sink.sheet());
  link.hook(corners[1], corners[0], side, radius);
  link.hook(corners[3], corners[0], -side, radius);
}

// The circle, the overlap just inside it, and a hook at each end of that.
void drawRing(const Link& link) {
  const Sheet& sheet = link.sink.sheet();
  const PlanePoint center = sheet.place(link.bar.center);
  const double radius = std::abs(link.bar.radius) * sheet.factor();
  link.sink.addCircle(Layer::kLinks, link.style, center, radius);
  const double inner = radius - kHooksApart * link.diameter;
  const PlanePoint out = link.bar.line.empty()
                             ? PlanePoint{1.0, 0.0}
                             : directionOf(sheet.place(link.bar.line.front()) - center);
  const double overlap = link.bar.overlap * sheet.factor();
  if (!(inner > 0.0)) {
    return;
  }
  const double sweep = std::min(overlap / inner, 2.0 * std::numbers::pi);
  const PlanePoint begin = center + out * inner;
  const PlanePoint end = center + turned(out, sweep) * inner;
  if (sweep > 0.0) {
    Path arc;
    arc.moveTo(begin);
    arc.arcTo(center, sweep);
    link.sink.addPath(Layer::kLinks, link.style, std::move(arc));
  }
  // The hooks turn to the centre.
  const double bend = bendRadius(link.bar, sheet);
  link.hook(begin + leftOf(out) * inner, begin, -1.0, bend);
  link.hook(end - leftOf(turned(out, sweep)) * inner, end, 1.0, bend);
}

// A long link about its axis, with round ends.
void drawStirrup(const Link& link) {
  const Sheet& sheet = link.sink.sheet();
  if (link.bar.line.size() < 2) {
    return;
  }
  const PlanePoint a = sheet.place(link.bar.line[0]);
  const PlanePoint b = sheet.place(link.bar.line[1]);
  const PlanePoint way = directionOf(b - a);
  const double radius =
      std::min(kStirrupWidth * link.diameter / 2.0, std::max(lengthOf(b - a) / 2.0, 0.0));
  const PlanePoint across = leftOf(way) * radius;
  const PlanePoint low = a + way * radius;
  const PlanePoint high = b - way * radius;
  Path path;
  path.moveTo(low - across);
  path.lineTo(high - across);
  path.arcTo(high, std::numbers::pi);
  path.lineTo(low + across);
  path.arcTo(low, std::numbers::pi);
  path.close();
  link.sink.addPath(Layer::kLinks, link.style, std::move(path));
  // The file has no width: the hooks are shown as far as they stay between the legs.
  Link inside = link;
  const double bend = radius / 2.0;
  const double rest = 2.0 * radius - bend * (1.0 - std::cos(link.hookAngle));
  if (const double slope = std::abs(std::sin(link.hookAngle)); slope > 0.05) {
    inside.hookLength = std::min(link.hookLength, bend + rest / slope);
  }
  inside.hook(low + across, b + across, -1.0, bend);
  inside.hook(low - across, b - across, 1.0, bend);
}

}  // namespace

void drawLink(const Bar& bar, ShapeSink& sink) {
  const double width = penOf(bar.diameter, pen::kLeastLink, sink.sheet());
  const Link link{bar,
                  sink,
                  {ink::kLinks, width},
                  std::abs(bar.diameter) * sink.sheet().factor(),
                  bar.hooks[0].length * sink.sheet().factor(),
                  sink.context().radians(bar.hooks[0].angle)};
  if (bar.shape == BarShape::kFrameCirc) {
    drawRing(link);
  } else if (bar.shape == BarShape::kStirrup) {
    drawStirrup(link);
  } else {
    drawFrame(link);
  }
}

}  // namespace quorvan::tool
