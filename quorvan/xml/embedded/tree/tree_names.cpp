// Finding the children of a node by their names.
#include <quorvan/xml/embedded/tree/prefetch.h>
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

namespace {

// A class element as long as most.
constexpr std::size_t kPrefetched = 448;

}  // namespace

Ref Tree::firstChildNamed(Ref parent, NameId name) {
  if (name == kNoName) {
    return 0;
  }
  if (node(parent).has(NodeFlag::kIndexed)) {
    const ChildIndex::Names* const same = indexOf(parent).find(name);
    return same == nullptr ? 0 : same->first;
  }
  NameTable& names = m_nodes.names();
  if (m_walk.parent != parent) {
    startWalk(parent);
  }
  if (names[name].childStamp == m_walk.stamp) {
    return names[name].child;
  }
  Ref at = m_walk.last == 0 ? node(parent).firstChild : node(m_walk.last).next;
  while (at != 0) {
    const Node& child = node(at);
    NameEntry& met = names[child.name()];
    if (met.childStamp != m_walk.stamp) {
      met.childStamp = m_walk.stamp;
      met.child = at;
    }
    m_walk.last = at;
    if (child.name() == name) {
      return at;
    }
    at = child.next;
  }
  return 0;
}

void Tree::startWalk(Ref parent) noexcept {
  m_walk = {parent, 0, m_walk.stamp + 1};
  if (m_walk.stamp == 0) {
    // The marks begin anew, and none of those left may look like one of them.
    m_nodes.names().clearChildStamps();
    m_walk.stamp = 1;
  }
}

Ref Tree::nextSiblingNamed(Ref ref, NameId name) const {
  if (name == kNoName) {
    return 0;
  }
  const Node& from = node(ref);
  if (from.name() == name && from.has(NodeFlag::kListed)) {
    const Ref next = links(from).nextSame;
    if (next != 0) {
      // Who reads this one will read the one after it, and what lies between is of other names.
      if (const Ref after = links(node(next)).nextSame; after != 0) {
        prefetch(m_nodes.at(after), kPrefetched);
      }
    }
    return next;
  }
  Ref at = from.next;
  while (at != 0 && node(at).name() != name) {
    at = node(at).next;
  }
  return at;
}

void Tree::countChildNames(Ref parent, dom::ChildNameCounts& counts) {
  const NameTable& names = m_nodes.names();
  ChildIndex counted;
  const bool isIndexed = node(parent).has(NodeFlag::kIndexed);
  if (!isIndexed) {
    for (Ref at = node(parent).firstChild; at != 0; at = node(at).next) {
      ++counted.findOrAdd(node(at).name()).count;
    }
  }
  for (const ChildIndex::Names& same : (isIndexed ? indexOf(parent) : counted).names()) {
    if (same.count != 0) {
      counts.count(names[same.name].name(), same.count);
    }
  }
}

}  // namespace quorvan::embedded
