// The hooks at the ends of bars.
#pragma once

#include <tools/bending/bent_bar.h>
#include <tools/draw/scene/path.h>
#include <tools/draw/scene/plane_point.h>

namespace quorvan::tool {

/// A hook as it lies on the sheet, as bent. The file has the end of the bar as if it were bent
/// without rounding: the bend is rounded into that corner and does not reach beyond it.
struct HookShape {
  PlanePoint end;         // of the bar
  PlanePoint direction;   // out of the bar, length 1
  double side = 1.0;      // 1: bent to the left of the direction, -1: to the right
  Bend bend;              // its radius as on the sheet
  double straight = 0.0;  // behind the bend
};

/// Where the bar ends and its hook begins.
PlanePoint hookBegin(const HookShape& hook);

/// Draws the hook from its tip to where it begins: the path begins here.
void beginWithHook(Path& path, const HookShape& hook);

/// Draws the hook from where it begins, where the path is.
void endWithHook(Path& path, const HookShape& hook);

}  // namespace quorvan::tool
