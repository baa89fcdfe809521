#include <tools/detailing/bar_body.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvan::tool {

namespace {

PlaneBox widened(PlaneBox box, double margin) {
  const PlanePoint by{margin, margin};
  return {box.least - by, box.most + by};
}

double dot(PlanePoint a, PlanePoint b) {
  return a.x * b.x + a.y * b.y;
}

double distanceTo(PlanePoint point, PlanePoint from, PlanePoint to) {
  const PlanePoint way = to - from;
  const double square = dot(way, way);
  const double share = square > 0.0 ? std::clamp(dot(point - from, way) / square, 0.0, 1.0) : 0.0;
  return lengthOf(point - (from + way * share));
}

// On which side of a line two points lie: below 0 where on different ones.
double sides(PlanePoint from, PlanePoint to, PlanePoint one, PlanePoint other) {
  const auto side = [&](PlanePoint point) { return crossOf(to - from, point - from); };
  const double first = side(one);
  const double second = side(other);
  return first * second < 0.0 ? -1.0 : first == 0.0 || second == 0.0 ? 0.0 : 1.0;
}

double distanceBetween(PlanePoint a, PlanePoint b, PlanePoint c, PlanePoint d) {
  if (sides(a, b, c, d) < 0.0 && sides(c, d, a, b) < 0.0) {
    return 0.0;
  }
  return std::min(
      {distanceTo(a, c, d), distanceTo(b, c, d), distanceTo(c, a, b), distanceTo(d, a, b)});
}

std::array<PlanePoint, 4> cornersOf(const LegBody& leg) {
  const PlanePoint half = leftOf(directionOf(leg.to - leg.from)) * (leg.width / 2.0);
  return {leg.from + half, leg.to + half, leg.to - half, leg.from - half};
}

bool holds(const LegBody& leg, PlanePoint point) {
  const PlanePoint direction = directionOf(leg.to - leg.from);
  const double along = dot(point - leg.from, direction);
  return along >= 0.0 && along <= lengthOf(leg.to - leg.from) &&
         std::abs(crossOf(direction, point - leg.from)) <= leg.width / 2.0;
}

}  // namespace

BarBody bodyOf(const Bar& bar, const LengthUnit& unit) {
  BarBody body;
  const double width = unit.millimetres(bar.diameter);
  const auto place = [&unit](const Coordinates& point) {
    return PlanePoint{unit.millimetres(point.x), unit.millimetres(point.y)};
  };
  if (!std::isfinite(width)) {
    return body;
  }
  if (bar.shape == BarShape::kPoint || bar.shape == BarShape::kFrameCirc) {
    const bool isRing = bar.shape == BarShape::kFrameCirc;
    const RingBody ring{place(isRing ? bar.center : bar.line.front()),
                        isRing ? unit.millimetres(bar.radius) : 0.0, width};
    if (isFinite(ring.center) && std::isfinite(ring.radius)) {
      body.rings.push_back(ring);
    }
    return body;
  }
  const std::size_t count = bar.line.size();
  for (std::size_t i = 1; i < count + (bar.isClosed && count > 2 ? 1 : 0); ++i) {
    const LegBody leg{place(bar.line[i - 1]), place(bar.line[i % count]), width};
    if (!isFinite(leg.from) || !isFinite(leg.to)) {
      return {};
    }
    if (leg.from == leg.to) {
      body.rings.push_back({leg.from, 0.0, width});
    } else {
      body.legs.push_back(leg);
    }
  }
  return body;
}

std::vector<PlanePoint> BarBody::samples() const {
  std::vector<PlanePoint> points;
  for (const LegBody& leg : legs) {
    points.insert(points.end(), {leg.from, (leg.from + leg.to) * 0.5, leg.to});
  }
  for (const RingBody& ring : rings) {
    const double r = ring.radius;
    for (const PlanePoint way : {PlanePoint{r, 0.0}, {0.0, r}, {-r, 0.0}, {0.0, -r}}) {
      points.push_back(ring.center + way);
    }
  }
  return points;
}

PlaneBox boxAround(const LegBody& leg, double margin) {
  PlaneBox box{leg.from, leg.from};
  box.include(leg.to);
  return widened(box, leg.width / 2.0 + margin);
}

PlaneBox boxAround(const RingBody& ring, double margin) {
  return widened({ring.center, ring.center}, ring.radius + ring.width / 2.0 + margin);
}

bool passes(const LegBody& leg, const FormworkLine& line) {
  return passesDrawnOn(leg, line) && sides(leg.from, leg.to, line.from, line.to) <= 0.0;
}

bool passesDrawnOn(const LegBody& leg, const FormworkLine& line) {
  return sides(line.from, line.to, leg.from, leg.to) < 0.0;
}

bool passes(const RingBody& ring, const FormworkLine& line) {
  const double nearest = distanceTo(ring.center, line.from, line.to);
  const double farthest =
      std::max(lengthOf(line.from - ring.center), lengthOf(line.to - ring.center));
  return nearest < ring.radius && farthest > ring.radius;
}

double gapBetween(const LegBody& leg, const FormworkLine& line) {
  if (holds(leg, line.from) || holds(leg, line.to)) {
    return 0.0;
  }
  const std::array<PlanePoint, 4> corners = cornersOf(leg);
  double gap = distanceBetween(corners[3], corners[0], line.from, line.to);
  for (std::size_t i = 1; i < corners.size(); ++i) {
    gap = std::min(gap, distanceBetween(corners[i - 1], corners[i], line.from, line.to));
  }
  return gap;
}

double gapBetween(const RingBody& ring, const FormworkLine& line) {
  if (passes(ring, line)) {
    return 0.0;
  }
  const double nearest = distanceTo(ring.center, line.from, line.to);
  const double farthest =
      std::max(lengthOf(line.from - ring.center), lengthOf(line.to - ring.center));
  const double apart = nearest >= ring.radius ? nearest - ring.radius : ring.radius - farthest;
  return std::max(0.0, apart - ring.width / 2.0);
}

}  // namespace quorvan::tool
