#include <quorvan/filer/item_values.h>

namespace quorvan::filer {

namespace {

bool scalar(const IXMLDOMNodePtr& item, const dom::Name& kind, dom::AttributeValue& value) {
  return item != nullptr && dom::hasAttributes(item) && dom::attribute(item, kind, value);
}

template <class Geometry>
int coordinates(const IXMLDOMNodePtr& item, Geometry* geometry) {
  if (item == nullptr || !dom::hasAttributes(item)) {
    return 0;
  }
  dom::AttributeValue value;
  if (!dom::attribute(item, "X", value)) {
    return 0;
  }
  geometry->X(value.toDouble());
  if (!dom::attribute(item, "Y", value)) {
    return 0;
  }
  geometry->Y(value.toDouble());
  if (!dom::attribute(item, "Z", value)) {
    return 0;
  }
  geometry->Z(value.toDouble());
  return 1;
}

}  // namespace

int itemValue(const IXMLDOMNodePtr& item, double* value) {
  dom::AttributeValue found;
  if (!scalar(item, kDoubleKind, found)) {
    return 0;
  }
  *value = found.toDouble();
  return 1;
}

int itemValue(const IXMLDOMNodePtr& item, long* value) {
  dom::AttributeValue found;
  if (!scalar(item, kLongKind, found)) {
    return 0;
  }
  *value = found.toLong();
  return 1;
}

int itemValue(const IXMLDOMNodePtr& item, CString* value) {
  dom::AttributeValue found;
  if (!scalar(item, kStringKind, found)) {
    return 0;
  }
  *value = found.toText();
  return 1;
}

int itemValue(const IXMLDOMNodePtr& item, CKtPnt3D* point) {
  return coordinates(item, point);
}

int itemValue(const IXMLDOMNodePtr& item, CKtVect3D* vector) {
  return coordinates(item, vector);
}

}  // namespace quorvan::filer
