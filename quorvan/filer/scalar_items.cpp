// Scalar items: one element with one attribute that is named after the item's kind.
#include <quorvan/filer/filer.h>
#include <quorvan/filer/item_access.h>
#include <quorvan/filer/item_values.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;
namespace filer = quorvan::filer;

int CKtFiler::writeItem(CString name, double value) {
  return write(dom::NameText(name), value);
}

int CKtFiler::write(const dom::Name& name, double value) {
  const IXMLDOMNodePtr& scope = scopeToWrite();
  if (scope == nullptr) {
    return dropItem(name);
  }
  return dom::appendElement(m_document, scope, name, {&filer::kDoubleKind, 1}, &value) ? 1 : 0;
}

int CKtFiler::writeItem(CString name, long value) {
  return write(dom::NameText(name), value);
}

int CKtFiler::write(const dom::Name& name, long value) {
  const IXMLDOMNodePtr& scope = scopeToWrite();
  if (scope == nullptr) {
    return dropItem(name);
  }
  const auto number = static_cast<std::int32_t>(value);
  return dom::appendElement(m_document, scope, name, filer::kLongKind, number) ? 1 : 0;
}

int CKtFiler::writeItem(CString name, CString value) {
  return write(dom::NameText(name), value);
}

int CKtFiler::write(const dom::Name& name, const CString& value) {
  const IXMLDOMNodePtr& scope = scopeToWrite();
  if (scope == nullptr) {
    return dropItem(name);
  }
  return dom::appendElement(m_document, scope, name, filer::kStringKind, value.view()) ? 1 : 0;
}

int quorvan::ItemAccess::write(CKtFiler& filer, const dom::Name& name,
                               const dom::AsciiText& value) {
  const IXMLDOMNodePtr& scope = filer.scopeToWrite();
  if (scope == nullptr) {
    return filer.dropItem(name);
  }
  const dom::NewAttribute attribute{filer::kStringKind, value};
  return dom::appendElement(filer.m_document, scope, name, {&attribute, 1}) ? 1 : 0;
}

int CKtFiler::readItem(CString name, double* value) {
  return read(dom::NameText(name), value);
}

int CKtFiler::readItem(CString name, long* value) {
  return read(dom::NameText(name), value);
}

int CKtFiler::readItem(CString name, CString* value) {
  return read(dom::NameText(name), value);
}

int CKtFiler::read(const dom::Name& name, double* value) {
  return filer::itemValue(findItem(name), value);
}

int CKtFiler::read(const dom::Name& name, long* value) {
  return filer::itemValue(findItem(name), value);
}

int CKtFiler::read(const dom::Name& name, CString* value) {
  return filer::itemValue(findItem(name), value);
}
