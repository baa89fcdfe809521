// CKtFiler: the object through which every drawing element is written to and read back from one
// transfer file.
//
// A filer owns one XML document, the path of its file, a count of the class elements by name and
// two cursors: the current class element and the current vector element. It is opened with
// newFiler, filled or read class scope by class scope, and saved with closeFiler; its destructor
// saves a file that is still open.
//
// Whether a scope is written or read is not chosen when the file is opened but by the overload of
// beginClass (or beginVector) that opens the scope.
//
// Results: operations that report success return 1, or 0 for failure. A failed call of the XML
// document service raises _com_error; only newFiler catches it.
//
// Threads: a filer is used by the thread that created it. Nothing is locked.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include <quorvan/api.h>
#include <quorvan/filer/class_counts.h>
#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
#include <quorvan/text/cstring.h>
#include <quorvan/xml/handles.h>

class CKtPatternFiler;

namespace quorvan {
class ItemAccess;
class DocumentMemory;
namespace dom {
class Name;
}
}  // namespace quorvan

/// Writes, reads, searches and saves one transfer file.
class QUORVAN_API CKtFiler {
 public:
  /// How many entries of lists a file may announce without having them, where reading holds those
  /// that are missing too: as many in a list as it has, and so many more in all elements of a class
  /// together that are read in their order. A list that goes beyond is refused.
  static constexpr long kMissingEntries = 262144;

  /// A closed filer, ready to write. Initialises COM for the calling thread.
  CKtFiler();

  /// Memberwise: the copy shares the document and the current nodes, and copies the path, the
  /// class counts and the flags. Destroying or closing either saves the shared document.
  CKtFiler(const CKtFiler& other);
  CKtFiler& operator=(const CKtFiler& other);

  /// Saves a file that is still open (a failure to do so is not reported), then uninitialises COM.
  virtual ~CKtFiler();

  /// Opens the file at `path`: loads it when it is there and well-formed, otherwise prepares an
  /// empty document that closeFiler will save under this path (also over a file that could not be
  /// parsed). Returns 1, or 0 after a message box when the XML document service is missing or
  /// fails. Raises nothing. Calling it on an open filer drops the open document unsaved and keeps
  /// the class counts.
  int newFiler(CString path);

  /// Closes a scope that is still open, saves the document to its path, also when it was only
  /// read, and closes the filer. Returns 1, or 0 when nothing is open. Raises _com_error when the
  /// file cannot be saved; the filer then still holds its document and path, and the old file is
  /// as it was. The current vector stays as it is, and so does the class element last read.
  int closeFiler();

  /// Opens a class scope for writing: a new class element with the attributes "version"
  /// (`version` cut to 16 bits) and "index". A scope still open is closed first. Returns 0 when no
  /// file is open or the element could not be made.
  int beginClass(CString className, int version);

  /// Opens the next class element of that name for reading: the one after the current class
  /// element when that has the same name, else the first of the document. Returns 0 when there is
  /// none left.
  int beginClass(CString className);

  /// Closes the class scope. Writing: appends the class element to the document and returns its
  /// index. Reading: returns 0, and the element stays current. Returns -1 with no current class.
  int endClass();

  /// -1 with no current class; else one more than the class count of the current element's name:
  /// while writing the index plus 1, after reading the number of unread elements plus 1.
  int getLastUsedIndex();

