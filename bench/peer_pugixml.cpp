#include <pugixml.hpp>

#include <bench/peers.h>
#include <bench/tree_peer.h>

namespace bench {

namespace {

struct PugixmlTree {
  using Node = pugi::xml_node;
  pugi::xml_document document;
  Node rootNode;

  Node root() { return rootNode; }
  static Node addChild(Node parent, const char* name) { return parent.append_child(name); }
  static void addAttribute(Node node, const char* name, const char* value) {
    node.append_attribute(name).set_value(value);
  }
  static Node child(Node parent, const char* name) { return parent.child(name); }
  static Node nextOfName(Node node, const char* name) { return node.next_sibling(name); }
  static const char* attribute(Node node, const char* name) { return node.attribute(name).value(); }
};

}  // namespace

void writePugixml(const Drawing& drawing, const std::string& path) {
  PugixmlTree tree;
  auto declaration = tree.document.append_child(pugi::node_declaration);
  declaration.append_attribute("version").set_value("1.0");
  declaration.append_attribute("encoding").set_value("UTF-8");
  tree.rootNode = tree.document.append_child("Document");
  writeTree(tree, drawing);
  tree.document.save_file(path.c_str(), "", pugi::format_raw, pugi::encoding_utf8);
}

std::uint64_t readPugixml(const std::string& path) {
  PugixmlTree tree;
  tree.document.load_file(path.c_str());
  tree.rootNode = tree.document.document_element();
  return readTree(tree);
}

}  // namespace bench
