#include <tools/draw/scene/clipping.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace quorvan::tool {

namespace {

constexpr double kFullTurnOfArc = 2.0 * std::numbers::pi;
// mm: beyond this, an arc is a line as far as a sheet goes, and its angles are too small to tell.
constexpr double kFlatRadius = 1e6;

bool isWithin(PlanePoint point, const SheetBox& box) {
  return point.x >= box.least.x && point.x <= box.most.x && point.y >= box.least.y &&
         point.y <= box.most.y;
}

PlanePoint middleOf(const SheetBox& box) {
  return (box.least + box.most) * 0.5;
}

// An arc by its angles, in the direction in which it is drawn.
class Arc {
 public:
  Arc(PlanePoint from, const PathStep& step)
      : m_center(step.center),
        m_radius(lengthOf(from - step.center)),
        m_begin(std::atan2(from.y - step.center.y, from.x - step.center.x)),
        m_sweep(std::clamp(step.sweep, -kFullTurnOfArc, kFullTurnOfArc)) {}

  [[nodiscard]] double radius() const { return m_radius; }
  [[nodiscard]] double sweep() const { return m_sweep; }
  [[nodiscard]] PlanePoint center() const { return m_center; }
  [[nodiscard]] PlanePoint at(double share) const {
    return m_center + turned({m_radius, 0.0}, m_begin + share * m_sweep);
  }

  // How far along the arc the angle is, from 0 to 1; nothing where the arc does not reach it.
  [[nodiscard]] std::optional<double> shareOf(double angle) const {
    if (m_sweep == 0.0) {
      return std::nullopt;
    }
    double way = std::fmod(m_sweep > 0.0 ? angle - m_begin : m_begin - angle, kFullTurnOfArc);
    way += way < 0.0 ? kFullTurnOfArc : 0.0;
    const double share = way / std::abs(m_sweep);
    return share <= 1.0 ? std::optional(share) : std::nullopt;
  }

  // Where the arc crosses the sides of the box, and its two ends, in order.
  [[nodiscard]] std::vector<double> crossings(const SheetBox& box) const {
    std::vector<double> shares{0.0, 1.0};
    const auto add = [&](double angle) {
      if (const auto share = shareOf(angle)) {
        shares.push_back(*share);
      }
    };
    for (const double x : {box.least.x, box.most.x}) {
      if (const double ratio = (x - m_center.x) / m_radius; std::abs(ratio) <= 1.0) {
        add(std::acos(ratio));
        add(-std::acos(ratio));
      }
    }
    for (const double y : {box.least.y, box.most.y}) {
      if (const double ratio = (y - m_center.y) / m_radius; std::abs(ratio) <= 1.0) {
        add(std::asin(ratio));
        add(std::numbers::pi - std::asin(ratio));
      }
    }
    std::ranges::sort(shares);
    return shares;
  }

 private:
  PlanePoint m_center;
  double m_radius;
  double m_begin;
  double m_sweep;
};

// Puts the parts of a stroke together.
class StrokeClipper {
 public:
  explicit StrokeClipper(const SheetBox& box) : m_box(box) {}

  Path clip(const Path& path) {
    PlanePoint at;
    PlanePoint start;
    for (const PathStep& step : path.steps()) {
      switch (step.kind) {
        case PathStep::Kind::kMove:
          start = step.to;
          break;
        case PathStep::Kind::kLine:
          addLine(at, step.to);
          break;
        case PathStep::Kind::kArc:
          addArc(at, step);
          break;
        case PathStep::Kind::kClose:
          addLine(at, start);
          at = start;
          continue;
      }
      at = step.to;
    }
    return std::move(m_path);
  }

 private:
  void goTo(PlanePoint point) {
    if (m_path.steps().empty() || !(m_path.end() == point)) {
      m_path.moveTo(point);
    }
  }

  void addLine(PlanePoint from, PlanePoint to) {
    if (const auto part = clippedLine(from, to, m_box)) {
      goTo(part->first);
      m_path.lineTo(part->second);
    }
  }

  void addArc(PlanePoint from, const PathStep& step) {
    const Arc arc(from, step);
    if (arc.radius() > kFlatRadius) {
      return addFlatArc(from, step, arc);
    }
    const std::vector<double> shares = arc.crossings(m_box);
    std::optional<double> begin;
    for (std::size_t i = 1; i < shares.size(); ++i) {
      const bool isInside = isWithin(arc.at((shares[i - 1] + shares[i]) / 2.0), m_box);
      if (isInside && !begin) {
        begin = shares[i - 1];
      }
      if (begin && (!isInside || i + 1 == shares.size())) {
        addPart(arc, *begin, isInside ? shares[i] : shares[i - 1], from);
        begin.reset();
      }
    }
  }

