#include <tools/draw/element_shapes.h>

#include <algorithm>
#include <numbers>

namespace quorvan::tool {

namespace {

constexpr double kApart = 2.0;         // diameters between the two hooks of a link
constexpr double kStirrupWidth = 5.0;  // diameters: as narrow as the bends allow

struct Link {
  const Bar& bar;
  ShapeSink& sink;
  Style style;
  double diameter;  // on the sheet
  double hookLength;
  double hookAngle;

  void hook(PlanePoint from, PlanePoint direction) const {
    if (!(hookLength > 0.0))
      return;
    Path tail;
    tail.moveTo(from);
    tail.lineTo(from + direction * hookLength);
    sink.addPath(Layer::kLinks, style, std::move(tail));
  }
};

// Two hooks at a corner, from the sides that come from `a` and `b`, bent to the inside.
void hookCorner(const Link& link, PlanePoint corner, PlanePoint a, PlanePoint b) {
  const PlanePoint fromA = directionOf(corner - a);
  const PlanePoint fromB = directionOf(corner - b);
  const double inside = crossOf(a - corner, b - corner) < 0.0 ? 1.0 : -1.0;
  const double apart = kApart * link.diameter;
  // The hook of a side begins where the other side passes.
  link.hook(corner - fromB * apart, turned(fromA, -inside * link.hookAngle));
  link.hook(corner - fromA * apart, turned(fromB, inside * link.hookAngle));
}

void drawFrame(const Link& link) {
  std::vector<PlanePoint> corners;
  for (const Coordinates& point : link.bar.line)
    corners.push_back(link.sink.sheet().place(point));
  Path path;
  path.addRounded(corners, true, bendRadius(link.bar, link.sink.sheet()));
  link.sink.addPath(Layer::kLinks, link.style, std::move(path));
  if (corners.size() == 4)
    hookCorner(link, corners[0], corners[1], corners[3]);
}

// The circle, the overlap just inside it, and a hook at each end of that.
void drawRing(const Link& link) {
  const Sheet& sheet = link.sink.sheet();
  const PlanePoint center = sheet.place(link.bar.center);
  const double radius = std::abs(link.bar.radius) * sheet.factor();
  link.sink.addCircle(Layer::kLinks, link.style, center, radius);
  const double inner = radius - kApart * link.diameter;
  const PlanePoint out = link.bar.line.empty()
                             ? PlanePoint{1.0, 0.0}
                             : directionOf(sheet.place(link.bar.line.front()) - center);
  const double overlap = link.bar.overlap * sheet.factor();
  if (!(inner > 0.0))
    return;
  const double sweep = std::min(overlap / inner, 2.0 * std::numbers::pi);
  const PlanePoint begin = center + out * inner;
  const PlanePoint end = center + turned(out, sweep) * inner;
  if (sweep > 0.0) {
    Path arc;
    arc.moveTo(begin);
    arc.arcTo(center, sweep);
    link.sink.addPath(Layer::kLinks, link.style, std::move(arc));
  }
  link.hook(begin, turned(leftOf(out) * -1.0, -link.hookAngle));
  link.hook(end, turned(leftOf(turned(out, sweep)), link.hookAngle));
}

// A long link about its axis, with round ends.
void drawStirrup(const Link& link) {
  const Sheet& sheet = link.sink.sheet();
  if (link.bar.line.size() < 2)
    return;
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
  link.hook(high + across, turned(way, -link.hookAngle));
  link.hook(high - across, turned(way, link.hookAngle));
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
  if (bar.shape == BarShape::kFrameCirc)
    drawRing(link);
  else if (bar.shape == BarShape::kStirrup)
    drawStirrup(link);
  else
    drawFrame(link);
}

}  // namespace quorvan::tool
