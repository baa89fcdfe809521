// Arcs that are drawn as corners.
#pragma once

#include <cstddef>
#include <vector>

#include <tools/bending/bent_bar.h>

namespace quorvan::tool {

/// A run of like short legs that turn to one side by a little each, as programs draw an arc: it is
/// rolled, not bent corner by corner.
struct FacetedArc {
  std::size_t firstBend = 0;
  std::size_t lastBend = 0;
  double radius = 0.0;  // of the axis, mm
};

/// The arcs of the bar in their order: three bends at least, of 30 degrees at most, the legs
/// between them within a tenth of each other.
std::vector<FacetedArc> facetedArcsOf(const BentBar& bent);

}  // namespace quorvan::tool
