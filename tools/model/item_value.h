// The items of one element, as values.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <quorvan/elements/items/item_schema.h>

#include <tools/files/document_tree.h>

namespace quorvan::tool {

struct Coordinates {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  friend bool operator==(const Coordinates&, const Coordinates&) = default;
};

/// One piece of a formwork.
struct Segment {
  Coordinates start;
  Coordinates end;
  Coordinates bulge;

  friend bool operator==(const Segment&, const Segment&) = default;
};

/// The value of one item; what it holds goes by the kind of its schema.
struct ItemValue {
  const items::ItemSchema* schema = nullptr;
  const Node* node = nullptr;  // the item in the file, null where it is missing

  double number = 0.0;              // kDouble
  std::int64_t integer = 0;         // kLong, kColor (from 0 upwards)
  bool flag = false;                // kFlag, kNumericFlag
  std::string text;                 // kString, kAdherence
  Coordinates point;                // kPoint, kVector
  std::vector<Coordinates> points;  // kPointList, kNumberedPoints
  std::vector<Segment> segments;    // kSegmentList
  std::vector<double> numbers;      // kDoubleList

  [[nodiscard]] bool isMissing() const noexcept { return node == nullptr; }
};

/// The name under which JSON, listings and comparisons know the item: lists are named for what
/// they hold.
std::string_view displayName(const items::ItemSchema& item) noexcept;

/// Whether the item holds more than one value of its kind.
bool isList(items::Kind kind) noexcept;

/// The item of that name, null without one.
const ItemValue* findItem(const std::vector<ItemValue>& items, std::string_view name) noexcept;

/// Where the item of that name stands; null where it is missing.
const Node* nodeOf(const std::vector<ItemValue>& items, std::string_view name) noexcept;

}  // namespace quorvan::tool
