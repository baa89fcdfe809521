// Opening, saving and closing: what is loaded, what is written, what stays behind.

#include <tests/filer/filer_test.h>

#include <filesystem>
#include <memory>

namespace quorvan::test {
namespace {

class FilerDocument : public FilerTest {};

TEST_F(FilerDocument, AMissingFileIsOpenedAsAnEmptyDocumentAndMadeWhenClosed) {
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kPath), 1);
  EXPECT_FALSE(fileExists(kPath));
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document/>\r\n");
  EXPECT_TRUE(messages().empty());
}

TEST_F(FilerDocument, AFilerThatWasNeverOpenedHasNothingToClose) {
  CKtFiler filer;
  EXPECT_EQ(filer.closeFiler(), 0);
  EXPECT_EQ(filer.getLastUsedIndex(), -1);
}

TEST_F(FilerDocument, ClosingTwiceSavesOnce) {
  CKtFiler filer;
  filer.newFiler(kPath);
  EXPECT_EQ(filer.closeFiler(), 1);
  std::filesystem::remove(kPath);
  EXPECT_EQ(filer.closeFiler(), 0);
  EXPECT_FALSE(fileExists(kPath));
}

TEST_F(FilerDocument, TheClassesOfALoadedFileAreCounted) {
  writeText(kPath, documentText("<CKtZantoLine/><CKtZantoText/><CKtZantoLine/><CKtZantoLine/>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.beginClass(L"CKtZantoLine"), 1);
  EXPECT_EQ(filer.getLastUsedIndex(), 3);
  EXPECT_EQ(filer.beginClass(L"CKtZantoLine"), 1);
  EXPECT_EQ(filer.beginClass(L"CKtZantoLine"), 1);
  EXPECT_EQ(filer.beginClass(L"CKtZantoLine"), 0);
  ASSERT_EQ(filer.beginClass(L"CKtZantoText"), 1);
  EXPECT_EQ(filer.getLastUsedIndex(), 1);
  EXPECT_EQ(filer.beginClass(L"CKtZantoText"), 0);
}

TEST_F(FilerDocument, ASecondOpeningKeepsTheCountsOfTheFirst) {
  writeText(kPath, documentText("<A/><A/>"));
  writeText(kOtherPath, documentText("<A/><B/><A/><A/>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.newFiler(kOtherPath), 1);
  EXPECT_EQ(filer.beginClass(L"B"), 0);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 0);
}

TEST_F(FilerDocument, ASecondOpeningCountsWhenTheFirstFoundNoFile) {
  writeText(kOtherPath, documentText("<A/><B/>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.newFiler(kOtherPath), 1);
  EXPECT_EQ(filer.beginClass(L"B"), 1);
}

TEST_F(FilerDocument, KeptCountsNumberTheElementsOfTheSecondDocument) {
  writeText(kPath, documentText("<A/><A/>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.newFiler(kOtherPath);
  filer.beginClass(L"A", 1);
  EXPECT_EQ(filer.endClass(), 3);
  filer.closeFiler();
  EXPECT_EQ(savedText(kOtherPath), documentText("<A version=\"1\" index=\"3\"/>"));
}

// Once reading began the counts are no longer those of a document: what is unread stays, and the
// second document's are added.
TEST_F(FilerDocument, ASecondOpeningAddsItsCountsToWhatTheFirstLeftUnread) {
  writeText(kPath, documentText("<A/><A/><B/>"));
  writeText(kOtherPath, documentText("<A/><A/><A/><C/>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  ASSERT_EQ(filer.newFiler(kOtherPath), 1);
  EXPECT_EQ(filer.getLastUsedIndex(), 5);
  // The class element is the first document's, the counts are loaded.
  EXPECT_EQ(filer.endClass(), -1);
  EXPECT_EQ(filer.beginClass(L"B"), 0) << "counted, and not there";
  ASSERT_EQ(filer.beginClass(L"C"), 1);
  EXPECT_EQ(filer.getLastUsedIndex(), 1);
  EXPECT_EQ(filer.endClass(), 0);
}

TEST_F(FilerDocument, KeptCountsOpenADocumentWithoutRoot) {
  writeText(kPath, documentText("<A/>"));
  writeText(kOtherPath, "<xml/>");
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.newFiler(kOtherPath), 1) << "nothing was left to count";
  EXPECT_EQ(filer.beginClass(L"A"), 0);
}

TEST_F(FilerDocument, ASecondOpeningDropsTheFirstDocumentUnsaved) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.endClass();
  filer.newFiler(kOtherPath);
  filer.closeFiler();
  EXPECT_FALSE(fileExists(kPath));
  EXPECT_EQ(savedText(kOtherPath), documentText(""));
}

TEST_F(FilerDocument, AScopeOpenDuringASecondOpeningGoesIntoTheSecondDocument) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.writeItem(L"N", 7);
  filer.newFiler(kOtherPath);
  filer.writeItem(L"M", 8);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kOtherPath),
            documentText("<A version=\"1\" index=\"1\"><N long=\"7\"/><M long=\"8\"/></A>"));
}

TEST_F(FilerDocument, ClosingFilesAScopeThatIsOpenForWriting) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.writeItem(L"N", 1);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"><N long=\"1\"/></A>"));
}

TEST_F(FilerDocument, ClosingAfterReadingSavesTheDocumentAsItIs) {
  const std::string text = documentText("<A version=\"1\" index=\"1\"><N long=\"5\"/></A>");
  writeText(kPath, text);
  CKtFiler filer;
  filer.newFiler(kPath);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(filer), 5);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), text);
}

