#include <quorvan/filer/child_list.h>

#include <cstddef>

namespace quorvan::filer {

IXMLDOMNodePtr ChildList::first(const dom::Name& name) {
  for (std::size_t i = 0; i < m_children.size() || listNext(); ++i) {
    const Child& child = m_children[i];
    if (child.hash == name.hash() && child.name == name.text()) {
      return child.node;
    }
  }
  return {};
}

// Adds one more child; false when there is none.
bool ChildList::listNext() {
  if (m_isComplete) {
    return false;
  }
  const IXMLDOMNodePtr node =
      m_children.empty() ? dom::firstChild(m_parent) : dom::nextSibling(m_children.back().node);
  if (node == nullptr) {
    m_isComplete = true;
    return false;
  }
  if (m_children.empty()) {
    // A handle that moves to larger room costs two calls of the service.
    m_children.reserve(kUsualCount);
  }
  const dom::NodeName nodeName = dom::nodeName(node);
  m_children.emplace_back(nodeName.view(), node);
  return true;
}

}  // namespace quorvan::filer
