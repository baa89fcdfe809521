#include <tools/draw/shapes/element_shapes.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include <tools/draw/shapes/sheet_bar.h>

namespace quorvan::tool {

namespace {

constexpr double kBeside = 1.25;     // diameters from axis to axis of bars side by side
constexpr double kPensApart = 2.0;   // widths of the pen, so that two lines are seen
constexpr double kLying = 1.8;       // radians: a hook up to that lies along a leg
constexpr double kSlightTurn = 0.4;  // radians, of a ring between its start and its hook

struct Link {
  const SheetBar& bar;
  ShapeSink& sink;
  Style style;
  double beside;  // on the sheet, from axis to axis of bars side by side

  [[nodiscard]] const BentBar& bent() const { return bar.bent(); }
  [[nodiscard]] bool hasHooks() const { return bent().beginsWithHook; }
  // A right-angled hook would lie on what comes to the same corner from the other side.
  [[nodiscard]] double hookAside() const {
    return hasHooks() && bent().bends.front().angle < kLying ? beside : 0.0;
  }

  void addTail(PlanePoint from, PlanePoint to) const {
    constexpr double kNone = 1e-6;
    if (lengthOf(to - from) > kNone) {
      Path tail;
      tail.moveTo(from);
      tail.lineTo(to);
      sink.addPath(Layer::kLinks, style, std::move(tail));
    }
  }

