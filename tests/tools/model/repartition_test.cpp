#include <tools/model/repartition.h>

#include <gtest/gtest.h>

#include <random>

#include <quorvan/elements/element_classes.h>

#include <tests/tools/item_samples.h>
#include <tests/tools/loaded_file.h>

namespace {

using quorvan::test::loadedElements;
using quorvan::test::LoadedFile;
using quorvan::tool::Element;
using quorvan::tool::ElementIndex;
using quorvan::tool::Repartition;
using quorvan::tool::spacingText;
namespace items = quorvan::items;

Repartition seriesOf(std::size_t bars, std::vector<double> positions) {
  Repartition series;
  series.top.assign(bars, 0.0);
  series.bottom.assign(bars, 100.0);
  series.positions = std::move(positions);
  return series;
}

TEST(ToolSpacing, IsToldInRuns) {
  EXPECT_EQ(spacingText({}), "");
  EXPECT_EQ(spacingText({200, 200, 200}), "200");
  EXPECT_EQ(spacingText({100, 200, 200, 150.5}), "100, 2 x 200, 150.5");
  EXPECT_EQ(spacingText({1, 2, 3, 4, 5, 6, 7}), "1, 2, 3, 4, 5, 6, ...");
}

TEST(ToolSpacing, IsCutOnlyWhereThereIsMore) {
  EXPECT_EQ(spacingText({1, 2, 3, 4, 5, 6}), "1, 2, 3, 4, 5, 6");
  EXPECT_EQ(spacingText({1, 2, 3, 4, 5, 6, 6, 6}), "1, 2, 3, 4, 5, 3 x 6");
}

TEST(ToolSpacing, IsEqualToAThousandth) {
  EXPECT_EQ(spacingText({200, 200.0009, 199.9991}), "200");
  EXPECT_EQ(spacingText({200, 200.002}), "200, 200");
}

TEST(ToolSpacing, IsRoundedToOneDecimal) {
  EXPECT_EQ(spacingText({166.6667, 166.6667, 0.04}), "2 x 166.7, 0");
}

TEST(ToolSpacing, StandsForItself) {
  EXPECT_EQ(spacingText({200}), "200");
  EXPECT_EQ(spacingText({200, 150}), "200, 150");
}

TEST(ToolRepartition, TakesEveryItem) {
  std::mt19937 random(37);
  const items::ElementSchema& schema = items::schemaOf(items::ElementClass::kRepartition);
  for (int round = 0; round < 20; ++round) {
    const auto values = quorvan::test::randomItems(schema, random);
    const Repartition series = toRepartition(values);
    EXPECT_EQ(series.start, findItem(values, "Point1")->point);
    EXPECT_EQ(series.end, findItem(values, "Point2")->point);
    EXPECT_EQ(series.axis, findItem(values, "Axis")->point);
    EXPECT_EQ(series.top, findItem(values, "AxisDistancesTop")->numbers);
    EXPECT_EQ(series.bottom, findItem(values, "AxisDistancesBottom")->numbers);
    EXPECT_EQ(series.positions, findItem(values, "Positions")->numbers);
    EXPECT_EQ(series.className, findItem(values, "DefClassName")->text);
    EXPECT_EQ(series.index, findItem(values, "Index")->integer);
    EXPECT_EQ(series.viewPoint, findItem(values, "ViewPoint")->integer);
    EXPECT_EQ(series.isHidden, findItem(values, "Hidden")->flag);
  }
}

TEST(ToolRepartition, HasAsManyBarsAsDistances) {
  EXPECT_EQ(seriesOf(5, {1, 2, 3, 4}).number(), 5U);
  EXPECT_EQ(seriesOf(5, {}).number(), 5U);
  EXPECT_EQ(seriesOf(0, {}).number(), 0U);
}

TEST(ToolRepartition, HasAsManyBarsAsPositionsWithoutDistances) {
  EXPECT_EQ(seriesOf(0, {200, 200, 200}).number(), 3U);
}

TEST(ToolRepartition, HasALineWhereEachBarButOneHasAStep) {
  EXPECT_TRUE(seriesOf(3, {1, 2}).hasLine());
  EXPECT_TRUE(seriesOf(1, {}).hasLine());
  for (const Repartition& series :
       {seriesOf(0, {}), seriesOf(0, {1}), seriesOf(3, {1, 2, 3}), seriesOf(3, {1})}) {
    EXPECT_FALSE(series.hasLine());
  }
}

TEST(ToolRepartition, HasASpacingBetweenEachTwoBars) {
  using Spacings = std::vector<double>;
  EXPECT_EQ(seriesOf(3, {200, 150}).spacings(), (Spacings{200, 150}));
  EXPECT_EQ(seriesOf(0, {200, 200, 150}).spacings(), (Spacings{200, 200})) << "one with every bar";
  EXPECT_EQ(seriesOf(3, {200, 200, 200}).spacings(), (Spacings{200, 200}));
  EXPECT_EQ(seriesOf(4, {200}).spacings(), Spacings{200});
  EXPECT_TRUE(seriesOf(1, {200}).spacings().empty());
  EXPECT_TRUE(seriesOf(0, {}).spacings().empty());
}

// --- the elements that repartitions point to
// ------------------------------------------------------

std::uint32_t foundOrdinal(const LoadedFile& loaded, std::string_view className,
                           std::int64_t index) {
  const Element* const found = ElementIndex(loaded.file()).find(className, index);
  return found == nullptr ? 0 : found->ordinal;
}

TEST(ToolElementIndex, FindsElementsByClassAndIndex) {
  const LoadedFile loaded = loadedElements(
      "<CKtZantoPin index='1'/><CKtZantoPin index='2'/><CKtZantoLine index='2'/>"
      "<CKtZantoPin index='-3'/>");
  EXPECT_EQ(foundOrdinal(loaded, "CKtZantoPin", 1), 1U);
  EXPECT_EQ(foundOrdinal(loaded, "CKtZantoPin", 2), 2U);
  EXPECT_EQ(foundOrdinal(loaded, "CKtZantoPin", -3), 3U);
  EXPECT_EQ(foundOrdinal(loaded, "CKtZantoLine", 2), 1U);
  EXPECT_EQ(foundOrdinal(loaded, "CKtZantoLine", 1), 0U);
  EXPECT_EQ(foundOrdinal(loaded, "Pin", 1), 0U);
  EXPECT_EQ(foundOrdinal(loaded, "", 0), 0U);
}

TEST(ToolElementIndex, FindsTheFirstOfSeveral) {
  const LoadedFile loaded =
      loadedElements("<CKtZantoPin index='0'/><CKtZantoPin index='5'/><CKtZantoPin index='5'/>");
  EXPECT_EQ(foundOrdinal(loaded, "CKtZantoPin", 5), 2U);
}

TEST(ToolElementIndex, DoesNotFindElementsWithoutAnIndex) {
  const LoadedFile loaded = loadedElements("<CKtZantoPin/><CKtZantoPin index=''/>");
  EXPECT_EQ(foundOrdinal(loaded, "CKtZantoPin", 0), 0U);
}

TEST(ToolElementIndex, FindsEveryElementOfALargeDrawing) {
  std::string elements;
  for (int i = 1; i <= 3000; ++i) {
    elements +=
        (i % 2 == 0 ? "<CKtZantoPin index='" : "<CKtZantoLBar index='") + std::to_string(i) + "'/>";
  }
  const LoadedFile loaded = loadedElements(elements);
  const ElementIndex index(loaded.file());
  for (const Element& element : loaded.file().elements()) {
    EXPECT_EQ(index.find(element.className(), static_cast<std::int64_t>(element.place) + 1),
              &element);
  }
}

}  // namespace
