// Pattern search: what a search leaves behind, and searches in a document that changes.

#include <tests/filer/seek_fixture.h>

namespace quorvan::test {
namespace {

// --- what is left behind ---------------------------------------------------------------------

TEST_F(Seek, TheElementFoundIsCurrentAndReadingGoesOnBehindIt) {
  load(
      "<A index=\"1\"><N long=\"1\"/></A><A index=\"2\"><N long=\"2\"/></A>"
      "<A index=\"3\"><N long=\"3\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), 2);
  EXPECT_EQ(itemNumber(m_filer), 2);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 5);
  EXPECT_EQ(nextNumber(L"A"), 3);
  EXPECT_EQ(nextNumber(L"A"), 0);
}

TEST_F(Seek, AfterAFailedSearchTheLastElementIsCurrentAndNoneIsLeftToRead) {
  load("<A index=\"1\"><N long=\"1\"/></A><A index=\"2\"><N long=\"2\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"9\"/></A>"), -1);
  EXPECT_EQ(itemNumber(m_filer), 2);
  // Two were there, two more were counted; two were tested, and a third was looked for.
  EXPECT_EQ(m_filer.getLastUsedIndex(), 2);
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
  EXPECT_EQ(itemNumber(m_filer), 2);
}

TEST_F(Seek, CountsAreLoadedOntoThosePresent) {
  load("<A index=\"1\"/><B><N long=\"1\"/></B><A index=\"2\"/>");
  EXPECT_EQ(seekFor("<A/>"), 1);
  m_filer.beginClass(L"B");
  // One was there, one more was counted, one was read.
  EXPECT_EQ(m_filer.getLastUsedIndex(), 2);
  EXPECT_EQ(seekFor("<A/>"), 1);
  // Two and two less one, and two more less one.
  EXPECT_EQ(m_filer.getLastUsedIndex(), 5);
}

TEST_F(Seek, ASearchThatTestedAnElementMakesWritingCountAfresh) {
  load("<A index=\"1\"/><B/>");
  seekFor("<A/>");
  m_filer.beginClass(L"B", 1);
  EXPECT_EQ(m_filer.endClass(), 2);
}

TEST_F(Seek, ASearchForAClassThatIsNotThereRaisesTheIndexesWrittenNext) {
  load("<A index=\"1\"/><A index=\"2\"/><B index=\"1\"/>");
  EXPECT_EQ(seekFor("<C/>"), -1);
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.endClass(), 5);
  m_filer.beginClass(L"B", 1);
  EXPECT_EQ(m_filer.endClass(), 3);
  m_filer.beginClass(L"C", 1);
  EXPECT_EQ(m_filer.endClass(), 1);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath),
            documentText("<A index=\"1\"/><A index=\"2\"/><B index=\"1\"/>"
                         "<A version=\"1\" index=\"5\"/><B version=\"1\" index=\"3\"/>"
                         "<C version=\"1\" index=\"1\"/>"));
}

TEST_F(Seek, EachSearchForAClassThatIsNotThereRaisesThemFurther) {
  load("<A index=\"1\"/>");
  seekFor("<C/>");
  seekFor("<C/>");
  seekFor("<C/>");
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.endClass(), 5);
}

TEST_F(Seek, AScopeOpenForWritingIsAbandoned) {
  load("<A index=\"1\"/>");
  m_filer.beginClass(L"B", 1);
  EXPECT_EQ(seekFor("<A/>"), 1);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A index=\"1\"/>"));
}

TEST_F(Seek, TurnsToReading) {
  load("<A index=\"1\"/><B/>");
  m_filer.beginClass(L"B");
  m_filer.beginVector(L"V", 1);
  EXPECT_EQ(seekFor("<A/>"), 1);
  EXPECT_EQ(m_filer.endClass(), 0);
  EXPECT_EQ(m_filer.endVector(), 1);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A index=\"1\"/><B/>"));
}

TEST_F(Seek, ForAClassThatIsNotThereTurnsToReadingToo) {
  load("<A index=\"1\"/><B/>");
  m_filer.beginClass(L"B");
  m_filer.beginVector(L"V", 1);
  EXPECT_EQ(seekFor("<C/>"), -1);
  EXPECT_EQ(m_filer.endVector(), 1) << "filed although nothing is being written";
}

TEST_F(Seek, ForAClassThatIsCountedButNotThereTurnsToReadingToo) {
  load("<A index=\"1\"/>");
  writeText(kOtherPath, documentText("<B/>"));
  m_filer.newFiler(kOtherPath);  // with the counts of the first
  m_filer.beginClass(L"B", 1);
  m_filer.beginVector(L"V", 1);
  EXPECT_EQ(seekFor("<A/>"), -1);
  EXPECT_EQ(m_filer.endVector(), 1) << "filed although nothing is being written";
}

TEST_F(Seek, InADocumentWithoutRootTurnsToReadingToo) {
  load("<A index=\"1\"/>");
  m_filer.beginClass(L"A");
  m_filer.beginVector(L"V", 1);
  writeText(kOtherPath, "<xml/>");
  EXPECT_EQ(m_filer.newFiler(kOtherPath), 0);
  EXPECT_EQ(seekFor("<A/>"), -1);
  EXPECT_EQ(m_filer.endVector(), 1) << "filed although nothing is being written";
}

TEST_F(Seek, WithoutADocumentLeavesNoElementCurrent) {
  load("<A><N long=\"1\"/></A>");
  m_filer.beginClass(L"A");
  m_filer.closeFiler();
  ASSERT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(raisedSeeking("<A/>"), E_POINTER);
  EXPECT_EQ(m_filer.getLastUsedIndex(), -1);
}

