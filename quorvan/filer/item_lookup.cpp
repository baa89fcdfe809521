// Where items go and where they are looked up: the first child of that name.
#include <quorvan/filer/document_memory.h>
#include <quorvan/filer/filer.h>
#include <quorvan/xml/dom.h>

namespace dom = quorvan::dom;

// Items go into the open vector; without one, into the current class.
const IXMLDOMNodePtr& CKtFiler::itemScope() const {
  return m_currentVector != nullptr ? m_currentVector : m_currentClass;
}

// The scope, in which an item is about to be written.
const IXMLDOMNodePtr& CKtFiler::scopeToWrite() {
  changeAt(m_currentVector != nullptr ? m_vectorPlace : m_classPlace);
  return itemScope();
}

// With nowhere to go the item is built all the same, so that what stands in its way is raised.
int CKtFiler::dropItem(const dom::Name& name) {
  dom::createElement(m_document, name);
  return 0;
}

IXMLDOMNodePtr CKtFiler::findItem(const dom::Name& name) {
  return m_currentVector != nullptr ? FindChildNodeNamedChild(name)
                                    : FindCurrentNodeNamedChild(name);
}

IXMLDOMNodePtr CKtFiler::GetNamedChild(const IXMLDOMNodePtr& node, const dom::Name& name) {
  return node == nullptr ? IXMLDOMNodePtr() : dom::firstChildNamed(node, name);
}

// What is in the document changes no more than its memory is told.
IXMLDOMNodePtr CKtFiler::FindCurrentNodeNamedChild(const dom::Name& name) {
  if (m_currentClass != nullptr && m_memory != nullptr && m_classPlace.isInDocument()) {
    return m_memory->firstChildNamed(m_currentClass, name);
  }
  return GetNamedChild(m_currentClass, name);
}

IXMLDOMNodePtr CKtFiler::FindChildNodeNamedChild(const dom::Name& name) {
  if (m_currentVector != nullptr && m_memory != nullptr && m_vectorPlace.isInDocument()) {
    return m_memory->firstChildNamed(m_currentVector, name);
  }
  return GetNamedChild(m_currentVector, name);
}