  void addHook(const HookShape& hook) const {
    Path tail;
    tail.moveTo(hookBegin(hook));
    endWithHook(tail, hook);
    sink.addPath(Layer::kLinks, style, std::move(tail));
  }
};

void drawFrame(const Link& link) {
  const std::vector<PlanePoint> axis = link.bar.axis();
  if (axis.size() != 5) {
    return;
  }
  // Its ends may run straight on beyond the first corner.
  const std::vector<PlanePoint> corners{axis[1] + axis[3] - axis[2], axis[1], axis[2], axis[3]};
  Path path;
  path.addRounded(corners, true, link.bar.radius());
  link.sink.addPath(Layer::kLinks, link.style, std::move(path));
  if (!link.hasHooks()) {
    link.addTail(corners[0], axis.front());
    link.addTail(corners[0], axis.back());
    return;
  }
  // Both sides that meet in the first corner end in a hook, bent to the inside.
  const double side = crossOf(corners[1] - corners[0], corners[3] - corners[0]) > 0.0 ? -1.0 : 1.0;
  const PlanePoint along = directionOf(corners[1] - corners[0]);
  const PlanePoint up = directionOf(corners[3] - corners[0]);
  const double aside = link.hookAside();
  link.addHook(link.bar.hook(true, corners[0] + along * aside, along * -1.0, side));
  link.addHook(link.bar.hook(false, corners[0] + up * aside, up * -1.0, -side));
}

// A ring from its start round to the left. Its ends are corners into which the hooks are bent, so
// that it begins and ends as much short of them as the bends reach.
struct RingEnds {
  double begin;  // radians from the start
  double sweep;
};

RingEnds ringEnds(const Link& link, double radius) {
  const BentBar& bent = link.bent();
  RingEnds ends{0.0, 2.0 * std::numbers::pi + link.bar.onSheet(bent.overlap) / radius};
  if (!link.hasHooks()) {
    return ends;
  }
  const double reach = link.bar.onSheet(bent.bends.front().reach());
  ends.begin = reach / radius;
  if (bent.overlap <= 0.0 && link.hookAside() > 0.0) {
    // Right-angled hooks run a little towards each other: side by side at their tips, where the
    // ring is large enough.
    const double tip = radius - reach - link.bar.onSheet(bent.legs.front().straight);
    const double turn = (reach + link.hookAside() / 2.0) / tip;
    if (turn > 0.0 && turn < kSlightTurn) {
      ends.begin = std::asin(turn);
    }
  }
  ends.sweep -= 2.0 * ends.begin;
  return ends;
}

// Once round and narrowing, so that the overlap lies inside.
void addTurns(Path& ring, PlanePoint center, PlanePoint out, double radius, double sweep,
              double beside) {
  const double full = 2.0 * std::numbers::pi;
  if (sweep <= full) {
    ring.arcTo(center, std::max(0.0, sweep));
    return;
  }
  const double inner = radius - beside;
  ring.arcTo(center, std::numbers::pi);
  // The second half ends a bar's width inside the beginning.
  ring.arcTo(center - out * (beside / 2.0), std::numbers::pi);
  ring.arcTo(center, std::min((sweep - full) * radius / inner, full));
}

// The ring as it is bent, with a hook at each end.
void drawRing(const Link& link, PlanePoint center, PlanePoint start) {
  const double radius = link.bar.onSheet(link.bent().ringRadius);
  if (!(radius > link.beside) || (link.bent().overlap == 0.0 && !link.hasHooks())) {
    return link.sink.addCircle(Layer::kLinks, link.style, center, radius);
  }
  const RingEnds ends = ringEnds(link, radius);
  const PlanePoint out = turned(start, ends.begin);
  Path ring;
  const bool isInward =
      link.hasHooks() && link.bent().legs[1].isLeft == link.bent().bends.front().isLeft;
  if (link.hasHooks()) {
    const PlanePoint way = leftOf(out) * -1.0;
    const double reach = link.bar.onSheet(link.bent().bends.front().reach());
    beginWithHook(
        ring, link.bar.hook(true, center + out * radius + way * reach, way, isInward ? -1.0 : 1.0));
  } else {
    ring.moveTo(center + out * radius);
  }
  addTurns(ring, center, out, radius, ends.sweep, link.beside);
  if (link.hasHooks()) {
    const PlanePoint way = leftOf(directionOf(ring.end() - center));
    const double reach = link.bar.onSheet(link.bent().bends.back().reach());
    endWithHook(ring, link.bar.hook(false, ring.end() + way * reach, way, isInward ? 1.0 : -1.0));
  }
  link.sink.addPath(Layer::kLinks, link.style, std::move(ring));
}

// A long link about its axis, with round ends, as narrow as the bends allow.
void drawStirrup(const Link& link) {
  const std::vector<PlanePoint> axis = link.bar.axis();
  if (axis.size() < 2) {
    return;
  }
  const PlanePoint a = axis[0];
  const PlanePoint b = axis[1];
  const PlanePoint way = directionOf(b - a);
  const double width = link.bar.onSheet(link.bent().roller + link.bent().diameter);
  const double radius = std::min(width, lengthOf(b - a)) / 2.0;
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
  if (!link.hasHooks()) {
    return;
  }
  // The file has no width: the hooks are shown as far as they stay between the legs.
  for (const double side : {1.0, -1.0}) {
    HookShape hook = link.bar.hook(true, b - across * side, way, side);
    const double room = radius / 2.0;
    hook.bend.radius = std::min(hook.bend.radius, room);
    const double rest = 2.0 * radius - hook.bend.radius * (1.0 - std::cos(hook.bend.angle));
    if (const double slope = std::abs(std::sin(hook.bend.angle)); slope > 0.05) {
      hook.straight = std::min(hook.straight, std::max(0.0, rest / slope));
    }
    link.addHook(hook);
  }
}

}  // namespace

void drawLink(const Bar& bar, ShapeSink& sink) {
  const SheetBar onSheet(bar, sink.context());
  Style style{ink::kLinks, penOf(bar.diameter, sink.sheet())};
  style.isBar = true;
  const double beside = std::max(kBeside * onSheet.onSheet(onSheet.bent().diameter),
                                 sink.sheet().isPaper() ? kPensApart * style.width : 0.0);
  const Link link{onSheet, sink, style, beside};
  if (bar.shape == BarShape::kFrameCirc) {
    const PlanePoint center = sink.sheet().place(bar.center);
    drawRing(link, center,
             bar.line.empty() ? PlanePoint{1.0, 0.0}
                              : directionOf(sink.sheet().place(bar.line.front()) - center));
  } else if (bar.shape == BarShape::kStirrup) {
    drawStirrup(link);
  } else {
    drawFrame(link);
  }
}

}  // namespace quorvan::tool
