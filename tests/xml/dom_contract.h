// What the contract tests of the XML document service share. They see nothing but dom.h, and run
// on every backend.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include <tests/support/com_initialization.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::test {

/// A document of its own, and a folder of its own for files.
class DomContract : public testing::Test {
 private:
  ComInitialization m_com;  // outlives the document

 protected:
  DomContract();
  ~DomContract() override;

  /// A new document with a declaration and an empty root element "Document".
  static IXMLDOMDocumentPtr newDocument();

  [[nodiscard]] IXMLDOMNodePtr element(const char* name) const {
    return dom::createElement(m_document, dom::Name(std::string_view(name)));
  }
  /// Appends a new element to the parent and returns it.
  IXMLDOMNodePtr appended(const IXMLDOMNodePtr& parent, const char* name) const;

  [[nodiscard]] std::filesystem::path file(const char* name) const { return m_folder / name; }
  void writeFile(const char* name, std::string_view bytes) const;
  /// Whether the document loads a file of these bytes.
  [[nodiscard]] bool loads(std::string_view bytes) const;
  /// The bytes that the document saves.
  [[nodiscard]] std::string saved() const;

  /// A document with the root "Document".
  IXMLDOMDocumentPtr m_document;
  IXMLDOMNodePtr m_root;

 private:
  std::filesystem::path m_folder;
};

CString wide(const std::filesystem::path& path);

/// The value as UTF-8.
std::string textOf(const dom::AttributeValue& value);

/// The value of an attribute, "(none)" without it.
std::string attributeOf(const IXMLDOMNodePtr& node, std::string_view name);

/// The nodes in order with their attributes and children: `Line(X=1 Y=2)[Color #text] Text`.
std::string outline(const IXMLDOMDocumentPtr& document);
std::string outline(const IXMLDOMNodePtr& node);

/// The HRESULT that the action raises, S_OK when it raises none.
template <class Action>
HRESULT raisedBy(const Action& action) {
  try {
    action();
  } catch (const _com_error& error) {
    return error.Error();
  }
  return S_OK;
}

}  // namespace quorvan::test