  void addPart(const Arc& arc, double begin, double end, PlanePoint from) {
    if (end > begin) {
      goTo(begin == 0.0 ? from : arc.at(begin));
      m_path.arcTo(arc.center(), (end - begin) * arc.sweep());
    }
  }

  // Along the tangent where it comes nearest to the middle of the box, if it does.
  void addFlatArc(PlanePoint from, const PathStep& step, const Arc& arc) {
    const PlanePoint out = directionOf(middleOf(m_box) - arc.center());
    if (lengthOf(step.to - from) < kFlatRadius || !arc.shareOf(std::atan2(out.y, out.x))) {
      return addLine(from, step.to);
    }
    const PlanePoint nearest = arc.center() + out * arc.radius();
    addLine(nearest - leftOf(out) * kFlatRadius, nearest + leftOf(out) * kFlatRadius);
  }

  SheetBox m_box;
  Path m_path;
};

// Whether all of the path lies within; an arc by the circle that it is of.
bool isWithin(const Path& path, const SheetBox& box) {
  PlanePoint at;
  for (const PathStep& step : path.steps()) {
    if (step.kind == PathStep::Kind::kClose) {
      continue;
    }
    if (!isWithin(step.to, box)) {
      return false;
    }
    if (step.kind == PathStep::Kind::kArc) {
      const double radius = lengthOf(at - step.center);
      const PlanePoint around{radius, radius};
      if (!isWithin(step.center - around, box) || !isWithin(step.center + around, box)) {
        return false;
      }
    }
    at = step.to;
  }
  return true;
}

// One side of the box as a boundary: how far inside a point lies, below 0 outside.
using Depth = double (*)(PlanePoint, const SheetBox&);
constexpr Depth kSides[] = {
    [](PlanePoint point, const SheetBox& box) { return point.x - box.least.x; },
    [](PlanePoint point, const SheetBox& box) { return box.most.x - point.x; },
    [](PlanePoint point, const SheetBox& box) { return point.y - box.least.y; },
    [](PlanePoint point, const SheetBox& box) { return box.most.y - point.y; },
};

// A polygon cut along each side in turn.
std::vector<PlanePoint> clippedPolygon(std::vector<PlanePoint> points, const SheetBox& box) {
  for (const Depth depth : kSides) {
    std::vector<PlanePoint> kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const PlanePoint from = points[i == 0 ? points.size() - 1 : i - 1];
      const PlanePoint to = points[i];
      const double before = depth(from, box);
      const double after = depth(to, box);
      if ((before < 0.0) != (after < 0.0)) {
        kept.push_back(from + (to - from) * (before / (before - after)));
      }
      if (after >= 0.0) {
        kept.push_back(to);
      }
    }
    points = std::move(kept);
  }
  return points;
}

}  // namespace

std::optional<std::pair<PlanePoint, PlanePoint>> clippedLine(PlanePoint from, PlanePoint to,
                                                             const SheetBox& box) {
  double begin = 0.0;
  double end = 1.0;
  for (const Depth depth : kSides) {
    const double before = depth(from, box);
    const double after = depth(to, box);
    if (before < 0.0 && after < 0.0) {
      return std::nullopt;
    }
    if (before < 0.0) {
      begin = std::max(begin, before / (before - after));
    } else if (after < 0.0) {
      end = std::min(end, before / (before - after));
    }
  }
  if (begin > end) {
    return std::nullopt;
  }
  // Where the numbers are huge, the products are rough.
  const auto at = [&](double share) {
    const PlanePoint point = from + (to - from) * share;
    return PlanePoint{std::clamp(point.x, box.least.x, box.most.x),
                      std::clamp(point.y, box.least.y, box.most.y)};
  };
  return std::pair(begin == 0.0 ? from : at(begin), end == 1.0 ? to : at(end));
}

Path clippedStroke(const Path& path, const SheetBox& box) {
  return isWithin(path, box) ? path : StrokeClipper(box).clip(path);
}

Path clippedFill(const Path& path, const SheetBox& box) {
  if (isWithin(path, box)) {
    return path;
  }
  std::vector<PlanePoint> points;
  for (const PathStep& step : path.steps()) {
    if (step.kind != PathStep::Kind::kClose) {
      points.push_back(step.to);
    }
  }
  Path clipped;
  for (const PlanePoint point : clippedPolygon(std::move(points), box)) {
    if (clipped.steps().empty()) {
      clipped.moveTo(point);
    } else {
      clipped.lineTo(point);
    }
  }
  if (!clipped.steps().empty()) {
    clipped.close();
  }
  return clipped;
}

}  // namespace quorvan::tool