// A vector that is read stays as it is, and with no class current none is opened for writing.
TEST_F(Seek, LeavesNoClassThatTakesAVector) {
  load("<A><V size=\"1\"/></A>");
  m_filer.beginClass(L"A");
  long size = 0;
  ASSERT_EQ(m_filer.beginVector(L"V", &size), 1);
  EXPECT_EQ(seekFor("<C/>"), -1);
  EXPECT_EQ(m_filer.beginVector(L"W", 1), 0);
  EXPECT_EQ(m_filer.endVector(), 1) << "filed although nothing is being written";
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A><V size=\"1\"/></A>"));
}

TEST_F(Seek, ThePatternsCursorStopsAtTheItemThatDiffers) {
  load("<A index=\"1\"><N long=\"1\"/><M long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"2\"/><M long=\"1\"/><K/></A>"), -1);
  EXPECT_EQ(nextPatternItem(), L"M");
  EXPECT_EQ(seekFor("<A><N long=\"1\"/><M long=\"2\"/><K/></A>"), -1);
  EXPECT_EQ(nextPatternItem(), L"K");
  EXPECT_EQ(seekFor("<A><N long=\"1\"/><M long=\"1\"/></A>"), 1);
  EXPECT_EQ(nextPatternItem(), L"");
}

TEST_F(Seek, WithNothingToCompareThePatternsCursorIsAtItsFirstItem) {
  load("<A index=\"1\"/>");
  EXPECT_EQ(seekFor("<C><N/><M/></C>"), -1);
  EXPECT_EQ(nextPatternItem(), L"M");
}

// --- a document that changes between searches ------------------------------------------------

TEST_F(Seek, FindsElementsWrittenSinceTheLastSearch) {
  load("<A index=\"1\"><N long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), -1);
  m_filer.beginClass(L"A", 1);
  m_filer.writeItem(L"N", 2);
  m_filer.endClass();
  EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), 2);
}

TEST_F(Seek, FindsElementsThatACopyWrote) {
  load("<A index=\"1\"><N long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), -1);
  CKtFiler copy(m_filer);
  copy.beginClass(L"A", 1);
  copy.writeItem(L"N", 2);
  copy.endClass();
  EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), 2);
}

TEST_F(Seek, SeesItemsWrittenIntoAnElementThatWasSearchedBefore) {
  load("<A index=\"1\"/><A index=\"2\"/>");
  EXPECT_EQ(seekFor("<A><N long=\"5\"/></A>"), -1);
  m_filer.closeFiler();
  m_filer.newFiler(kPath);
  EXPECT_EQ(seekFor("<A><N long=\"5\"/></A>"), -1);
  ASSERT_EQ(m_filer.beginClass(L"A"), 0);
  EXPECT_EQ(m_filer.writeItem(L"N", 5), 1);
  EXPECT_EQ(seekFor("<A><N long=\"5\"/></A>"), 2);
}

TEST_F(Seek, SeesThatAnElementWasMovedToTheEnd) {
  load("<A index=\"1\"><N long=\"5\"/></A><A index=\"2\"><N long=\"5\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"5\"/></A>"), 1);
  m_filer.beginVector(L"V", 0);
  m_filer.endClass();
  EXPECT_EQ(seekFor("<A><N long=\"5\"/></A>"), 2);
}

TEST_F(Seek, SeesThatAnElementWentIntoAnotherDocument) {
  load("<A index=\"1\"><N long=\"5\"/></A><A index=\"2\"><N long=\"5\"/></A>");
  CKtFiler copy(m_filer);
  EXPECT_EQ(seekFor("<A><N long=\"5\"/></A>"), 1);
  // The element found stays current, and writing a vector files it in the document opened then.
  CKtFiler taker(m_filer);
  taker.newFiler(kOtherPath);
  taker.beginVector(L"V", 0);
  taker.endClass();
  EXPECT_EQ(seekFor("<A><N long=\"5\"/></A>"), 2);
  taker.closeFiler();
  EXPECT_EQ(savedText(kOtherPath), documentText("<A index=\"1\"><N long=\"5\"/></A>"));
}

TEST_F(Seek, SeesAVectorFiledAfterItsClass) {
  m_filer.newFiler(kPath);
  m_filer.beginClass(L"A", 1);
  m_filer.beginVector(L"V", 3);
  m_filer.endClass();
  EXPECT_EQ(seekFor("<A><V size=\"3\"/></A>"), -1);
  // The search ended the writing; the vector is dropped without being filed.
  EXPECT_EQ(m_filer.endVector(), 1);
  EXPECT_EQ(seekFor("<A><V size=\"3\"/></A>"), -1);
  m_filer.beginVector(L"V", 3);
  m_filer.endVector();
  EXPECT_EQ(seekFor("<A><V size=\"3\"/></A>"), 1);
}

TEST_F(Seek, PatternsOfDifferentItemsCanTakeTurns) {
  load(
      "<A index=\"1\"><N long=\"1\"/><M long=\"1\"/></A>"
      "<A index=\"2\"><N long=\"2\"/><M long=\"1\"/></A><B index=\"3\"><N long=\"2\"/></B>");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), 2);
    EXPECT_EQ(seekFor("<A><M long=\"1\"/></A>"), 1);
    EXPECT_EQ(seekFor("<A><M long=\"1\"/><N long=\"2\"/></A>"), 2);
    EXPECT_EQ(seekFor("<B><N long=\"2\"/></B>"), 3);
    EXPECT_EQ(seekFor("<A/>"), 1);
  }
}

}  // namespace
}  // namespace quorvan::test
