#include <tools/bending/faceted_arc.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

constexpr double kMostTurn = std::numbers::pi / 6.0;
constexpr double kLeastLikeness = 0.9;
constexpr std::size_t kFewestBends = 3;

bool areLike(double one, double other) {
  return std::min(one, other) >= kLeastLikeness * std::max(one, other);
}

bool isFacet(const Bend& bend) {
  return !bend.isHook && bend.angle <= kMostTurn;
}

// Whether the bend goes on with the arc that the one before it is in.
bool goesOn(const BentBar& bent, std::size_t first, std::size_t bend) {
  const Bend& before = bent.bends[bend - 1];
  return isFacet(bent.bends[bend]) && before.isLeft == bent.bends[bend].isLeft &&
         areLike(before.angle, bent.bends[bend].angle) &&
         areLike(bent.legs[first + 1].axis, bent.legs[bend].axis);
}

}  // namespace

std::vector<FacetedArc> facetedArcsOf(const BentBar& bent) {
  std::vector<FacetedArc> arcs;
  for (std::size_t first = 0; first < bent.bends.size();) {
    std::size_t end = first + 1;
    while (isFacet(bent.bends[first]) && end < bent.bends.size() && goesOn(bent, first, end)) {
      ++end;
    }
    if (end - first >= kFewestBends) {
      const double half = bent.bends[first + 1].angle / 2.0;
      arcs.push_back({first, end - 1, bent.legs[first + 1].axis / (2.0 * std::sin(half))});
    }
    first = end;
  }
  return arcs;
}

}  // namespace quorvan::tool
