// Which shapes lie where on the sheet, so that a page looks at no others.
#pragma once

#include <cstdint>
#include <vector>

#include <tools/draw/scene/scene.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// Cells of equal size over all that is painted, in rows from the least y upwards. Shapes by their
/// places in the scene, ascending.
struct ShapeGrid {
  SheetBox box{};
  std::uint32_t columns = 1;
  std::uint32_t rows = 1;
  std::vector<std::uint32_t> begins;  // of each cell in `shapes`, and the end of the last
  std::vector<std::uint32_t> shapes;
  std::vector<std::uint32_t> wide;  // what would lie in a great many cells, and is in none
};

ShapeGrid gridOf(const std::vector<Shape>& shapes);

}  // namespace quorvan::tool
