// Vector scopes: a named element with a "size" that gathers the items written while it is open.
#include <quorvan/filer/filer.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;

int CKtFiler::beginVector(CString name, long count) {
  return openVector(dom::NameText(name), count);
}

int CKtFiler::openVector(const dom::Name& name, long count) {
  if (m_currentClass == nullptr) {
    return 0;
  }
  if (m_currentVector != nullptr) {
    endVector();
  }
  m_writing = 1;
  IXMLDOMNodePtr vector = dom::createElement(m_document, name);
  if (vector == nullptr || !dom::hasAttributes(vector)) {
    return 0;
  }
  if (!dom::addAttribute(m_document, vector, quorvan::filer::kSizeName,
                         static_cast<std::int16_t>(count))) {
    return 0;
  }
  m_currentVector = std::move(vector);
  m_vectorPlace.becomeAlone();
  return 1;
}

int CKtFiler::beginVector(CString name, long* count) {
  return openVector(dom::NameText(name), count);
}

int CKtFiler::openVector(const dom::Name& name, long* count) {
  if (m_currentClass == nullptr) {
    return 0;
  }
  if (m_currentVector != nullptr) {
    endVector();
  }
  m_currentVector = FindCurrentNodeNamedChild(name);
  m_vectorPlace.becomeNear(m_classPlace);
  if (m_currentVector == nullptr) {
    return 0;
  }
  m_writing = 0;
  dom::AttributeValue size;
  if (!dom::hasAttributes(m_currentVector) ||
      !dom::attribute(m_currentVector, quorvan::filer::kSizeName, size)) {
    endVector();
    return 0;
  }
  *count = size.toLong();
  return 1;
}

int CKtFiler::endVector() {
  if (m_currentVector == nullptr) {
    return 0;
  }
  if (m_writing != 0) {
    changeAt(m_classPlace);
    joinFrom(m_vectorPlace);
    dom::append(m_currentClass, m_currentVector);
  }
  m_currentVector = nullptr;
  return 1;
}
