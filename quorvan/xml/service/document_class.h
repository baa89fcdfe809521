// The class of documents that the system offers.
#pragma once

#include <quorvan/xml/handles.h>

namespace quorvan::service {

/// A new document into `document`, which is null after a failure; the result is that of
/// CoCreateInstance(). Each thread has the class looked up in the registry once: to look it up
/// takes longer than all that is done with a small document.
HRESULT createDocument(IXMLDOMDocument** document);

}  // namespace quorvan::service
