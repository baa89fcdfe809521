// The entries of a list in a file: children named by a stem and a number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include <tools/files/document_tree.h>

namespace quorvan::tool {

/// The largest "size" that a list is filed with: it has 16 bits.
inline constexpr std::size_t kLargestSize = 32767;

struct ListEntry {
  std::uint32_t number;
  const Node* node;
};

/// The entries below `parent`, by ascending number, the first of each; none for an empty stem.
class ListEntries {
 public:
  ListEntries(const DocumentTree& tree, const Node& parent, std::string_view stem);

  [[nodiscard]] const std::vector<ListEntry>& all() const noexcept { return m_entries; }

  /// Whether the numbers run from 1 without a gap.
  [[nodiscard]] bool isGapless() const noexcept {
    return m_entries.empty() || m_entries.back().number == m_entries.size();
  }

  /// Drops the entries with numbers above `count`, which readers do not look for.
  void limit(std::int64_t count);

 private:
  std::vector<ListEntry> m_entries;
};

}  // namespace quorvan::tool
