// The tree of one embedded document: its nodes in their order, and the handles that refer to them.
//
// A tree is compact and made to be built in document order, saved and read: nodes and values lie
// one behind the other in an arena, names are numbers, and the children of the root element are
// known by name. Nothing here recurses, so that depth costs no stack.
//
// An operation that raises leaves the tree as it was. Nodes are given by their references, which
// must be of this tree.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/embedded/handles.h>
#include <quorvan/xml/embedded/tree/child_index.h>
#include <quorvan/xml/embedded/tree/node_store.h>

namespace quorvan::embedded {

class Tree final : public TreeOwners {
 public:
  /// Gives up a tree for its document: it lives on as long as there are handles to its nodes.
  struct LetGo {
    void operator()(Tree* tree) const noexcept;
  };
  using Owned = std::unique_ptr<Tree, LetGo>;

  /// A tree that holds its document node alone. Raises std::bad_alloc.
  static Owned create();

  /// The node and the tree that a handle refers to. Raises E_POINTER for a null handle.
  static Tree& of(const NodeHandle& handle) {
    if (handle.m_tree == nullptr) {
      platform::raiseComError(E_POINTER);
    }
    return *static_cast<Tree*>(handle.m_tree);
  }
  static Ref nodeOf(const NodeHandle& handle) noexcept { return handle.m_node; }
  static bool isSameNode(const NodeHandle& a, const NodeHandle& b) noexcept {
    return a.m_tree == b.m_tree && a.m_node == b.m_node;
  }
  /// A handle to the node; null for 0.
  NodeHandle handle(Ref ref) noexcept { return ref == 0 ? NodeHandle() : NodeHandle(this, ref); }

  [[nodiscard]] NodeStore& nodes() noexcept { return m_nodes; }
  [[nodiscard]] const NodeStore& nodes() const noexcept { return m_nodes; }
  [[nodiscard]] const Node& node(Ref ref) const noexcept { return m_nodes.node(ref); }

  /// The document node.
  [[nodiscard]] Ref document() const noexcept { return m_document; }
  /// The root element, 0 without one.
  [[nodiscard]] Ref root() const noexcept { return m_root; }
  [[nodiscard]] Ref parent(Ref ref) const noexcept {
    const Node& record = node(ref);
    return record.has(NodeFlag::kListed) ? links(record).parent : record.parent;
  }

  /// A new element without parent. Raises E_FAIL for a name that XML cannot carry.
  Ref createElement(const dom::Name& name) {
    return m_nodes.create(NodeType::kElement, internXmlName(name));
  }

  /// Gives an element or the declaration an attribute, in the place of one of that name. Raises
  /// E_FAIL for a name that XML cannot carry.
  void putAttribute(Ref ref, const dom::Name& name, const Value& value) {
    m_nodes.put(ref, internXmlName(name), value);
    if (isBelowRoot(ref)) {
      ++m_revision;
    }
  }

  /// A new element without parent that has attributes of different names: `nameAt(i)` gives the
  /// name of each, and `put(i, to)` writes at most `capacity` bytes of UTF-8 and returns a
  /// WrittenText. Raises E_FAIL for a name that XML cannot carry.
  template <class NameAt, class Put>
  Ref createElement(const dom::Name& name, std::size_t count, std::size_t capacity,
                    const NameAt& nameAt, const Put& put) {
    constexpr std::size_t kFew = 4;
    constexpr std::size_t kShort = 0xFFF;
    if (count <= kFew && capacity <= kShort) {
      const NameId id = internXmlName(name);
      return m_nodes.createWith(
          NodeType::kElement, id, count, capacity,
          [&](std::size_t i) { return internXmlName(nameAt(i)); }, put);
    }
    const Ref element = createElement(name);
    std::string text(capacity, '\0');
    for (std::size_t i = 0; i < count; ++i) {
      const WrittenText written = put(i, text.data());
      const auto size = static_cast<std::size_t>(written.end - text.data());
      m_nodes.put(element, internXmlName(nameAt(i)), {{text.data(), size}, written.plain});
    }
    return element;
  }

  /// Appends an element just made to an element of this tree.
  void appendNew(Ref parent, Ref child) {
    if (m_tail.parent == parent && m_tail.isAlone) {
      linkBehindTail(child);
    } else {
      appendNewElsewhere(parent, child);
    }
  }

  /// Appends a node of this tree as the last child, moving it from where it is. Raises E_FAIL
  /// where the parent cannot hold it.
  void append(Ref parent, Ref child);

  /// The same with a node of another tree. The node and what is below it come over into this one,
  /// with every handle to them; the cost is that of what moves and of the handles to its tree.
  void adopt(Ref parent, Tree& from, Ref child);

  /// Appends a node without parent, which the parent can hold: for those who build whole trees.
  void attach(Ref parent, Ref child) {
    if (isSpecial(parent)) {
      link(parent, child, prepareLink(parent, child));
    } else if (m_tail.parent == parent) {
      linkBehindTail(child);
    } else {
      link(parent, child, nullptr);
    }
  }

