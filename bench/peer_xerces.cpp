#include <cstring>
#include <memory>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLString.hpp>

#include <bench/peers.h>
#include <bench/tree_peer.h>

namespace bench {

namespace {

using namespace xercesc;

// Short ASCII names as the library's wide characters.
class WideName {
 public:
  explicit WideName(const char* ascii) {
    std::size_t i = 0;
    for (; ascii[i] != '\0' && i + 1 < std::size(m_text); ++i) {
      m_text[i] = static_cast<XMLCh>(ascii[i]);
    }
    m_text[i] = 0;
  }
  [[nodiscard]] const XMLCh* get() const { return m_text; }

 private:
  XMLCh m_text[64];
};

struct XercesTree {
  using Node = DOMElement*;
  DOMDocument* document = nullptr;
  std::string text;  // of the attribute read last

  Node root() { return document->getDocumentElement(); }
  Node addChild(Node parent, const char* name) {
    DOMElement* child = document->createElement(WideName(name).get());
    parent->appendChild(child);
    return child;
  }
  static void addAttribute(Node node, const char* name, const char* value) {
    const TranscodeFromStr wide(reinterpret_cast<const XMLByte*>(value), std::strlen(value),
                                "UTF-8");
    node->setAttribute(WideName(name).get(), wide.str());
  }
  static Node firstOfName(Node node, const char* name) {
    const WideName wide(name);
    while (node != nullptr && !XMLString::equals(node->getTagName(), wide.get())) {
      node = node->getNextElementSibling();
    }
    return node;
  }
  static Node child(Node parent, const char* name) {
    return firstOfName(parent->getFirstElementChild(), name);
  }
  static Node nextOfName(Node node, const char* name) {
    return firstOfName(node->getNextElementSibling(), name);
  }
  const char* attribute(Node node, const char* name) {
    const TranscodeToStr utf8(node->getAttribute(WideName(name).get()), "UTF-8");
    text.assign(reinterpret_cast<const char*>(utf8.str()), utf8.length());
    return text.c_str();
  }
};

// The library's process-wide set-up, done once.
DOMImplementation& implementation() {
  static DOMImplementation* const found = [] {
    XMLPlatformUtils::Initialize();
    return DOMImplementationRegistry::getDOMImplementation(WideName("LS").get());
  }();
  return *found;
}

}  // namespace

void writeXerces(const Drawing& drawing, const std::string& path) {
  DOMImplementation& dom = implementation();
  XercesTree tree;
  tree.document = dom.createDocument(nullptr, WideName("Document").get(), nullptr);
  writeTree(tree, drawing);
  DOMLSSerializer* serializer = dom.createLSSerializer();
  DOMLSOutput* output = dom.createLSOutput();
  LocalFileFormatTarget target(path.c_str());
  output->setByteStream(&target);
  serializer->write(tree.document, output);
  target.flush();
  output->release();
  serializer->release();
  tree.document->release();
}

std::uint64_t readXerces(const std::string& path) {
  implementation();
  XercesDOMParser parser;
  parser.parse(path.c_str());
  XercesTree tree;
  tree.document = parser.getDocument();
  return readTree(tree);
}

}  // namespace bench
