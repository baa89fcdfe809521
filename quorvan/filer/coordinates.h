// Points and vectors as elements with the attributes "X", "Y" and "Z". Not installed.
#pragma once

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::filer {

/// Appends an element with the coordinates to seven decimals, as points and the entries of lists
/// are filed. False when it could not be made.
bool appendPoint(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                 const dom::Name& name, double x, double y, double z);

/// Appends an element with as many digits as reading the coordinates back exactly needs, as single
/// vectors are filed: always as text of ours, since the document service's own conversion of a
/// double loses digits and follows the user's decimal separator.
bool appendVector(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                  const dom::Name& name, double x, double y, double z);

}  // namespace quorvan::filer
