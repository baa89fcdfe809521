// Walking the numbered entries of a list in the element being read. Not installed.
#pragma once

#include <cstdint>
#include <string_view>

#include <quorvan/elements/items/numbered_items.h>

namespace quorvan::items {

/// Calls `take` with the entries `stem`1 to `stem``count` that are there, in ascending order.
/// Returns whether all of them were. Costs no more than the children of `scope`, whatever `count`.
template <class Take>
bool forEachPresent(ItemsInOrder& inOrder, const IXMLDOMNodePtr& scope, std::string_view stem,
                    std::uint32_t count, const Take& take) {
  std::uint32_t done = 0;
  while (done < count && inOrder.next(stem, done + 1)) {
    take(inOrder.item());
    ++done;
  }
  if (done == count) {
    return true;
  }
  const auto rest = numberedChildren(scope, stem, done + 1, count);
  for (const NumberedItem& entry : rest) {
    take(entry.node);
  }
  return rest.size() == count - done;
}

/// Whether a list that holds missing entries too may have `count` of them: up to `limit` that is
/// taken on trust, above it `scope` must have as many children.
inline bool isBelievable(const IXMLDOMNodePtr& scope, long count, long limit) {
  if (count <= limit) {
    return true;
  }
  long children = 0;
  for (IXMLDOMNodePtr child = dom::firstChild(scope); child != nullptr && children < count;
       child = dom::nextSibling(child)) {
    ++children;
  }
  return children >= count;
}

/// Calls `take` for each of the entries `stem`1 to `stem``count`, with a null handle for one that
/// is missing.
template <class Take>
void forEachNumber(ItemsInOrder& inOrder, const IXMLDOMNodePtr& scope, std::string_view stem,
                   std::uint32_t count, const Take& take) {
  std::uint32_t done = 0;
  while (done < count && inOrder.next(stem, done + 1)) {
    take(inOrder.item());
    ++done;
  }
  if (done == count) {
    return;
  }
  for (const NumberedItem& entry : numberedChildren(scope, stem, done + 1, count)) {
    for (; done + 1 < entry.number; ++done) {
      take(IXMLDOMNodePtr());
    }
    take(entry.node);
    ++done;
  }
  for (; done < count; ++done) {
    take(IXMLDOMNodePtr());
  }
}

}  // namespace quorvan::items
