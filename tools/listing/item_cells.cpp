#include <tools/listing/item_cells.h>

#include <quorvan/elements/items/item_words.h>

#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

bool hasCoordinates(items::Kind kind) {
  return kind == items::Kind::kPoint || kind == items::Kind::kVector;
}

std::string cell(const Coordinates& point) {
  return shortest(point.x) + ", " + shortest(point.y) + ", " + shortest(point.z);
}

std::string inParentheses(const Coordinates& point) {
  return '(' + cell(point) + ')';
}

std::string inParentheses(const Segment& segment) {
  std::string text = inParentheses(segment.start) + "-" + inParentheses(segment.end);
  if (segment.bulge != Coordinates()) {
    text += " bulge " + inParentheses(segment.bulge);
  }
  return text;
}

std::string inParentheses(double value) {
  return shortest(value);
}

template <class Value>
std::string cell(const std::vector<Value>& values) {
  std::string text;
  for (const Value& value : values) {
    text += (text.empty() ? "" : " ") + inParentheses(value);
  }
  return text;
}

}  // namespace

std::string itemCell(const ItemValue& item) {
  if (item.isMissing()) {
    return {};
  }
  switch (item.schema->kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      return cell(item.point);
    case items::Kind::kDouble:
      return shortest(item.number);
    case items::Kind::kLong:
    case items::Kind::kColor:
      return std::to_string(item.integer);
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      return std::string(item.flag ? items::kTrue : items::kFalse);
    case items::Kind::kString:
    case items::Kind::kAdherence:
      return item.text;
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      return cell(item.points);
    case items::Kind::kSegmentList:
      return cell(item.segments);
    case items::Kind::kDoubleList:
      return cell(item.numbers);
  }
  return {};
}

std::vector<std::string> itemTitles(const items::ItemSchema& schema) {
  const std::string name(displayName(schema));
  if (!hasCoordinates(schema.kind)) {
    return {name};
  }
  return {name + ".X", name + ".Y", name + ".Z"};
}

std::vector<std::string> itemCells(const ItemValue& item) {
  if (!hasCoordinates(item.schema->kind)) {
    return {itemCell(item)};
  }
  if (item.isMissing()) {
    return {"", "", ""};
  }
  return {shortest(item.point.x), shortest(item.point.y), shortest(item.point.z)};
}

}  // namespace quorvan::tool
