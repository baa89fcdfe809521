// Pattern search: which class element of the document carries the values of the pattern's.
#include <quorvan/filer/class_count.h>
#include <quorvan/filer/descendants.h>
#include <quorvan/filer/document_memory.h>
#include <quorvan/filer/filer.h>
#include <quorvan/filer/pattern_filer.h>
#include <quorvan/filer/search_index.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;
using quorvan::filer::changedCount;

int CKtFiler::seek(CKtPatternFiler* pattern) {
  if (pattern == nullptr) {
    quorvan::platform::raiseComError(E_POINTER);
  }
  m_currentClass = nullptr;
  m_mapLoaded = 0;
  LoadMapFromXml();
  CString className;
  if (pattern->getClassName(className) == 0) {
    return -1;
  }
  if (advanceToMatch(*pattern, dom::NameText(className)) == 0) {
    return -1;
  }
  int index = 0;
  return GetCurrentNodeDescription(nullptr, nullptr, &index) != 0 ? index : -1;
}

// The plain search: one class element after the other, in document order. A scope that is read
// needs no closing.
int CKtFiler::advanceByWalk(CKtPatternFiler& pattern, const dom::Name& className) {
  while (openClass(className) != 0) {
    if (matchesPattern(pattern) != 0) {
      return 1;
    }
  }
  return 0;
}

// The same search by way of the index: class elements that can neither match nor raise are passed
// over, and what the walk would have left behind is left behind: counts, current class, flags.
// Every element that the index names, and the last one, is compared as the walk compares it.
int CKtFiler::advanceToMatch(CKtPatternFiler& pattern, const dom::Name& className) {
  const IXMLDOMNodePtr root = rootElement();
  quorvan::SearchIndex* const index = m_memory != nullptr ? m_memory->index(m_document) : nullptr;
  // A class element that is current already is that of a pattern which searches for itself: the
  // walk goes on from there, and its pattern with it.
  if (index == nullptr || root == nullptr || m_currentClass != nullptr ||
      m_classCounts.find(className) == nullptr) {
    return advanceByWalk(pattern, className);
  }
  quorvan::SearchIndex::Search search = index->search(root, className, pattern.m_currentClass);
  int* const count = m_classCounts.find(className);
  // A count that has wrapped may end the walk before the last element.
  if (*count < search.size()) {
    return advanceByWalk(pattern, className);
  }
  int passed = 0;
  while (search.next()) {
    *count = changedCount(*count, passed - search.ordinal());
    passed = search.ordinal();
    m_writing = 0;
    m_mapLoaded = 0;
    m_currentClass = search.element();
    m_classPlace.becomeInDocument();
    if (matchesPattern(pattern) != 0) {
      return 1;
    }
  }
  // No element is left: the walk's last attempt, which finds the count used up or no sibling.
  m_writing = 0;
  if (*count != 0) {
    *count = changedCount(*count, -1);
    m_mapLoaded = 0;
  }
  return 0;
}

// Walks the pattern's children as getFirstChildNode and getNextChildNode do, but keeps them from
// the hands of callers.
int CKtFiler::matchesPattern(CKtPatternFiler& pattern) {
  IXMLDOMNodePtr& item = pattern.m_currentVector;
  item = dom::firstChild(pattern.m_currentClass);
  pattern.m_vectorPlace.becomeNear(pattern.m_classPlace);
  while (item != nullptr) {
    if (findChildMatch(item) == 0) {
      return 0;
    }
    item = dom::nextSibling(item);
  }
  return 1;
}

int CKtFiler::findChildMatch(IXMLDOMNodePtr item) {
  if (item == nullptr) {
    return 0;
  }
  const dom::NodeName name = dom::nodeName(item);
  const IXMLDOMNodePtr child = FindCurrentNodeNamedChild(name);
  if (child == nullptr) {
    return 0;
  }
  return CompareNodes(item, child);
}

// Texts are compared, not numbers: values match when they were filed with the same digits.
int CKtFiler::CompareNodes(const IXMLDOMNodePtr& patternNode, const IXMLDOMNodePtr& documentNode) {
  if (!dom::hasAttributes(patternNode) || !dom::hasAttributes(documentNode)) {
    return 0;
  }
  dom::AttributeCursor attributes(patternNode);
  while (attributes.next()) {
    dom::AttributeValue value;
    if (!dom::attribute(documentNode, attributes.name(), value)) {
      quorvan::platform::raiseComError(E_POINTER);
    }
    if (!(attributes.value() == value)) {
      return 0;
    }
  }
  return quorvan::filer::descendantsHaveAttributes(patternNode) ? 1 : 0;
}
