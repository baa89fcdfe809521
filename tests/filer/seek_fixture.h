// A document to search and patterns to search for, both given as text.
#pragma once

#include <tests/filer/filer_test.h>

#include <memory>
#include <string>

#include <quorvan/xml/handles.h>

namespace quorvan::test {

class Seek : public FilerTest {
 protected:
  void load(const std::string& classElements) {
    writeText(kPath, documentText(classElements));
    ASSERT_EQ(m_filer.newFiler(kPath), 1);
  }

  /// Searches for a pattern from a file whose root holds these elements.
  int seekFor(const std::string& patternElements) {
    writeText(kPatternPath, documentText(patternElements));
    m_pattern = CKtPatternFiler();
    EXPECT_EQ(m_pattern.newFiler(kPatternPath), 1);
    return m_filer.seek(&m_pattern);
  }

  HRESULT raisedSeeking(const std::string& patternElements) {
    return raised([&] { seekFor(patternElements); });
  }

  /// The number of the next element of that name that reading finds, 0 without one.
  long nextNumber(const wchar_t* className) {
    return m_filer.beginClass(className) == 1 ? itemNumber(m_filer) : 0;
  }

  /// The name of the pattern's item behind the one compared last, empty without one.
  CString nextPatternItem() {
    IXMLDOMNodePtr node;
    m_pattern.getNextChildNode(std::addressof(node));
    return quorvan::nodeName(node);
  }

  CKtFiler m_filer;
  CKtPatternFiler m_pattern;
};

}  // namespace quorvan::test
