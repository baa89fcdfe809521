#include <quorvan/xml/embedded/tree/tree.h>

#include <atomic>

#include <quorvan/xml/name_rules.h>

namespace quorvan::embedded {

namespace {

// Every tree counts its changes from a number of its own.
std::uint64_t firstRevision() noexcept {
  static std::atomic<std::uint64_t> trees{0};
  return (trees.fetch_add(1, std::memory_order_relaxed) + 1) << 32U;
}

// How far up a node looks whether it is in its document. One deeper down counts as being there.
constexpr int kAttachedLevels = 64;

}  // namespace

void Tree::LetGo::operator()(Tree* tree) const noexcept {
  tree->hasDocument = false;
  if (tree->firstHandle == nullptr) {
    delete tree;
  }
}

void NodeHandle::deleteTree(TreeOwners* tree) noexcept {
  delete static_cast<Tree*>(tree);
}

Tree::Tree()
    : m_document(m_nodes.create(NodeType::kDocument, kDocumentName)), m_revision(firstRevision()) {
  hasDocument = true;
}

Tree::Owned Tree::create() {
  return Owned(new Tree);
}

NameId Tree::internNewXmlName(const dom::Name& name) {
  if (!dom::isXmlName(name.text())) {
    platform::raiseComError(E_FAIL);
  }
  return m_nodes.names().intern(name);
}

bool Tree::isAttached(Ref ref) const noexcept {
  for (int level = 0; level < kAttachedLevels; ++level) {
    if (ref == m_document || ref == m_root) {
      return true;
    }
    ref = parent(ref);
    if (ref == 0) {
      return false;
    }
  }
  return true;
}

bool Tree::isSelfOrAbove(Ref ref, Ref below) const noexcept {
  if (ref == below) {
    return true;
  }
  if (node(ref).firstChild == 0) {
    return false;
  }
  for (Ref at = parent(below); at != 0; at = parent(at)) {
    if (at == ref) {
      return true;
    }
  }
  return false;
}

// Whether the child's type has a place below the parent. `isOnly`: the parent has no other
// children; `isRoot`: the child is the document's root element already.
bool Tree::mayHold(Ref parent, const Node& child, bool isOnly, bool isRoot) const noexcept {
  const NodeType holder = node(parent).type();
  if (holder != NodeType::kDocument && holder != NodeType::kElement) {
    return false;
  }
  const bool isDocument = holder == NodeType::kDocument;
  switch (child.type()) {
    case NodeType::kElement:
      return !isDocument || m_root == 0 || isRoot;
    case NodeType::kText:
    case NodeType::kCData:
      return !isDocument;
    case NodeType::kComment:
      return true;
    case NodeType::kInstruction:
      // The declaration stands first in its document and nowhere else.
      return !child.isDeclaration() || (isDocument && isOnly);
    default:
      return false;
  }
}

void Tree::appendNewElsewhere(Ref parent, Ref child) {
  attach(parent, child);
  if (parent != m_root && isBelowRoot(parent)) {
    ++m_revision;
  }
}

void Tree::append(Ref parent, Ref child) {
  // An element that stands alone goes below the root without a question.
  if (parent == m_root && node(child).isElement() && node(child).parent == 0) {
    link(parent, child, prepareLink(parent, child));
    m_nodes.node(child).clear(NodeFlag::kSpaceBefore);
    return;
  }
  const Ref first = node(parent).firstChild;
  const bool isOnly = first == 0 || (first == child && node(child).next == 0);
  if (!mayHold(parent, node(child), isOnly, child == m_root) || isSelfOrAbove(child, parent)) {
    platform::raiseComError(E_FAIL);
  }
  const Ref former = this->parent(child);
  const bool isQuiet = former == 0 ? parent == m_root || !isAttached(parent)
                                   : !isAttached(former) && parent != m_root && !isAttached(parent);
  ChildIndex::Names* const same = isSpecial(parent) ? prepareLink(parent, child) : nullptr;
  if (former != 0) {
    unlink(child);
  }
  link(parent, child, same);
  m_nodes.node(child).clear(NodeFlag::kSpaceBefore);
  if (!isQuiet) {
    ++m_revision;
  }
}

// Does beforehand all of linking that may fail. Gives where an index lists the child.
ChildIndex::Names* Tree::prepareLink(Ref parent, Ref child) {
  if (parent == m_document) {
    if (node(child).isElement() && !node(child).has(NodeFlag::kIndexed)) {
      indexChildren(child);
    }
    return nullptr;
  }
  ChildIndex::Names& same = indexOf(parent).findOrAdd(node(child).name());
  if (m_freeLinks == 0 && !node(child).has(NodeFlag::kListed)) {
    m_freeLinks = m_nodes.allocateLinks(kSiblingLinksWords);
    *static_cast<SiblingLinks*>(m_nodes.at(m_freeLinks)) = {};
  }
  return &same;
}

void Tree::linkByName(Ref parent, Ref child, ChildIndex::Names& same) noexcept {
  const Ref place = m_freeLinks;
  auto& placed = *static_cast<SiblingLinks*>(m_nodes.at(place));
  m_freeLinks = placed.nextSame;
  placed = {parent, 0, same.last};
  if (same.last != 0) {
    links(node(same.last)).nextSame = child;
  } else {
    same.first = child;
  }
  same.last = child;
  ++same.count;
  Node& added = m_nodes.node(child);
  added.parent = place;
  added.set(NodeFlag::kListed);
}

void Tree::unlink(Ref child) noexcept {
  const Ref parent = this->parent(child);
  Node& holder = m_nodes.node(parent);
  Node& removed = m_nodes.node(child);
  if (removed.has(NodeFlag::kListed)) {
    unlinkByName(parent, child);
  }
  if (holder.firstChild == child) {
    holder.firstChild = removed.next;
    if (removed.next != 0) {
      m_nodes.node(removed.next).previous = removed.previous;
    }
  } else {
    m_nodes.node(removed.previous).next = removed.next;
    const Ref after = removed.next != 0 ? removed.next : holder.firstChild;
    m_nodes.node(after).previous = removed.previous;
  }
  removed.parent = 0;
  removed.previous = 0;
  removed.next = 0;
  if (child == m_root) {
    m_root = 0;
  }
  if (m_walk.parent == parent) {
    m_walk.parent = 0;
  }
  if (m_tail.parent == parent) {
    m_tail.parent = 0;
  }
}

void Tree::unlinkByName(Ref parent, Ref child) noexcept {
  Node& removed = m_nodes.node(child);
  const Ref place = removed.parent;
  SiblingLinks& placed = links(removed);
  ChildIndex::Names& same = *indexOf(parent).find(removed.name());
  if (placed.previousSame != 0) {
    links(node(placed.previousSame)).nextSame = placed.nextSame;
  } else {
    same.first = placed.nextSame;
  }
  if (placed.nextSame != 0) {
    links(node(placed.nextSame)).previousSame = placed.previousSame;
  } else {
    same.last = placed.previousSame;
  }
  --same.count;
  removed.clear(NodeFlag::kListed);
  placed = {0, m_freeLinks, 0};
  m_freeLinks = place;
}

// Makes the index of an element that has none, which is about to become the root.
void Tree::indexChildren(Ref parent) {
  ChildIndex index;
  std::vector<Ref> places;
  for (Ref at = node(parent).firstChild; at != 0; at = node(at).next) {
    index.findOrAdd(node(at).name());
    places.push_back(m_nodes.allocateLinks(kSiblingLinksWords));
  }
  m_indexes.emplace(parent, std::move(index));
  for (const Ref place : places) {
    *static_cast<SiblingLinks*>(m_nodes.at(place)) = {0, m_freeLinks, 0};
    m_freeLinks = place;
  }
  m_nodes.node(parent).set(NodeFlag::kIndexed);
  for (Ref at = node(parent).firstChild; at != 0; at = node(at).next) {
    linkByName(parent, at, *indexOf(parent).find(node(at).name()));
  }
}

}  // namespace quorvan::embedded
