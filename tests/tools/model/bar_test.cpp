#include <tools/model/bar.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>
#include <set>
#include <stdexcept>

#include <tests/tools/item_samples.h>

namespace {

using quorvan::tool::Bar;
using quorvan::tool::BarShape;
using quorvan::tool::barShapeOf;
using quorvan::tool::Coordinates;
using quorvan::tool::ItemValue;
using quorvan::tool::toBar;
namespace items = quorvan::items;

constexpr BarShape kShapes[] = {BarShape::kStraight,  BarShape::kL,         BarShape::kU,
                                BarShape::kPin,       BarShape::kPoint,     BarShape::kPolygon,
                                BarShape::kFrameRect, BarShape::kFrameCirc, BarShape::kStirrup};

const items::ElementSchema& schemaWith(BarShape shape) {
  for (const items::ElementSchema& schema : items::allElements()) {
    if (barShapeOf(schema.id) == shape) {
      return schema;
    }
  }
  throw std::out_of_range("a shape without a class");
}

// A bar of the class with every item at its default but those that `set` changes.
template <class Set>
Bar barWith(BarShape shape, const Set& set) {
  std::mt19937 random(30);
  std::vector<ItemValue> values = quorvan::test::randomItems(schemaWith(shape), random);
  for (ItemValue& value : values) {
    const ItemValue whole = value;
    value = ItemValue();
    value.schema = whole.schema;
    value.node = whole.node;
    set(std::string(value.schema->name), value);
  }
  return toBar(shape, values);
}

// A bar through these points, by the names Point1 to Point3.
Bar barThrough(BarShape shape, const std::vector<Coordinates>& points) {
  return barWith(shape, [&](const std::string& name, ItemValue& value) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      if (name == "Point" + std::to_string(i + 1)) {
        value.point = points[i];
      }
    }
    if (name == "NoPoints") {
      value.points = points;
    }
  });
}

TEST(ToolBarShape, IsOneForEachOfNineClasses) {
  std::set<BarShape> found;
  for (const items::ElementSchema& schema : items::allElements()) {
    const auto shape = barShapeOf(schema.id);
    EXPECT_EQ(shape, barShapeOf(schema.className));
    const bool hasDiameter = quorvan::tool::findItem(
                                 [&] {
                                   std::mt19937 random(1);
                                   return quorvan::test::randomItems(schema, random);
                                 }(),
                                 "Diameter") != nullptr;
    EXPECT_EQ(shape.has_value(), hasDiameter) << schema.className;
    if (shape) {
      EXPECT_TRUE(found.insert(*shape).second) << schema.className;
    }
  }
  EXPECT_EQ(found, std::set<BarShape>(std::begin(kShapes), std::end(kShapes)));
}

TEST(ToolBarShape, IsNoneForOtherNames) {
  for (const char* const name : {"", "StraightBar", "cktzantostraightbar", "CKtZantoLine"}) {
    EXPECT_FALSE(barShapeOf(name).has_value()) << name;
  }
}

TEST(ToolBarShape, HasANameOfItsOwn) {
  std::set<std::string_view> names;
  for (const BarShape shape : kShapes) {
    EXPECT_FALSE(shapeName(shape).empty());
    EXPECT_TRUE(names.insert(shapeName(shape)).second) << shapeName(shape);
  }
  EXPECT_EQ(shapeName(BarShape::kPoint), "bar seen end-on");
  EXPECT_EQ(shapeName(BarShape::kFrameRect), "rectangular frame");
}

TEST(ToolBar, TakesItsAttributesInEveryShape) {
  std::mt19937 random(31);
  for (const BarShape shape : kShapes) {
    const std::vector<ItemValue> values = quorvan::test::randomItems(schemaWith(shape), random);
    const Bar bar = toBar(shape, values);
    EXPECT_EQ(bar.shape, shape);
    EXPECT_EQ(bar.grade, findItem(values, "SteelGrade")->text);
    EXPECT_EQ(bar.adherence, findItem(values, "Adherence")->text);
    EXPECT_EQ(bar.diameter, findItem(values, "Diameter")->number);
    EXPECT_EQ(bar.reference, findItem(values, "Reference")->integer);
    EXPECT_EQ(bar.isHidden, findItem(values, "Hidden")->flag);
  }
}

