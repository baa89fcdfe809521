#include <tools/draw/dxf/bar_outline.h>

#include <algorithm>
#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kLongestMitre = 4.0;  // widths
constexpr double kSame = 1e-9;         // of a width: below it two points are one

// The way moved to its left, a bend's radius with it. Nothing where that leaves no bend.
bool moveAside(BulgeWay& way, double by) {
  if (!way.isArc()) {
    const PlanePoint left = leftOf(directionOf(way.to - way.from)) * by;
    way.from = way.from + left;
    way.to = way.to + left;
    return true;
  }
  const double radius = way.radius + (way.sweep > 0.0 ? -by : by);
  if (!(radius > kSame * std::abs(by))) {
    return false;
  }
  way.from = way.center + (way.from - way.center) * (radius / way.radius);
  way.to = way.center + (way.to - way.center) * (radius / way.radius);
  way.radius = radius;
  return true;
}

// Two lines that no longer meet are lengthened or cut to where they do.
void join(BulgeWay& before, BulgeWay& after, double width) {
  if (before.isArc() || after.isArc() || lengthOf(after.from - before.to) <= kSame * width) {
    return;
  }
  const PlanePoint in = directionOf(before.to - before.from);
  const PlanePoint out = directionOf(after.to - after.from);
  const double turn = crossOf(in, out);
  if (!(std::abs(turn) > kSame)) {
    return;
  }
  const double reach = crossOf(after.from - before.to, out) / turn;
  if (std::abs(reach) <= kLongestMitre * width) {
    before.to = after.from = before.to + in * reach;
  }
}

std::vector<BulgeWay> sideOf(const BulgePath& axis, double by) {
  std::vector<BulgeWay> side;
  for (BulgeWay way : waysOf(axis)) {
    if (moveAside(way, by)) {
      side.push_back(way);
    }
  }
  const double width = 2.0 * std::abs(by);
  for (std::size_t i = 1; i < side.size(); ++i) {
    join(side[i - 1], side[i], width);
  }
  if (axis.isClosed && side.size() > 1) {
    join(side.back(), side.front(), width);
  }
  return side;
}

// Adds the ways of one side; points that differ by rounding alone are one.
void addSide(BulgePath& outline, const std::vector<BulgeWay>& side, double width) {
  const auto add = [&](PlanePoint at, double bulge) {
    if (outline.vertices.empty() || lengthOf(outline.vertices.back().at - at) > kSame * width) {
      outline.vertices.push_back({at});
    }
    outline.vertices.back().bulge = bulge;
  };
  for (const BulgeWay& way : side) {
    add(way.from, std::tan(way.sweep / 4.0));
    add(way.to, 0.0);
  }
}

BulgePath ringOf(const std::vector<BulgeWay>& side, double width) {
  BulgePath ring{{}, true};
  addSide(ring, side, width);
  if (ring.vertices.size() > 1 &&
      lengthOf(ring.vertices.back().at - ring.vertices.front().at) <= kSame * width) {
    ring.vertices.pop_back();
  }
  return ring;
}

std::vector<BulgeWay> reversed(std::vector<BulgeWay> side) {
  std::ranges::reverse(side);
  for (BulgeWay& way : side) {
    std::swap(way.from, way.to);
    way.sweep = -way.sweep;
  }
  return side;
}

}  // namespace

std::vector<BulgePath> outlinesOf(const BulgePath& axis, double width) {
  const std::vector<BulgeWay> left = sideOf(axis, width / 2.0);
  const std::vector<BulgeWay> right = sideOf(axis, -width / 2.0);
  if (axis.isClosed) {
    return {ringOf(left, width), ringOf(right, width)};
  }
  BulgePath outline{{}, true};
  addSide(outline, left, width);
  addSide(outline, reversed(right), width);
  return {std::move(outline)};
}

}  // namespace quorvan::tool
