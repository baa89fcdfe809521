#include <tools/bending/bent_form.h>

#include <algorithm>
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
    form.push_back(bend.isLeft == first.isLeft ? degrees : -degrees);
  }
  // Out of a plane the legs and turns alone do not say the shape.
  const std::size_t corners = bent.course.size();
  for (std::size_t i = 3; i < corners; ++i) {
    const std::size_t at = isBackwards ? corners - 1 - i : i - 3;
    form.push_back(tenths(distance(bent.course[at], bent.course[at + 3])));
  }
  return form;
}

}  // namespace

Form formOf(const BentBar& bent) {
  return std::min(read(bent, false), read(bent, true));
}

}  // namespace quorvan::tool
