// Shapes of no element: what a sheet or sketch is made of by itself.
#pragma once

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// A text in one colour.
Shape textShape(Lettering text, Color color);

/// A path stroked at `width`, in mm.
Shape lineShape(Layer layer, Color color, double width, Path path);

/// A circle without a stroke of its own, filled or not.
Shape circleShape(Layer layer, Color color, PlanePoint center, double radius, bool isFilled);

}  // namespace quorvan::tool
