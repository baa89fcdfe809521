#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlreader.h>

#include <memory>
#include <stdexcept>
#include <string_view>

#include <bench/peers.h>
#include <bench/tree_peer.h>

namespace bench {

namespace {

const xmlChar* chars(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}

struct Libxml2Tree {
  using Node = xmlNode*;
  std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document{nullptr, xmlFreeDoc};

  Node root() { return xmlDocGetRootElement(document.get()); }
  static Node addChild(Node parent, const char* name) {
    return xmlNewChild(parent, nullptr, chars(name), nullptr);
  }
  static void addAttribute(Node node, const char* name, const char* value) {
    xmlNewProp(node, chars(name), chars(value));
  }
  static Node firstOfName(Node node, const char* name) {
    while (node != nullptr &&
           (node->type != XML_ELEMENT_NODE || xmlStrEqual(node->name, chars(name)) == 0)) {
      node = node->next;
    }
    return node;
  }
  static Node child(Node parent, const char* name) { return firstOfName(parent->children, name); }
  static Node nextOfName(Node node, const char* name) { return firstOfName(node->next, name); }
  static const char* attribute(Node node, const char* name) {
    const xmlAttr* found = xmlHasProp(node, chars(name));
    return found != nullptr && found->children != nullptr
               ? reinterpret_cast<const char*>(found->children->content)
               : nullptr;
  }
};

// Reads the element if it is of this kind.
template <class E>
bool readIfIs(Libxml2Tree& tree, xmlNode* node, std::uint64_t& sum) {
  if (xmlStrEqual(node->name, chars(E::kClass)) == 0) {
    return false;
  }
  E e;
  TreeSource<Libxml2Tree> source(tree, node);
  visitItems(e, source);
  sum += checksum(Element(std::move(e)));
  return true;
}

template <class... E>
void readElement(xmlNode* node, std::uint64_t& sum, std::tuple<E...>*) {
  Libxml2Tree tree;
  (readIfIs<E>(tree, node, sum) || ...);
}

}  // namespace

void writeLibxml2(const Drawing& drawing, const std::string& path) {
  Libxml2Tree tree;
  tree.document.reset(xmlNewDoc(chars("1.0")));
  xmlDocSetRootElement(tree.document.get(),
                       xmlNewDocNode(tree.document.get(), nullptr, chars("Document"), nullptr));
  writeTree(tree, drawing);
  xmlSaveFormatFileEnc(path.c_str(), tree.document.get(), "UTF-8", 0);
}

std::uint64_t readLibxml2(const std::string& path) {
  Libxml2Tree tree;
  tree.document.reset(xmlReadFile(path.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_HUGE));
  return readTree(tree);
}

std::uint64_t readLibxml2Reader(const std::string& path) {
  const std::unique_ptr<xmlTextReader, void (*)(xmlTextReader*)> reader(
      xmlReaderForFile(path.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_HUGE), xmlFreeTextReader);
  std::uint64_t sum = 0;
  // To the root, into it, and from there from element to element.
  bool goesOn = xmlTextReaderRead(reader.get()) == 1 && xmlTextReaderRead(reader.get()) == 1;
  while (goesOn) {
    if (xmlTextReaderNodeType(reader.get()) == XML_READER_TYPE_ELEMENT) {
      xmlNode* const node = xmlTextReaderExpand(reader.get());
      if (node == nullptr) {
        throw std::runtime_error("libxml2 cannot read " + path);
      }
      readElement(node, sum, static_cast<Kinds*>(nullptr));
    }
    goesOn = xmlTextReaderNext(reader.get()) == 1;
  }
  return sum;
}

}  // namespace bench
