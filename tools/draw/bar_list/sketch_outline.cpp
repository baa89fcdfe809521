#include <tools/draw/bar_list/sketch_outline.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

constexpr double kShortLeg = 7.0;  // mm
constexpr double kLongLeg = 42.0;
constexpr double kSketchBend = 1.6;  // radius
constexpr double kLegsApart = 3.4;   // of two that would lie on each other
constexpr std::size_t kMostSpread = 12;

// Long enough for a dimension, and longer where the bar's leg is longer.
double shownLength(double leg, double longest) {
  const double share = longest > 0.0 ? std::sqrt(std::max(leg, 0.0) / longest) : 1.0;
  return kShortLeg + (kLongLeg - kShortLeg) * share;
}

std::vector<double> shownLengths(const BentBar& bent) {
  double longest = 0.0;
  for (const Leg& leg : bent.legs) {
    longest = std::max(longest, leg.axis);
  }
  std::vector<double> lengths;
  for (const Leg& leg : bent.legs) {
    lengths.push_back(shownLength(leg.axis, longest));
  }
  return lengths;
}

// The angle of a hook is any number in a file.
double bendAngle(const Bend& bend) {
  return std::isfinite(bend.angle) ? std::clamp(bend.angle, 0.0, 2.0 * std::numbers::pi) : 0.0;
}

// The direction of the first leg that makes the longest one level.
double firstDirection(const BentBar& bent) {
  double direction = 0.0;
  double ofLongest = 0.0;
  double longest = 0.0;
  for (std::size_t i = 0; i < bent.legs.size(); ++i) {
    if (bent.legs[i].axis > longest * 1.001) {
      longest = bent.legs[i].axis;
      ofLongest = direction;
    }
    if (i < bent.bends.size()) {
      direction += bent.bends[i].isLeft ? bendAngle(bent.bends[i]) : -bendAngle(bent.bends[i]);
    }
  }
  return -ofLongest;
}

// A leg of a plane bar, and the bend behind it.
struct LegCourse {
  DrawnLeg leg;
  PlanePoint center;
  double sweep = 0.0;
};

std::vector<LegCourse> legCourse(const BentBar& bent, const std::vector<double>& lengths,
                                 double factor) {
  std::vector<LegCourse> course;
  PlanePoint at;
  PlanePoint way = turned({1.0, 0.0}, firstDirection(bent));
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    LegCourse one;
    one.leg = {at, at + way * (lengths[i] * factor)};
    at = one.leg.end;
    if (i < bent.bends.size()) {
      const double side = bent.bends[i].isLeft ? 1.0 : -1.0;
      one.sweep = side * bendAngle(bent.bends[i]);
      one.center = at + leftOf(way) * (side * kSketchBend * factor);
      at = one.center + turned(at - one.center, one.sweep);
      way = turned(way, one.sweep);
    }
    course.push_back(one);
  }
  return course;
}

bool lieTogether(const DrawnLeg& one, const DrawnLeg& other) {
  constexpr double kParallel = 0.1;
  const PlanePoint way = directionOf(one.end - one.begin);
  const PlanePoint out = other.begin - one.begin;
  if (std::abs(crossOf(way, directionOf(other.end - other.begin))) > kParallel ||
      std::abs(crossOf(way, out)) > 0.8 * kLegsApart) {
    return false;
  }
  const auto along = [&](PlanePoint point) {
    return (point.x - one.begin.x) * way.x + (point.y - one.begin.y) * way.y;
  };
  const auto [least, most] = std::minmax({along(other.begin), along(other.end)});
  return most > 0.0 && least < lengthOf(one.end - one.begin);
}

// Links that go round more than once: the leg before one that lies on another is made shorter, so
// that it lies inside.
void spread(const BentBar& bent, std::vector<double>& lengths) {
  if (lengths.size() > kMostSpread) {
    return;
  }
  for (std::size_t i = 2; i < lengths.size(); ++i) {
    const std::vector<LegCourse> course = legCourse(bent, lengths, 1.0);
    for (std::size_t before = 0; before + 1 < i; ++before) {
      if (lieTogether(course[before].leg, course[i].leg)) {
        lengths[i - 1] = std::max(lengths[i - 1] - kLegsApart, kLegsApart);
        break;
      }
    }
  }
}

SketchOutline planeOutline(const BentBar& bent, double factor) {
  std::vector<double> lengths = shownLengths(bent);
  spread(bent, lengths);
  SketchOutline outline;
  const std::vector<LegCourse> course = legCourse(bent, lengths, factor);
  for (std::size_t i = 0; i < course.size(); ++i) {
    const LegCourse& one = course[i];
    if (i == 0) {
      outline.path.moveTo(one.leg.begin);
    }
    outline.legs.push_back(one.leg);
    outline.box.add(one.leg.begin);
    outline.box.add(one.leg.end);
    outline.path.lineTo(one.leg.end);
    if (i < bent.bends.size()) {
      outline.path.arcTo(one.center, one.sweep);
      outline.bends.push_back(one.center + turned(one.leg.end - one.center, one.sweep / 2.0));
      outline.box.add(outline.bends.back());
    }
  }
  return outline;
}

// Seen from above at an angle, with sharp corners rounded a little.
SketchOutline spatialOutline(const BentBar& bent, double factor) {
  constexpr double kDepth = 0.5;
  const std::vector<double> lengths = shownLengths(bent);
  SketchOutline outline;
  std::vector<PlanePoint> points{{}};
  for (std::size_t i = 0; i < lengths.size() && i + 1 < bent.course.size(); ++i) {
    const Coordinates& a = bent.course[i];
    const Coordinates& b = bent.course[i + 1];
    const double length = std::max(distance(a, b), 1e-9);
    const PlanePoint way{(b.x - a.x + kDepth * (b.y - a.y)) / length,
                         (b.z - a.z + kDepth * (b.y - a.y)) / length};
    points.push_back(points.back() + way * (lengths[i] * factor));
    outline.legs.push_back({points[i], points[i + 1]});
    outline.bends.push_back(points.back());
  }
  outline.bends.pop_back();
  for (const PlanePoint point : points) {
    outline.box.add(point);
  }
  outline.path.addRounded(points, false, kSketchBend * factor);
  return outline;
}

}  // namespace

SketchOutline sketchOutline(const BentBar& bent, double factor) {
  return bent.isPlane() ? planeOutline(bent, factor) : spatialOutline(bent, factor);
}

}  // namespace quorvan::tool
