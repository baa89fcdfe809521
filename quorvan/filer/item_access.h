// ItemAccess: the filer's operations for callers that know more than a host: names that are already
// in the document's form, as the item tables of the element classes have them, and a path at which
// there is no file. Not installed.
#pragma once

#include <quorvan/filer/filer.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan {

/// Forwards to the filer; see there for what each operation does, gives and raises.
class ItemAccess {
 public:
  /// newFiler for a path at which there is no file: none is looked for, and the one that is saved
  /// there is deleted at once.
  static int openPassing(CKtFiler& filer, CString path) {
    filer.m_scratch = 2;
    return open(filer, std::move(path), false);
  }
  /// newFiler; the file is looked for only where it may be there.
  static int open(CKtFiler& filer, CString path, bool mayBeThere);

  static int beginClass(CKtFiler& filer, const dom::Name& className, int version) {
    return filer.openClass(className, version);
  }
  static int beginClass(CKtFiler& filer, const dom::Name& className) {
    return filer.openClass(className);
  }
  static int beginVector(CKtFiler& filer, const dom::Name& name, long count) {
    return filer.openVector(name, count);
  }
  static int beginVector(CKtFiler& filer, const dom::Name& name, long* count) {
    return filer.openVector(name, count);
  }
  template <class Value>
  static int write(CKtFiler& filer, const dom::Name& name, const Value& value) {
    return filer.write(name, value);
  }
  /// Text that needs no conversion, as a text item.
  static int write(CKtFiler& filer, const dom::Name& name, const dom::AsciiText& value);
  template <class Value>
  static int read(CKtFiler& filer, const dom::Name& name, Value* value) {
    return filer.read(name, value);
  }

  /// Whether a list may hold so many entries more than the file has: what is taken on trust is
  /// bounded for a document, see CKtFiler::kMissingEntries.
  static bool trust(CKtFiler& filer, long entries) noexcept {
    const bool isEnough = entries <= filer.m_missingLeft;
    filer.m_missingLeft -= isEnough ? entries : 0;
    return isEnough;
  }

  /// The element whose children are the items being read: the open vector, else the class.
  static const IXMLDOMNodePtr& scope(const CKtFiler& filer) { return filer.itemScope(); }
};

}  // namespace quorvan
