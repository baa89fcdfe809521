// The hooks at the ends of bars.
#pragma once

#include <tools/draw/path.h>
#include <tools/draw/plane_point.h>

namespace quorvan::tool {

/// A hook as it lies on the sheet: from the end of the bar it bends by `angle`, then runs on
/// straight until its length is used up.
struct HookShape {
  PlanePoint end;        // of the bar
  PlanePoint direction;  // out of the bar, length 1
  double side = 1.0;     // 1: bent to the left of the direction, -1: to the right
  double angle = 0.0;    // radians
  double length = 0.0;   // along its axis; none at 0
  double radius = 0.0;   // of the bend, on the axis
};

/// Draws the hook from its tip to the end of the bar: the path begins here.
void beginWithHook(Path& path, const HookShape& hook);

/// Draws the hook from the end of the bar, where the path is.
void endWithHook(Path& path, const HookShape& hook);

}  // namespace quorvan::tool