TEST(ToolBar, HasItsHooksWhereItsClassHasThem) {
  std::mt19937 random(32);
  for (const BarShape shape : kShapes) {
    const std::vector<ItemValue> values = quorvan::test::randomItems(schemaWith(shape), random);
    const auto number = [&values](const std::string& name) {
      const ItemValue* const found = findItem(values, name);
      return found == nullptr ? 0.0 : found->number;
    };
    const Bar bar = toBar(shape, values);
    EXPECT_EQ(bar.hooks[0].length, number("HookLength1"));
    EXPECT_EQ(bar.hooks[0].angle, number("HookAngle1"));
    // Links carry one hook and have it at both ends.
    EXPECT_EQ(bar.hooks[1].length, number(bar.isLink() ? "HookLength1" : "HookLength2"));
    EXPECT_EQ(bar.hooks[1].angle, number(bar.isLink() ? "HookAngle1" : "HookAngle2"));
  }
}

TEST(ToolBar, IsALinkInThreeShapes) {
  for (const BarShape shape : kShapes) {
    const bool isLink = shape == BarShape::kFrameRect || shape == BarShape::kFrameCirc ||
                        shape == BarShape::kStirrup;
    const Bar bar = toBar(shape, {});
    EXPECT_EQ(bar.isLink(), isLink) << shapeName(shape);
    EXPECT_EQ(bar.hasLength(), shape != BarShape::kPoint) << shapeName(shape);
  }
}

TEST(ToolBar, SaysOnWhichSideItsHooksAre) {
  const Bar bar = barWith(BarShape::kStraight, [](const std::string& name, ItemValue& value) {
    value.flag = name == "Hook2Up";
  });
  EXPECT_EQ(bar.isHookUp, (std::array<bool, 2>{false, true}));
  EXPECT_TRUE(barWith(BarShape::kPolygon, [](const std::string& name, ItemValue& value) {
                value.flag = name == "Side";
              }).side);
}

TEST(ToolBar, RunsFromPointToPoint) {
  const std::vector<Coordinates> ends = {{1, 2, 3}, {4, 6, 3}};
  for (const BarShape shape : {BarShape::kStraight, BarShape::kPin}) {
    const Bar bar = barThrough(shape, ends);
    EXPECT_EQ(bar.line, ends);
    EXPECT_FALSE(bar.isClosed);
    EXPECT_DOUBLE_EQ(lengthOf(bar), 5.0);
  }
}

TEST(ToolBar, IsBentAtItsSecondPointAsAnL) {
  const Bar bar = barThrough(BarShape::kL, {{0, 300, 0}, {0, 0, 0}, {400, 0, 0}});
  EXPECT_EQ(bar.line.size(), 3U);
  EXPECT_DOUBLE_EQ(lengthOf(bar), 700.0);
}

TEST(ToolBar, HasAThirdLegLikeItsFirstAsAU) {
  const Bar bar = barThrough(BarShape::kU, {{0, 300, 10}, {0, 0, 10}, {400, 0, 20}});
  ASSERT_EQ(bar.line.size(), 4U);
  EXPECT_EQ(bar.line[3], (Coordinates{400, 300, 20}));
  EXPECT_FALSE(bar.isClosed);
}

TEST(ToolBar, IsAClosedParallelogramAsAFrame) {
  const Bar bar = barThrough(BarShape::kFrameRect, {{0, 0, 0}, {300, 0, 0}, {400, 200, 5}});
  ASSERT_EQ(bar.line.size(), 4U);
  EXPECT_EQ(bar.line[3], (Coordinates{100, 200, 5}));
  EXPECT_TRUE(bar.isClosed);
}

TEST(ToolBar, RunsThereAndBackAsAStirrup) {
  const Bar bar = barThrough(BarShape::kStirrup, {{0, 0, 0}, {0, 420, 0}});
  EXPECT_TRUE(bar.isClosed);
  EXPECT_DOUBLE_EQ(lengthOf(bar), 840.0);
}

