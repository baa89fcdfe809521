#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>
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

}  // namespace bench
