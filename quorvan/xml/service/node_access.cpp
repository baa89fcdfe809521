#include <quorvan/xml/service/node_access.h>

#include <quorvan/platform/com_error.h>

namespace quorvan::service {

void check(HRESULT result) {
  if (FAILED(result)) {
    platform::raiseComError(result);
  }
}

bool found(HRESULT result) {
  if (result == E_NOTIMPL) {
    return false;
  }
  check(result);
  return result == S_OK;
}

DOMNodeType nodeType(IXMLDOMNode& node) {
  DOMNodeType type = NODE_INVALID;
  check(node.get_nodeType(&type));
  return type;
}

Owned<IXMLDOMElement> elementOf(IXMLDOMNode& node) {
  void* element = nullptr;
  if (FAILED(node.QueryInterface(__uuidof(IXMLDOMElement), &element))) {
    return nullptr;
  }
  return Owned<IXMLDOMElement>(static_cast<IXMLDOMElement*>(element));
}

Bstr nodeNameText(IXMLDOMNode& node) {
  BSTR name = nullptr;
  check(node.get_nodeName(&name));
  return Bstr::adopt(name);
}

Bstr valueText(IXMLDOMNode& attribute) {
  VARIANT value;
  ::VariantInit(&value);
  check(attribute.get_nodeValue(&value));
  if (V_VT(&value) == VT_BSTR) {
    return Bstr::adopt(V_BSTR(&value));
  }
  ::VariantClear(&value);
  return {};
}

Owned<IXMLDOMNode> parentOf(IXMLDOMNode& node) {
  IXMLDOMNode* parent = nullptr;
  const bool has = found(node.get_parentNode(&parent));
  Owned<IXMLDOMNode> owned(parent);
  return has ? std::move(owned) : nullptr;
}

void takeOut(IXMLDOMNode& node) {
  const Owned<IXMLDOMNode> parent = parentOf(node);
  if (parent == nullptr) {
    return;
  }
  IXMLDOMNode* removed = nullptr;
  check(parent->removeChild(&node, &removed));
  const Owned<IXMLDOMNode> owned(removed);
}

Owned<IXMLDOMNamedNodeMap> attributeMap(IXMLDOMNode& node) {
  return attributeMap(node, nodeType(node));
}

Owned<IXMLDOMNamedNodeMap> attributeMap(IXMLDOMNode& node, DOMNodeType type) {
  if (type != NODE_ELEMENT && type != NODE_PROCESSING_INSTRUCTION) {
    return nullptr;
  }
  IXMLDOMNamedNodeMap* map = nullptr;
  const bool has = found(node.get_attributes(&map));
  Owned<IXMLDOMNamedNodeMap> owned(map);
  return has ? std::move(owned) : nullptr;
}

}  // namespace quorvan::service
