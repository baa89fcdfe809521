// CKtPatternFiler: a filer that holds one class element as a query for CKtFiler::seek.
#pragma once

#include <quorvan/filer/filer.h>

/// A filer used as a pattern: it is opened on a scratch file, one class scope with the values to
/// look for is written into it, and it is handed to CKtFiler::seek. getClassName must come before
/// getFirstChildNode, which must come before getNextChildNode; seek calls all three. Its file is
/// taken for a scratch file: saving it does not wait for the disk.
class QUORVAN_API CKtPatternFiler : public CKtFiler {
 public:
  /// Without a document. A copy shares document and place with what it was copied from.
  CKtPatternFiler();
  CKtPatternFiler(const CKtPatternFiler& other);
  CKtPatternFiler& operator=(const CKtPatternFiler& other);
  ~CKtPatternFiler() override;

  /// Goes to the pattern's class element, the first child of the root element, and stores its
  /// name. Returns 0 when there is no root element or it has no child.
  int getClassName(CString& name);

  /// Hands out the first child of the class element. Returns 0 and a null handle when there is no
  /// class element or it has no child.
  int getFirstChildNode(IXMLDOMNodePtr* node);

  /// Hands out the next child. Returns 0, leaving the handle alone, when there is no class
  /// element, no child handed out before, or no further one.
  int getNextChildNode(IXMLDOMNodePtr* node);

 private:
  // Of the inherited cursors m_currentClass is the pattern's class element and m_currentVector
  // the child last handed out.
};
