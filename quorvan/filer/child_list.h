// ChildList: the children of one node by name, for a document service that has to be asked for each
// of them. Not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::filer {

/// Lists the children as far as they were asked for. It is right as long as no child comes or goes.
class ChildList {
 public:
  /// Of no node.
  ChildList() = default;
  explicit ChildList(IXMLDOMNodePtr parent) : m_parent(std::move(parent)) {}

  /// Whether these are the children of `node`. False may be said of another handle to the node.
  [[nodiscard]] bool isOf(const IXMLDOMNodePtr& node) const noexcept {
    return m_parent != nullptr && dom::isCopy(m_parent, node);
  }

  /// The first child of that name, null without one. Raises what asking the service raises; the
  /// list is then as it was.
  IXMLDOMNodePtr first(const dom::Name& name);

 private:
  static constexpr std::size_t kUsualCount = 16;

  struct Child {
    Child(const dom::Name& childName, const IXMLDOMNodePtr& child)
        : hash(childName.hash()), name(childName.text()), node(child) {}

    std::uint32_t hash;
    std::string name;
    IXMLDOMNodePtr node;
  };

  bool listNext();

  IXMLDOMNodePtr m_parent;
  std::vector<Child> m_children;
  bool m_isComplete = false;
};

}  // namespace quorvan::filer
