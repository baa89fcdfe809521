#include <tests/tools/item_samples.h>

#include <array>
#include <cstdint>
#include <limits>

#include <quorvan/text/utf8.h>

#include <tests/support/transfer_text.h>

namespace quorvan::test {

namespace {

using items::Kind;
using tool::Coordinates;
using tool::ItemValue;
using tool::Segment;

// An object of a node of its own: what is not missing stands somewhere.
const tool::Node kSomewhere;

constexpr std::size_t kMostEntries = 9;

class RandomValues {
 public:
  explicit RandomValues(std::mt19937& random) : m_random(random) {}

  std::int64_t whole(std::int64_t least, std::int64_t most) {
    return std::uniform_int_distribution<std::int64_t>(least, most)(m_random);
  }
  double number() { return static_cast<double>(whole(-80000, 80000)) / 8.0; }
  std::int64_t ofLong() {
    return whole(std::numeric_limits<std::int32_t>::min(),
                 std::numeric_limits<std::int32_t>::max());
  }
  std::int64_t ofColor() { return whole(0, std::numeric_limits<std::uint32_t>::max()); }
  bool flag() { return whole(0, 1) == 1; }
  Coordinates point() { return {number(), number(), number()}; }
  Segment segment() { return {point(), point(), point()}; }
  std::string text() {
    static const std::array<std::string, 8> kTexts = {"",
                                                      "B500B",
                                                      "a \"b\" & <c> 'd'",
                                                      "\u00E9\u00C9 \u20AC \u2013",
                                                      "\u05D0\u05D1 12 \u0627\u0628",
                                                      "\u202Eturned\u202C",
                                                      "\U0001F600",
                                                      "two\nlines\tand a tab"};
    return kTexts[static_cast<std::size_t>(whole(0, std::ssize(kTexts) - 1))];
  }
  template <class Make>
  auto listOf(Make make) {
    std::vector<decltype(make())> list(static_cast<std::size_t>(whole(0, kMostEntries)));
    for (auto& entry : list) {
      entry = make();
    }
    return list;
  }

 private:
  std::mt19937& m_random;
};

CKtPnt3D asPoint(const Coordinates& point) {
  return {point.x, point.y, point.z};
}

std::vector<CKtPnt3D> asPoints(const std::vector<Coordinates>& points) {
  std::vector<CKtPnt3D> result;
  for (const Coordinates& point : points) {
    result.push_back(asPoint(point));
  }
  return result;
}

std::string segmentEntries(const std::vector<Segment>& segments) {
  std::string text;
  long long point = 0;
  long long bulge = 0;
  for (const Segment& segment : segments) {
    text += pointItem(numbered("Point", ++point), asPoint(segment.start));
    text += pointItem(numbered("Point", ++point), asPoint(segment.end));
    text += pointItem(numbered("Bulge", ++bulge), asPoint(segment.bulge));
  }
  return text;
}

long asLong(std::int64_t number) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

}  // namespace

std::vector<ItemValue> randomItems(const items::ElementSchema& schema, std::mt19937& random) {
  RandomValues values(random);
  std::vector<ItemValue> items;
  for (const items::ItemSchema& one : schema.items) {
    ItemValue& item = items.emplace_back();
    item.schema = &one;
    item.node = &kSomewhere;
    switch (one.kind) {
      case Kind::kPoint:
      case Kind::kVector:
        item.point = values.point();
        break;
      case Kind::kDouble:
        item.number = values.number();
        break;
      case Kind::kLong:
        item.integer = values.ofLong();
        break;
      case Kind::kColor:
        item.integer = values.ofColor();
        break;
      case Kind::kNumericFlag:
        item.flag = values.flag();
        item.integer = item.flag ? 1 : 0;
        break;
      case Kind::kFlag:
        item.flag = values.flag();
        break;
      case Kind::kString:
      case Kind::kAdherence:
        item.text = values.text();
        break;
      case Kind::kPointList:
      case Kind::kNumberedPoints:
        item.points = values.listOf([&] { return values.point(); });
        break;
      case Kind::kSegmentList:
        item.segments = values.listOf([&] { return values.segment(); });
        break;
      case Kind::kDoubleList:
        item.numbers = values.listOf([&] { return values.number(); });
        break;
    }
  }
  return items;
}

bool sameValue(const ItemValue& a, const ItemValue& b) {
  return a.schema == b.schema && a.isMissing() == b.isMissing() && a.number == b.number &&
         a.integer == b.integer && a.flag == b.flag && a.text == b.text && a.point == b.point &&
         a.points == b.points && a.segments == b.segments && a.numbers == b.numbers;
}

std::string itemText(const ItemValue& item) {
  const std::string_view name = item.schema->name;
  const std::string_view stem = item.schema->stem;
  switch (item.schema->kind) {
    case Kind::kPoint:
    case Kind::kVector:
      return pointItem(name, asPoint(item.point));
    case Kind::kDouble:
      return doubleItem(name, item.number);
    case Kind::kLong:
    case Kind::kColor:
    case Kind::kNumericFlag:
      return longItem(name, asLong(item.integer));
    case Kind::kFlag:
      return flagItem(name, item.flag);
    case Kind::kString:
    case Kind::kAdherence:
      return textItem(name, static_cast<const wchar_t*>(fromUtf8(item.text)));
    case Kind::kPointList:
      return listItem(name, std::ssize(item.points), pointEntries(stem, asPoints(item.points)));
    case Kind::kNumberedPoints:
      return longItem(name, static_cast<long>(item.points.size())) +
             pointEntries(stem, asPoints(item.points));
    case Kind::kSegmentList:
      return listItem(name, 2 * std::ssize(item.segments), segmentEntries(item.segments));
    case Kind::kDoubleList:
      return listItem(name, std::ssize(item.numbers), doubleEntries(stem, item.numbers));
  }
  return {};
}

std::string elementText(const items::ElementSchema& schema, const std::vector<ItemValue>& items,
                        int index) {
  std::string text;
  for (const ItemValue& item : items) {
    text += itemText(item);
  }
  return classElement(schema.className, index, text);
}

std::string elementTextWithout(const items::ElementSchema& schema,
                               const std::vector<ItemValue>& items, std::string_view missing) {
  std::string text;
  for (const ItemValue& item : items) {
    text += item.schema->name == missing ? "" : itemText(item);
  }
  return classElement(schema.className, 1, text);
}

}  // namespace quorvan::test
