#include <tools/bending/bent_form.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

using Form = std::vector<std::int64_t>;

std::int64_t tenths(double value) {
  constexpr double kMost = 1e15;
  const double steps = std::round(value * 10.0);
  return std::abs(steps) < kMost ? static_cast<std::int64_t>(steps) : -1;
}

// Above 0 where three legs wind like a right-handed screw, which they do from either end; -1 to 1.
double winding(const std::vector<Coordinates>& course, std::size_t at) {
  constexpr double kFlat = 1e-6;
  std::array<std::array<double, 3>, 3> ways{};
  double size = 1.0;
  for (std::size_t i = 0; i < ways.size(); ++i) {
    const Coordinates& from = course[at + i];
    const Coordinates& to = course[at + i + 1];
    ways[i] = {to.x - from.x, to.y - from.y, to.z - from.z};
    size *= distance(from, to);
  }
  const auto& [a, b, c] = ways;
  const double volume = a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                        a[2] * (b[0] * c[1] - b[1] * c[0]);
  return std::abs(volume) > kFlat * size ? volume / size : 0.0;
}

Form read(const BentBar& bent, bool isBackwards) {
  const std::size_t legs = bent.legs.size();
  Form form;
  for (std::size_t i = 0; i < legs; ++i) {
    form.push_back(tenths(bent.legs[isBackwards ? legs - 1 - i : i].axis));
  }
  const std::size_t bends = bent.bends.size();
  for (std::size_t i = 0; i < bends; ++i) {
    const Bend& first = bent.bends[isBackwards ? bends - 1 : 0];
    const Bend& bend = bent.bends[isBackwards ? bends - 1 - i : i];
    const std::int64_t degrees = tenths(bend.angle * 180.0 / std::numbers::pi);
    form.push_back(!bent.isPlane() || bend.isLeft == first.isLeft ? degrees : -degrees);
  }
  // Out of a plane the legs and turns alone do not say the shape, and turns have no side.
  const std::size_t corners = bent.course.size();
  for (std::size_t i = 3; i < corners; ++i) {
    const std::size_t at = isBackwards ? corners - 1 - i : i - 3;
    const std::int64_t across = tenths(distance(bent.course[at], bent.course[at + 3]));
    form.push_back(winding(bent.course, at) < 0.0 ? -across : across);
  }
  return form;
}

}  // namespace

Form formOf(const BentBar& bent) {
  return std::min(read(bent, false), read(bent, true));
}

}  // namespace quorvan::tool
