// The elements of a transfer file as they stand in it: names, attribute texts, positions.
//
// Filled once by a loader and constant afterwards. All texts are UTF-8 and belong to the tree. A
// drawing has ten times as many nodes as elements and still more attributes: a node takes 16 bytes,
// and its attributes are not taken apart until somebody asks for them. They stay where they stand
// in the source of the file, which the tree keeps, or in a copy of the tag where the source says
// them otherwise, with references or in another encoding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <tools/files/position.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

struct Attribute {
  std::string_view name;
  std::string_view value;
};

/// The attributes of one node, in their order: taken out of its tag one after the other.
class AttributeList {
 public:
  class Iterator {
   public:
    /// Behind the last.
    Iterator() noexcept = default;
    /// `tag` stands behind the name in a start tag.
    explicit Iterator(const char* tag) noexcept : m_at(tag) { goOn(); }

    const Attribute& operator*() const noexcept { return m_attribute; }
    const Attribute* operator->() const noexcept { return &m_attribute; }
    Iterator& operator++() noexcept {
      goOn();
      return *this;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) noexcept {
      return a.m_at == b.m_at;
    }

   private:
    void goOn() noexcept;

    const char* m_at = nullptr;  // behind the attribute; null behind the last
    Attribute m_attribute;
  };

  explicit AttributeList(const char* tag) noexcept : m_tag(tag) {}

  [[nodiscard]] Iterator begin() const noexcept { return Iterator(m_tag); }
  [[nodiscard]] Iterator end() const noexcept { return {}; }
  [[nodiscard]] bool empty() const noexcept { return begin() == end(); }

 private:
  const char* m_tag;
};

/// A copy of what stands behind the name in a start tag.
class TagCopy {
 public:
  void clear() noexcept { m_text.clear(); }
  /// The value holds no U+0001, as no document does.
  void add(std::string_view name, std::string_view value);

 private:
  friend class DocumentTree;
  std::string m_text;
};

/// A node below the document. Its tree knows more about it.
class Node {
 public:
  /// Not a text, comment, section or instruction.
  [[nodiscard]] bool isElement() const noexcept { return m_isElement; }

 private:
  friend class DocumentTree;
  static constexpr std::uint32_t kNames = (std::uint32_t{1} << 29U) - 1;

  const char* m_tag = nullptr;  // behind the name
  std::uint32_t m_nextSibling = 0;
  std::uint32_t m_name : 29 = 0;
  std::uint32_t m_hasChildren : 1 = 0;
  std::uint32_t m_isElement : 1 = 0;
  std::uint32_t m_isCopied : 1 = 0;
};

class DocumentTree {
 public:
  DocumentTree() = default;
  /// The tree of a source in single bytes or in UTF-8.
  DocumentTree(std::shared_ptr<const std::string> source, bool isSingleByte);

  /// The root element. The tree has one.
  [[nodiscard]] const Node& root() const noexcept { return m_nodes.front(); }

  /// First child and next sibling among all kinds of nodes; null at the end.
  [[nodiscard]] const Node* firstChild(const Node& node) const noexcept {
    return node.m_hasChildren != 0 ? &node + 1 : nullptr;
  }
  [[nodiscard]] const Node* nextSibling(const Node& node) const noexcept {
    return node.m_nextSibling == 0 ? nullptr : &m_nodes[node.m_nextSibling];
  }

  /// The name of an element, the "#" name of another node, "?" and the target of an instruction.
  [[nodiscard]] std::string_view name(const Node& node) const noexcept {
    return m_names[node.m_name];
  }

  [[nodiscard]] AttributeList attributes(const Node& node) const noexcept {
    return AttributeList(node.m_tag);
  }

  /// The text of the named attribute; nothing without one.
  [[nodiscard]] std::optional<std::string_view> attribute(const Node& node,
                                                          std::string_view name) const noexcept;

  /// Where the node begins, where that is known.
  [[nodiscard]] Position position(const Node& node) const;

  // --- filling -----------------------------------------------------------------------------

  /// Begins a node, as a child of the one that was begun before and not ended. Of one that stands
  /// in the source, `tag` is the place there behind its name.
  void begin(std::string_view name, const char* tag);
  /// The same with a copy of the tag; `place` is where it begins in the source.
  void begin(std::string_view name, const TagCopy& tag, std::size_t place);
  /// The same of a node without a source.
  void begin(std::string_view name, const TagCopy& tag, Position position);
  void end() { m_open.pop_back(); }
  void forgetPositions() noexcept { m_isPlaced = false; }

  /// All nodes are there: gives back what was taken for more.
  void close();

 private:
  // A node that has begun and not ended.
  struct Open {
    std::uint32_t number;
    std::uint32_t lastChild;  // 0: none
  };

  void append(std::string_view name, const char* tag, bool isCopied);
  std::uint32_t numberOf(std::string_view name);
  const char* keepTag(const TagCopy& tag, std::uint64_t place);
  char* keep(std::size_t size);

  std::shared_ptr<const std::string> m_source;
  mutable PositionIndex m_positions;
  bool m_isPlaced = true;
  std::vector<Node> m_nodes;  // each before its children, these before its next sibling
  std::vector<Open> m_open;
  std::vector<std::string_view> m_names;
  std::unordered_map<std::string_view, std::uint32_t, KeyedHash> m_numbers;
  std::vector<std::uint32_t> m_recent;  // names by a cheap hash
  std::vector<std::unique_ptr<char[]>> m_blocks;
  std::size_t m_room = 0;
  char* m_next = nullptr;
};

}  // namespace quorvan::tool
