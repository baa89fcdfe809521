#include <tools/draw/page/shape_grid.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

constexpr double kShapesOfCell = 8.0;
constexpr double kMostGridCells = 8192.0;
constexpr std::uint32_t kMostGridCellsOfShape = 16;

// The cells that a box lies in.
struct CellRange {
  std::uint32_t left;
  std::uint32_t right;
  std::uint32_t low;
  std::uint32_t high;

  [[nodiscard]] bool isWide() const noexcept {
    return (right - left + 1) * (high - low + 1) > kMostGridCellsOfShape;
  }
};

std::uint32_t cellAmong(std::uint32_t count, double share) {
  return static_cast<std::uint32_t>(std::clamp(std::floor(share * count), 0.0, count - 1.0));
}

CellRange cellsOf(const ShapeGrid& grid, const SheetBox& box) {
  const auto column = [&](double x) {
    return cellAmong(grid.columns, (x - grid.box.least.x) / grid.box.width());
  };
  const auto row = [&](double y) {
    return cellAmong(grid.rows, (y - grid.box.least.y) / grid.box.height());
  };
  return {column(box.least.x), column(box.most.x), row(box.least.y), row(box.most.y)};
}

template <class Call>
void eachCell(const ShapeGrid& grid, const CellRange& range, Call call) {
  for (std::uint32_t y = range.low; y <= range.high; ++y) {
    for (std::uint32_t x = range.left; x <= range.right; ++x) {
      call(y * grid.columns + x);
    }
  }
}

}  // namespace

ShapeGrid gridOf(const std::vector<Shape>& shapes) {
  ShapeGrid grid;
  grid.box = SheetBox::none();
  std::vector<SheetBox> boxes;
  boxes.reserve(shapes.size());
  for (const Shape& shape : shapes) {
    boxes.push_back(paintedBox(shape));
    grid.box.include(boxes.back());
  }
  // No side of it is 0, whatever lies on it.
  constexpr double kAround = 1.0;
  grid.box = (grid.box.isEmpty() ? SheetBox{} : grid.box).grown(kAround);
  const double cells =
      std::clamp(static_cast<double>(shapes.size()) / kShapesOfCell, 1.0, kMostGridCells);
  const double across = std::sqrt(cells * grid.box.width() / grid.box.height());
  grid.columns = static_cast<std::uint32_t>(std::clamp(across, 1.0, cells));
  grid.rows = static_cast<std::uint32_t>(std::max(1.0, cells / grid.columns));

  std::vector<CellRange> ranges;
  ranges.reserve(shapes.size());
  grid.begins.assign(std::size_t{grid.columns} * grid.rows + 1, 0);
  for (std::uint32_t i = 0; i < boxes.size(); ++i) {
    ranges.push_back(cellsOf(grid, boxes[i].isEmpty() ? grid.box : boxes[i]));
    if (ranges.back().isWide()) {
      grid.wide.push_back(i);
    } else {
      eachCell(grid, ranges.back(), [&](std::uint32_t cell) { ++grid.begins[cell + 1]; });
    }
  }
  for (std::size_t cell = 1; cell < grid.begins.size(); ++cell) {
    grid.begins[cell] += grid.begins[cell - 1];
  }
  grid.shapes.resize(grid.begins.back());
  std::vector<std::uint32_t> ends(grid.begins.begin(), grid.begins.end() - 1);
  for (std::uint32_t i = 0; i < ranges.size(); ++i) {
    if (!ranges[i].isWide()) {
      eachCell(grid, ranges[i], [&](std::uint32_t cell) { grid.shapes[ends[cell]++] = i; });
    }
  }
  return grid;
}

}  // namespace quorvan::tool
