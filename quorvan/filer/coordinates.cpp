#include <quorvan/filer/coordinates.h>

#include <quorvan/filer/vocabulary.h>
#include <quorvan/text/numbers.h>
#include <quorvan/xml/values.h>

namespace quorvan::filer {

namespace {

template <class Geometry>
int readCoordinates(const IXMLDOMNodePtr& item, Geometry* geometry) {
  dom::AttributeValue value;
  if (item == nullptr || !dom::attribute(item, kX, value)) {
    return 0;
  }
  geometry->X(value.toDouble());
  if (!dom::attribute(item, kY, value)) {
    return 0;
  }
  geometry->Y(value.toDouble());
  if (!dom::attribute(item, kZ, value)) {
    return 0;
  }
  geometry->Z(value.toDouble());
  return 1;
}

}  // namespace

bool appendPoint(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                 const dom::Name& name, double x, double y, double z) {
  const double coordinates[] = {x, y, z};
  return dom::appendElement(document, parent, name, kCoordinateNames, coordinates);
}

bool appendVector(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                  const dom::Name& name, double x, double y, double z) {
  char texts[3 * kShortestCapacity];
  char* const endX = formatShortest(texts, x);
  char* const endY = formatShortest(endX, y);
  char* const endZ = formatShortest(endY, z);
  const dom::NewAttribute attributes[] = {
      {kX, {{texts, endX}}}, {kY, {{endX, endY}}}, {kZ, {{endY, endZ}}}};
  return dom::appendElement(document, parent, name, attributes);
}

int itemValue(const IXMLDOMNodePtr& item, CKtPnt3D* point) {
  return readCoordinates(item, point);
}

int itemValue(const IXMLDOMNodePtr& item, CKtVect3D* vector) {
  return readCoordinates(item, vector);
}

bool entryValue(const IXMLDOMNodePtr& entry, CKtPnt3D& point) {
  dom::AttributeValue x;
  dom::AttributeValue y;
  dom::AttributeValue z;
  if (!dom::attribute(entry, kX, x) || !dom::attribute(entry, kY, y) ||
      !dom::attribute(entry, kZ, z)) {
    return false;
  }
  point.XYZ(x.toDouble(), y.toDouble(), z.toDouble());
  return true;
}

}  // namespace quorvan::filer