TEST_F(FilerDocument, AFileThatWasOnlyReadIsWrittenBackInTheLibrarysForm) {
  writeText(kPath,
            "<?xml version='1.0' encoding='ISO-8859-1'?>\n<Document >\n <A N = '1' ></A>"
            "</Document>");
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.closeFiler();
  const std::string saved = savedText(kPath);
  EXPECT_EQ(saved.substr(0, 46), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<");
  EXPECT_NE(saved.find("<A N=\"1\"/>"), std::string::npos) << saved;
}

TEST_F(FilerDocument, AClosedFilerOpensAgainAndContinuesTheNumbering) {
  CKtFiler filer;
  for (int index = 1; index <= 3; ++index) {
    ASSERT_EQ(filer.newFiler(kPath), 1);
    ASSERT_EQ(filer.beginClass(L"A", 1), 1);
    EXPECT_EQ(filer.endClass(), index);
    ASSERT_EQ(filer.closeFiler(), 1);
  }
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"
                                           "<A version=\"1\" index=\"2\"/>"
                                           "<A version=\"1\" index=\"3\"/>"));
}

TEST_F(FilerDocument, CountsAreForgottenWhenTheFileIsClosed) {
  writeText(kPath, documentText("<A/><A/>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.closeFiler();
  EXPECT_EQ(filer.beginClass(L"A"), 0);
  filer.newFiler(kOtherPath);
  filer.beginClass(L"A", 1);
  EXPECT_EQ(filer.endClass(), 1);
}

// --- what closing leaves behind --------------------------------------------------------------

TEST_F(FilerDocument, TheElementLastReadStaysCurrentAndItsSiblingsAreReadOn) {
  writeText(kPath, documentText("<A><N long=\"1\"/></A><A><N long=\"2\"/></A><B/>"
                                "<A><N long=\"3\"/></A>"));
  writeText(kOtherPath, documentText("<A><N long=\"11\"/></A><A><N long=\"12\"/></A>"
                                     "<A><N long=\"13\"/></A><A><N long=\"14\"/></A>"
                                     "<B><N long=\"20\"/></B>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  filer.closeFiler();
  EXPECT_EQ(itemNumber(filer), 1);
  ASSERT_EQ(filer.newFiler(kOtherPath), 1);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(filer), 2);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(filer), 3);
  // No sibling is left, and one more element counts as read.
  EXPECT_EQ(filer.beginClass(L"A"), 0);
  EXPECT_EQ(itemNumber(filer), 3);
  EXPECT_EQ(filer.getLastUsedIndex(), 2);
  // Another class turns to the open document.
  ASSERT_EQ(filer.beginClass(L"B"), 1);
  EXPECT_EQ(itemNumber(filer), 20);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(filer), 11);
  EXPECT_EQ(filer.beginClass(L"A"), 0);
}

TEST_F(FilerDocument, TheLastUsedIndexGoesByTheCountsOfTheFileThatIsOpen) {
  writeText(kPath, documentText("<A/><A/>"));
  writeText(kOtherPath, documentText("<A/><A/><A/><A/>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A");
  EXPECT_EQ(filer.getLastUsedIndex(), 2);
  filer.closeFiler();
  EXPECT_EQ(filer.getLastUsedIndex(), 0);
  filer.newFiler(kOtherPath);
  EXPECT_EQ(filer.getLastUsedIndex(), 5);
}

TEST_F(FilerDocument, ClosingLeavesReadModeAndTheOpenVector) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.beginVector(L"V", 1);
  filer.writeItem(L"N", 1);
  ASSERT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
  // Still open, and not to be filed any more: ending it needs no class element.
  EXPECT_EQ(itemNumber(filer), 1);
  EXPECT_EQ(filer.endVector(), 1);
  EXPECT_EQ(filer.endVector(), 0);
}

// With no file open there is nothing to close, even where writing was turned to meanwhile.
TEST_F(FilerDocument, ClosingAgainDoesNotLookAtTheElementLastRead) {
  writeText(kPath, documentText("<A/>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  ASSERT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(raised([&] { filer.beginVector(L"V", 1); }), E_POINTER);
  EXPECT_EQ(filer.closeFiler(), 0);
}

TEST_F(FilerDocument, AVectorLeftOpenGoesIntoAClassOfTheNextFile) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.beginVector(L"V", 2);
  filer.writeItem(L"N", 1);
  filer.closeFiler();
  filer.newFiler(kOtherPath);
  filer.beginClass(L"B", 1);
  filer.writeItem(L"M", 2);
  EXPECT_EQ(filer.endVector(), 1);
  filer.writeItem(L"O", 3);
  filer.closeFiler();
  EXPECT_EQ(savedText(kOtherPath),
            documentText("<B version=\"1\" index=\"1\"><V size=\"2\"><N long=\"1\"/>"
                         "<M long=\"2\"/></V><O long=\"3\"/></B>"));
}

TEST_F(FilerDocument, ANewFilerIsReadyToWrite) {
  // The pattern filer makes an element current without choosing a direction.
  writeText(kPath, documentText("<A/><B/>"));
  CKtPatternFiler filer;
  filer.newFiler(kPath);
  CString name;
  ASSERT_EQ(filer.getClassName(name), 1);
  EXPECT_EQ(filer.endClass(), 1);
  EXPECT_EQ(filer.getLastUsedIndex(), -1);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<B/><A/>"));
}

TEST_F(FilerDocument, AClosedFilerIsInReadMode) {
  const std::string text = documentText("<A/><B/>");
  writeText(kPath, text);
  CKtPatternFiler filer;
  filer.newFiler(kOtherPath);
  filer.closeFiler();
  filer.newFiler(kPath);
  CString name;
  ASSERT_EQ(filer.getClassName(name), 1);
  EXPECT_EQ(filer.endClass(), -1);
  EXPECT_EQ(filer.getLastUsedIndex(), 2);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), text);
}

// --- lifetime --------------------------------------------------------------------------------

TEST_F(FilerDocument, DestroyingAnOpenFilerSavesItsFile) {
  {
    CKtFiler filer;
    filer.newFiler(kPath);
    filer.beginClass(L"A", 1);
  }
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(FilerDocument, DestroyingThroughTheBaseSavesAPatternFiler) {
  std::unique_ptr<CKtFiler> filer = std::make_unique<CKtPatternFiler>();
  filer->newFiler(kPath);
  filer->beginClass(L"A", 1);
  filer.reset();
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(FilerDocument, DestroyingAClosedFilerSavesNothing) {
  {
    CKtFiler filer;
    filer.newFiler(kPath);
    filer.closeFiler();
    std::filesystem::remove(kPath);
  }
  EXPECT_FALSE(fileExists(kPath));
}

}  // namespace
}  // namespace quorvan::test
