// What two drawings differ by.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

enum class DifferenceKind : std::uint8_t { kDeleted, kAdded, kMoved, kChanged };

/// An item that has another value.
struct ItemChange {
  std::string item;
  std::string before;
  std::string after;
};

struct Difference {
  DifferenceKind kind;
  const Element* before = nullptr;  // null for what was added
  const Element* after = nullptr;   // null for what was deleted
  Coordinates by;                   // of what was moved
  std::vector<ItemChange> items;    // of what was changed
};

/// Compares by content, wherever the elements stand in the files and whatever their indexes are;
/// numbers that differ by `tolerance` or less are equal. Deleted, added, moved and changed elements
/// come in this order, each in the order of its file. Every element stands in one difference at
/// most.
std::vector<Difference> compareFiles(const TransferFile& before, const TransferFile& after,
                                     double tolerance, Console& console);

/// "deleted", "added", "moved", "changed".
std::string_view differenceName(DifferenceKind kind) noexcept;

}  // namespace quorvan::tool
