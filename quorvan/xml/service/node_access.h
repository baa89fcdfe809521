// Reading one node of the document service: the few questions that every operation asks.
#pragma once

#include <quorvan/xml/handles.h>
#include <quorvan/xml/service/bstr.h>

namespace quorvan::service {

/// Raises _com_error for a failure code.
void check(HRESULT result);

/// Whether a call that answers with a node or a map found one. Some kinds of nodes answer
/// E_NOTIMPL where others answer that there is nothing: the same answer to a caller.
bool found(HRESULT result);

DOMNodeType nodeType(IXMLDOMNode& node);

/// The node as an element, null for one of another kind.
Owned<IXMLDOMElement> elementOf(IXMLDOMNode& node);

/// The node's name as the service spells it.
Bstr nodeNameText(IXMLDOMNode& node);

/// The value of an attribute node, exactly: its text property may be trimmed.
Bstr valueText(IXMLDOMNode& attribute);

/// The node's parent, null without one.
Owned<IXMLDOMNode> parentOf(IXMLDOMNode& node);

/// Removes the node from its parent, if it has one. Appending a node would do that by itself, but
/// not every service does: Wine's goes by the parent's interface as it was when the node was
/// appended, which may be gone, and leaves the node where it is when it knows none.
void takeOut(IXMLDOMNode& node);

/// The node's attribute map, null for a node that has none. Only elements and instructions are
/// asked: the service also gives one to a DOCTYPE, whose entries are no attributes.
Owned<IXMLDOMNamedNodeMap> attributeMap(IXMLDOMNode& node);

/// The same where the node's type is known.
Owned<IXMLDOMNamedNodeMap> attributeMap(IXMLDOMNode& node, DOMNodeType type);

}  // namespace quorvan::service
