// A document of the service and its file.
#pragma once

#include <quorvan/text/cstring.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/handles.h>

namespace quorvan::service {

/// Replaces the document's content by the file's; false, with the document empty, when there is
/// none or it does not parse.
bool loadFile(IXMLDOMDocument& document, const CString& path);

/// Writes the document beside the target and puts it in the target's place in one step. On
/// failure it raises, and the target is as it was.
void saveFile(IXMLDOMDocument& document, const CString& path, dom::Durability durability);

/// See dom::clearLeftOver.
void clearLeftOver(const CString& path) noexcept;

}  // namespace quorvan::service
