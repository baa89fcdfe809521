// A plain tree of XML nodes: what a document holds, without any of the library. The models of the
// filer work on it, and random files are written from it.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvan::test::model {

enum class Kind { kDocument, kDeclaration, kDoctype, kElement, kInstruction, kComment, kText };

/// A node. All texts are UTF-8.
struct Node {
  Kind kind;
  std::string name;  // as the document service names nodes: "#text", "#comment"
  std::vector<std::pair<std::string, std::string>> attributes = {};
  std::string text = {};  // of comments, texts and instructions
  std::vector<Node*> children = {};
  Node* parent = nullptr;

  [[nodiscard]] const std::string* attribute(std::string_view attributeName) const;
  [[nodiscard]] bool takesAttributes() const;
  [[nodiscard]] Node* firstChild() const;
  [[nodiscard]] Node* nextSibling() const;
};

/// Owns nodes for as long as a script runs, attached or not.
class Forest {
 public:
  Node* make(Kind kind, std::string name);

  /// A copy of the node and all below it, without parent.
  Node* copy(const Node& node);

  /// What reading the file of this document would give: texts side by side are one.
  Node* reread(const Node& document);

 private:
  std::deque<Node> m_nodes;
};

/// Makes `child` the last child of `parent`, moving it from where it was.
void link(Node& parent, Node& child);

/// Whether `node` is `below` or above it.
bool isSelfOrAbove(const Node& node, const Node& below);

/// The file of a document, in the encoding that its declaration names.
std::string fileText(const Node& document);

}  // namespace quorvan::test::model
