#include <quorvan/xml/embedded/values.h>

#include <quorvan/text/numbers.h>
#include <quorvan/text/utf8.h>
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::dom {

double AttributeValue::toDouble() const noexcept {
  return parseDouble(m_text);
}

std::int32_t AttributeValue::toLong() const noexcept {
  return parseLong(m_text);
}

CString AttributeValue::toText() const {
  return fromUtf8(m_text);
}

AttributeCursor::AttributeCursor(const IXMLDOMNodePtr& node)
    : m_names(&embedded::Tree::of(node).nodes().names()) {
  const embedded::NodeStore& nodes = embedded::Tree::of(node).nodes();
  const embedded::Ref ref = embedded::Tree::nodeOf(node);
  if (nodes.node(ref).hasAttributeMap()) {
    m_values = nodes.values(ref);
  }
}

}  // namespace quorvan::dom

namespace quorvan {

CString nodeName(const IXMLDOMNodePtr& node) {
  if (node == nullptr) {
    return {};
  }
  embedded::Tree& tree = embedded::Tree::of(node);
  const embedded::NameId name = tree.node(embedded::Tree::nodeOf(node)).name();
  return fromUtf8(tree.nodes().names()[name].view());
}

}  // namespace quorvan
