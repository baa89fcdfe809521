#include <tools/listing/item_cells.h>

#include <gtest/gtest.h>

#include <random>

#include <quorvan/elements/element_classes.h>

#include <tests/tools/item_samples.h>

namespace {

using quorvan::tool::itemCell;
using quorvan::tool::itemCells;
using quorvan::tool::itemTitles;
using quorvan::tool::ItemValue;
namespace items = quorvan::items;
using items::Kind;

const quorvan::tool::Node kAnywhere;

// An item of that kind, which is in the file.
class CellItem {
 public:
  explicit CellItem(Kind kind, std::string_view name = "Item") : m_schema{name, kind} {
    value.schema = &m_schema;
    value.node = &kAnywhere;
  }
  CellItem(const CellItem&) = delete;
  CellItem& operator=(const CellItem&) = delete;

  ItemValue value;

 private:
  items::ItemSchema m_schema;
};

TEST(ToolCells, HoldNumbersAsShortAsTheyGo) {
  CellItem item(Kind::kDouble);
  for (const auto& [number, text] : {std::pair{12.5, "12.5"}, {1250.0, "1250"}, {0.1, "0.1"}}) {
    item.value.number = number;
    EXPECT_EQ(itemCell(item.value), text);
  }
}

TEST(ToolCells, HoldWholeNumbersWithTheirSign) {
  CellItem number(Kind::kLong);
  number.value.integer = -2147483648LL;
  EXPECT_EQ(itemCell(number.value), "-2147483648");
  CellItem color(Kind::kColor);
  color.value.integer = 4294967295LL;
  EXPECT_EQ(itemCell(color.value), "4294967295");
}

TEST(ToolCells, HoldFlagsAsInTheFile) {
  for (const Kind kind : {Kind::kFlag, Kind::kNumericFlag}) {
    CellItem item(kind);
    EXPECT_EQ(itemCell(item.value), "False");
    item.value.flag = true;
    EXPECT_EQ(itemCell(item.value), "True");
  }
}

TEST(ToolCells, HoldTextsAsTheyAre) {
  for (const Kind kind : {Kind::kString, Kind::kAdherence}) {
    CellItem item(kind);
    for (const char* const text : {"", "B500B", "two\nlines", "\u05D0\u05D1, \"x\""}) {
      item.value.text = text;
      EXPECT_EQ(itemCell(item.value), text);
    }
  }
}

TEST(ToolCells, HoldPointsByTheirCoordinates) {
  for (const Kind kind : {Kind::kPoint, Kind::kVector}) {
    CellItem item(kind);
    item.value.point = {100, -200.5, 0};
    EXPECT_EQ(itemCell(item.value), "100, -200.5, 0");
    EXPECT_EQ(itemCells(item.value), (std::vector<std::string>{"100", "-200.5", "0"}));
  }
}

TEST(ToolCells, HoldTheEntriesOfListsPartedByBlanks) {
  for (const Kind kind : {Kind::kPointList, Kind::kNumberedPoints}) {
    CellItem item(kind);
    EXPECT_EQ(itemCell(item.value), "");
    item.value.points = {{0, 0, 0}, {100, 0, 0.5}};
    EXPECT_EQ(itemCell(item.value), "(0, 0, 0) (100, 0, 0.5)");
  }
  CellItem numbers(Kind::kDoubleList);
  numbers.value.numbers = {200, 150.5};
  EXPECT_EQ(itemCell(numbers.value), "200 150.5");
}

TEST(ToolCells, NameABulgeOnlyWhereThereIsOne) {
  CellItem item(Kind::kSegmentList);
  item.value.segments = {{{0, 0, 0}, {10, 0, 0}, {}}, {{10, 0, 0}, {10, 5, 0}, {2, 0, 0}}};
  EXPECT_EQ(itemCell(item.value), "(0, 0, 0)-(10, 0, 0) (10, 0, 0)-(10, 5, 0) bulge (2, 0, 0)");
}

TEST(ToolCells, AreEmptyForWhatIsMissing) {
  for (const items::ElementSchema& schema : items::allElements()) {
    for (const items::ItemSchema& item : schema.items) {
      ItemValue value;
      value.schema = &item;
      EXPECT_EQ(itemCell(value), "");
      for (const std::string& cell : itemCells(value)) {
        EXPECT_EQ(cell, "");
      }
    }
  }
}

TEST(ToolCells, AreAsManyAsTheirTitles) {
  std::mt19937 random(40);
  for (const items::ElementSchema& schema : items::allElements()) {
    for (ItemValue& value : quorvan::test::randomItems(schema, random)) {
      const std::size_t titles = itemTitles(*value.schema).size();
      EXPECT_EQ(itemCells(value).size(), titles) << value.schema->name;
      value.node = nullptr;
      EXPECT_EQ(itemCells(value).size(), titles) << value.schema->name;
    }
  }
}

TEST(ToolCells, HaveATitleForEachCoordinate) {
  EXPECT_EQ(itemTitles({"Point1", Kind::kPoint}),
            (std::vector<std::string>{"Point1.X", "Point1.Y", "Point1.Z"}));
  EXPECT_EQ(itemTitles({"Axis", Kind::kVector}),
            (std::vector<std::string>{"Axis.X", "Axis.Y", "Axis.Z"}));
  EXPECT_EQ(itemTitles({"Diameter", Kind::kDouble}), std::vector<std::string>{"Diameter"});
  EXPECT_EQ(itemTitles({"Vector", Kind::kPointList}), std::vector<std::string>{"Points"});
  EXPECT_EQ(itemTitles({"NoPoints", Kind::kNumberedPoints}), std::vector<std::string>{"Points"});
  EXPECT_EQ(itemTitles({"Vector", Kind::kSegmentList}), std::vector<std::string>{"Segments"});
}

}  // namespace
