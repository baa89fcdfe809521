// The classes that are known, from the item tables.
#include <quorvan/elements/element_classes.h>
#include <quorvan/reading/kinds.h>
#include <quorvan/reading/read.h>

namespace items = quorvan::items;

namespace {

const items::ElementSchema* classAt(int number) noexcept {
  const auto classes = items::allElements();
  const auto at = static_cast<std::size_t>(number);
  return number >= 0 && at < classes.size() ? &classes[at] : nullptr;
}

const items::ItemSchema* itemAt(int classNumber, int item) noexcept {
  const items::ElementSchema* const element = classAt(classNumber);
  const auto at = static_cast<std::size_t>(item);
  return element != nullptr && item >= 0 && at < element->items.size() ? &element->items[at]
                                                                       : nullptr;
}

}  // namespace

QuorvanKind quorvan::reading::kindOf(items::Kind kind) noexcept {
  switch (kind) {
    case items::Kind::kPoint:
      return QUORVAN_KIND_POINT;
    case items::Kind::kVector:
      return QUORVAN_KIND_VECTOR;
    case items::Kind::kDouble:
      return QUORVAN_KIND_DOUBLE;
    case items::Kind::kLong:
      return QUORVAN_KIND_LONG;
    case items::Kind::kColor:
      return QUORVAN_KIND_COLOR;
    case items::Kind::kString:
    case items::Kind::kAdherence:
      return QUORVAN_KIND_TEXT;
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      return QUORVAN_KIND_FLAG;
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      return QUORVAN_KIND_POINTS;
    case items::Kind::kSegmentList:
      return QUORVAN_KIND_SEGMENTS;
    case items::Kind::kDoubleList:
      return QUORVAN_KIND_DOUBLES;
  }
  return QUORVAN_KIND_NONE;
}

// The names of the tables are literals, and terminated.

int quorvanClassCount() {
  return static_cast<int>(items::allElements().size());
}

const char* quorvanClassName(int classNumber) {
  const items::ElementSchema* const element = classAt(classNumber);
  return element == nullptr ? "" : element->className.data();
}

int quorvanClassItemCount(int classNumber) {
  const items::ElementSchema* const element = classAt(classNumber);
  return element == nullptr ? 0 : static_cast<int>(element->items.size());
}

const char* quorvanClassItemName(int classNumber, int item) {
  const items::ItemSchema* const found = itemAt(classNumber, item);
  return found == nullptr ? "" : found->name.data();
}

int quorvanClassItemKind(int classNumber, int item) {
  const items::ItemSchema* const found = itemAt(classNumber, item);
  return found == nullptr ? QUORVAN_KIND_NONE : quorvan::reading::kindOf(found->kind);
}

int quorvanClassItemIsOptional(int classNumber, int item) {
  const items::ItemSchema* const found = itemAt(classNumber, item);
  return found != nullptr && found->optional ? 1 : 0;
}
