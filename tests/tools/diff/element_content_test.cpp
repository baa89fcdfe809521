// What elements are compared by: every item of every class, and nothing else.
#include <tools/diff/element_content.h>

#include <gtest/gtest.h>

#include <random>

#include <quorvan/elements/element_classes.h>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/item_samples.h>
#include <tests/tools/loaded_file.h>

namespace quorvan::tool {

namespace {

using test::LoadedFile;

// The content of the only element, or of that at the place.
Content contentOf(const std::string& elements, std::size_t place = 0) {
  const LoadedFile loaded = test::loadedElements(elements);
  ContentReader reader(loaded.file());
  return reader.read(loaded.element(place));
}

bool hasNumbers(items::Kind kind) {
  switch (kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
    case items::Kind::kDouble:
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
    case items::Kind::kSegmentList:
    case items::Kind::kDoubleList:
      return true;
    case items::Kind::kLong:
    case items::Kind::kColor:
    case items::Kind::kString:
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
    case items::Kind::kAdherence:
      return false;
  }
  return false;
}

// Another value: numbers by half a unit more in their last part. Whether there was one to change.
bool change(ItemValue& item) {
  switch (item.schema->kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      item.point.z += 0.5;
      return true;
    case items::Kind::kDouble:
      item.number += 0.5;
      return true;
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      if (!item.points.empty()) {
        item.points.back().y += 0.5;
      }
      return !item.points.empty();
    case items::Kind::kSegmentList:
      if (!item.segments.empty()) {
        item.segments.back().bulge.x += 0.5;
      }
      return !item.segments.empty();
    case items::Kind::kDoubleList:
      if (!item.numbers.empty()) {
        item.numbers.back() += 0.5;
      }
      return !item.numbers.empty();
    case items::Kind::kLong:
    case items::Kind::kColor:
      item.integer = item.integer == 12 ? 13 : 12;
      return true;
    case items::Kind::kString:
    case items::Kind::kAdherence:
      item.text = item.text == "other" ? "another" : "other";
      return true;
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      item.flag = !item.flag;
      item.integer = item.flag ? 1 : 0;
      return true;
  }
  return false;
}

TEST(ToolDiffContent, DiffersWithEveryItemOfEveryClassAndByTheToleranceAtMost) {
  std::mt19937 random(62);
  for (const items::ElementSchema& schema : items::allElements()) {
    for (int round = 0; round < 4; ++round) {
      const std::vector<ItemValue> values = test::randomItems(schema, random);
      const Content before = contentOf(test::elementText(schema, values));
      EXPECT_TRUE(areEqual(before, contentOf(test::elementText(schema, values)), 0.0));
      for (std::size_t i = 0; i < values.size(); ++i) {
        const bool isRepeatedBar =
            schema.id == items::ElementClass::kRepartition && values[i].schema->name == "Index";
        std::vector<ItemValue> changed = values;
        if (isRepeatedBar || !change(changed[i])) {
          continue;
        }
        const Content after = contentOf(test::elementText(schema, changed));
        const std::string what =
            std::string(schema.className) + ' ' + std::string(values[i].schema->name);
        const bool isNumeric = hasNumbers(values[i].schema->kind);
        EXPECT_FALSE(areEqual(before, after, 0.0)) << what;
        EXPECT_FALSE(areEqual(before, after, 0.499)) << what;
        EXPECT_EQ(areEqual(before, after, 0.5), isNumeric) << what;
        EXPECT_EQ(areEqual(after, before, 0.5), isNumeric) << what;
      }
    }
  }
}

TEST(ToolDiffContent, DiffersWhereAnItemIsMissing) {
  std::mt19937 random(63);
  for (const items::ElementSchema& schema : items::allElements()) {
    const std::vector<ItemValue> values = test::randomItems(schema, random);
    const Content whole = contentOf(test::elementText(schema, values));
    for (const ItemValue& item : values) {
      if (item.schema->name == "Index") {
        continue;
      }
      const Content lacking =
          contentOf(test::elementTextWithout(schema, values, item.schema->name));
      EXPECT_FALSE(areEqual(whole, lacking, 1e9)) << schema.className << ' ' << item.schema->name;
    }
  }
}

TEST(ToolDiffContent, DoesNotDifferByIndexAndVersionOfTheElement) {
  test::BarParts bar{.points = {{0, 0, 0}, {9, 0, 0}}};
  const Content first = contentOf(test::barOf(bar));
  bar.index = 77;
  EXPECT_TRUE(areEqual(first, contentOf(test::barOf(bar)), 0.0));
}

TEST(ToolDiffContent, HasALengthForEachList) {
  const auto polygon = [](std::size_t corners) {
    return contentOf(test::fillOf(std::vector<Coordinates>(corners, Coordinates{1, 2, 3})));
  };
  EXPECT_FALSE(areEqual(polygon(3), polygon(4), 1e9));
  EXPECT_FALSE(areEqual(polygon(0), polygon(1), 1e9));
  EXPECT_TRUE(areEqual(polygon(4), polygon(4), 0.0));
}

// Two lists one after the other: what leaves one does not count as the other's.
TEST(ToolDiffContent, KeepsTheListsOfASeriesApart) {
  const auto series = [](std::vector<double> top, std::vector<double> bottom) {
    return contentOf(test::seriesOf({.top = std::move(top), .bottom = std::move(bottom)}));
  };
  EXPECT_FALSE(areEqual(series({1, 2}, {3}), series({1}, {2, 3}), 0.0));
  EXPECT_TRUE(areEqual(series({1, 2}, {3}), series({1, 2}, {3}), 0.0));
}

TEST(ToolDiffContent, OfAMovedElementIsTheSameButForOneVector) {
  const auto bar = [](double x, double y, double end) {
    return contentOf(test::barOf({.points = {{x, y, 0}, {x + end, y, 5}}}));
  };
  Coordinates by;
  EXPECT_TRUE(areMoved(bar(0, 0, 100), bar(30, -40, 100), 0.0, by));
  EXPECT_EQ(by, (Coordinates{30, -40, 0}));
  EXPECT_FALSE(areMoved(bar(0, 0, 100), bar(30, -40, 101), 0.5, by));
  EXPECT_TRUE(areMoved(bar(0, 0, 100), bar(30, -40, 100.5), 0.5, by));
  EXPECT_FALSE(areMoved(bar(0, 0, 100), bar(30, -40, -100), 0.5, by)) << "turned round";
}

TEST(ToolDiffContent, OfFormworkMovesItsPointsAndKeepsItsBulges) {
  const auto wall = [](double x, double bulge) {
    return contentOf(test::formworkOf({{{x, 0, 0}, {x + 10, 0, 0}, {0, bulge, 0}}}));
  };
  Coordinates by;
  EXPECT_TRUE(areMoved(wall(0, 4), wall(7, 4), 0.0, by));
  EXPECT_EQ(by, (Coordinates{7, 0, 0}));
  EXPECT_FALSE(areMoved(wall(0, 4), wall(7, 5), 0.5, by));
}

TEST(ToolDiffContent, OfASeriesMovesWithoutItsAxisAndDistances) {
  const auto series = [](double x, double axis, double top) {
    test::SeriesParts parts = test::uprightBars(x, 0, 100, 4, 20);
    parts.axis.x = axis;
    parts.top[2] = top;
    return contentOf(test::seriesOf(parts));
  };
  Coordinates by;
  EXPECT_TRUE(areMoved(series(0, 10, 50), series(500, 10, 50), 0.0, by));
  EXPECT_EQ(by, (Coordinates{500, 0, 0}));
  EXPECT_FALSE(areMoved(series(0, 10, 50), series(500, 12, 50), 0.5, by));
  EXPECT_FALSE(areMoved(series(0, 10, 50), series(500, 10, 52), 0.5, by));
}

TEST(ToolDiffContent, WithoutPointsCannotMove) {
  const Content control = contentOf(test::controlOf("D"));
  Coordinates by{1, 2, 3};
  EXPECT_FALSE(areMoved(control, control, 0.0, by));
  const Content polygon = contentOf(test::fillOf({}));
  EXPECT_FALSE(areMoved(polygon, polygon, 0.0, by));
}

TEST(ToolDiffContent, OfASeriesNamesTheRepeatedBarInThePlaceOfItsIndex) {
  const auto texts = [](int barIndex, int seriesIndex, long mark, double diameter) {
    const LoadedFile loaded(test::documentOf(test::barOf({.points = {{0, 0, 0}, {0, 9, 0}},
                                                          .diameter = diameter,
                                                          .mark = mark,
                                                          .index = barIndex}) +
                                             test::seriesOf({.index = seriesIndex})));
    ContentReader reader(loaded.file());
    for (const auto& [name, text] : reader.texts(loaded.element(1))) {
      if (name == "repeated bar") {
        return text;
      }
      EXPECT_NE(name, "Index");
    }
    return std::string();
  };
  EXPECT_EQ(texts(1, 1, 4, 12), "mark 4, diameter 12 B500B");
  EXPECT_EQ(texts(9, 9, 4, 12.5), "mark 4, diameter 12.5 B500B");
  EXPECT_EQ(texts(9, 8, 4, 12), "none");
  const auto content = [](int index, long mark) {
    return contentOf(test::barOf({.points = {{0, 0, 0}, {0, 9, 0}}, .mark = mark, .index = index}) +
                         test::seriesOf({.index = index}),
                     1);
  };
  EXPECT_TRUE(areEqual(content(1, 4), content(6, 4), 0.0));
  EXPECT_FALSE(areEqual(content(1, 4), content(1, 5), 0.0));
}

TEST(ToolDiffContent, SaysItsItemsAsTheListingNamesThem) {
  const LoadedFile loaded(test::documentOf(test::circleOf({1, 2, 0}, 3.5, 5)));
  ContentReader reader(loaded.file());
  using Texts = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(reader.texts(loaded.element(0)),
            (Texts{{"Center", "1, 2, 0"}, {"Radius", "3.5"}, {"Color", "5"}}));
  const LoadedFile lacking(
      test::documentOf("<CKtZantoCircle><Color long=\"5\"/></CKtZantoCircle>"));
  ContentReader other(lacking.file());
  EXPECT_EQ(other.texts(lacking.element(0)),
            (Texts{{"Center", "-"}, {"Radius", "-"}, {"Color", "5"}}));
}

TEST(ToolDiffContent, OfClassesThatAreNotKnownIsTheirName) {
  EXPECT_TRUE(areEqual(contentOf("<Arrow><Length double=\"1\"/></Arrow>"),
                       contentOf("<Arrow><Length double=\"2\"/></Arrow>"), 0.0));
  EXPECT_FALSE(areEqual(contentOf("<Arrow/>"), contentOf("<Sign/>"), 1e9));
}

}  // namespace

}  // namespace quorvan::tool
