#include <tools/draw/scene/path.h>

#include <algorithm>
#include <numbers>

namespace quorvan::tool {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kFlat = 1e-9;  // of the chord

double angleOf(PlanePoint direction) {
  return std::atan2(direction.y, direction.x);
}

// How far to turn to the left from one direction to the other, from 0 to a full turn.
double leftTurn(PlanePoint from, PlanePoint to) {
  const double angle = angleOf(to) - angleOf(from);
  return angle < 0.0 ? angle + kTurn : angle;
}

}  // namespace

void Path::arcTo(PlanePoint center, double sweep) {
  const PlanePoint to = center + turned(end() - center, sweep);
  // More than a full turn shows nothing more.
  m_steps.push_back({PathStep::Kind::kArc, to, center, std::clamp(sweep, -kTurn, kTurn)});
}

void Path::arcThrough(PlanePoint middle, PlanePoint last) {
  const PlanePoint first = end();
  const PlanePoint chord = last - first;
  const PlanePoint rise = middle - first;
  if (chord == PlanePoint()) {
    if (rise == PlanePoint()) {
      return lineTo(last);
    }
    return arcTo(first + rise * 0.5, kTurn);
  }
  const double twiceArea = crossOf(chord, rise);
  if (!(std::abs(twiceArea) > kFlat * lengthOf(chord) * lengthOf(chord))) {
    return lineTo(last);
  }
  const double c = chord.x * chord.x + chord.y * chord.y;
  const double r = rise.x * rise.x + rise.y * rise.y;
  const PlanePoint center = first + PlanePoint{(rise.y * c - chord.y * r) / (2.0 * twiceArea),
                                               (chord.x * r - rise.x * c) / (2.0 * twiceArea)};
  const double toLast = leftTurn(first - center, last - center);
  const bool isLeft = leftTurn(first - center, middle - center) <= toLast;
  m_steps.push_back({PathStep::Kind::kArc, last, center, isLeft ? toLast : toLast - kTurn});
}

void Path::addRounded(const std::vector<PlanePoint>& points, bool isClosed, double radius) {
  const std::size_t count = points.size();
  if (count == 0) {
    return;
  }
  if (count < 3) {
    moveTo(points.front());
    for (std::size_t i = 1; i < count; ++i) {
      lineTo(points[i]);
    }
    return;
  }
  // A closed path begins in the middle of a side, so that every corner is between two others.
  moveTo(isClosed ? (points.back() + points.front()) * 0.5 : points.front());
  for (std::size_t i = isClosed ? 0 : 1; i + (isClosed ? 0 : 1) < count; ++i) {
    const PlanePoint before = points[(i + count - 1) % count];
    const PlanePoint after = points[(i + 1) % count];
    const double room = 0.5 * std::min(lengthOf(points[i] - before), lengthOf(after - points[i]));
    addCorner(before, points[i], after, radius, room);
  }
  if (isClosed) {
    close();
  } else {
    lineTo(points.back());
  }
}

void Path::bendAt(PlanePoint corner, PlanePoint next, double radius) {
  const double room = std::min(lengthOf(corner - end()), lengthOf(next - corner));
  addCorner(end(), corner, next, radius, room);
}

void Path::addCorner(PlanePoint before, PlanePoint corner, PlanePoint after, double radius,
                     double room) {
  const PlanePoint in = corner - before;
  const PlanePoint out = after - corner;
  const double turn = std::atan2(crossOf(in, out), in.x * out.x + in.y * out.y);
  const double half = std::tan(std::abs(turn) / 2.0);
  if (!(std::abs(turn) > 1e-6) || !(half < 1e6) || !(room > 0.0)) {
    return lineTo(corner);
  }
  const double reach = std::min(room, radius * half);
  const PlanePoint begin = corner - directionOf(in) * reach;
  const double side = turn > 0.0 ? 1.0 : -1.0;
  lineTo(begin);
  arcTo(begin + leftOf(directionOf(in)) * (side * reach / half), turn);
}

void Path::append(const Path& other) {
  for (std::size_t i = 1; i < other.m_steps.size(); ++i) {
    m_steps.push_back(other.m_steps[i]);
  }
}

PlanePoint Path::end() const noexcept {
  return m_steps.empty() ? PlanePoint() : m_steps.back().to;
}

bool Path::isFinite() const noexcept {
  return std::ranges::all_of(m_steps, [](const PathStep& step) {
    return tool::isFinite(step.to) && tool::isFinite(step.center) && std::isfinite(step.sweep);
  });
}

}  // namespace quorvan::tool
