#include <tools/draw/dxf/series_blocks.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace quorvan::tool {

namespace {

constexpr double kLeastStep = 1e-6;
constexpr double kFineness = 1e-14;  // of the coordinates

}  // namespace

std::vector<AlikeBars> alikeBarsOf(const std::vector<BulgePath>& bars) {
  double farthest = 0.0;
  for (const BulgePath& bar : bars) {
    for (const BulgeVertex& end : bar.vertices) {
      farthest = std::max({farthest, std::abs(end.at.x), std::abs(end.at.y)});
    }
  }
  const double step = std::max(kLeastStep, kFineness * farthest);
  std::vector<AlikeBars> found;
  std::map<std::pair<double, double>, std::size_t> places;
  for (const BulgePath& bar : bars) {
    if (bar.vertices.size() != 2) {
      continue;
    }
    const PlanePoint way = bar.vertices[1].at - bar.vertices[0].at;
    const std::pair<double, double> rounded{std::round(way.x / step), std::round(way.y / step)};
    const auto [known, isNew] = places.emplace(rounded, found.size());
    if (isNew) {
      found.push_back({way, {}});
    }
    found[known->second].places.push_back(bar.vertices[0].at);
  }
  return found;
}

}  // namespace quorvan::tool
