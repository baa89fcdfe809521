#include <tools/listing/element_to_json.h>

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include <quorvan/elements/element_classes.h>

#include <tests/tools/item_samples.h>
#include <tests/tools/loaded_file.h>
#include <tools/drawing/element_from_json.h>

namespace {

using quorvan::test::loadedElements;
using quorvan::test::LoadedFile;
using quorvan::tool::controlToJson;
using quorvan::tool::displayName;
using quorvan::tool::elementToJson;
using quorvan::tool::inlineJson;
using quorvan::tool::itemToJson;
using quorvan::tool::ItemValue;
using quorvan::tool::Json;
namespace items = quorvan::items;
using items::Kind;

std::string jsonOf(Kind kind, const ItemValue& content) {
  const items::ItemSchema schema{"Item", kind};
  ItemValue value = content;
  value.schema = &schema;
  return inlineJson(itemToJson(value));
}

TEST(ToolElementJson, HasAValueForEachKind) {
  ItemValue value;
  value.number = 12.5;
  value.integer = 4294967295LL;
  value.flag = true;
  value.text = "a \"b\" \u05D0";
  value.point = {1, -2.5, 0};
  value.points = {{1, 2, 3}, {4, 5, 6}};
  value.segments = {{{0, 0, 0}, {1, 0, 0}, {0, 2, 0}}};
  value.numbers = {200, 150.5};
  for (const auto& [kind, text] : {std::pair{Kind::kDouble, "12.5"},
                                   {Kind::kLong, "4294967295"},
                                   {Kind::kColor, "4294967295"},
                                   {Kind::kFlag, "true"},
                                   {Kind::kNumericFlag, "true"},
                                   {Kind::kString, "\"a \\\"b\\\" \u05D0\""},
                                   {Kind::kAdherence, "\"a \\\"b\\\" \u05D0\""},
                                   {Kind::kPoint, "[1, -2.5, 0]"},
                                   {Kind::kVector, "[1, -2.5, 0]"},
                                   {Kind::kPointList, "[[1, 2, 3], [4, 5, 6]]"},
                                   {Kind::kNumberedPoints, "[[1, 2, 3], [4, 5, 6]]"},
                                   {Kind::kDoubleList, "[200, 150.5]"},
                                   {Kind::kSegmentList,
                                    "[{\"start\": [0, 0, 0], \"end\": [1, 0, 0], \"bulge\": "
                                    "[0, 2, 0]}]"}}) {
    EXPECT_EQ(jsonOf(kind, value), text);
  }
}

TEST(ToolElementJson, HasEmptyArraysForEmptyLists) {
  for (const Kind kind :
       {Kind::kPointList, Kind::kNumberedPoints, Kind::kDoubleList, Kind::kSegmentList}) {
    EXPECT_EQ(jsonOf(kind, {}), "[]");
  }
}

TEST(ToolElementJson, HasTheTextOfANumberWithoutDigits) {
  ItemValue value;
  value.number = std::numeric_limits<double>::infinity();
  value.point.y = -value.number;
  EXPECT_EQ(jsonOf(Kind::kDouble, value), "\"inf\"");
  EXPECT_EQ(jsonOf(Kind::kPoint, value), "[0, \"-inf\", 0]");
}

TEST(ToolElementJson, NamesTheClassAndThenTheItemsInTheOrderOfTheFile) {
  std::mt19937 random(41);
  for (const items::ElementSchema& schema : items::allElements()) {
    const Json object = elementToJson(schema.className, quorvan::test::randomItems(schema, random));
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items()) {
      keys.push_back(key);
    }
    ASSERT_EQ(keys.size(), schema.items.size() + 1);
    EXPECT_EQ(keys[0], "class");
    EXPECT_EQ(object["class"], schema.className);
    for (std::size_t i = 0; i < schema.items.size(); ++i) {
      EXPECT_EQ(keys[i + 1], displayName(schema.items[i]));
    }
  }
}

TEST(ToolElementJson, LeavesOutWhatIsMissing) {
  std::mt19937 random(42);
  for (const items::ElementSchema& schema : items::allElements()) {
    std::vector<ItemValue> values = quorvan::test::randomItems(schema, random);
    for (ItemValue& value : values) {
      value.node = nullptr;
      const Json object = elementToJson(schema.className, values);
      EXPECT_FALSE(object.contains(std::string(displayName(*value.schema))));
    }
    EXPECT_EQ(inlineJson(elementToJson(schema.className, values)),
              "{\"class\": \"" + std::string(schema.className) + "\"}");
  }
}

TEST(ToolElementJson, TellsTheControlRecordInWordsOfItsOwn) {
  const LoadedFile loaded = loadedElements(
      "<CKtDrawingControl><ZantoVersion string='2025.1'/><ServicePack long='2'/>"
      "<CheckSum long='-7'/><DrawingName string='B1 &#8211; &#233;'/></CKtDrawingControl>"
      "<CKtDrawingControl><CheckSum long='5'/></CKtDrawingControl><CKtDrawingControl/>");
  EXPECT_EQ(inlineJson(controlToJson(loaded.items(0))),
            "{\"name\": \"B1 \u2013 \u00E9\", \"version\": \"2025.1\", \"servicePack\": 2, "
            "\"checkSum\": -7}");
  EXPECT_EQ(inlineJson(controlToJson(loaded.items(1))), "{\"checkSum\": 5}");
  EXPECT_EQ(inlineJson(controlToJson(loaded.items(2))), "{}");
}

TEST(ToolElementJson, IsReadBackAsTheElementThatItTells) {
  std::mt19937 random(43);
  for (int round = 0; round < 20; ++round) {
    for (const items::ElementSchema& schema : items::allElements()) {
      if (schema.id == items::ElementClass::kDrawingControl) {
        continue;  // no element of a drawing, but its head
      }
      const std::vector<ItemValue> written = quorvan::test::randomItems(schema, random);
      const Json object = Json::parse(inlineJson(elementToJson(schema.className, written)));
      const quorvan::tool::ElementInput read = quorvan::tool::elementFromJson(object);
      ASSERT_EQ(read.schema, &schema);
      ASSERT_EQ(read.items.size(), written.size());
      for (std::size_t i = 0; i < written.size(); ++i) {
        EXPECT_EQ(itemToJson(read.items[i]), itemToJson(written[i])) << written[i].schema->name;
      }
    }
  }
}

}  // namespace
