#include <quorvan/xml/service/tree_rules.h>

#include <string>

#include <quorvan/platform/com_error.h>
#include <quorvan/xml/service/node_access.h>

namespace quorvan::service {

namespace {

bool hasEntry(IXMLDOMNamedNodeMap& map, const Bstr& name) {
  IXMLDOMNode* entry = nullptr;
  const bool has = found(map.getNamedItem(name.get(), &entry));
  const Owned<IXMLDOMNode> owned(entry);
  return has && entry != nullptr;
}

// An attribute that an element carries for a moment.
class Mark {
 public:
  Mark(IXMLDOMNode& element, const Bstr& name) : m_map(attributeMap(element)), m_name(name.view()) {
    if (m_map == nullptr) {
      platform::raiseComError(E_FAIL);
    }
    IXMLDOMDocument* rawDocument = nullptr;
    check(element.get_ownerDocument(&rawDocument));
    const Owned<IXMLDOMDocument> document(rawDocument);
    if (document == nullptr) {
      platform::raiseComError(E_FAIL);
    }
    IXMLDOMAttribute* rawAttribute = nullptr;
    check(document->createAttribute(m_name.get(), &rawAttribute));
    const Owned<IXMLDOMAttribute> attribute(rawAttribute);
    IXMLDOMNode* placed = nullptr;
    check(m_map->setNamedItem(attribute.get(), &placed));
    const Owned<IXMLDOMNode> owned(placed);
  }
  ~Mark() {
    IXMLDOMNode* removed = nullptr;
    static_cast<void>(m_map->removeNamedItem(m_name.get(), &removed));
    const Owned<IXMLDOMNode> owned(removed);
  }
  Mark(const Mark&) = delete;
  Mark& operator=(const Mark&) = delete;

 private:
  Owned<IXMLDOMNamedNodeMap> m_map;
  Bstr m_name;
};

// The service hands out a new pointer with every look at a node, so pointers do not tell whether
// two elements are one: an attribute put on the one and seen on the other does.
bool isSameElement(IXMLDOMNode& a, IXMLDOMNode& b) {
  if (nodeType(a) != NODE_ELEMENT || nodeType(b) != NODE_ELEMENT) {
    return false;
  }
  if (nodeNameText(a).view() != nodeNameText(b).view()) {
    return false;
  }
  const Owned<IXMLDOMNamedNodeMap> map = attributeMap(b);
  if (map == nullptr) {
    return false;
  }
  std::wstring name = L"quorvan-mark";
  while (hasEntry(*map, Bstr(name))) {
    name += L'-';
  }
  const Bstr markName(name);
  const Mark mark(a, markName);
  return hasEntry(*map, markName);
}

bool hasChildren(IXMLDOMNode& node) {
  VARIANT_BOOL has = VARIANT_FALSE;
  return found(node.hasChildNodes(&has)) && has != VARIANT_FALSE;
}

bool isSelfOrAncestor(IXMLDOMNode& child, IXMLDOMNode& parent) {
  if (isSameElement(child, parent)) {
    return true;
  }
  if (!hasChildren(child)) {
    return false;
  }
  for (Owned<IXMLDOMNode> above = parentOf(parent); above != nullptr; above = parentOf(*above)) {
    if (isSameElement(child, *above)) {
      return true;
    }
  }
  return false;
}

// The element among the document's children, null without one.
Owned<IXMLDOMNode> rootElement(IXMLDOMNode& document) {
  IXMLDOMNode* raw = nullptr;
  bool more = found(document.get_firstChild(&raw));
  Owned<IXMLDOMNode> child(raw);
  while (more && child != nullptr && nodeType(*child) != NODE_ELEMENT) {
    raw = nullptr;
    more = found(child->get_nextSibling(&raw));
    child.reset(raw);
  }
  return child;
}

bool elementMayHold(IXMLDOMNode& parent, IXMLDOMNode& child) {
  switch (nodeType(child)) {
    case NODE_ELEMENT:
      return !isSelfOrAncestor(child, parent);
    case NODE_TEXT:
    case NODE_CDATA_SECTION:
    case NODE_ENTITY_REFERENCE:
    case NODE_COMMENT:
      return true;
    case NODE_PROCESSING_INSTRUCTION:
      return nodeNameText(child).view() != L"xml";
    default:
      return false;
  }
}

bool documentMayHold(IXMLDOMNode& document, IXMLDOMNode& child) {
  switch (nodeType(child)) {
    case NODE_ELEMENT: {
      const Owned<IXMLDOMNode> root = rootElement(document);
      return root == nullptr || isSameElement(*root, child);
    }
    case NODE_PROCESSING_INSTRUCTION:
    case NODE_COMMENT:
      return true;
    default:
      return false;
  }
}

}  // namespace

void requireAppendable(IXMLDOMNode& parent, IXMLDOMNode& child) {
  const DOMNodeType type = nodeType(parent);
  const bool allowed = type == NODE_ELEMENT    ? elementMayHold(parent, child)
                       : type == NODE_DOCUMENT ? documentMayHold(parent, child)
                                               : false;
  if (!allowed) {
    platform::raiseComError(E_FAIL);
  }
}

}  // namespace quorvan::service
