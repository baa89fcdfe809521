// The children of one node by name, kept up to date: how many there are of each name, and the
// first and last of them. Each child knows the neighbours of its own name by its SiblingLinks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <quorvan/xml/embedded/tree/arena.h>
#include <quorvan/xml/embedded/tree/name_table.h>

namespace quorvan::embedded {

/// What the `parent` of a child of an indexed node refers to.
struct SiblingLinks {
  Ref parent;
  Ref nextSame;
  Ref previousSame;
};

inline constexpr std::uint32_t kSiblingLinksWords = sizeof(SiblingLinks) / sizeof(std::uint32_t);

class ChildIndex {
 public:
  /// The children of one name, in their order.
  struct Names {
    NameId name;
    Ref first;
    Ref last;
    int count;
  };

  ChildIndex();

  /// Null when no child of that name was ever there.
  [[nodiscard]] Names* find(NameId name) noexcept;
  /// The entry of that name, made when there is none. Raises std::bad_alloc with nothing changed.
  Names& findOrAdd(NameId name);

  /// In the order of their first appearance; some may have no child left.
  [[nodiscard]] const std::vector<Names>& names() const noexcept { return m_names; }

 private:
  [[nodiscard]] std::size_t slotOf(NameId name) const noexcept;
  void grow();

  std::vector<Names> m_names;
  std::vector<std::uint32_t> m_slots;  // 1 + the place in m_names, 0 for none
  std::uint32_t m_shift;
};

}  // namespace quorvan::embedded
