// The handles of the XML document service: IXMLDOMDocumentPtr and IXMLDOMNodePtr.
//
// On Windows they are the COM smart pointers of the platform's service, elsewhere those of the
// embedded document. Both are copied, moved and compared with nullptr in the same way.
#pragma once

#ifdef _WIN32
#include <quorvan/platform/msxml/handles.h>
#else
#include <quorvan/platform/embedded/handles.h>
#endif

#include <quorvan/platform/api.h>
#include <quorvan/platform/cstring.h>

namespace quorvan {

/// The name of a node: the tag name of an element, "#text" for text and so on. Empty for null.
QUORVAN_API CString nodeName(const IXMLDOMNodePtr& node);

}  // namespace quorvan
