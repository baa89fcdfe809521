// A property of a pattern's items that decides whether they can match. Not installed.
#pragma once

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::filer {

/// Whether every node below `node` has an attribute map. The comparison of a pattern's item goes
/// on into the item's own children and pairs them with themselves, never with the document's, so
/// all that it can find there is a node without one (a text, a comment).
bool descendantsHaveAttributes(const IXMLDOMNodePtr& node);

}  // namespace quorvan::filer
