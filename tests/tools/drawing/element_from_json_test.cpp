// Objects of the drawing JSON as elements: every class, every kind of item, and what is refused.
#include <tools/drawing/element_from_json.h>

#include <gtest/gtest.h>

#include <random>

#include <quorvan/elements/element_classes.h>

#include <tests/tools/item_samples.h>

namespace quorvan::tool {

namespace {

Json pointJson(const Coordinates& point) {
  return Json::array({point.x, point.y, point.z});
}

// The value as a drawing holds it.
Json valueJson(const ItemValue& item) {
  Json list = Json::array();
  switch (item.schema->kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      return pointJson(item.point);
    case items::Kind::kDouble:
      return item.number;
    case items::Kind::kLong:
    case items::Kind::kColor:
      return item.integer;
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      return item.flag;
    case items::Kind::kString:
    case items::Kind::kAdherence:
      return item.text;
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      for (const Coordinates& point : item.points) {
        list.push_back(pointJson(point));
      }
      return list;
    case items::Kind::kSegmentList:
      for (const Segment& segment : item.segments) {
        list.push_back({{"start", pointJson(segment.start)},
                        {"end", pointJson(segment.end)},
                        {"bulge", pointJson(segment.bulge)}});
      }
      return list;
    case items::Kind::kDoubleList:
      for (const double number : item.numbers) {
        list.push_back(number);
      }
      return list;
  }
  return list;
}

Json elementJson(const items::ElementSchema& schema, const std::vector<ItemValue>& values) {
  Json object = {{"class", schema.className}};
  for (const ItemValue& item : values) {
    object[std::string(displayName(*item.schema))] = valueJson(item);
  }
  return object;
}

// What reading the object says against it; empty where it is taken.
std::string refusalOf(const Json& object) {
  try {
    elementFromJson(object);
  } catch (const WrongMember& wrong) {
    return wrong.what();
  }
  return {};
}

TEST(ToolElementJson, BecomesTheItemsOfEveryClass) {
  std::mt19937 random(101);
  for (const items::ElementSchema& schema : items::allElements()) {
    for (int round = 0; round < 5; ++round) {
      const std::vector<ItemValue> values = test::randomItems(schema, random);
      const ElementInput element = elementFromJson(elementJson(schema, values));
      EXPECT_EQ(element.schema, &schema);
      ASSERT_EQ(element.items.size(), schema.items.size());
      for (const ItemValue& value : values) {
        const ItemValue* const found = findItem(element.items, value.schema->name);
        ASSERT_NE(found, nullptr) << value.schema->name;
        EXPECT_EQ(valueJson(*found), valueJson(value))
            << schema.className << ' ' << value.schema->name;
      }
    }
  }
}

TEST(ToolElementJson, IsRefusedWithoutAnyOfItsItems) {
  std::mt19937 random(102);
  for (const items::ElementSchema& schema : items::allElements()) {
    const std::vector<ItemValue> values = test::randomItems(schema, random);
    for (const items::ItemSchema& item : schema.items) {
      Json object = elementJson(schema, values);
      object.erase(std::string(displayName(item)));
      const bool isRequired = !item.optional || isList(item.kind);
      EXPECT_EQ(refusalOf(object),
                isRequired ? '"' + std::string(displayName(item)) + "\" is missing" : "")
          << schema.className;
    }
  }
}

TEST(ToolElementJson, IsRefusedWithAnItemThatTheClassDoesNotHave) {
  std::mt19937 random(103);
  for (const items::ElementSchema& schema : items::allElements()) {
    Json object = elementJson(schema, test::randomItems(schema, random));
    object["Colour"] = 1;
    EXPECT_EQ(refusalOf(object), "\"Colour\" is not an item of " + std::string(schema.className));
  }
}

// Every kind of item, and values of every other type in its place.
TEST(ToolElementJson, IsRefusedWithAValueOfAnotherType) {
  std::mt19937 random(104);
  const Json wrong[] = {nullptr,
                        true,
                        1.5,
                        "text",
                        Json::array(),
                        Json::object(),
                        Json::array({1, 2}),
                        Json::array({1, 2, 3, 4}),
                        Json::array({1, "2", 3})};
  for (const items::ElementSchema& schema : items::allElements()) {
    const std::vector<ItemValue> values = test::randomItems(schema, random);
    for (const ItemValue& value : values) {
      const items::Kind kind = value.schema->kind;
      const std::string name(displayName(*value.schema));
      for (const Json& one : wrong) {
        const bool isFlag = kind == items::Kind::kFlag || kind == items::Kind::kNumericFlag;
        const bool isText = kind == items::Kind::kString || kind == items::Kind::kAdherence;
        const bool isTaken = (one.is_boolean() && isFlag) || (one.is_string() && isText) ||
                             (one.is_number() && kind == items::Kind::kDouble) ||
                             (one == Json::array() && isList(kind)) ||
                             (one.is_array() && !one.empty() && one[1].is_number() &&
                              kind == items::Kind::kDoubleList);
        Json object = elementJson(schema, values);
        object[name] = one;
        const std::string refusal = refusalOf(object);
        EXPECT_EQ(refusal.empty(), isTaken) << name << ' ' << one.dump() << ' ' << refusal;
        EXPECT_TRUE(isTaken || refusal.find(name) != std::string::npos) << refusal;
      }
    }
  }
}

TEST(ToolElementJson, IsAnObjectOfAKnownClass) {
  EXPECT_EQ(refusalOf(Json::array()), "an element must be an object");
  EXPECT_EQ(refusalOf("x"), "an element must be an object");
  EXPECT_EQ(refusalOf(Json::object()), "\"class\" is missing");
  EXPECT_EQ(refusalOf({{"class", 5}}), "\"class\" must be a text, not 5");
  EXPECT_EQ(refusalOf({{"class", "Line"}}), "\"Line\" is not an element class");
  EXPECT_EQ(refusalOf({{"class", "cktzantoline"}}), "\"cktzantoline\" is not an element class");
}

TEST(ToolWholeNumbers, HaveThirtyTwoBits) {
  for (const double taken : {0.0, -0.0, 1.0, -1.0, 2147483647.0, -2147483648.0, 1e3}) {
    EXPECT_EQ(longFromJson(taken, "n", kLargestLong), static_cast<std::int64_t>(taken));
  }
  for (const double refused : {0.5, -0.5, 2147483648.0, -2147483649.0, 1e300, -1e300, 1e19}) {
    EXPECT_THROW(longFromJson(refused, "n", kLargestLong), WrongMember) << refused;
  }
  EXPECT_EQ(longFromJson(4294967295.0, "n", kLargestColor), 4294967295);
  EXPECT_THROW(longFromJson(4294967296.0, "n", kLargestColor), WrongMember);
  EXPECT_THROW(longFromJson(true, "n", kLargestLong), WrongMember);
}

TEST(ToolElementJson, NamesTheEntryThatIsWrong) {
  const Json polygon = {
      {"class", "CKtFilledPolygon"}, {"Points", {{0, 0, 0}, {1, 0, 0}, {1, 1}}}, {"Color", 1}};
  EXPECT_EQ(refusalOf(polygon), "\"Points[2]\" must be three numbers [x, y, z], not [1, 1]");
  const Json formwork = {
      {"class", "CKtZantoFormwork"},
      {"Segments", {{{"start", {0, 0, 0}}, {"end", {1, 0, "x"}}, {"bulge", {0, 0, 0}}}}}};
  EXPECT_EQ(refusalOf(formwork), "\"Segments[0].end\" must be a number, not \"x\"");
}

// A long value is not repeated whole.
TEST(ToolElementJson, QuotesTheBeginningOfAWrongValue) {
  const Json circle = {{"class", "CKtZantoCircle"},
                       {"Center", {0, 0, 0}},
                       {"Radius", std::string(500, 'x')},
                       {"Color", 1}};
  EXPECT_EQ(refusalOf(circle), "\"Radius\" must be a number, not \"" + std::string(59, 'x'));
}

}  // namespace

}  // namespace quorvan::tool
