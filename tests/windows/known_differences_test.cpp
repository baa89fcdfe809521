// The differences of the saved bytes that the tests put up with under Wine are there.

#include <gtest/gtest.h>

#include <tests/support/com_initialization.h>
#include <tests/support/known_differences.h>
#include <tests/support/saved_file.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::test {
namespace {

class KnownDifferences : public testing::Test {
 private:
  ComInitialization m_com;  // outlives the document

 protected:
  KnownDifferences() {
    dom::createDocument(m_document);
    dom::append(m_document, dom::createProcessingInstruction(
                                m_document, "xml", "version='1.0' encoding='ISO-8859-1'"));
    const IXMLDOMNodePtr root = dom::createElement(m_document, "R");
    dom::addAttribute(m_document, root, "a", L"\u00E9\u20AC");
    dom::append(m_document, root);
    dom::save(m_document, CString(L"made.xml"));
    dom::load(m_document, CString(L"made.xml"));
    dom::save(m_document, CString(L"loaded.xml"));
  }
  void SetUp() override {
    if (!usesWinesDocuments()) {
      GTEST_SKIP() << "these are differences of Wine's service";
    }
  }

  IXMLDOMDocumentPtr m_document;
};

TEST_F(KnownDifferences, AMadeDocumentHasItsOwnQuotesAndShortLineEnds) {
  EXPECT_EQ(fileBytes("made.xml"),
            "<?xml version='1.0' encoding='ISO-8859-1'?>\n<R a=\"\xE9&#8364;\"/>\n");
}

TEST_F(KnownDifferences, ALoadedDocumentIsSavedInUtf8) {
  EXPECT_EQ(fileBytes("loaded.xml"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<R a=\"\xC3\xA9\xE2\x82\xAC\"/>\n");
}

TEST_F(KnownDifferences, AreUndone) {
  for (const char* file : {"made.xml", "loaded.xml"}) {
    EXPECT_EQ(savedBytes(file),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<R a=\"\xE9&#8364;\"/>\r\n");
  }
}

}  // namespace
}  // namespace quorvan::test
