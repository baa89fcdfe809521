// Where a shape puts its ink.
#pragma once

#include <tools/draw/scene/scene.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// The box around the path alone, arcs as far as they reach.
SheetBox boxOf(const Path& path);

/// The box around all that the shape paints: half the width of its stroke on either side, the whole
/// width of its text.
SheetBox paintedBox(const Shape& shape);
/// The same of a path or circle with a stroke of that width.
SheetBox paintedBox(const Shape& shape, double width);

/// The four corners of a text from the base line to the height of capitals, from its lower left
/// round against the clock.
struct TextCorners {
  PlanePoint corners[4];
};
TextCorners cornersOf(const Lettering& text);

}  // namespace quorvan::tool
