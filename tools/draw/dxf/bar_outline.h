// What a bar covers, seen from the side.
#pragma once

#include <vector>

#include <tools/draw/dxf/bulge_path.h>

namespace quorvan::tool {

/// The closed outlines of a bar of that width along its axis: one of a bar with two ends, two of a
/// closed one. A bend that is too close for the inside of the bar is a corner there.
std::vector<BulgePath> outlinesOf(const BulgePath& axis, double width);

}  // namespace quorvan::tool
