// Files that cannot be read or written.

#include <tests/filer/filer_test.h>

#include <filesystem>
#include <memory>

#include <tests/support/saved_file.h>

namespace quorvan::test {
namespace {

class FileFailure : public FilerTest {};

TEST_F(FileFailure, AFileThatDoesNotParseIsReplacedWhenClosed) {
  for (const char* text : {"", "no markup", "<Document><A></Document>", "<Document/><Document/>",
                           "<Document><A a='1' a='2'/></Document>", "<Document>&#1;</Document>"}) {
    writeText(kPath, text);
    CKtFiler filer;
    EXPECT_EQ(filer.newFiler(kPath), 1) << text;
    EXPECT_EQ(filer.beginClass(L"A"), 0) << text;
    EXPECT_TRUE(messages().empty()) << text;
    ASSERT_EQ(savedText(kPath), text) << "touched before it was closed";
    EXPECT_EQ(filer.closeFiler(), 1) << text;
    EXPECT_EQ(savedText(kPath), documentText("")) << text;
  }
}

class UnwritableFile : public FilerTest {
 protected:
  UnwritableFile() { std::filesystem::remove_all("missing"); }

  const wchar_t* const kUnwritablePath = L"missing/drawing.xml";
};

TEST_F(UnwritableFile, AFailedSaveIsRaisedAndLosesNothing) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kUnwritablePath), 1);
  filer.beginClass(L"A", 1);
  filer.writeItem(L"N", 1);
  EXPECT_LT(raised([&] { filer.closeFiler(); }), 0);
  EXPECT_LT(raised([&] { filer.closeFiler(); }), 0);
  // Document, path and counts are still there.
  ASSERT_EQ(filer.beginClass(L"A", 1), 1);
  filer.writeItem(L"N", 2);
  EXPECT_EQ(filer.endClass(), 2);
  std::filesystem::create_directory("missing");
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kUnwritablePath),
            documentText("<A version=\"1\" index=\"1\"><N long=\"1\"/></A>"
                         "<A version=\"1\" index=\"2\"><N long=\"2\"/></A>"));
}

TEST_F(UnwritableFile, TheCountsOfReadingSurviveAFailedSave) {
  writeText(kPath, documentText("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  CKtFiler blocked(filer);
  ASSERT_EQ(blocked.newFiler(kUnwritablePath), 1);
  EXPECT_LT(raised([&] { blocked.closeFiler(); }), 0);
  EXPECT_EQ(blocked.getLastUsedIndex(), 2);
  EXPECT_EQ(blocked.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(blocked), 2);
}

TEST_F(UnwritableFile, WritingGoesOnAfterAFailedSave) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kUnwritablePath), 1);
  filer.beginClass(L"A", 1);
  filer.beginVector(L"V", 1);
  EXPECT_LT(raised([&] { filer.closeFiler(); }), 0);
  // The vector would be filed, had its class not been filed by closing.
  EXPECT_EQ(raised([&] { filer.endVector(); }), E_POINTER);
}

TEST_F(UnwritableFile, TheElementsStayCountedAfterAFailedSave) {
  writeText(kPath, documentText("<B/>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kUnwritablePath), 1);
  filer.beginClass(L"A", 1);
  EXPECT_LT(raised([&] { filer.closeFiler(); }), 0);
  ASSERT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"B"), 0) << "counted again";
}

TEST_F(UnwritableFile, DestroyingAFilerThatCannotSaveRaisesNothing) {
  auto filer = std::make_unique<CKtFiler>();
  ASSERT_EQ(filer->newFiler(kUnwritablePath), 1);
  filer->beginClass(L"A", 1);
  EXPECT_NO_THROW(filer.reset());
  EXPECT_FALSE(fileExists(kUnwritablePath));
  EXPECT_TRUE(messages().empty());
}

TEST_F(FileFailure, AnEmptyPathOpensADocumentThatCannotBeClosed) {
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(L""), 1);
  ASSERT_EQ(filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(filer.endClass(), 1);
  EXPECT_EQ(filer.closeFiler(), 0);
  ASSERT_EQ(filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(filer.endClass(), 2);
}

// How a reader leaves a file as it is, also one that the library would write in another form, or
// that it could not read and would replace.
TEST_F(FileFailure, OpeningAnEmptyPathLetsGoOfTheFileWithoutSavingIt) {
  for (const char* text :
       {"<Document>\n  <A version='1'/>\n</Document>", "<Document><A></Document>"}) {
    writeText(kPath, text);
    {
      CKtFiler filer;
      ASSERT_EQ(filer.newFiler(kPath), 1) << text;
      filer.beginClass(L"A");
      filer.newFiler(L"");
    }
    EXPECT_EQ(fileBytes(kPath), text);
    CKtFiler{}.newFiler(kPath);
    EXPECT_NE(fileBytes(kPath), text) << "the destructor alone saves it";
  }
}

}  // namespace
}  // namespace quorvan::test
