// When a filer initialises and uninitialises COM for its thread.

#include <tests/filer/filer_test.h>

#include <memory>

#include <quorvan/platform/com_balance.h>
#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::test {
namespace {

using platform::comBalance;

class ComInitialization : public FilerTest {
 protected:
  int m_before = comBalance();
};

TEST_F(ComInitialization, LastsAsLongAsTheFiler) {
  {
    const CKtFiler filer;
    EXPECT_EQ(comBalance(), m_before + 1);
    const CKtPatternFiler pattern;
    EXPECT_EQ(comBalance(), m_before + 2);
  }
  EXPECT_EQ(comBalance(), m_before);
}

TEST_F(ComInitialization, CopiesHaveOneOfTheirOwn) {
  {
    CKtFiler filer;
    const CKtFiler copy(filer);
    EXPECT_EQ(comBalance(), m_before + 2);
    filer = copy;
    EXPECT_EQ(comBalance(), m_before + 2);
    CKtPatternFiler pattern;
    const CKtPatternFiler copyOfPattern(pattern);
    pattern = copyOfPattern;
    EXPECT_EQ(comBalance(), m_before + 4);
  }
  EXPECT_EQ(comBalance(), m_before);
}

TEST_F(ComInitialization, OpeningAndClosingDoNotTouchIt) {
  CKtFiler filer;
  filer.newFiler(kPath);
  EXPECT_EQ(comBalance(), m_before + 1);
  filer.closeFiler();
  EXPECT_EQ(comBalance(), m_before + 1);
}

TEST_F(ComInitialization, EndsWithAFilerThatCannotSave) {
  auto filer = std::make_unique<CKtFiler>();
  filer->newFiler(L"missing/drawing.xml");
  filer.reset();
  EXPECT_EQ(comBalance(), m_before);
}

int balanceWhileSaving = -1;

int renameAndLook(const char* from, const char* to) {
  balanceWhileSaving = comBalance();
  return embedded::systemFileCalls().rename(from, to);
}

TEST_F(ComInitialization, LastsUntilAFilerThatIsDestroyedOpenHasSaved) {
  embedded::FileCalls calls = embedded::systemFileCalls();
  calls.rename = &renameAndLook;
  {
    CKtFiler filer;
    filer.newFiler(kPath);
    embedded::setFileCalls(calls);
  }
  embedded::setFileCalls(embedded::systemFileCalls());
  EXPECT_EQ(balanceWhileSaving, m_before + 1);
  EXPECT_EQ(comBalance(), m_before);
}

}  // namespace
}  // namespace quorvan::test
