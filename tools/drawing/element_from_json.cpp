#include <tools/drawing/element_from_json.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <quorvan/text/utf8.h>

#include <tools/text/text_beginning.h>

namespace quorvan::tool {

namespace {

constexpr std::int64_t kLeastLong = -2147483648;
constexpr std::size_t kMostQuoted = 60;  // of a wrong value, in bytes
constexpr std::string_view kSegmentMembers[] = {"start", "end", "bulge"};

[[noreturn]] void refuse(const std::string& name, std::string_view expected, const Json& value) {
  throw WrongMember('"' + name + "\" must be " + std::string(expected) + ", not " +
                    std::string(textBeginning(inlineJson(value), kMostQuoted)));
}

Coordinates pointFromJson(const Json& value, const std::string& name) {
  if (!value.is_array() || value.size() != 3) {
    refuse(name, "three numbers [x, y, z]", value);
  }
  return {doubleFromJson(value[0], name), doubleFromJson(value[1], name),
          doubleFromJson(value[2], name)};
}

template <class Entry, class Convert>
std::vector<Entry> listFromJson(const Json& value, const std::string& name,
                                const Convert& convert) {
  if (!value.is_array()) {
    refuse(name, "an array", value);
  }
  std::vector<Entry> entries;
  entries.reserve(value.size());
  for (const Json& entry : value) {
    entries.push_back(convert(entry, name + '[' + std::to_string(entries.size()) + ']'));
  }
  return entries;
}

Segment segmentFromJson(const Json& value, const std::string& name) {
  if (!value.is_object() || value.size() != std::size(kSegmentMembers) ||
      !std::ranges::all_of(kSegmentMembers,
                           [&](std::string_view member) { return value.contains(member); })) {
    refuse(name, R"({"start": ..., "end": ..., "bulge": ...})", value);
  }
  return {pointFromJson(value["start"], name + ".start"),
          pointFromJson(value["end"], name + ".end"),
          pointFromJson(value["bulge"], name + ".bulge")};
}

void setItem(const Json& value, const std::string& name, ItemValue& item) {
  switch (item.schema->kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      item.point = pointFromJson(value, name);
      return;
    case items::Kind::kDouble:
      item.number = doubleFromJson(value, name);
      return;
    case items::Kind::kLong:
      item.integer = longFromJson(value, name, kLargestLong);
      return;
    case items::Kind::kColor:
      item.integer = longFromJson(value, name, kLargestColor);
      return;
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      item.flag = flagFromJson(value, name);
      return;
    case items::Kind::kString:
    case items::Kind::kAdherence:
      item.text = textFromJson(value, name);
      return;
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      item.points = listFromJson<Coordinates>(value, name, pointFromJson);
      return;
    case items::Kind::kSegmentList:
      item.segments = listFromJson<Segment>(value, name, segmentFromJson);
      return;
    case items::Kind::kDoubleList:
      item.numbers = listFromJson<double>(value, name, doubleFromJson);
      return;
  }
}

const items::ElementSchema& schemaOf(const Json& object) {
  if (!object.is_object()) {
    throw WrongMember("an element must be an object");
  }
  const auto member = object.find("class");
  if (member == object.end()) {
    throw WrongMember("\"class\" is missing");
  }
  const std::string className = textFromJson(*member, "class");
  const items::ElementSchema* const schema = items::findElement(className);
  if (schema == nullptr) {
    throw WrongMember('"' + className + "\" is not an element class");
  }
  return *schema;
}

void refuseUnknownMembers(const Json& object, const items::ElementSchema& schema) {
  for (const auto& [key, value] : object.items()) {
    const std::string& name = key;
    const bool isKnown =
        name == "class" || std::ranges::any_of(schema.items, [&](const items::ItemSchema& item) {
          return displayName(item) == name;
        });
    if (!isKnown) {
      throw WrongMember('"' + name + "\" is not an item of " + std::string(schema.className));
    }
  }
}

}  // namespace

double doubleFromJson(const Json& value, const std::string& name) {
  if (value.is_string()) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::string& text = value.get_ref<const std::string&>();
    if (text == "inf" || text == "-inf") {
      return text.front() == '-' ? -kInfinity : kInfinity;
    }
    if (text == "nan") {
      return std::numeric_limits<double>::quiet_NaN();
    }
  }
  if (!value.is_number()) {
    refuse(name, "a number", value);
  }
  return value.get<double>();
}

std::int64_t longFromJson(const Json& value, const std::string& name, std::int64_t largest) {
  const double number = doubleFromJson(value, name);
  if (!(number == std::floor(number)) || number < static_cast<double>(kLeastLong) ||
      number > static_cast<double>(largest)) {
    refuse(name, "a whole number of 32 bits", value);
  }
  return static_cast<std::int64_t>(number);
}

bool flagFromJson(const Json& value, const std::string& name) {
  if (!value.is_boolean()) {
    refuse(name, "true or false", value);
  }
  return value.get<bool>();
}

std::string textFromJson(const Json& value, const std::string& name) {
  if (!value.is_string()) {
    refuse(name, "a text", value);
  }
  // A terminator would end the text; it becomes what the library makes of other such characters.
  std::string text;
  for (const char unit : value.get_ref<const std::string&>()) {
    if (unit == '\0') {
      appendUtf8(text, kReplacementCharacter);
    } else {
      text += unit;
    }
  }
  return text;
}

ElementInput elementFromJson(const Json& object) {
  ElementInput element;
  element.schema = &schemaOf(object);
  refuseUnknownMembers(object, *element.schema);
  for (const items::ItemSchema& schema : element.schema->items) {
    ItemValue& item = element.items.emplace_back();
    item.schema = &schema;
    const std::string name(displayName(schema));
    const auto member = object.find(name);
    if (member != object.end()) {
      setItem(*member, name, item);
    } else if (!schema.optional || isList(schema.kind)) {
      throw WrongMember('"' + name + "\" is missing");
    }
  }
  return element;
}

}  // namespace quorvan::tool
