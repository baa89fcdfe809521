#include <quorvan/filer/item_values.h>

namespace quorvan::filer {

namespace {

bool scalar(const IXMLDOMNodePtr& item, const dom::Name& kind, dom::AttributeValue& value) {
  return item != nullptr && dom::attribute(item, kind, value);
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

}  // namespace quorvan::filer