  /// Writes one item into the open vector scope, else into the current class element. Returns 0
  /// with neither. An item of the same name is not replaced: reading finds the first.
  int writeItem(CString name, double value);
  /// The value is filed with its low 32 bits.
  int writeItem(CString name, long value);
  /// Any other whole number or enumerator, as a long.
  int writeItem(CString name, int value) {
    return writeItem(std::move(name), static_cast<long>(value));
  }
  template <class Number, std::enable_if_t<std::is_integral_v<Number>, int> = 0>
  int writeItem(CString name, Number value) {
    return writeItem(std::move(name), static_cast<long>(value));
  }
  /// A character that XML cannot carry is filed as U+FFFD.
  int writeItem(CString name, CString value);
  int writeItem(CString name, const wchar_t* value) {
    return writeItem(std::move(name), CString(value));
  }
  int writeItem(CString name, CKtPnt3D point);
  /// The components are filed with as many digits as reading them back exactly needs.
  int writeItem(CString name, CKtVect3D vector);
  /// Writes the list into the current class element, past an open vector scope. "size" is `count`
  /// as given, whatever the number of entries. Raises E_POINTER with no current class.
  int writeItem(CString name, std::vector<CKtPnt3D> points, long count);
  /// Like the point list. readItem does not find the entries that this form writes: reading a
  /// non-empty vector list back raises E_POINTER.
  int writeItem(CString name, std::vector<CKtVect3D> vectors, long count);

  /// Reads the first item of that name from the open vector scope, else from the current class
  /// element. Returns 0, leaving the value alone, when it is missing or of another kind. Text that
  /// is no number reads as 0.
  int readItem(CString name, double* value);
  int readItem(CString name, long* value);
  int readItem(CString name, CString* value);
  /// A missing coordinate makes the result 0; the ones before it are stored already.
  int readItem(CString name, CKtPnt3D* point);
  int readItem(CString name, CKtVect3D* vector);
  /// Stores "size" in `count` and appends at most that many entries to the list. Returns 0 when
  /// the list is missing or has no children (list untouched) or an entry is incomplete (list
  /// emptied). Raises E_POINTER when other children follow the last entry and more were announced.
  int readItem(CString name, std::vector<CKtPnt3D>* points, long* count);
  int readItem(CString name, std::vector<CKtVect3D>* vectors, long* count);

  /// Opens a vector scope for writing; "size" is `count` cut to 16 bits. A vector scope still open
  /// is closed first. The element joins the current class element at endVector. Returns 0 with no
  /// current class.
  int beginVector(CString name, long count);
  template <class Number, std::enable_if_t<std::is_integral_v<Number>, int> = 0>
  int beginVector(CString name, Number count) {
    return beginVector(std::move(name), static_cast<long>(count));
  }
  /// Opens the first vector of that name in the current class element for reading and stores its
  /// "size". Returns 0 when there is none.
  int beginVector(CString name, long* count);

  /// Closes the vector scope; after writing it is appended to the class element that is current
  /// now (E_POINTER raised without one). Returns 0 when none is open.
  int endVector();

  /// The "index" of the first class element that carries the values of the pattern's class
  /// element, or -1. The element found (else the last one tested) becomes current, and the class
  /// counts are loaded again on top of the present ones. Raises E_POINTER when an item compared
  /// lacks an attribute of the pattern's, and when no file is open.
  int seek(CKtPatternFiler* pattern);

 protected:
  /// The root element: the document's first child, or the one after the declaration; null
  /// without one. From then on searches in this document go from element to element where nodes
  /// can be changed past the filer, as the COM interfaces of Windows' document service can.
  IXMLDOMNodePtr GetDocumentRealNode();

  /// Whether the current class element holds an item equal to this one of the pattern.
  int findChildMatch(IXMLDOMNodePtr item);

 private:
  friend class CKtPatternFiler;
  friend class quorvan::ItemAccess;

  // Where a current node is. Only one that no document holds yet, and no other filer knows, is
  // written into without a change of a document; copying a filer ends that for both.
  class CursorPlace {
   public:
    CursorPlace() noexcept = default;
    CursorPlace(const CursorPlace& other) noexcept : m_place(other.shared()) {}
    CursorPlace& operator=(const CursorPlace& other) noexcept {
      m_place = other.shared();
      return *this;
    }
    ~CursorPlace() = default;

