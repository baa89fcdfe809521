// A document of the service and its file.
#pragma once

#include <string_view>

#include <quorvan/text/cstring.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/handles.h>

namespace quorvan::service {

/// Replaces the document's content by the file's; false, with the document empty, when there is
/// none or it does not parse.
bool loadFile(IXMLDOMDocument& document, const CString& path);

/// Replaces the document's content by the bytes of a file; false, with the document empty, when
/// they do not parse.
bool loadBytes(IXMLDOMDocument& document, std::string_view bytes);

/// Why the document's last load failed, in the service's own account.
void explain(IXMLDOMDocument& document, dom::LoadProblem& problem);

/// The same for a load from that file, which may not be there at all.
void explainFile(IXMLDOMDocument& document, const CString& path, dom::LoadProblem& problem);

/// Writes the document beside the target and puts it in the target's place in one step. On
/// failure it raises, and the target is as it was.
void saveFile(IXMLDOMDocument& document, const CString& path, dom::Durability durability);

/// See dom::clearLeftOver.
void clearLeftOver(const CString& path) noexcept;

}  // namespace quorvan::service
