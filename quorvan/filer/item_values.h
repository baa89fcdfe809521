// What a scalar item holds, given its element. Not installed.
#pragma once

#include <quorvan/filer/vocabulary.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::filer {

/// Each gives 1, or 0 when `item` is null, takes no attributes or lacks the one of its kind; the
/// value is then left alone.
int itemValue(const IXMLDOMNodePtr& item, double* value);
int itemValue(const IXMLDOMNodePtr& item, long* value);
int itemValue(const IXMLDOMNodePtr& item, CString* value);

}  // namespace quorvan::filer
