#include <tinyxml2.h>

#include <bench/peers.h>
#include <bench/tree_peer.h>

namespace bench {

namespace {

struct Tinyxml2Tree {
  using Node = tinyxml2::XMLElement*;
  tinyxml2::XMLDocument document;

  Node root() { return document.RootElement(); }
  static Node addChild(Node parent, const char* name) {
    return parent->InsertNewChildElement(name);
  }
  static void addAttribute(Node node, const char* name, const char* value) {
    node->SetAttribute(name, value);
  }
  static Node child(Node parent, const char* name) { return parent->FirstChildElement(name); }
  static Node nextOfName(Node node, const char* name) { return node->NextSiblingElement(name); }
  static const char* attribute(Node node, const char* name) { return node->Attribute(name); }
};

}  // namespace

void writeTinyxml2(const Drawing& drawing, const std::string& path) {
  Tinyxml2Tree tree;
  tree.document.InsertEndChild(tree.document.NewDeclaration());
  tree.document.InsertEndChild(tree.document.NewElement("Document"));
  writeTree(tree, drawing);
  tree.document.SaveFile(path.c_str(), true);
}

std::uint64_t readTinyxml2(const std::string& path) {
  Tinyxml2Tree tree;
  tree.document.LoadFile(path.c_str());
  return readTree(tree);
}

}  // namespace bench
