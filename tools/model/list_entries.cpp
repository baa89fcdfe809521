#include <tools/model/list_entries.h>

#include <algorithm>

#include <tools/model/item_text.h>

namespace quorvan::tool {

ListEntries::ListEntries(const DocumentTree& tree, const Node& parent, std::string_view stem) {
  if (stem.empty()) {
    return;
  }
  for (const Node* child = tree.firstChild(parent); child != nullptr;
       child = tree.nextSibling(*child)) {
    if (const auto number = entryNumber(tree.name(*child), stem)) {
      m_entries.push_back({*number, child});
    }
  }
  const auto byNumber = [](const ListEntry& a, const ListEntry& b) { return a.number < b.number; };
  if (!std::is_sorted(m_entries.begin(), m_entries.end(), byNumber)) {
    std::stable_sort(m_entries.begin(), m_entries.end(), byNumber);
  }
  const auto sameNumber = [](const ListEntry& a, const ListEntry& b) {
    return a.number == b.number;
  };
  m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), sameNumber), m_entries.end());
}

void ListEntries::limit(std::int64_t count) {
  const auto isBeyond = [count](const ListEntry& entry) {
    return static_cast<std::int64_t>(entry.number) > count;
  };
  m_entries.erase(std::find_if(m_entries.begin(), m_entries.end(), isBeyond), m_entries.end());
}

}  // namespace quorvan::tool
