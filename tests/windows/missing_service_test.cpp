// Runs where the document service cannot be started.

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include <tests/support/com_initialization.h>
#include <tests/support/known_differences.h>
#include <tests/support/saved_file.h>
#include <quorvan/export/export.h>
#include <quorvan/filer/filer.h>
#include <quorvan/platform/com_error.h>
#include <quorvan/platform/message_box.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan {
namespace {

struct Message {
  std::wstring text;
  unsigned int type;
  unsigned int helpContext;
};

std::vector<Message> shown;

int keep(const wchar_t* text, unsigned int type, unsigned int helpContext) {
  shown.push_back({text, type, helpContext});
  return 1;
}

class MissingService : public testing::Test {
 protected:
  MissingService() {
    shown.clear();
    setMessageBoxHook(keep);
  }
  void SetUp() override {
    if (!test::usesWinesDocuments()) {
      GTEST_SKIP() << "only Wine's service can be kept away";
    }
  }
  ~MissingService() override { setMessageBoxHook(nullptr); }

  static void expectThePrompt() {
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text,
              L"Un probl\u00E8me syst\u00E8me est survenu ! Il semble que vous n'ayez pas une "
              L"version r\u00E9cente de MSXML. Il est conseill\u00E9 de r\u00E9installer Meridal "
              L"qui fera alors une mise \u00E0 jour automatique.");
    EXPECT_EQ(shown[0].type, 0U);
    EXPECT_EQ(shown[0].helpContext, 0U);
  }
};

TEST_F(MissingService, IsAClassThatIsNotRegistered) {
  const test::ComInitialization com;
  IXMLDOMDocumentPtr document;
  EXPECT_EQ(dom::createDocument(document), REGDB_E_CLASSNOTREG);
  EXPECT_TRUE(document == nullptr);
}

TEST_F(MissingService, OpeningShowsTheFrenchPromptAndReturnsZero) {
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(CString(L"a.xml")), 0);
  expectThePrompt();
}

TEST_F(MissingService, ThereIsNothingToWriteOrClose) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(CString(L"a.xml")), 0);
  EXPECT_EQ(filer.beginClass(CString(L"CKtZantoLine"), 1), 0);
  EXPECT_EQ(filer.beginClass(CString(L"CKtZantoLine")), 0);
  EXPECT_EQ(filer.endClass(), -1);
  EXPECT_EQ(filer.closeFiler(), 0);
}

TEST_F(MissingService, ItemsRaiseForTheMissingDocument) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(CString(L"a.xml")), 0);
  try {
    filer.writeItem(CString(L"Radius"), 1.0);
    FAIL() << "nothing raised";
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), E_POINTER);
  }
}

TEST_F(MissingService, AnExistingFileIsLeftAlone) {
  std::ofstream("old.xml") << "<Document/>";
  {
    CKtFiler filer;
    EXPECT_EQ(filer.newFiler(CString(L"old.xml")), 0);
  }
  EXPECT_EQ(test::fileBytes("old.xml"), "<Document/>");
}

TEST_F(MissingService, AHostsFilingWritesNothing) {
  startFiling(L"host.xml");
  expectThePrompt();
  exportLine(0, 0, 0, 1, 0, 0, 7);
  endFiling(L"2025", 1, L"B12", 42);
  EXPECT_EQ(test::fileBytes("host.xml"), "");
}

}  // namespace
}  // namespace quorvan