    [[nodiscard]] bool isAlone() const noexcept { return m_place == kAlone; }
    [[nodiscard]] bool isInDocument() const noexcept { return m_place == kInDocument; }
    [[nodiscard]] bool isElsewhere() const noexcept { return m_place == kElsewhere; }
    void becomeAlone() noexcept { m_place = kAlone; }
    void becomeElsewhere() noexcept { m_place = kElsewhere; }
    // A node beside or below the one at `other`.
    void becomeNear(const CursorPlace& other) noexcept {
      m_place = other.m_place == kElsewhere ? kElsewhere : kInDocument;
    }
    void becomeInDocument() noexcept { m_place = kInDocument; }

   private:
    enum Place { kAlone, kInDocument, kElsewhere };

    Place shared() const noexcept {
      if (m_place == kAlone) {
        m_place = kInDocument;
      }
      return m_place;
    }

    mutable Place m_place = kInDocument;
  };

  int prepareEmptyDocument();
  IXMLDOMNodePtr rootElement();
  void endDocumentMemory();
  void handOut();
  void changeAt(const CursorPlace& place);
  void joinFrom(const CursorPlace& place);
  const IXMLDOMNodePtr& scopeToWrite();
  int LoadMapFromXml();
  int InsertClassNameInMap(const quorvan::dom::Name& className);
  int CreateClass(const quorvan::dom::Name& className, int version);
  int FindClass(const quorvan::dom::Name& className);
  int GetCurrentNodeDescription(CString* name, int* version, int* index);
  IXMLDOMNodePtr GetNamedChild(const IXMLDOMNodePtr& node, const quorvan::dom::Name& name);
  IXMLDOMNodePtr FindCurrentNodeNamedChild(const quorvan::dom::Name& name);
  IXMLDOMNodePtr FindChildNodeNamedChild(const quorvan::dom::Name& name);
  int CompareNodes(const IXMLDOMNodePtr& patternNode, const IXMLDOMNodePtr& documentNode);

  // The public operations with their names already in the form that the document wants.
  int openClass(const quorvan::dom::Name& className, int version);
  int openClass(const quorvan::dom::Name& className);
  int openVector(const quorvan::dom::Name& name, long count);
  int openVector(const quorvan::dom::Name& name, long* count);
  int write(const quorvan::dom::Name& name, double value);
  int write(const quorvan::dom::Name& name, long value);
  int write(const quorvan::dom::Name& name, const CString& value);
  int write(const quorvan::dom::Name& name, const CKtPnt3D& point);
  int write(const quorvan::dom::Name& name, const CKtVect3D& vector);
  int read(const quorvan::dom::Name& name, double* value);
  int read(const quorvan::dom::Name& name, long* value);
  int read(const quorvan::dom::Name& name, CString* value);
  int read(const quorvan::dom::Name& name, CKtPnt3D* point);
  int read(const quorvan::dom::Name& name, CKtVect3D* vector);

  IXMLDOMNodePtr findItem(const quorvan::dom::Name& name);
  const IXMLDOMNodePtr& itemScope() const;
  int dropItem(const quorvan::dom::Name& name);

  int matchesPattern(CKtPatternFiler& pattern);
  int advanceToMatch(CKtPatternFiler& pattern, const quorvan::dom::Name& className);
  int advanceByWalk(CKtPatternFiler& pattern, const quorvan::dom::Name& className);

  IXMLDOMDocumentPtr m_document;              // null while no file is open
  CString m_fileName;                         // empty means that no file is open
  quorvan::filer::ClassCounts m_classCounts;  // of each name: written so far, or still unread
  int m_writing = 1;                          // 1 while scopes are opened for writing
  int m_mapLoaded = 0;                        // 1 when the counts were built from the document
  IXMLDOMNodePtr m_currentClass;              // opened by beginClass
  IXMLDOMNodePtr m_currentVector;             // opened by beginVector
  int m_scratch = 0;          // 1 for a pattern, whose file is soon deleted; 2: at once
  CursorPlace m_classPlace;   // of m_currentClass
  CursorPlace m_vectorPlace;  // of m_currentVector
  std::shared_ptr<quorvan::DocumentMemory> m_memory;  // of the document opened last
  long m_missingLeft = kMissingEntries;               // since the walk over a class began
};
