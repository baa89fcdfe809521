#include <tools/bvbs/writing/shape_geometry.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include <tools/text/number_text.h>

namespace quorvan::tool::bvbs {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr int kAngleDecimals = 2;
constexpr double kObtuse = std::numbers::pi / 2.0 * 1.0001;

using Way = std::array<double, 3>;

Way operator-(const Coordinates& a, const Coordinates& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

double dotOf(const Way& a, const Way& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Way scaledBy(const Way& a, double factor) {
  return {a[0] * factor, a[1] * factor, a[2] * factor};
}

Way crossOf(const Way& a, const Way& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// As it is written: whole millimetres, hundredths of a degree.
struct Part {
  bool isArc = false;
  std::int64_t length = 0;
  std::int64_t opening = 0;
  std::int64_t bend = 0;

  // NOLINTNEXTLINE(modernize-use-nullptr): what the compiler makes of it compares with 0.
  friend auto operator<=>(const Part&, const Part&) = default;
};
using Parts = std::vector<Part>;

std::int64_t hundredths(double radians, bool isLeft) {
  const std::int64_t degrees = std::llround(radians * kDegrees * 100.0);
  return isLeft ? degrees : -degrees;
}

double legValue(const BentBar& bent, std::size_t leg, ObtuseLegs obtuse) {
  if (obtuse == ObtuseLegs::kOutermost) {
    return bent.legs[leg].outside;
  }
  double value = bent.legs[leg].axis;
  const auto addCorner = [&](const Bend& bend) {
    value += bend.angle < kObtuse ? bent.diameter / 2.0 * std::tan(bend.angle / 2.0) : 0.0;
  };
  if (leg > 0) {
    addCorner(bent.bends[leg - 1]);
  }
  if (leg < bent.bends.size()) {
    addCorner(bent.bends[leg]);
  }
  return value;
}

Parts partsOf(const BentBar& bent, ObtuseLegs obtuse) {
  Parts parts;
  for (std::size_t i = 0; i < bent.legs.size(); ++i) {
    Part part;
    part.isArc = bent.legs[i].isArc;
    if (part.isArc) {
      part.length = std::llround(bent.ringRadius);
      const double radius = static_cast<double>(std::max<std::int64_t>(part.length, 1));
      const double turns = 2.0 * std::numbers::pi + bent.overlap / radius;
      part.opening = hundredths(turns, bent.legs[i].isLeft);
    } else {
      part.length = std::llround(legValue(bent, i, obtuse));
    }
    if (i < bent.bends.size()) {
      part.bend = hundredths(bent.bends[i].angle, bent.bends[i].isLeft);
    }
    parts.push_back(part);
  }
  return parts;
}

Parts reversedParts(const Parts& parts) {
  Parts result(parts.rbegin(), parts.rend());
  for (std::size_t i = 0; i + 1 < result.size(); ++i) {
    result[i].bend = result[i + 1].bend;
  }
  result.back().bend = 0;
  return result;
}

void turnToPositive(Parts& parts) {
  for (const Part& part : parts) {
    const std::int64_t first = part.opening != 0 ? part.opening : part.bend;
    if (first > 0) {
      return;
    }
    if (first < 0) {
      break;
    }
  }
  for (Part& part : parts) {
    part.opening = -part.opening;
    part.bend = -part.bend;
  }
}

std::string angleText(std::int64_t angle) {
  return rounded(static_cast<double>(angle) / 100.0, kAngleDecimals);
}

std::string fieldText(char letter, const std::string& value) {
  return letter + value + '@';
}

ShapeGeometry planeGeometry(const BentBar& bent, ObtuseLegs obtuse) {
  Parts forwards = partsOf(bent, obtuse);
  Parts backwards = reversedParts(forwards);
  turnToPositive(forwards);
  turnToPositive(backwards);
  ShapeGeometry geometry;
  geometry.block = "G";
  for (const Part& part : std::min(forwards, backwards)) {
    geometry.block += fieldText(part.isArc ? 'r' : 'l', std::to_string(part.length));
    const auto length = static_cast<double>(part.length);
    if (part.isArc) {
      geometry.block += fieldText('w', angleText(part.opening));
      geometry.legSum += length * std::abs(static_cast<double>(part.opening)) / 100.0 / kDegrees;
    } else {
      geometry.legSum += length;
    }
    geometry.block += fieldText('w', angleText(part.bend));
  }
  return geometry;
}

using Offsets = std::vector<std::array<std::int64_t, 3>>;

// The ways in a frame whose x lies along the first, and whose y on the side to which it turns.
Offsets inOwnFrame(const std::vector<Way>& ways) {
  const Way x = scaledBy(ways.front(), 1.0 / std::sqrt(dotOf(ways.front(), ways.front())));
  Way y{};
  for (const Way& way : ways) {
    const double along = dotOf(way, x);
    const Way across{way[0] - along * x[0], way[1] - along * x[1], way[2] - along * x[2]};
    const double length = std::sqrt(dotOf(across, across));
    if (length > 1e-6 * std::sqrt(dotOf(way, way))) {
      y = scaledBy(across, 1.0 / length);
      break;
    }
  }
  const Way z = crossOf(x, y);
  Offsets offsets;
  for (const Way& way : ways) {
    offsets.push_back(
        {std::llround(dotOf(way, x)), std::llround(dotOf(way, y)), std::llround(dotOf(way, z))});
  }
  return offsets;
}

ShapeGeometry spatialGeometry(const BentBar& bent, ObtuseLegs obtuse) {
  std::vector<Way> ways;
  ShapeGeometry geometry;
  geometry.isSpatial = true;
  for (std::size_t i = 0; i + 1 < bent.course.size() && i < bent.legs.size(); ++i) {
    const Way way = bent.course[i + 1] - bent.course[i];
    const double value = legValue(bent, i, obtuse);
    ways.push_back(scaledBy(way, value / std::sqrt(dotOf(way, way))));
    geometry.legSum += std::round(value);
  }
  const Offsets forwards = inOwnFrame(ways);
  std::ranges::reverse(ways);
  for (Way& way : ways) {
    way = scaledBy(way, -1.0);
  }
  const Offsets backwards = inOwnFrame(ways);
  geometry.block = "G";
  for (const auto& offset : std::min(forwards, backwards)) {
    geometry.block += fieldText('x', std::to_string(offset[0])) +
                      fieldText('y', std::to_string(offset[1])) +
                      fieldText('z', std::to_string(offset[2]));
  }
  return geometry;
}

}  // namespace

ShapeGeometry geometryOf(const BentBar& bent, ObtuseLegs obtuse) {
  ShapeGeometry geometry =
      bent.isPlane() ? planeGeometry(bent, obtuse) : spatialGeometry(bent, obtuse);
  geometry.hasObtuse =
      std::ranges::any_of(bent.bends, [](const Bend& bend) { return bend.angle >= kObtuse; });
  return geometry;
}

}  // namespace quorvan::tool::bvbs
