#include <quorvan/filer/coordinates.h>

#include <quorvan/text/numbers.h>

namespace quorvan::filer {

namespace {

// Appends the element with each coordinate in the number form `format`, whose texts are at most
// `kCapacity` long.
template <std::size_t kCapacity, char* (*format)(char*, double) noexcept>
bool appendCoordinates(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                       const dom::Name& name, double x, double y, double z) {
  char texts[3 * kCapacity];
  char* const endX = format(texts, x);
  char* const endY = format(endX, y);
  char* const endZ = format(endY, z);
  const dom::NewAttribute attributes[] = {
      {"X", {{texts, endX}}}, {"Y", {{endX, endY}}}, {"Z", {{endY, endZ}}}};
  return dom::appendElement(document, parent, name, attributes);
}

}  // namespace

bool appendPoint(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                 const dom::Name& name, double x, double y, double z) {
  return appendCoordinates<kFixed7Capacity, formatFixed7>(document, parent, name, x, y, z);
}

bool appendVector(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                  const dom::Name& name, double x, double y, double z) {
  return appendCoordinates<kShortestCapacity, formatShortest>(document, parent, name, x, y, z);
}

}  // namespace quorvan::filer
