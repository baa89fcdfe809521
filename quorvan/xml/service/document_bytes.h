// What the service would write into a document's file.
#pragma once

#include <string>

#include <quorvan/xml/handles.h>

namespace quorvan::service {

/// The bytes of the document's file, in the encoding that its declaration names. Raises _com_error
/// where the service cannot write it.
std::string bytesOf(IXMLDOMDocument& document);

}  // namespace quorvan::service
