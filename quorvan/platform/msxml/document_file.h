// A document of the service and its file.
#pragma once

#include <quorvan/platform/cstring.h>
#include <quorvan/platform/dom.h>
#include <quorvan/platform/dom_handles.h>

namespace quorvan::msxml {

/// Replaces the document's content by the file's; false, with the document empty, when there is
/// none or it does not parse.
bool loadFile(IXMLDOMDocument& document, const CString& path);

/// Writes the document beside the target and puts it in the target's place in one step. On
/// failure it raises, and the target is as it was.
void saveFile(IXMLDOMDocument& document, const CString& path, dom::Durability durability);

}  // namespace quorvan::msxml
