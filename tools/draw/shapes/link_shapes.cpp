#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tools/draw/shapes/hooks.h>

namespace quorvan::tool {

namespace {

constexpr double kBeside = 1.25;       // diameters from axis to axis of bars side by side
constexpr double kLying = 1.8;         // radians: a hook up to that lies along a leg
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
  // Both sides that meet in the first corner end in a hook, bent to the inside. A right-angled one
  // lies along the other side, within it.
  const double side = crossOf(corners[1] - corners[0], corners[3] - corners[0]) > 0.0 ? -1.0 : 1.0;
  const double radius = bendRadius(link.bar, link.sink.sheet());
  const double inside = std::abs(link.hookAngle) < kLying ? kBeside * link.diameter : 0.0;
  const PlanePoint along = directionOf(corners[1] - corners[0]) * inside;
  const PlanePoint up = directionOf(corners[3] - corners[0]) * inside;
  link.hook(corners[1], corners[0] + along, side, radius);
  link.hook(corners[3], corners[0] + up, -side, radius);
}

// A hook that goes on where the ring ends: bent towards the centre, then straight.
Path ringHook(const Link& link, PlanePoint end, PlanePoint out, double turn, double radius) {
  const double angle = std::abs(link.hookAngle);
  const double bend = std::min(radius, angle > 0.0 ? link.hookLength / angle : radius);
  Path hook;
  hook.moveTo(end);
  if (angle > 0.0) {
    hook.arcTo(end - out * bend, turn * angle);
  }
  // The way goes on to the left of the centre's direction for a turn to the left.
  const PlanePoint way = turned(leftOf(out) * turn, turn * angle);
  hook.lineTo(hook.end() + way * std::max(0.0, link.hookLength - angle * bend));
  return hook;
}

// The ring as it is bent: once round, narrowing so that the overlap lies inside, and a hook at each
// end.
void drawRing(const Link& link) {
  const Sheet& sheet = link.sink.sheet();
  const PlanePoint center = sheet.place(link.bar.center);
  const double radius = std::abs(link.bar.radius) * sheet.factor();
  const double overlap = std::max(0.0, link.bar.overlap * sheet.factor());
  const double inner = radius - kBeside * link.diameter;
  if (!(inner > 0.0) || (overlap == 0.0 && !(link.hookLength > 0.0))) {
    return link.sink.addCircle(Layer::kLinks, link.style, center, radius);
  }
  const PlanePoint out = link.bar.line.empty()
                             ? PlanePoint{1.0, 0.0}
                             : directionOf(sheet.place(link.bar.line.front()) - center);
  Path ring;
  ring.moveTo(center + out * radius);
  ring.arcTo(center, std::numbers::pi);
  // The second half ends a bar's width inside the beginning.
  ring.arcTo(center - out * ((radius - inner) / 2.0), std::numbers::pi);
  const double sweep = std::min(overlap / inner, 2.0 * std::numbers::pi);
  if (sweep > 0.0) {
    ring.arcTo(center, sweep);
  }
  if (link.hookLength > 0.0) {
    const double bend = bendRadius(link.bar, sheet);
    ring.append(ringHook(link, ring.end(), turned(out, sweep), 1.0, bend));
    link.sink.addPath(Layer::kLinks, link.style,
                      ringHook(link, center + out * radius, out, -1.0, bend));
  }
  link.sink.addPath(Layer::kLinks, link.style, std::move(ring));
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
  Style style{ink::kLinks, penOf(bar.diameter, sink.sheet())};
  style.isBar = true;
  const Link link{bar,
                  sink,
                  style,
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
