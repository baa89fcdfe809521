// Points and vectors as elements with the attributes "X", "Y" and "Z". Not installed.
#pragma once

#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
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

/// Reads a single point or vector. 1, or 0 when `item` is null, takes no attributes or lacks a
/// coordinate. Coordinates are stored as soon as they are read: with "Y" missing the new x is in
/// place.
int itemValue(const IXMLDOMNodePtr& item, CKtPnt3D* point);
int itemValue(const IXMLDOMNodePtr& item, CKtVect3D* vector);

/// Reads an entry of a list, all of it or nothing. False, leaving `point` alone, when `entry` takes
/// no attributes or lacks a coordinate; raises E_POINTER for a null one.
bool entryValue(const IXMLDOMNodePtr& entry, CKtPnt3D& point);

}  // namespace quorvan::filer
