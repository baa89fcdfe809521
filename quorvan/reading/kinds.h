// What the kinds of the item tables are to a reader. Not installed.
#pragma once

#include <quorvan/elements/items/item_schema.h>
#include <quorvan/reading/read.h>
#include <quorvan/xml/dom.h>

namespace quorvan::reading {

/// The kind that a reader is told.
QuorvanKind kindOf(items::Kind kind) noexcept;

/// Three coordinates; false, with some of them stored, where one is missing.
bool readCoordinates(const IXMLDOMNodePtr& node, double* xyz);

}  // namespace quorvan::reading
