#include <fuzz/same_tree.h>

namespace quorvan::fuzz {

namespace {

using embedded::Node;
using embedded::NodeFlag;
using embedded::Ref;
using embedded::Tree;

std::string_view nameIn(const Tree& tree, embedded::NameId name) {
  return tree.nodes().names()[name].view();
}

bool hasSameValues(const Tree& a, Ref refA, const Tree& b, Ref refB) {
  embedded::ValueWalk walkA = a.nodes().values(refA);
  embedded::ValueWalk walkB = b.nodes().values(refB);
  while (walkA.next()) {
    if (!walkB.next() || nameIn(a, walkA.name()) != nameIn(b, walkB.name()) ||
        walkA.value().text != walkB.value().text || walkA.value().plain != walkB.value().plain) {
      return false;
    }
  }
  return !walkB.next();
}

bool isSameNode(const Tree& a, Ref refA, const Tree& b, Ref refB) {
  const Node& nodeA = a.node(refA);
  const Node& nodeB = b.node(refB);
  return nodeA.type() == nodeB.type() && nameIn(a, nodeA.name()) == nameIn(b, nodeB.name()) &&
         nodeA.has(NodeFlag::kSpaceBefore) == nodeB.has(NodeFlag::kSpaceBefore) &&
         nodeA.has(NodeFlag::kSpaceAtEnd) == nodeB.has(NodeFlag::kSpaceAtEnd) &&
         (nodeA.firstChild == 0) == (nodeB.firstChild == 0) &&
         (nodeA.next == 0) == (nodeB.next == 0) && hasSameValues(a, refA, b, refB);
}

}  // namespace

bool isSameTree(const Tree& a, const Tree& b) {
  Ref atA = a.document();
  Ref atB = b.document();
  for (;;) {
    if (!isSameNode(a, atA, b, atB)) {
      return false;
    }
    if (a.node(atA).firstChild != 0) {
      atA = a.node(atA).firstChild;
      atB = b.node(atB).firstChild;
      continue;
    }
    while (atA != a.document() && a.node(atA).next == 0) {
      atA = a.parent(atA);
      atB = b.parent(atB);
    }
    if (atA == a.document()) {
      return atB == b.document();
    }
    atA = a.node(atA).next;
    atB = b.node(atB).next;
  }
}

}  // namespace quorvan::fuzz
