// Which node of a document is taken for its root element.

#include <tests/filer/filer_test.h>

#include <string>

namespace quorvan::test {
namespace {

class RootElement : public FilerTest {};

TEST_F(RootElement, TheRootIsKnownByItsPlaceNotByItsName) {
  writeText(kPath,
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
            "<Zeichnung><A><N long=\"4\"/></A></Zeichnung>\r\n");
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(filer), 4);
  filer.beginClass(L"A", 1);
  EXPECT_EQ(filer.endClass(), 2);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
            "<Zeichnung><A><N long=\"4\"/></A>"
            "<A version=\"1\" index=\"2\"/></Zeichnung>\r\n");
}

TEST_F(RootElement, ARootWithoutDeclarationIsFound) {
  writeText(kPath, "<Document><A/></Document>\r\n");
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
  filer.beginClass(L"A", 1);
  filer.endClass();
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), "<Document><A/><A version=\"1\" index=\"2\"/></Document>\r\n");
}

TEST_F(RootElement, CommentsBehindTheRootAreKept) {
  const std::string text = documentText("<A/>") + "<!--end-->\r\n";
  writeText(kPath, text);
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), text);
}

TEST_F(RootElement, ACommentInFrontOfTheRootIsTakenForIt) {
  writeText(kPath, "<!--made by hand--><Document><A/></Document>");
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 0);
  EXPECT_TRUE(messages().empty());
}

TEST_F(RootElement, ACommentBehindTheDeclarationTakesNoClass) {
  const std::string text =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
      "<!--made by hand-->\r\n<Document><A/></Document>\r\n";
  writeText(kPath, text);
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 0);
  ASSERT_EQ(filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(raised([&] { filer.endClass(); }), E_FAIL);
  // The scope stays open, and closing meets the same error.
  EXPECT_EQ(filer.getLastUsedIndex(), 2);
  EXPECT_EQ(raised([&] { filer.closeFiler(); }), E_FAIL);
  EXPECT_EQ(savedText(kPath), text);
}

TEST_F(RootElement, ADoctypeBehindTheDeclarationIsTakenForTheRoot) {
  writeText(kPath,
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
            "<!DOCTYPE Document>\r\n<Document><A/></Document>\r\n");
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kPath), 1);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(filer.beginClass(L"A"), 0);
  ASSERT_EQ(filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(raised([&] { filer.endClass(); }), E_FAIL);
}

// Where no node follows one named "xml", the document has no root.
TEST_F(RootElement, ADocumentWithoutRootIsNotOpenedAndShowsNoMessage) {
  writeText(kPath, "<xml><A/></xml>\r\n");
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kPath), 0);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(filer.beginClass(L"A"), 0);
  // A scope can be opened, but there is no place for it.
  EXPECT_EQ(filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(filer.getLastUsedIndex(), 2);
  EXPECT_EQ(filer.endClass(), -1);
  EXPECT_EQ(filer.getLastUsedIndex(), 2);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), "<xml><A/></xml>\r\n");
}

TEST_F(RootElement, ARootNamedXmlBehindTheDeclarationIsTheRoot) {
  const std::string text = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<xml><A/></xml>\r\n";
  writeText(kPath, text);
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
}

TEST_F(RootElement, ADocumentWithoutRootLeavesTheNextOneToBeCounted) {
  writeText(kPath, "<xml/>\r\n");
  writeText(kOtherPath, documentText("<A/>"));
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kPath), 0);
  EXPECT_EQ(filer.newFiler(kOtherPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
}

TEST_F(RootElement, ANodeBehindARootNamedXmlIsTakenForTheRoot) {
  writeText(kPath, "<xml><A/></xml>\r\n<!--end-->\r\n");
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 0);
}

}  // namespace
}  // namespace quorvan::test
