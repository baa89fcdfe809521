// The hooks at the ends of bars.
#pragma once

#include <tools/draw/scene/path.h>
#include <tools/draw/scene/plane_point.h>

namespace quorvan::tool {

/// A hook as it lies on the sheet. The file has the end of the bar as if it were bent without
/// rounding: the bend is rounded into that corner and does not reach beyond it. From the corner the
/// hook is as long as its length.
struct HookShape {
  PlanePoint end;        // of the bar
  PlanePoint direction;  // out of the bar, length 1
  double side = 1.0;     // 1: bent to the left of the direction, -1: to the right
  double angle = 0.0;    // radians
  double length = 0.0;   // none at 0
  double radius = 0.0;   // of the bend, on the axis
  double room = 0.0;     // of the bar that the bend can take
};

/// Where the bar ends and its hook begins: the end of a bar without hook.
PlanePoint hookBegin(const HookShape& hook);

/// Draws the hook from its tip to where it begins: the path begins here.
void beginWithHook(Path& path, const HookShape& hook);

/// Draws the hook from where it begins, where the path is.
void endWithHook(Path& path, const HookShape& hook);

}  // namespace quorvan::tool
