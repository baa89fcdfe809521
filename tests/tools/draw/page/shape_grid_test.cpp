#include <gtest/gtest.h>

#include <algorithm>

#include <tools/draw/page/shape_grid.h>

namespace {

using quorvan::tool::gridOf;
using quorvan::tool::Layer;
using quorvan::tool::PlanePoint;
using quorvan::tool::Shape;
using quorvan::tool::ShapeGrid;

Shape circleAt(PlanePoint center, double radius) {
  Shape shape{};
  shape.layer = Layer::kCircles;
  shape.kind = Shape::Kind::kCircle;
  shape.center = center;
  shape.radius = radius;
  return shape;
}

// What the cell of a point names.
std::vector<std::uint32_t> shapesAt(const ShapeGrid& grid, PlanePoint point) {
  const auto column =
      static_cast<std::uint32_t>((point.x - grid.box.least.x) / grid.box.width() * grid.columns);
  const auto row =
      static_cast<std::uint32_t>((point.y - grid.box.least.y) / grid.box.height() * grid.rows);
  const std::size_t cell = std::size_t{row} * grid.columns + column;
  return {grid.shapes.begin() + grid.begins[cell], grid.shapes.begin() + grid.begins[cell + 1]};
}

TEST(ShapeGrid, NamesEachShapeInTheCellsThatItLiesIn) {
  std::vector<Shape> shapes;
  for (int x = 0; x < 40; ++x) {
    for (int y = 0; y < 40; ++y) {
      shapes.push_back(circleAt({x * 10.0, y * 5.0}, 1.0));
    }
  }
  const ShapeGrid grid = gridOf(shapes);
  EXPECT_GT(grid.columns * grid.rows, 100U);
  EXPECT_TRUE(grid.wide.empty());
  for (std::uint32_t i = 0; i < shapes.size(); ++i) {
    const std::vector<std::uint32_t> found = shapesAt(grid, shapes[i].center);
    EXPECT_NE(std::ranges::find(found, i), found.end()) << i;
    EXPECT_TRUE(std::ranges::is_sorted(found)) << i;
    EXPECT_LT(found.size(), 100U) << i;
  }
}

TEST(ShapeGrid, KeepsWhatCoversMuchOutOfTheCells) {
  std::vector<Shape> shapes(2000, circleAt({5.0, 5.0}, 1.0));
  shapes.push_back(circleAt({500.0, 500.0}, 500.0));
  const ShapeGrid grid = gridOf(shapes);
  EXPECT_EQ(grid.wide, std::vector<std::uint32_t>{2000});
}

TEST(ShapeGrid, HasOneEmptyCellForNoShapes) {
  const ShapeGrid grid = gridOf({});
  EXPECT_EQ(grid.begins, (std::vector<std::uint32_t>{0, 0}));
}

}  // namespace
