// The bars of a series that are alike.
#pragma once

#include <vector>

#include <tools/draw/dxf/bulge_path.h>

namespace quorvan::tool {

/// Straight bars of one length and direction.
struct AlikeBars {
  PlanePoint way;                  // from the beginning of a bar to its end
  std::vector<PlanePoint> places;  // where they begin
};

/// The straight bars by what they look like, in the order of the first of each; one without length
/// is left out. Bars count as alike where they differ by less than a millionth of a unit, or than
/// their places can tell.
std::vector<AlikeBars> alikeBarsOf(const std::vector<BulgePath>& bars);

}  // namespace quorvan::tool
