// Lists of points and of vectors: one element with a "size" and a child for each entry. Lists
// belong to the class element, also while a vector scope is open.
#include <quorvan/filer/coordinates.h>
#include <quorvan/filer/filer.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;

namespace {

// The writers' names of the entries differ, yet both readers look for "point": a vector list that
// was written here does not read back. Files rely on both names.
constexpr dom::Name kPointEntry = "point";
constexpr dom::Name kVectorEntry = "vectorPoints";

// "size" is what the caller says, not the length of the list.
template <class Entry>
int writeList(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& currentClass,
              const dom::Name& name, const dom::Name& entryName, const std::vector<Entry>& entries,
              long count) {
  const IXMLDOMNodePtr list = dom::createElement(document, name);
  if (list == nullptr || !dom::hasAttributes(list) ||
      !dom::addAttribute(document, list, quorvan::filer::kSizeName,
                         static_cast<std::int32_t>(count))) {
    return 0;
  }
  for (const Entry& entry : entries) {
    if (!quorvan::filer::appendPoint(document, list, entryName, entry.X(), entry.Y(), entry.Z())) {
      return 0;
    }
  }
  dom::append(currentClass, list);
  return 1;
}

CKtPnt3D makeEntry(const CKtPnt3D& point, const std::vector<CKtPnt3D>*) {
  return point;
}
CKtVect3D makeEntry(const CKtPnt3D& point, const std::vector<CKtVect3D>*) {
  return CKtVect3D(point, 0);
}

// Reads at most `count` entries from `child` on. Other siblings are skipped; running out of them
// while more entries were announced meets a null node, which raises E_POINTER.
template <class Entry>
bool readEntries(IXMLDOMNodePtr child, long count, std::vector<Entry>* entries) {
  for (long done = 0; done < count && child != nullptr; ++done) {
    while (!dom::nodeNameIs(child, kPointEntry)) {
      child = dom::nextSibling(child);
    }
    CKtPnt3D point;
    if (!quorvan::filer::entryValue(child, point)) {
      return false;
    }
    entries->push_back(makeEntry(point, entries));
    child = dom::nextSibling(child);
  }
  return true;
}

template <class Entry>
int readList(const IXMLDOMNodePtr& list, std::vector<Entry>* entries, long* count) {
  dom::AttributeValue size;
  if (list == nullptr || !dom::hasAttributes(list) ||
      !dom::attribute(list, quorvan::filer::kSizeName, size)) {
    return 0;
  }
  *count = size.toLong();
  IXMLDOMNodePtr child = dom::firstChild(list);
  if (child == nullptr) {
    return 0;
  }
  if (!readEntries(std::move(child), *count, entries)) {
    entries->clear();
    return 0;
  }
  return 1;
}

}  // namespace

int CKtFiler::writeItem(CString name, std::vector<CKtPnt3D> points, long count) {
  changeAt(m_classPlace);
  return writeList(m_document, m_currentClass, dom::NameText(name), kPointEntry, points, count);
}

int CKtFiler::writeItem(CString name, std::vector<CKtVect3D> vectors, long count) {
  changeAt(m_classPlace);
  return writeList(m_document, m_currentClass, dom::NameText(name), kVectorEntry, vectors, count);
}

int CKtFiler::readItem(CString name, std::vector<CKtPnt3D>* points, long* count) {
  return readList(FindCurrentNodeNamedChild(dom::NameText(name)), points, count);
}

int CKtFiler::readItem(CString name, std::vector<CKtVect3D>* vectors, long* count) {
  return readList(FindCurrentNodeNamedChild(dom::NameText(name)), vectors, count);
}
