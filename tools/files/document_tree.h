// The elements of a transfer file as they stand in it: names, attribute texts, positions.
//
// Filled once by the loader and constant afterwards. All texts are UTF-8 and belong to the tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

/// A place in the file, in lines and characters from 1; line 0 where it is not known.
struct Position {
  std::uint32_t line = 0;
  std::uint32_t column = 0;
};

struct Attribute {
  std::string_view name;
  std::string_view value;
};

/// A node below the document: an element by its name, or another one by its "#" name, a processing
/// instruction by "?" and its target.
struct Node {
  std::string_view name;
  std::uint32_t firstAttribute = 0;
  std::uint32_t attributeCount = 0;
  std::uint32_t firstChild = 0;   // 0: none, as the root is nobody's child
  std::uint32_t nextSibling = 0;  // 0: none
  Position position;

  [[nodiscard]] bool isElement() const noexcept {
    return !name.empty() && name.front() != '#' && name.front() != '?';
  }
};

class DocumentTree {
 public:
  /// The root element. The tree has one.
  [[nodiscard]] const Node& root() const noexcept { return m_nodes.front(); }

  /// First child and next sibling among all kinds of nodes; null at the end.
  [[nodiscard]] const Node* firstChild(const Node& node) const noexcept {
    return at(node.firstChild);
  }
  [[nodiscard]] const Node* nextSibling(const Node& node) const noexcept {
    return at(node.nextSibling);
  }

  [[nodiscard]] std::span<const Attribute> attributes(const Node& node) const noexcept {
    return std::span(m_attributes).subspan(node.firstAttribute, node.attributeCount);
  }

  /// The text of the named attribute, null without one.
  [[nodiscard]] const std::string_view* attribute(const Node& node,
                                                  std::string_view name) const noexcept;

  // --- filling -----------------------------------------------------------------------------

  /// Appends a node whose attributes follow through addAttribute; gives its number.
  std::uint32_t addNode(std::string_view name, Position position);
  void addAttribute(std::string_view name, std::string_view value);
  [[nodiscard]] Node& node(std::uint32_t number) { return m_nodes[number]; }
  void forgetPositions() noexcept;

 private:
  [[nodiscard]] const Node* at(std::uint32_t number) const noexcept {
    return number == 0 ? nullptr : &m_nodes[number];
  }

  std::string_view keep(std::string_view text);
  std::string_view keepOnce(std::string_view text);

  std::vector<Node> m_nodes;
  std::vector<Attribute> m_attributes;
  std::vector<std::unique_ptr<char[]>> m_blocks;
  std::size_t m_room = 0;
  char* m_next = nullptr;
  std::unordered_set<std::string_view, KeyedHash> m_names;
};

}  // namespace quorvan::tool
