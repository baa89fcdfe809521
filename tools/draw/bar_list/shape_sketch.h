// The shape of a bar with its dimensions, for lists.
#pragma once

#include <tools/draw/scene/scene.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

/// The size of every sketch, in mm.
inline constexpr double kSketchWidth = 70.0;
inline constexpr double kSketchHeight = 34.0;

/// The bar of the row as it is bent, its longest leg level, not to scale: short legs are drawn
/// longer than they are, so that each has room for its dimension. Beside each leg stands its
/// dimension by the schedule of the list, with its letter where there is a shape code, and beside
/// each bend that is no right angle its angle. A bar that lies in no plane is seen from above at an
/// angle; a bar seen end-on is a point.
Scene sketchOf(const BarRow& row, const BarList& list, char decimalMark = '.');

}  // namespace quorvan::tool
