// The items of an element as its children, found by their names.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include <tools/files/transfer_file.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

/// The children of one element by name: the first of each, which is the one that readers find.
class NamedChildren {
 public:
  NamedChildren(const DocumentTree& tree, const Node& parent);

  /// Null where there is none. No name is asked for twice. Costs least in the order of the file.
  const Node* find(std::string_view name);

  /// Whether every child was found, and in the order of the file.
  [[nodiscard]] bool isExhausted() const noexcept { return m_next == nullptr; }

 private:
  static constexpr std::size_t kFewChildren = 24;

  const DocumentTree& m_tree;
  const Node* m_next;  // those before it were asked for
  std::unordered_map<std::string_view, const Node*, KeyedHash> m_byName;  // where there are many
  bool m_hasMany = false;
};

}  // namespace quorvan::tool
