// Drawings whose shapes are hard for a program that lists, checks, draws and compares them.
#pragma once

#include <tests/scaling/drawing_shapes.h>

namespace quorvan::test {

/// All shapes. What `make` gives are the elements within the root.
const std::vector<DrawingShape>& programShapes();

}  // namespace quorvan::test
