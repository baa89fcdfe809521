#include <tools/bending/corner_line.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace quorvan::tool {

namespace {

constexpr double kNoTurn = 1e-4;  // radians: goes on in the same direction
constexpr double kFlat = 1e-6;    // of the bar's size: lies in a plane
constexpr double kQuarterTurn = std::numbers::pi / 2.0;
constexpr double kOneDegree = std::numbers::pi / 180.0;

Coordinates operator-(const Coordinates& a, const Coordinates& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Coordinates operator+(const Coordinates& a, const Coordinates& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Coordinates operator*(const Coordinates& a, double factor) {
  return {a.x * factor, a.y * factor, a.z * factor};
}

double dot(const Coordinates& a, const Coordinates& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

Coordinates cross(const Coordinates& a, const Coordinates& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double lengthOf(const Coordinates& a) {
  return std::hypot(a.x, a.y, a.z);
}

Coordinates unit(const Coordinates& a) {
  const double length = lengthOf(a);
  return length > 0.0 ? a * (1.0 / length) : Coordinates{1.0, 0.0, 0.0};
}

double turnBetween(const Coordinates& in, const Coordinates& out) {
  return std::atan2(lengthOf(cross(in, out)), dot(in, out));
}

// The corners of the bar as filed, without those in which it does not turn.
std::vector<Coordinates> cornersOf(const Bar& bar) {
  std::vector<Coordinates> corners;
  for (const Coordinates& point : bar.line) {
    if (!corners.empty() && distance(point, corners.back()) == 0.0) {
      continue;
    }
    while (corners.size() > 1 && turnBetween(corners.back() - corners[corners.size() - 2],
                                             point - corners.back()) < kNoTurn) {
      corners.pop_back();
    }
    corners.push_back(point);
  }
  return corners;
}

// Whichever way the plane is filed, its normal is upwards; where it stands upright, as the bar
// turns first.
Coordinates normalOf(const std::vector<Coordinates>& corners) {
  constexpr double kUpright = 1e-9;
  for (std::size_t i = 2; i < corners.size(); ++i) {
    const Coordinates normal =
        cross(unit(corners[i - 1] - corners[i - 2]), unit(corners[i] - corners[i - 1]));
    if (lengthOf(normal) > kNoTurn / 2.0) {
      return unit(normal.z < -kUpright ? normal * -1.0 : normal);
    }
  }
  return {0.0, 0.0, 1.0};
}

bool liesInPlane(const std::vector<Coordinates>& corners, const Coordinates& normal) {
  double size = 0.0;
  double height = 0.0;
  for (const Coordinates& corner : corners) {
    size = std::max(size, lengthOf(corner - corners.front()));
    height = std::max(height, std::abs(dot(corner - corners.front(), normal)));
  }
  return height <= kFlat * size;
}

struct End {
  const Hook& hook;
  double angle;  // radians, from 0
  bool isLeft;   // of the way from the first to the last point

  [[nodiscard]] bool isThere() const { return hook.length > 0.0; }
  [[nodiscard]] bool isBent() const { return angle >= kNoTurn; }
};

// To which side of the way the hook is bent: as it is drawn.
bool bendsLeft(const Bar& bar, const std::vector<Corner>& corners, bool atStart) {
  switch (bar.shape) {
    case BarShape::kStraight:
      return bar.isHookUp[atStart ? 0 : 1];
    case BarShape::kPolygon:
      return bar.side;
    case BarShape::kL:
    case BarShape::kU:
    case BarShape::kFrameRect:
    case BarShape::kStirrup:
      return corners.empty() || (atStart ? corners.front() : corners.back()).isLeft;
    case BarShape::kPin:
    case BarShape::kPoint:
    case BarShape::kFrameCirc:
      return true;
  }
  return true;
}

End endOf(const Bar& bar, const std::vector<Corner>& corners, bool atStart, AngleUnit angles) {
  const Hook& hook = bar.hooks[atStart ? 0 : 1];
  const double angle = inRadians(hook.angle, angles);
  const bool isLeft = bendsLeft(bar, corners, atStart);
  return {hook, std::abs(angle), angle < 0.0 ? !isLeft : isLeft};
}

// Where the tip of a hook lies that is bent out of `direction`.
Coordinates tipOf(const End& end, const Coordinates& at, const Coordinates& direction,
                  const Coordinates& normal, bool isLeft) {
  const Coordinates side = cross(normal, direction) * (isLeft ? 1.0 : -1.0);
  const Coordinates way = direction * std::cos(end.angle) + side * std::sin(end.angle);
  return at + way * end.hook.length;
}

// A hook lies in the plane of the corner next to it. Looking out of the start, left and right
// change.
void addTip(std::vector<Coordinates>& course, const End& end, bool atStart) {
  const Coordinates at = atStart ? course.front() : course.back();
  const Coordinates before = atStart ? course[1] : course[course.size() - 2];
  // A straight bar has no third corner, and no plane of its own.
  const auto corners = static_cast<std::ptrdiff_t>(std::min<std::size_t>(3, course.size()));
  const Coordinates normal =
      normalOf(atStart ? std::vector<Coordinates>(course.begin(), course.begin() + corners)
                       : std::vector<Coordinates>(course.end() - corners, course.end()));
  const bool isLeft = atStart ? !end.isLeft : end.isLeft;
  const Coordinates tip = tipOf(end, at, unit(at - before), normal, isLeft);
  course.insert(atStart ? course.begin() : course.end(), tip);
}

// A hook without a bend goes on where the bar ends.
void lengthen(std::vector<Coordinates>& axis, double length, bool atStart) {
  if (axis.size() > 1) {
    Coordinates& end = atStart ? axis.front() : axis.back();
    const Coordinates& before = atStart ? axis[1] : axis[axis.size() - 2];
    end = end + unit(end - before) * length;
  }
}

// The hook at the first or last corner.
void addHook(CornerLine& line, const End& end, bool atStart) {
  if (!end.isThere()) {
    return;
  }
  if (line.course.size() > 1) {
    addTip(line.course, end, atStart);
  }
  if (!end.isBent()) {
    (atStart ? line.legs.front() : line.legs.back()) += end.hook.length;
    lengthen(line.axis, end.hook.length, atStart);
    return;
  }
  line.legs.insert(atStart ? line.legs.begin() : line.legs.end(), end.hook.length);
  (atStart ? line.beginsWithHook : line.endsWithHook) = true;
  line.corners.insert(atStart ? line.corners.begin() : line.corners.end(),
                      Corner{end.angle, end.isLeft, true});
}

void addLegs(CornerLine& line, const std::vector<Coordinates>& corners, const Coordinates& normal) {
  for (std::size_t i = 1; i < corners.size(); ++i) {
    const Coordinates out = corners[i] - corners[i - 1];
    if (i > 1) {
      const Coordinates in = corners[i - 1] - corners[i - 2];
      line.corners.push_back({turnBetween(in, out), dot(cross(in, out), normal) >= 0.0, false});
    }
    line.legs.push_back(lengthOf(out));
  }
}

CornerLine openLine(const Bar& bar) {
  CornerLine line;
  std::vector<Coordinates> corners = cornersOf(bar);
  if (corners.size() < 2) {
    line.legs = {0.0};
    line.axis = std::move(corners);
    return line;
  }
  const Coordinates normal = normalOf(corners);
  addLegs(line, corners, normal);
  if (!liesInPlane(corners, normal)) {
    line.course = corners;
  }
  line.axis = std::move(corners);
  return line;
}

// A frame is bent in its four corners: both of its ends lie in the first.
CornerLine frameLine(const Bar& bar) {
  CornerLine line;
  std::vector<Coordinates> corners = bar.line;
  corners.push_back(bar.line.front());
  addLegs(line, corners, normalOf(corners));
  line.axis = std::move(corners);
  return line;
}

// A corner that bending does not show joins the legs on its sides.
CornerLine withoutSlightCorners(const CornerLine& line) {
  CornerLine result;
  result.course = line.course;
  for (std::size_t i = 0; i < line.legs.size(); ++i) {
    if (i > 0 && line.corners[i - 1].angle < kOneDegree) {
      result.legs.back() += line.legs[i];
      continue;
    }
    if (i > 0) {
      result.corners.push_back(line.corners[i - 1]);
    }
    result.legs.push_back(line.legs[i]);
  }
  return result;
}

// Which of the corners, hooks left out, turn to the side of the first of them.
std::vector<bool> sidesOf(const std::vector<Corner>& corners) {
  std::vector<bool> sides;
  for (const Corner& corner : corners) {
    if (!corner.isHook) {
      sides.push_back(corner.isLeft);
    }
  }
  if (!sides.empty() && !sides.front()) {
    sides.flip();
  }
  return sides;
}

double wayOf(const CornerLine& line) {
  double way = 0.0;
  for (const double leg : line.legs) {
    way += leg;
  }
  return way;
}

bool readAlike(const CornerLine& one, const CornerLine& other) {
  constexpr double kTolerance = 1e-3;  // of the way
  const double way = std::max(wayOf(one), wayOf(other));
  const auto isNear = [way](double a, double b) { return std::abs(a - b) <= kTolerance * way; };
  return std::ranges::equal(one.legs, other.legs, isNear) &&
         std::ranges::equal(one.corners, other.corners,
                            [](const Corner& a, const Corner& b) {
                              return std::abs(a.angle - b.angle) <= kOneDegree;
                            }) &&
         (!one.course.empty() || !other.course.empty() ||
          sidesOf(one.corners) == sidesOf(other.corners));
}

CornerLine stirrupLine(const Bar& bar) {
  const double length = distance(bar.line[0], bar.line[1]);
  CornerLine line;
  line.legs = {length, 0.0, length, 0.0};
  line.corners.assign(3, Corner{kQuarterTurn, true, false});
  line.axis = bar.line;
  return line;
}

}  // namespace

CornerLine cornerLineOf(const Bar& bar, AngleUnit angles) {
  CornerLine line;
  if (bar.shape == BarShape::kStirrup) {
    line = stirrupLine(bar);
  } else if (bar.shape == BarShape::kFrameRect) {
    line = frameLine(bar);
  } else {
    line = openLine(bar);
  }
  const End first = endOf(bar, line.corners, true, angles);
  const End last = endOf(bar, line.corners, false, angles);
  addHook(line, first, true);
  addHook(line, last, false);
  return line;
}

bool areAlike(const CornerLine& one, const CornerLine& other) {
  const CornerLine forwards = withoutSlightCorners(one);
  CornerLine second = withoutSlightCorners(other);
  if (readAlike(forwards, second)) {
    return true;
  }
  std::ranges::reverse(second.legs);
  std::ranges::reverse(second.corners);
  return readAlike(forwards, second);
}

}  // namespace quorvan::tool
