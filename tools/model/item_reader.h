// Reads the items of elements after the item tables, as the library does.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/attribute_reader.h>
#include <tools/model/item_problem.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

/// Some of the items of each class.
class ItemSelection {
 public:
  explicit ItemSelection(bool (*isWanted)(const items::ItemSchema& item));

  [[nodiscard]] bool holds(const items::ElementSchema& schema, std::size_t item) const noexcept {
    return (m_items[static_cast<std::size_t>(schema.id)] >> item & 1U) != 0;
  }
  [[nodiscard]] bool holdsNone(const items::ElementSchema& schema) const noexcept {
    return m_items[static_cast<std::size_t>(schema.id)] == 0;
  }

 private:
  std::array<std::uint32_t, items::kElementClasses> m_items{};  // a bit an item
};

/// Whether children that are no items, and items that come again, are problems as well.
enum class Strangers : std::uint8_t { kReported, kPassedOver };

class ItemReader {
 public:
  explicit ItemReader(const TransferFile& file, Values values = Values::kAsRead)
      : m_tree(file.tree()), m_values(values) {}

  /// The items of an element of a known class, one for each of its schema in that order; valid
  /// until the next call. Items that are missing or cannot be read hold their default. What is
  /// wrong with them is appended to `problems` unless it is null.
  const std::vector<ItemValue>& read(const Element& element,
                                     std::vector<ItemProblem>* problems = nullptr,
                                     Strangers strangers = Strangers::kReported);

  /// The same, but only those of the selection are read; the others are as if missing.
  const std::vector<ItemValue>& read(const Element& element, const ItemSelection& selection);

  /// One item alone, by its place in the schema; valid until the next call.
  const ItemValue& readOne(const Element& element, std::size_t place);

 private:
  class Reading;

  const DocumentTree& m_tree;
  Values m_values;
  std::vector<ItemValue> m_items;
};

}  // namespace quorvan::tool
