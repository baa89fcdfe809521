#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

#include <algorithm>
#include <unordered_map>
#include <vector>

#include <quorvan/text/numbers.h>
#include <quorvan/text/utf8.h>
#include <quorvan/xml/character_rules.h>
#include <quorvan/xml/name_rules.h>
#include <quorvan/xml/service/document_class.h>
#include <quorvan/xml/service/document_file.h>
#include <quorvan/xml/service/node_access.h>
#include <quorvan/xml/service/tree_rules.h>

namespace quorvan::dom {

namespace {

using service::Bstr;
using service::check;
using service::found;
using service::Owned;

// Names and numbers are ASCII as a rule: those are widened where they are to stay.
Bstr wide(std::string_view utf8) {
  const bool isAscii = std::all_of(
      utf8.begin(), utf8.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
  if (!isAscii) {
    return Bstr(fromUtf8(utf8).view());
  }
  const BSTR text = ::SysAllocStringLen(nullptr, static_cast<UINT>(utf8.size()));
  if (text == nullptr) {
    throw std::bad_alloc();
  }
  std::copy(utf8.begin(), utf8.end(), text);
  return Bstr::adopt(text);
}

// Whether an element's own functions take the name for that of an attribute and nothing else.
bool isPlain(const Name& name) {
  const std::string_view text = name.text();
  return text.find(':') == std::string_view::npos && text.substr(0, 5) != "xmlns";
}

// The service makes whatever it is given into a node, and a file that cannot be read.
void requireName(const Name& name) {
  if (!dom::isXmlName(name.text())) {
    platform::raiseComError(E_FAIL);
  }
}

// Names are ASCII as a rule: those compare without a detour.
bool isSameName(std::wstring_view service, std::string_view utf8) {
  const bool same =
      std::equal(service.begin(), service.end(), utf8.begin(), utf8.end(),
                 [](wchar_t a, char b) { return a < 0x80 && static_cast<char>(a) == b; });
  return same || (service.size() < utf8.size() && toUtf8(service) == utf8);
}

IXMLDOMNodePtr handle(IXMLDOMNode* node) {
  return IXMLDOMNodePtr(node, false);
}

IXMLDOMNodePtr handleIf(HRESULT result, IXMLDOMNode* node) {
  // Copies of a handle cost calls of the service: what is returned is made once.
  IXMLDOMNodePtr owned = handle(node);
  if (!found(result)) {
    owned = nullptr;
  }
  return owned;
}

VARIANT textValue(const Bstr& text) {
  VARIANT value;
  ::VariantInit(&value);
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = text.get();
  return value;
}

Bstr xmlText(std::wstring_view value) {
  return dom::isXmlText(value) ? Bstr(value) : Bstr(dom::toXmlText(value));
}

void setAttribute(IXMLDOMElement& element, const Name& name, const VARIANT& value) {
  requireName(name);
  check(element.setAttribute(wide(name.text()).get(), value));
}

bool addAttributeValue(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                       const Name& name, const VARIANT& value) {
  IXMLDOMDocument& service = *document;
  if (isPlain(name)) {
    if (const Owned<IXMLDOMElement> owned = service::elementOf(*element); owned != nullptr) {
      setAttribute(*owned, name, value);
      return true;
    }
  }
  const Owned<IXMLDOMNamedNodeMap> map = service::attributeMap(*element);
  if (map == nullptr) {
    return false;
  }
  requireName(name);
  IXMLDOMAttribute* created = nullptr;
  check(service.createAttribute(wide(name.text()).get(), &created));
  const Owned<IXMLDOMAttribute> attribute(created);
  if (attribute == nullptr) {
    return false;
  }
  check(attribute->put_value(value));
  IXMLDOMNode* placed = nullptr;
  check(map->setNamedItem(attribute.get(), &placed));
  const Owned<IXMLDOMNode> owned(placed);
  return true;
}

Owned<IXMLDOMElement> newElement(IXMLDOMDocument& document, const Name& name) {
  requireName(name);
  IXMLDOMElement* element = nullptr;
  check(document.createElement(wide(name.text()).get(), &element));
  return Owned<IXMLDOMElement>(element);
}

void appendChild(IXMLDOMNode& parent, IXMLDOMNode& child) {
  service::requireAppendable(parent, child);
  service::takeOut(child);
  IXMLDOMNode* appended = nullptr;
  check(parent.appendChild(&child, &appended));
  const Owned<IXMLDOMNode> owned(appended);
}

bool attributeOf(IXMLDOMElement& element, const Name& name, AttributeValue& value) {
  VARIANT text;
  ::VariantInit(&text);
  if (!found(element.getAttribute(wide(name.text()).get(), &text)) || V_VT(&text) != VT_BSTR) {
    ::VariantClear(&text);
    return false;
  }
  value = AttributeValue(Bstr::adopt(V_BSTR(&text)));
  return true;
}

// An element that was made for the parent's document is in no tree, and the parent not below it:
// what may hold elements may hold it.
void appendMade(IXMLDOMNode& parent, IXMLDOMNode& element) {
  if (service::nodeType(parent) == NODE_ELEMENT) {
    check(parent.appendChild(&element, nullptr));
  } else {
    appendChild(parent, element);
  }
}

// Appends a new element after `set` has given it its attributes. False when it could not be made.
template <class Set>
bool appendMade(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent, const Name& name,
                const Set& set) {
  const Owned<IXMLDOMElement> element = newElement(*document, name);
  if (element == nullptr) {
    return false;
  }
  set(*element);
  appendMade(*parent, *element);
  return true;
}

IXMLDOMNodePtr firstNamed(IXMLDOMNodePtr node, const Name& name) {
  while (node != nullptr && !nodeNameIs(node, name)) {
    node = nextSibling(node);
  }
  return node;
}

}  // namespace

// --- documents -----------------------------------------------------------------------------

HRESULT createDocument(IXMLDOMDocumentPtr& document) {
  document = nullptr;
  IXMLDOMDocument* created = nullptr;
  const HRESULT result = service::createDocument(&created);
  if (SUCCEEDED(result)) {
    document = IXMLDOMDocumentPtr(created, false);
  }
  return result;
}

bool load(const IXMLDOMDocumentPtr& document, const CString& path) {
  return service::loadFile(*document, path);
}

bool load(const IXMLDOMDocumentPtr& document, const CString& path, LoadProblem& problem) {
  IXMLDOMDocument& service = *document;
  if (service::loadFile(service, path)) {
    return true;
  }
  service::explainFile(service, path, problem);
  return false;
}

bool loadBytes(const IXMLDOMDocumentPtr& document, std::string_view bytes, LoadProblem& problem) {
  IXMLDOMDocument& service = *document;
  if (service::loadBytes(service, bytes)) {
    return true;
  }
  service::explain(service, problem);
  return false;
}

void save(const IXMLDOMDocumentPtr& document, const CString& path, Durability durability) {
  service::saveFile(*document, path, durability);
}

void clearLeftOver(const CString& path) noexcept {
  service::clearLeftOver(path);
}

// --- building ------------------------------------------------------------------------------

IXMLDOMNodePtr createElement(const IXMLDOMDocumentPtr& document, const Name& name) {
  return handle(newElement(*document, name).release());
}

IXMLDOMNodePtr createProcessingInstruction(const IXMLDOMDocumentPtr& document, const Name& target,
                                           std::string_view data) {
  IXMLDOMDocument& service = *document;
  requireName(target);
  IXMLDOMProcessingInstruction* instruction = nullptr;
  check(service.createProcessingInstruction(wide(target.text()).get(), wide(data).get(),
                                            &instruction));
  return handle(instruction);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int16_t value) {
  VARIANT number;
  ::VariantInit(&number);
  V_VT(&number) = VT_I2;
  V_I2(&number) = value;
  return addAttributeValue(document, element, name, number);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int32_t value) {
  VARIANT number;
  ::VariantInit(&number);
  V_VT(&number) = VT_I4;
  V_I4(&number) = value;
  return addAttributeValue(document, element, name, number);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, AsciiText value) {
  return addAttributeValue(document, element, name, textValue(wide(value.text)));
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::wstring_view value) {
  return addAttributeValue(document, element, name, textValue(xmlText(value)));
}

void append(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& child) {
  appendChild(*document, *child);
}

void append(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child) {
  appendChild(*parent, *child);
}

void appendNew(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& element) {
  appendMade(*parent, *element);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const NewAttribute> attributes) {
  return appendMade(document, parent, name, [&](IXMLDOMElement& element) {
    for (const NewAttribute& attribute : attributes) {
      setAttribute(element, attribute.name, textValue(wide(attribute.value.text)));
    }
  });
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const Name> attributes, const double* numbers) {
  return appendMade(document, parent, name, [&](IXMLDOMElement& element) {
    const double* number = numbers;
    for (const Name& attribute : attributes) {
      char text[kFixed7Capacity];
      setAttribute(element, attribute, textValue(wide({text, formatFixed7(text, *number++)})));
    }
  });
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::int32_t number) {
  char text[kShortestCapacity];
  const NewAttribute only{attribute, {{text, formatLong(text, number)}}};
  return appendElement(document, parent, name, {&only, 1});
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::wstring_view value) {
  return appendMade(document, parent, name, [&](IXMLDOMElement& element) {
    setAttribute(element, attribute, textValue(xmlText(value)));
  });
}

// --- walking -------------------------------------------------------------------------------

IXMLDOMNodePtr firstChild(const IXMLDOMDocumentPtr& document) {
  IXMLDOMNode* child = nullptr;
  const HRESULT result = document->get_firstChild(&child);
  return handleIf(result, child);
}

IXMLDOMNodePtr firstChild(const IXMLDOMNodePtr& node) {
  // What the service lists below a DOCTYPE are its declarations, not children.
  if (service::nodeType(*node) == NODE_DOCUMENT_TYPE) {
    return {};
  }
  IXMLDOMNode* child = nullptr;
  const HRESULT result = node->get_firstChild(&child);
  return handleIf(result, child);
}

IXMLDOMNodePtr nextSibling(const IXMLDOMNodePtr& node) {
  IXMLDOMNode* sibling = nullptr;
  const HRESULT result = node->get_nextSibling(&sibling);
  return handleIf(result, sibling);
}

IXMLDOMNodePtr firstChildNamed(const IXMLDOMNodePtr& node, const Name& name) {
  return firstNamed(firstChild(node), name);
}

IXMLDOMNodePtr nextSiblingNamed(const IXMLDOMNodePtr& node, const Name& name) {
  return firstNamed(nextSibling(node), name);
}

NodeName nodeName(const IXMLDOMNodePtr& node) {
  return NodeName(toUtf8(service::nodeNameText(*node).view()));
}

bool nodeNameIs(const IXMLDOMNodePtr& node, const Name& name) {
  const Bstr text = service::nodeNameText(*node);
  return isSameName(text.view(), name.text());
}

bool isCopy(const IXMLDOMNodePtr& a, const IXMLDOMNodePtr& b) noexcept {
  return a.GetInterfacePtr() == b.GetInterfacePtr();
}

bool hasAttributes(const IXMLDOMNodePtr& node) {
  return service::nodeType(*node) == NODE_ELEMENT || service::attributeMap(*node) != nullptr;
}

bool attribute(const IXMLDOMNodePtr& node, const Name& name, AttributeValue& value) {
  if (isPlain(name)) {
    if (const Owned<IXMLDOMElement> element = service::elementOf(*node); element != nullptr) {
      return attributeOf(*element, name, value);
    }
  }
  const Owned<IXMLDOMNamedNodeMap> map = service::attributeMap(*node);
  if (map == nullptr) {
    return false;
  }
  IXMLDOMNode* entry = nullptr;
  const bool has = found(map->getNamedItem(wide(name.text()).get(), &entry));
  const Owned<IXMLDOMNode> owned(entry);
  if (!has || entry == nullptr) {
    return false;
  }
  value = AttributeValue(service::valueText(*entry));
  return true;
}

void countChildNames(const IXMLDOMNodePtr& node, ChildNameCounts& counts) {
  std::unordered_map<std::string, int> children;
  std::vector<const std::string*> order;
  for (IXMLDOMNodePtr child = firstChild(node); child != nullptr; child = nextSibling(child)) {
    const auto [entry, isNew] = children.try_emplace(std::string(nodeName(child).view().text()), 0);
    if (isNew) {
      order.push_back(&entry->first);
    }
    ++entry->second;
  }
  for (const std::string* name : order) {
    counts.count(Name(*name), children[*name]);
  }
}

// The service's nodes can be changed past this contract, through their own interfaces: nothing
// about the tree may be remembered.
std::uint64_t revision(const IXMLDOMDocumentPtr& document) {
  static_cast<void>(*document);
  return 0;
}

}  // namespace quorvan::dom

namespace quorvan {

CString nodeName(const IXMLDOMNodePtr& node) {
  if (node == nullptr) {
    return {};
  }
  return CString(service::nodeNameText(*node).view());
}

}  // namespace quorvan
