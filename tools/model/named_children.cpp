#include <tools/model/named_children.h>

#include <utility>

namespace quorvan::tool {

NamedChildren::NamedChildren(const DocumentTree& tree, const Node& parent)
    : m_tree(tree), m_next(tree.firstChild(parent)) {}

const Node* NamedChildren::find(std::string_view name) {
  if (m_next != nullptr && m_tree.name(*m_next) == name) {
    return std::exchange(m_next, m_tree.nextSibling(*m_next));
  }
  if (m_hasMany) {
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
  }
  std::size_t count = 0;
  for (const Node* child = m_next; child != nullptr; child = m_tree.nextSibling(*child)) {
    if (m_tree.name(*child) == name) {
      return child;
    }
    if (++count == kFewChildren) {
      break;
    }
  }
  if (count < kFewChildren) {
    return nullptr;
  }
  m_hasMany = true;
  for (const Node* child = m_next; child != nullptr; child = m_tree.nextSibling(*child)) {
    m_byName.emplace(m_tree.name(*child), child);
  }
  return find(name);
}

}  // namespace quorvan::tool
