#include <quorvan/filer/pattern_filer.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;

CKtPatternFiler::CKtPatternFiler() {
  m_scratch = 1;
}
CKtPatternFiler::CKtPatternFiler(const CKtPatternFiler& other) = default;
CKtPatternFiler& CKtPatternFiler::operator=(const CKtPatternFiler& other) = default;
CKtPatternFiler::~CKtPatternFiler() = default;

int CKtPatternFiler::getClassName(CString& name) {
  const IXMLDOMNodePtr root = rootElement();
  if (root == nullptr) {
    return 0;
  }
  IXMLDOMNodePtr first = dom::firstChild(root);
  if (first == nullptr) {
    return 0;
  }
  m_currentClass = std::move(first);
  m_classPlace.becomeInDocument();
  name = quorvan::nodeName(m_currentClass);
  m_currentVector = dom::firstChild(m_currentClass);
  m_vectorPlace.becomeInDocument();
  return 1;
}

int CKtPatternFiler::getFirstChildNode(IXMLDOMNodePtr* node) {
  *node = nullptr;
  if (m_currentClass == nullptr) {
    return 0;
  }
  m_currentVector = dom::firstChild(m_currentClass);
  m_vectorPlace.becomeNear(m_classPlace);
  if (m_currentVector == nullptr) {
    return 0;
  }
  handOut();
  *node = m_currentVector;
  return 1;
}

int CKtPatternFiler::getNextChildNode(IXMLDOMNodePtr* node) {
  if (m_currentClass == nullptr || m_currentVector == nullptr) {
    return 0;
  }
  m_currentVector = dom::nextSibling(m_currentVector);
  m_vectorPlace.becomeNear(m_vectorPlace);
  if (m_currentVector == nullptr) {
    return 0;
  }
  handOut();
  *node = m_currentVector;
  return 1;
}
