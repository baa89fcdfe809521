#include <tests/xml/dom_contract.h>

#include <fstream>
#include <random>

#include <tests/support/saved_file.h>

namespace quorvan::test {

namespace {

std::filesystem::path newFolder() {
  std::random_device random;
  for (;;) {
    std::filesystem::path folder =
        std::filesystem::current_path() / ("quorvan-dom-" + std::to_string(random()));
    if (std::filesystem::create_directory(folder)) {
      return folder;
    }
  }
}

void describe(std::string& out, const IXMLDOMNodePtr& node) {
  out += dom::nodeName(node).view().text();
  std::string attributes;
  dom::AttributeCursor cursor(node);
  while (cursor.next()) {
    if (!attributes.empty()) {
      attributes += ' ';
    }
    attributes.append(cursor.name().text()).append("=").append(textOf(cursor.value()));
  }
  if (!attributes.empty()) {
    out.append("(").append(attributes).append(")");
  }
  const IXMLDOMNodePtr first = dom::firstChild(node);
  if (first == nullptr) {
    return;
  }
  out += '[';
  for (IXMLDOMNodePtr child = first; child != nullptr; child = dom::nextSibling(child)) {
    if (out.back() != '[') {
      out += ' ';
    }
    describe(out, child);
  }
  out += ']';
}

}  // namespace

DomContract::DomContract()
    : m_document(newDocument()),
      m_root(dom::nextSibling(dom::firstChild(m_document))),
      m_folder(newFolder()) {}

DomContract::~DomContract() {
  std::error_code ignored;
  std::filesystem::remove_all(m_folder, ignored);
}

IXMLDOMDocumentPtr DomContract::newDocument() {
  IXMLDOMDocumentPtr document;
  EXPECT_EQ(dom::createDocument(document), S_OK);
  dom::append(document, dom::createProcessingInstruction(document, "xml",
                                                         "version='1.0' encoding='ISO-8859-1'"));
  dom::append(document, dom::createElement(document, "Document"));
  return document;
}

IXMLDOMNodePtr DomContract::appended(const IXMLDOMNodePtr& parent, const char* name) const {
  IXMLDOMNodePtr child = element(name);
  dom::append(parent, child);
  return child;
}

void DomContract::writeFile(const char* name, std::string_view bytes) const {
  std::ofstream out(file(name), std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

bool DomContract::loads(std::string_view bytes) const {
  writeFile("input.xml", bytes);
  return dom::load(m_document, wide(file("input.xml")));
}

std::string DomContract::saved() const {
  dom::save(m_document, wide(file("output.xml")), dom::Durability::kScratch);
  return savedBytes(file("output.xml"));
}

CString wide(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return CString(reinterpret_cast<const char*>(utf8.c_str()));
}

std::string textOf(const dom::AttributeValue& value) {
  std::string text;
  value.appendTo(text);
  return text;
}

std::string attributeOf(const IXMLDOMNodePtr& node, std::string_view name) {
  dom::AttributeValue value;
  return dom::attribute(node, dom::Name(name), value) ? textOf(value) : "(none)";
}

std::string outline(const IXMLDOMDocumentPtr& document) {
  std::string out;
  for (IXMLDOMNodePtr child = dom::firstChild(document); child != nullptr;
       child = dom::nextSibling(child)) {
    if (!out.empty()) {
      out += ' ';
    }
    describe(out, child);
  }
  return out;
}

std::string outline(const IXMLDOMNodePtr& node) {
  std::string out;
  describe(out, node);
  return out;
}

}  // namespace quorvan::test
