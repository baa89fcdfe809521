// The record of a node, as it lies in the arena of its tree.
#pragma once

#include <cstdint>

#include <quorvan/xml/embedded/tree/arena.h>
#include <quorvan/xml/embedded/tree/name_table.h>

namespace quorvan::embedded {

enum class NodeType : std::uint32_t {
  kDocument,
  kElement,
  kText,
  kCData,
  kComment,
  kInstruction,
  kDoctype,
  kMoved,  // went to another tree; `parent` tells where it is there
};

enum class NodeFlag : std::uint32_t {
  kHasValues = 1U << 3U,        // a list of values follows the record
  kValuesElsewhere = 1U << 4U,  // the list of values is kept beside the arena
  kListed = 1U << 5U,           // `parent` is the node's SiblingLinks below an indexed parent
  kIndexed = 1U << 6U,          // the tree keeps a ChildIndex for this node
  kSpaceBefore = 1U << 7U,      // white space stood before the node in the file
  kSpaceAtEnd = 1U << 8U,       // white space stood before the node's end tag
};

/// Twenty bytes. What only some nodes have lies elsewhere.
struct Node {
  std::uint32_t head;  // name, flags, type
  Ref parent;
  Ref firstChild;
  Ref previous;  // the first child's is the last child
  Ref next;

  static constexpr std::uint32_t kTypeMask = 7;
  static constexpr std::uint32_t kNameShift = 9;

  static constexpr std::uint32_t headOf(NodeType type, NameId name) noexcept {
    return (name << kNameShift) | static_cast<std::uint32_t>(type);
  }

  [[nodiscard]] NodeType type() const noexcept { return static_cast<NodeType>(head & kTypeMask); }
  [[nodiscard]] NameId name() const noexcept { return head >> kNameShift; }
  [[nodiscard]] bool has(NodeFlag flag) const noexcept {
    return (head & static_cast<std::uint32_t>(flag)) != 0;
  }
  void set(NodeFlag flag) noexcept { head |= static_cast<std::uint32_t>(flag); }
  void clear(NodeFlag flag) noexcept { head &= ~static_cast<std::uint32_t>(flag); }

  [[nodiscard]] bool isElement() const noexcept { return type() == NodeType::kElement; }
  [[nodiscard]] bool isDeclaration() const noexcept {
    return type() == NodeType::kInstruction && name() == kXmlName;
  }
  /// Whether the node's values have names.
  [[nodiscard]] bool hasAttributeMap() const noexcept { return isElement() || isDeclaration(); }
};

inline constexpr std::uint32_t kNodeWords = sizeof(Node) / sizeof(std::uint32_t);
static_assert(kNodeWords * sizeof(std::uint32_t) == sizeof(Node));
static_assert(kMaxNames <= (1U << (32U - Node::kNameShift)));

}  // namespace quorvan::embedded
