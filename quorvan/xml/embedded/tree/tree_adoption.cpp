// Moving a node, with what is below it, from one tree into another.
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

void Tree::adopt(Ref parent, Tree& from, Ref child) {
  if (!mayHold(parent, from.node(child), node(parent).firstChild == 0, false)) {
    platform::raiseComError(E_FAIL);
  }
  const Ref top = m_nodes.top();
  Moves moves;
  ChildIndex::Names* same = nullptr;
  try {
    const Ref copy = copyFrom(from, child, moves);
    if (isSpecial(parent)) {
      same = prepareLink(parent, copy);
    }
  } catch (...) {
    for (const auto& [old, copied] : moves) {
      m_nodes.discardValues(copied);
    }
    m_nodes.rollback(top);
    m_tail = {};
    throw;
  }
  const Ref former = from.parent(child);
  if (former != 0 && from.isAttached(former)) {
    ++from.m_revision;
  }
  if (former != 0 ? isAttached(parent) : parent != m_root && isAttached(parent)) {
    ++m_revision;
  }
  if (former != 0) {
    from.unlink(child);
  }
  link(parent, moves.front().second, same);
  m_nodes.node(moves.front().second).clear(NodeFlag::kSpaceBefore);
  from.handOver(moves, *this);
}

// Copies a node and all below it, and notes what was copied to where, the topmost first.
Ref Tree::copyFrom(const Tree& from, Ref top, Moves& moves) {
  std::unordered_map<NameId, NameId> names;
  Ref source = top;
  Ref parent = 0;
  for (;;) {
    const Ref copy = copyNode(from, source, moves, names);
    if (parent != 0) {
      link(parent, copy, nullptr);
    }
    if (from.node(source).firstChild != 0) {
      parent = copy;
      source = from.node(source).firstChild;
      continue;
    }
    while (source != top && from.node(source).next == 0) {
      source = from.parent(source);
      parent = this->parent(parent);
    }
    if (source == top) {
      return moves.front().second;
    }
    source = from.node(source).next;
  }
}

Ref Tree::copyNode(const Tree& from, Ref ref, Moves& moves,
                   std::unordered_map<NameId, NameId>& names) {
  const auto nameHere = [&](NameId name) {
    if (name == kNoName) {
      return kNoName;
    }
    const auto [known, isNew] = names.try_emplace(name, kNoName);
    if (isNew) {
      known->second = m_nodes.names().intern(from.m_nodes.names()[name].name());
    }
    return known->second;
  };
  const Node& source = from.node(ref);
  const NameId name = nameHere(source.name());
  const Ref copy = m_nodes.create(source.type(), name);
  moves.emplace_back(ref, copy);
  for (ValueWalk walk = from.m_nodes.values(ref); walk.next();) {
    m_nodes.put(copy, nameHere(walk.name()), walk.value());
  }
  for (const NodeFlag flag : {NodeFlag::kSpaceBefore, NodeFlag::kSpaceAtEnd}) {
    if (source.has(flag)) {
      m_nodes.node(copy).set(flag);
    }
  }
  return copy;
}

// Makes every handle to a node that went to another tree refer to it there, and lets go of what
// the node had here.
void Tree::handOver(const Moves& moves, Tree& to) noexcept {
  for (const auto& [old, copied] : moves) {
    m_nodes.discardValues(old);
    Node& former = m_nodes.node(old);
    former.head = Node::headOf(NodeType::kMoved, kNoName);
    former.parent = copied;
  }
  NodeHandle* next = firstHandle;
  while (next != nullptr) {
    NodeHandle& handle = *next;
    next = handle.m_next;
    if (node(handle.m_node).type() != NodeType::kMoved) {
      continue;
    }
    const Ref there = node(handle.m_node).parent;
    *handle.m_place = handle.m_next;
    if (handle.m_next != nullptr) {
      handle.m_next->m_place = handle.m_place;
    }
    handle.m_tree = &to;
    handle.m_node = there;
    handle.enter();
  }
  if (firstHandle == nullptr && !hasDocument) {
    delete this;
  }
}

}  // namespace quorvan::embedded