  /// The first child of that name; the first of the following siblings of that name; 0 without
  /// one. Reading the children of one node in their order, by name, costs one walk.
  [[nodiscard]] Ref firstChildNamed(Ref parent, NameId name);
  [[nodiscard]] Ref nextSiblingNamed(Ref ref, NameId name) const;

  /// Calls `counts` for every name among the children.
  void countChildNames(Ref parent, dom::ChildNameCounts& counts);

  /// Goes up with every change below the root element but that of appending a node without parent
  /// to it. Never 0, and never the same for two trees.
  [[nodiscard]] std::uint64_t revision() const noexcept { return m_revision; }

 private:
  friend class NodeHandle;

  // A walk over the children of `parent` by name: how far it came, and the mark of its names.
  struct NameWalk {
    Ref parent = 0;
    Ref last = 0;
    std::uint32_t stamp = 0;
  };
  // The node that was appended last, and to what.
  struct Tail {
    Ref parent = 0;
    Ref child = 0;
    Node* first = nullptr;  // child of the parent
    Node* last = nullptr;   // the record of `child`
    bool isAlone = false;   // the parent is an element without parent and index
  };
  using Moves = std::vector<std::pair<Ref, Ref>>;

  Tree();
  ~Tree() = default;

  NameId internXmlName(const dom::Name& name) {
    const NameId id = m_nodes.names().find(name);
    return id != kNoName && m_nodes.names()[id].isXmlName ? id : internNewXmlName(name);
  }
  NameId internNewXmlName(const dom::Name& name);

  [[nodiscard]] SiblingLinks& links(const Node& record) const noexcept {
    return *static_cast<SiblingLinks*>(m_nodes.at(record.parent));
  }
  [[nodiscard]] ChildIndex& indexOf(Ref parent) {
    return parent == m_root ? *m_rootIndex : m_indexes.find(parent)->second;
  }
  [[nodiscard]] const ChildIndex& indexOf(Ref parent) const {
    return parent == m_root ? *m_rootIndex : m_indexes.find(parent)->second;
  }
  [[nodiscard]] bool isBelowRoot(Ref ref) const noexcept {
    return node(ref).parent != 0 && isAttached(ref);
  }
  [[nodiscard]] bool isAttached(Ref ref) const noexcept;
  [[nodiscard]] bool isSelfOrAbove(Ref ref, Ref below) const noexcept;
  [[nodiscard]] bool mayHold(Ref parent, const Node& child, bool isOnly,
                             bool isRoot) const noexcept;

  void appendNewElsewhere(Ref parent, Ref child);
  void startWalk(Ref parent) noexcept;
  // Whether linking a child to the node takes more than writing down who stands where.
  [[nodiscard]] bool isSpecial(Ref parent) const noexcept {
    return parent == m_document || node(parent).has(NodeFlag::kIndexed);
  }
  ChildIndex::Names* prepareLink(Ref parent, Ref child);
  // `same` is what prepareLink() gave, null where it was not needed.
  void link(Ref parent, Ref child, ChildIndex::Names* same) noexcept {
    Node& holder = m_nodes.node(parent);
    Node& added = m_nodes.node(child);
    added.parent = parent;
    added.next = 0;
    if (holder.firstChild == 0) {
      holder.firstChild = child;
      added.previous = child;
    } else {
      Node& first = m_nodes.node(holder.firstChild);
      const Ref last = m_tail.parent == parent ? m_tail.child : first.previous;
      added.previous = last;
      m_nodes.node(last).next = child;
      first.previous = child;
    }
    m_tail = {parent, child, &m_nodes.node(holder.firstChild), &added,
              holder.parent == 0 && holder.isElement() && !holder.has(NodeFlag::kIndexed)};
    if (same != nullptr) {
      linkByName(parent, child, *same);
    } else if (parent == m_document && added.isElement()) {
      m_root = child;
      m_rootIndex = &m_indexes.find(child)->second;
    }
  }
  // Behind the node that was appended last, where that is nothing but writing down who stands
  // where.
  void linkBehindTail(Ref child) noexcept {
    Node& added = m_nodes.node(child);
    added.parent = m_tail.parent;
    added.previous = m_tail.child;
    m_tail.last->next = child;
    m_tail.first->previous = child;
    m_tail.child = child;
    m_tail.last = &added;
  }
  void linkByName(Ref parent, Ref child, ChildIndex::Names& same) noexcept;
  void unlink(Ref child) noexcept;
  void unlinkByName(Ref parent, Ref child) noexcept;
  void indexChildren(Ref parent);

  Ref copyFrom(const Tree& from, Ref top, Moves& moves);
  Ref copyNode(const Tree& from, Ref ref, Moves& moves, std::unordered_map<NameId, NameId>& names);
  void handOver(const Moves& moves, Tree& to) noexcept;

  NodeStore m_nodes;
  Ref m_document;
  Ref m_root = 0;
  Ref m_freeLinks = 0;
  ChildIndex* m_rootIndex = nullptr;
  std::unordered_map<Ref, ChildIndex> m_indexes;
  NameWalk m_walk;
  Tail m_tail;
  std::uint64_t m_revision;
};

}  // namespace quorvan::embedded
