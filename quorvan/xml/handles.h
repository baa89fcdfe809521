// The handles of the XML document service: IXMLDOMDocumentPtr and IXMLDOMNodePtr.
//
// The build chooses whose they are: the COM smart pointers of the platform's service, or those of
// the embedded document. Both are copied, moved and compared with nullptr in the same way.
#pragma once

#include <quorvan/api.h>
#include <quorvan/text/cstring.h>
#include <quorvan/xml/backend/handles.h>

namespace quorvan {

/// The name of a node: the tag name of an element, "#text" for text and so on. Empty for null.
QUORVAN_API CString nodeName(const IXMLDOMNodePtr& node);

}  // namespace quorvan
