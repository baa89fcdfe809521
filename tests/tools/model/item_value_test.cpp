#include <gtest/gtest.h>

#include <set>
#include <string>

#include <quorvan/elements/element_classes.h>

#include <tools/model/item_value.h>

namespace {

using quorvan::tool::displayName;
using quorvan::tool::findItem;
using quorvan::tool::ItemValue;
namespace items = quorvan::items;

TEST(ToolItem, IsCalledByItsNameOrForWhatTheListHolds) {
  for (const items::ElementSchema& schema : items::allElements()) {
    for (const items::ItemSchema& item : schema.items) {
      const bool holdsPoints =
          item.kind == items::Kind::kPointList || item.kind == items::Kind::kNumberedPoints;
      const bool holdsSegments = item.kind == items::Kind::kSegmentList;
      EXPECT_EQ(displayName(item), holdsPoints ? "Points" : holdsSegments ? "Segments" : item.name);
    }
  }
}

TEST(ToolItem, IsCalledOtherwiseThanTheOthersOfItsClass) {
  for (const items::ElementSchema& schema : items::allElements()) {
    std::set<std::string_view> names;
    for (const items::ItemSchema& item : schema.items) {
      EXPECT_TRUE(names.insert(displayName(item)).second) << schema.className << item.name;
    }
  }
}

TEST(ToolItem, IsAListWhereItHasEntries) {
  for (const items::ElementSchema& schema : items::allElements()) {
    for (const items::ItemSchema& item : schema.items) {
      EXPECT_EQ(quorvan::tool::isList(item.kind), !item.stem.empty())
          << schema.className << ' ' << item.name;
    }
  }
}

TEST(ToolItem, IsFoundByItsNameInTheFile) {
  for (const items::ElementSchema& schema : items::allElements()) {
    std::vector<ItemValue> values(schema.items.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      values[i].schema = &schema.items[i];
    }
    for (const ItemValue& value : values) {
      EXPECT_EQ(findItem(values, value.schema->name), &value);
    }
    EXPECT_EQ(findItem(values, "Nothing"), nullptr);
    EXPECT_EQ(findItem(values, ""), nullptr);
  }
  EXPECT_EQ(findItem({}, "Point1"), nullptr);
}

TEST(ToolItem, IsMissingWithoutANode) {
  ItemValue value;
  EXPECT_TRUE(value.isMissing());
  const quorvan::tool::Node node;
  value.node = &node;
  EXPECT_FALSE(value.isMissing());
}

}  // namespace
