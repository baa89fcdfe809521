// Drawings of many shapes, usual and hostile ones, each in any size.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quorvan::test {

struct DrawingShape {
  const char* name;
  std::size_t size;  // to measure with, in whatever `make` counts
  std::string (*make)(std::size_t size);
};

/// All shapes, whether a reader takes them or refuses them.
const std::vector<DrawingShape>& drawingShapes();

}  // namespace quorvan::test
