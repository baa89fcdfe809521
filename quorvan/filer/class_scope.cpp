// Class scopes: creating, finding and closing class elements, and the look-up of named children.
#include <quorvan/filer/class_count.h>
#include <quorvan/filer/document_memory.h>
#include <quorvan/filer/filer.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;
using quorvan::filer::changedCount;

int CKtFiler::beginClass(CString className, int version) {
  return openClass(dom::NameText(className), version);
}

int CKtFiler::openClass(const dom::Name& className, int version) {
  if (m_document == nullptr) {
    return 0;
  }
  if (m_currentClass != nullptr) {
    endClass();
  }
  m_writing = 1;
  if (m_mapLoaded == 0) {
    m_classCounts.clear();
    LoadMapFromXml();
  }
  if (CreateClass(className, version) == 1) {
    return 1;
  }
  m_writing = 0;
  return 0;
}

// The element is not in the tree yet: its items go into it while it stands alone, and endClass
// attaches it.
int CKtFiler::CreateClass(const dom::Name& className, int version) {
  m_currentClass = dom::createElement(m_document, className);
  m_classPlace.becomeAlone();
  if (m_currentClass == nullptr || !dom::hasAttributes(m_currentClass)) {
    return 0;
  }
  if (!dom::addAttribute(m_document, m_currentClass, quorvan::filer::kVersionName,
                         static_cast<std::int16_t>(version))) {
    return 0;
  }
  // Counted only when the attribute is there: an element that could not be made has no index.
  int* const counted = m_classCounts.find(className);
  const int index = counted != nullptr ? changedCount(*counted, 1) : 1;
  if (!dom::addAttribute(m_document, m_currentClass, quorvan::filer::kIndexName,
                         static_cast<std::int16_t>(index))) {
    return 0;
  }
  if (counted != nullptr) {
    *counted = index;
  } else {
    InsertClassNameInMap(className);
  }
  return 1;
}

int CKtFiler::endClass() {
  if (m_currentClass == nullptr) {
    return -1;
  }
  int result = -1;
  if (m_writing != 0) {
    const IXMLDOMNodePtr root = rootElement();
    if (root == nullptr) {
      return -1;
    }
    joinFrom(m_classPlace);
    // What nobody else has in hands holds nothing but what a filer put into it, the root never.
    if (m_memory != nullptr && !m_memory->isHandedOut() && m_classPlace.isAlone()) {
      dom::appendNew(root, m_currentClass);
    } else {
      dom::append(root, m_currentClass);
    }
    const dom::NodeName name = dom::nodeName(m_currentClass);
    if (m_memory != nullptr && m_classPlace.isAlone()) {
      m_memory->take(name, m_currentClass);
    }
    if (const int* const counted = m_classCounts.find(name); counted != nullptr) {
      result = *counted;
    }
    m_currentClass = nullptr;
  }
  // After reading the counts are no longer loaded, which makes the result 0.
  return m_mapLoaded == 0 ? changedCount(result, 1) : result;
}

int CKtFiler::beginClass(CString className) {
  return openClass(dom::NameText(className));
}

int CKtFiler::openClass(const dom::Name& className) {
  m_writing = 0;
  int* const unread = m_classCounts.find(className);
  if (unread == nullptr || *unread == 0) {
    return 0;
  }
  // Counted as read even if it is not found; the next scope written counts afresh.
  *unread = changedCount(*unread, -1);
  m_mapLoaded = 0;
  return FindClass(className);
}

int CKtFiler::FindClass(const dom::Name& className) {
  IXMLDOMNodePtr found;
  if (m_currentClass == nullptr || !dom::nodeNameIs(m_currentClass, className)) {
    const IXMLDOMNodePtr root = rootElement();
    if (root == nullptr) {
      return 0;
    }
    found = dom::firstChildNamed(root, className);
    m_missingLeft = kMissingEntries;
    if (found != nullptr) {
      m_classPlace.becomeInDocument();
    }
  } else {
    found = dom::nextSiblingNamed(m_currentClass, className);
    if (found != nullptr) {
      m_classPlace.becomeNear(m_classPlace);
    }
  }
  if (found == nullptr) {
    return 0;
  }
  m_currentClass = std::move(found);
  return 1;
}

int CKtFiler::GetCurrentNodeDescription(CString* name, int* version, int* index) {
  if (name != nullptr) {
    *name = quorvan::nodeName(m_currentClass);
  }
  if (!dom::hasAttributes(m_currentClass)) {
    return 0;
  }
  const auto store = [this](const dom::Name& attributeName, int* number) {
    if (number == nullptr) {
      return true;
    }
    dom::AttributeValue value;
    if (!dom::attribute(m_currentClass, attributeName, value)) {
      return false;
    }
    *number = value.toLong();
    return true;
  };
  return store(quorvan::filer::kVersionName, version) && store(quorvan::filer::kIndexName, index)
             ? 1
             : 0;
}

int CKtFiler::getLastUsedIndex() {
  if (m_currentClass == nullptr) {
    return -1;
  }
  const dom::NodeName name = dom::nodeName(m_currentClass);
  const int* const counted = m_classCounts.find(name);
  return counted != nullptr ? changedCount(*counted, 1) : 0;
}
