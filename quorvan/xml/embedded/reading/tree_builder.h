// Builds a tree in document order, as a parser meets its parts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <quorvan/xml/embedded/tree/declaration.h>
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

/// Text is collected until something else comes. White space alone makes no node, except where
/// xml:space preserves it: the tree only remembers that it stood there.
class TreeBuilder {
 public:
  /// Builds below the document node of an empty tree.
  explicit TreeBuilder(Tree& tree) noexcept : m_tree(tree), m_parent(tree.document()) {}
  TreeBuilder(const TreeBuilder&) = delete;
  TreeBuilder& operator=(const TreeBuilder&) = delete;
  ~TreeBuilder() = default;

  [[nodiscard]] Tree& tree() noexcept { return m_tree; }
  /// Elements that are open.
  [[nodiscard]] std::size_t depth() const noexcept { return m_depth; }

  /// Adds the XML declaration.
  void addDeclaration(const Declaration& declaration);

  /// A new element, to be given its attributes and then opened.
  Ref createElement(NameId name) {
    flushText();
    return m_tree.nodes().create(NodeType::kElement, name);
  }
  /// Appends the element; what follows goes into it, up to closeElement().
  void openElement(Ref element) {
    appendNode(element);
    m_parent = element;
    ++m_depth;
  }
  void closeElement();
  /// The name of the element that is open innermost.
  [[nodiscard]] NameId openId() const noexcept { return m_tree.node(m_parent).name(); }
  [[nodiscard]] std::string_view openName() const noexcept {
    return m_tree.nodes().names()[openId()].view();
  }
  /// Appends an element that ends at once.
  void addEmptyElement(Ref element) { appendNode(element); }
  /// Takes an element back that was created last and is not in the tree yet.
  void takeBack(Ref element) noexcept {
    m_tree.nodes().discardValues(element);
    m_tree.nodes().rollback(element);
  }

  /// Says whether the element opened last keeps the white space in it.
  void preserveSpace(bool preserves);

  /// Adds characters of text, UTF-8 with line ends normalised.
  void addText(std::string_view characters) { m_text.append(characters); }
  /// Says that white space, and nothing else, stood here.
  void addSpace() noexcept { m_hasSpace = true; }
  [[nodiscard]] bool preservesSpace() const noexcept {
    return !m_preserving.empty() && m_preserving.back().preserves;
  }

  /// Adds a comment, a CDATA section, an instruction or a DOCTYPE.
  void addNode(NodeType type, NameId name, std::string_view text);

 private:
  struct SpaceRule {
    std::size_t depth;
    bool preserves;
  };

  void flushText() {
    if (!m_text.empty()) {
      makeText();
    }
  }
  void makeText();
  void appendNode(Ref ref) {
    if (m_hasSpace && m_parent != m_tree.document()) {
      m_tree.nodes().node(ref).set(NodeFlag::kSpaceBefore);
    }
    m_hasSpace = false;
    m_tree.attach(m_parent, ref);
  }

  Tree& m_tree;
  Ref m_parent;
  std::size_t m_depth = 0;
  std::string m_text;
  bool m_hasSpace = false;
  std::vector<SpaceRule> m_preserving;
};

}  // namespace quorvan::embedded
