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

/// Calls `take` for each of the entries `stem`1 to `stem``count`, with a null handle for one that
/// is missing. As many may be missing as are there; whether so many more may is asked of `trust`
/// beforehand. Where they may not it returns false, and what was taken does not count.
template <class Trust, class Take>
bool forEachNumber(ItemsInOrder& inOrder, const IXMLDOMNodePtr& scope, std::string_view stem,
                   std::uint32_t count, const Trust& trust, const Take& take) {
  std::uint32_t done = 0;
  while (done < count && inOrder.next(stem, done + 1)) {
    take(inOrder.item());
    ++done;
  }
  if (done == count) {
    return true;
  }
  const std::vector<NumberedItem> rest = numberedChildren(scope, stem, done + 1, count);
  const std::size_t held = done + rest.size();
  if (count - held > held && !trust(static_cast<long>(count - 2 * held))) {
    return false;
  }
  for (const NumberedItem& entry : rest) {
    for (; done + 1 < entry.number; ++done) {
      take(IXMLDOMNodePtr());
    }
    take(entry.node);
    ++done;
  }
  for (; done < count; ++done) {
    take(IXMLDOMNodePtr());
  }
  return true;
}

}  // namespace quorvan::items
