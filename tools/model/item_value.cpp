#include <tools/model/item_value.h>

namespace quorvan::tool {

std::string_view displayName(const items::ItemSchema& item) noexcept {
  switch (item.kind) {
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      return "Points";
    case items::Kind::kSegmentList:
      return "Segments";
    case items::Kind::kPoint:
    case items::Kind::kVector:
    case items::Kind::kDouble:
    case items::Kind::kLong:
    case items::Kind::kColor:
    case items::Kind::kString:
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
    case items::Kind::kAdherence:
    case items::Kind::kDoubleList:
      break;
  }
  return item.name;
}

bool isList(items::Kind kind) noexcept {
  return kind == items::Kind::kPointList || kind == items::Kind::kNumberedPoints ||
         kind == items::Kind::kSegmentList || kind == items::Kind::kDoubleList;
}

const ItemValue* findItem(const std::vector<ItemValue>& items, std::string_view name) noexcept {
  for (const ItemValue& item : items) {
    if (item.schema->name == name) {
      return &item;
    }
  }
  return nullptr;
}

const Node* nodeOf(const std::vector<ItemValue>& items, std::string_view name) noexcept {
  const ItemValue* const item = findItem(items, name);
  return item == nullptr ? nullptr : item->node;
}

}  // namespace quorvan::tool