TEST(ToolBar, IsOnePointSeenEndOn) {
  const Bar bar = barThrough(BarShape::kPoint, {{7, 8, 9}});
  EXPECT_EQ(bar.line, (std::vector<Coordinates>{{7, 8, 9}}));
  EXPECT_EQ(lengthOf(bar), 0.0);
}

TEST(ToolBar, RunsOverAsManyPointsAsAPolygonHas) {
  EXPECT_TRUE(barThrough(BarShape::kPolygon, {}).line.empty());
  EXPECT_EQ(lengthOf(barThrough(BarShape::kPolygon, {})), 0.0);
  EXPECT_EQ(lengthOf(barThrough(BarShape::kPolygon, {{1, 1, 1}})), 0.0);
  EXPECT_DOUBLE_EQ(
      lengthOf(barThrough(BarShape::kPolygon, {{0, 0, 0}, {3, 4, 0}, {3, 4, 7}, {3, 3, 7}})), 13.0);
}

TEST(ToolBar, IsACircleAndItsOverlapAsARoundFrame) {
  const Bar bar = barWith(BarShape::kFrameCirc, [](const std::string& name, ItemValue& value) {
    if (name == "Center") {
      value.point = {10, 20, 30};
    } else if (name == "StartPoint") {
      value.point = {110, 20, 30};
    } else if (name == "FrameRadius") {
      value.number = 100;
    } else if (name == "RecoverLength") {
      value.number = 40;
    } else if (name == "HookLength1") {
      value.number = 15;
    }
  });
  EXPECT_EQ(bar.center, (Coordinates{10, 20, 30}));
  EXPECT_EQ(bar.line, (std::vector<Coordinates>{{110, 20, 30}}));
  EXPECT_DOUBLE_EQ(lengthOf(bar), 200 * std::numbers::pi + 40 + 30);
}

TEST(ToolBar, IsLongerByBothHooks) {
  for (const BarShape shape : kShapes) {
    const Bar bar = barWith(shape, [](const std::string& name, ItemValue& value) {
      value.number = name == "HookLength1" ? 100 : name == "HookLength2" ? 7 : 0;
    });
    const double expected = shape == BarShape::kPoint ? 0.0 : bar.isLink() ? 200.0 : 107.0;
    EXPECT_DOUBLE_EQ(lengthOf(bar), expected) << shapeName(shape);
  }
}

TEST(ToolBar, IsAsLongWhereverItLiesAndWhicheverWayItRuns) {
  std::mt19937 random(33);
  for (int round = 0; round < 200; ++round) {
    for (const BarShape shape : kShapes) {
      Bar bar = toBar(shape, quorvan::test::randomItems(schemaWith(shape), random));
      const double length = lengthOf(bar);
      for (Coordinates& point : bar.line) {
        point = {point.y + 1000, -point.x, point.z - 500};
      }
      EXPECT_NEAR(lengthOf(bar), length, 1e-6);
      std::reverse(bar.line.begin(), bar.line.end());
      std::swap(bar.hooks[0], bar.hooks[1]);
      EXPECT_NEAR(lengthOf(bar), length, 1e-6);
    }
  }
}

TEST(ToolBar, HasDefaultsWithoutItems) {
  for (const BarShape shape : kShapes) {
    const Bar bar = toBar(shape, {});
    EXPECT_EQ(lengthOf(bar), 0.0) << shapeName(shape);
    EXPECT_EQ(bar.diameter, 0.0);
    EXPECT_EQ(bar.grade, "");
    EXPECT_FALSE(bar.isHidden);
  }
}

TEST(ToolDistance, IsThatInSpaceWithoutOverflow) {
  EXPECT_EQ(distance(Coordinates{1, 2, 3}, Coordinates{3, 5, 9}), 7.0);
  EXPECT_EQ(distance(Coordinates{}, Coordinates{}), 0.0);
  EXPECT_TRUE(std::isfinite(distance(Coordinates{1e200, 0, 0}, Coordinates{0, 1e200, 0})));
}

}  // namespace
