// The elements that a row of the bar list comes from.
#pragma once

#include <tools/model/item_reader.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

/// Adds an element, unless it was the last of its class to be added.
void addSource(BarRow& row, const Element& element);

/// Adds the elements of a row, with their counts. What is in both rows, because bars of two lengths
/// come from it, counts once. The elements are those of `reader`'s file.
void addElementsOf(const BarRow& row, BarRow& to, ItemReader& reader);

}  // namespace quorvan::tool
