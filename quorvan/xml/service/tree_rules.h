// What may be appended where. The document service leaves part of it unchecked, and a tree that
// breaks these rules cannot be saved, or makes the service run in circles.
#pragma once

#include <quorvan/xml/handles.h>

namespace quorvan::service {

/// Raises E_FAIL unless `child` may become the last child of `parent`: the parent is an element or
/// a document, the child is neither the parent nor one of its ancestors, and a document gets one
/// root element and no text.
void requireAppendable(IXMLDOMNode& parent, IXMLDOMNode& child);

}  // namespace quorvan::service
