// The contract of dom.h over the embedded document: each operation finds its tree and hands on.
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

#include <algorithm>
#include <new>

#include <quorvan/text/numbers.h>
#include <quorvan/xml/embedded/document.h>
#include <quorvan/xml/embedded/tree/instruction.h>
#include <quorvan/xml/embedded/tree/value_text.h>

namespace quorvan::dom {

namespace {

using embedded::Document;
using embedded::Node;
using embedded::Ref;
using embedded::Tree;
using embedded::Value;
using embedded::WideValue;
using embedded::WrittenText;

// The node of a handle that was found not to be null.
struct Place {
  explicit Place(const IXMLDOMNodePtr& handle)
      : tree(Tree::of(handle)), ref(Tree::nodeOf(handle)) {}

  [[nodiscard]] const Node& node() const noexcept { return tree.node(ref); }

  Tree& tree;
  Ref ref;
};

bool put(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element, const Name& name,
         const Value& value) {
  static_cast<void>(Document::of(document));
  const Place place(element);
  if (!place.node().hasAttributeMap()) {
    return false;
  }
  if (place.node().isDeclaration()) {
    embedded::putDeclarationPart(place.tree, place.ref, name, value.text);
  } else {
    place.tree.putAttribute(place.ref, name, value);
  }
  return true;
}

bool putNumber(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element, const Name& name,
               std::int32_t value) {
  char digits[kShortestCapacity];
  const char* const end = formatLong(digits, value);
  return put(document, element, name, {{digits, static_cast<std::size_t>(end - digits)}, true});
}

void appendTo(Tree& tree, Ref parent, const IXMLDOMNodePtr& child) {
  const Place place(child);
  if (&place.tree == &tree) {
    tree.append(parent, place.ref);
  } else {
    tree.adopt(parent, place.tree, place.ref);
  }
}

// Appends a new element with attributes as Tree::createElement() takes them.
template <class NameAt, class Put>
bool appendWith(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent, const Name& name,
                std::size_t count, std::size_t capacity, const NameAt& nameAt, const Put& put) {
  Tree& tree = Document::of(document).tree();
  const Place place(parent);
  const Ref element = tree.createElement(name, count, capacity, nameAt, put);
  if (&place.tree == &tree && place.node().isElement()) {
    tree.appendNew(place.ref, element);
  } else {
    appendTo(place.tree, place.ref, tree.handle(element));
  }
  return true;
}

}  // namespace

// --- documents -----------------------------------------------------------------------------

HRESULT createDocument(IXMLDOMDocumentPtr& document) {
  document = nullptr;
  try {
    document = Document::create();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
  return S_OK;
}

bool load(const IXMLDOMDocumentPtr& document, const CString& path) {
  LoadProblem problem;
  return Document::of(document).load(path, problem);
}

bool load(const IXMLDOMDocumentPtr& document, const CString& path, LoadProblem& problem) {
  return Document::of(document).load(path, problem);
}

bool loadBytes(const IXMLDOMDocumentPtr& document, std::string_view bytes, LoadProblem& problem) {
  return Document::of(document).loadBytes(bytes, problem);
}

void save(const IXMLDOMDocumentPtr& document, const CString& path, Durability durability) {
  Document::of(document).save(path, durability);
}

void clearLeftOver(const CString& path) noexcept {
  Document::clearLeftOver(path);
}

// --- building ------------------------------------------------------------------------------

IXMLDOMNodePtr createElement(const IXMLDOMDocumentPtr& document, const Name& name) {
  Tree& tree = Document::of(document).tree();
  return tree.handle(tree.createElement(name));
}

IXMLDOMNodePtr createProcessingInstruction(const IXMLDOMDocumentPtr& document, const Name& target,
                                           std::string_view data) {
  Tree& tree = Document::of(document).tree();
  return tree.handle(embedded::createInstruction(tree, target, data));
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int16_t value) {
  return putNumber(document, element, name, value);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int32_t value) {
  return putNumber(document, element, name, value);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, AsciiText value) {
  return put(document, element, name, {value.text, true});
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::wstring_view value) {
  return put(document, element, name, WideValue(value).value());
}

void append(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& child) {
  Tree& tree = Document::of(document).tree();
  appendTo(tree, tree.document(), child);
}

void append(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child) {
  const Place place(parent);
  appendTo(place.tree, place.ref, child);
}

void appendNew(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& element) {
  append(parent, element);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const NewAttribute> attributes) {
  std::size_t largest = 0;
  for (const NewAttribute& attribute : attributes) {
    largest = std::max(largest, attribute.value.text.size());
  }
  const auto nameAt = [&](std::size_t i) -> const Name& { return attributes[i].name; };
  const auto put = [&](std::size_t i, char* to) {
    const std::string_view text = attributes[i].value.text;
    embedded::value_entry::copyBytes(to, text.data(), text.size());
    return WrittenText{to + text.size(), true};
  };
  return appendWith(document, parent, name, attributes.size(), largest, nameAt, put);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const Name> attributes, const double* numbers) {
  const auto nameAt = [&](std::size_t i) -> const Name& { return attributes[i]; };
  const auto put = [&](std::size_t i, char* to) {
    return WrittenText{formatFixed7(to, numbers[i]), true};
  };
  return appendWith(document, parent, name, attributes.size(), kFixed7Capacity, nameAt, put);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::int32_t number) {
  const auto nameAt = [&](std::size_t) -> const Name& { return attribute; };
  const auto put = [&](std::size_t, char* to) { return WrittenText{formatLong(to, number), true}; };
  return appendWith(document, parent, name, 1, kShortestCapacity, nameAt, put);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::wstring_view value) {
  const auto nameAt = [&](std::size_t) -> const Name& { return attribute; };
  const auto put = [&](std::size_t, char* to) { return embedded::putWide(to, value); };
  return appendWith(document, parent, name, 1, value.size() * kMaxUtf8, nameAt, put);
}

// --- walking -------------------------------------------------------------------------------

IXMLDOMNodePtr firstChild(const IXMLDOMDocumentPtr& document) {
  Tree& tree = Document::of(document).tree();
  return tree.handle(tree.node(tree.document()).firstChild);
}

IXMLDOMNodePtr firstChild(const IXMLDOMNodePtr& node) {
  const Place place(node);
  return place.tree.handle(place.node().firstChild);
}

IXMLDOMNodePtr nextSibling(const IXMLDOMNodePtr& node) {
  const Place place(node);
  return place.tree.handle(place.node().next);
}

IXMLDOMNodePtr firstChildNamed(const IXMLDOMNodePtr& node, const Name& name) {
  const Place place(node);
  return place.tree.handle(
      place.tree.firstChildNamed(place.ref, place.tree.nodes().names().find(name)));
}

IXMLDOMNodePtr nextSiblingNamed(const IXMLDOMNodePtr& node, const Name& name) {
  const Place place(node);
  return place.tree.handle(
      place.tree.nextSiblingNamed(place.ref, place.tree.nodes().names().find(name)));
}

NodeName nodeName(const IXMLDOMNodePtr& node) {
  const Place place(node);
  return NodeName(place.tree.nodes().names()[place.node().name()].name());
}

bool nodeNameIs(const IXMLDOMNodePtr& node, const Name& name) {
  const Place place(node);
  return place.node().name() == place.tree.nodes().names().find(name);
}

bool isCopy(const IXMLDOMNodePtr& a, const IXMLDOMNodePtr& b) noexcept {
  return Tree::isSameNode(a, b);
}

bool hasAttributes(const IXMLDOMNodePtr& node) {
  return Place(node).node().hasAttributeMap();
}

bool attribute(const IXMLDOMNodePtr& node, const Name& name, AttributeValue& value) {
  const Place place(node);
  if (!place.node().hasAttributeMap()) {
    return false;
  }
  embedded::ValueWalk values = place.tree.nodes().values(place.ref);
  if (!values.find(place.tree.nodes().names().find(name))) {
    return false;
  }
  value = AttributeValue(values.value().text);
  return true;
}

void countChildNames(const IXMLDOMNodePtr& node, ChildNameCounts& counts) {
  const Place place(node);
  place.tree.countChildNames(place.ref, counts);
}

std::uint64_t revision(const IXMLDOMDocumentPtr& document) {
  return Document::of(document).tree().revision();
}

}  // namespace quorvan::dom
