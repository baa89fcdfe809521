// Class scopes: how class elements are made, numbered, filed, found and left.

#include <tests/filer/filer_test.h>

#include <string>

namespace quorvan::test {
namespace {

class ClassScope : public FilerTest {
 protected:
  ClassScope() { m_filer.newFiler(kPath); }

  // Opens the file anew with these class elements.
  void load(const std::string& classElements) {
    writeText(kPath, documentText(classElements));
    m_filer.newFiler(kPath);
  }

  [[nodiscard]] std::string closed() {
    m_filer.closeFiler();
    return savedText(kPath);
  }

  CKtFiler m_filer;
};

TEST_F(ClassScope, ElementsOfANameAreNumberedFromOne) {
  EXPECT_EQ(m_filer.beginClass(L"CKtZantoLine", 1), 1);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(m_filer.beginClass(L"CKtZantoText", 1), 1);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(m_filer.beginClass(L"CKtZantoLine", 1), 1);
  EXPECT_EQ(m_filer.endClass(), 2);
  EXPECT_EQ(closed(), documentText("<CKtZantoLine version=\"1\" index=\"1\"/>"
                                   "<CKtZantoText version=\"1\" index=\"1\"/>"
                                   "<CKtZantoLine version=\"1\" index=\"2\"/>"));
}

TEST_F(ClassScope, NumberingContinuesBehindTheElementsOfAFile) {
  load("<A/><B/><A/>");
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.endClass(), 3);
  EXPECT_EQ(closed(), documentText("<A/><B/><A/><A version=\"1\" index=\"3\"/>"));
}

TEST_F(ClassScope, VersionsAreCutToSixteenBits) {
  for (const int version : {0, -1, 32767, 32768, 40000, 65535, 65536, 70000}) {
    m_filer.beginClass(L"A", version);
    m_filer.endClass();
  }
  const std::string text = closed();
  int index = 0;
  for (const char* version : {"0", "-1", "32767", "-32768", "-25536", "-1", "0", "4464"}) {
    const std::string element =
        "<A version=\"" + std::string(version) + "\" index=\"" + std::to_string(++index) + "\"/>";
    EXPECT_NE(text.find(element), std::string::npos) << element;
  }
}

TEST_F(ClassScope, IndexesAreCutToSixteenBitsWhileResultsAreNot) {
  for (int count = 1; count <= 32770; ++count) {
    m_filer.beginClass(L"A", 1);
    ASSERT_EQ(m_filer.getLastUsedIndex(), count + 1);
    ASSERT_EQ(m_filer.endClass(), count);
  }
  const std::string text = closed();
  const std::string wrapped =
      "<A version=\"1\" index=\"32767\"/><A version=\"1\" index=\"-32768\"/>"
      "<A version=\"1\" index=\"-32767\"/>"
      "<A version=\"1\" index=\"-32766\"/></Document>";
  EXPECT_NE(text.find(wrapped), std::string::npos);
}

TEST_F(ClassScope, ItemsStandInTheOrderWritten) {
  m_filer.beginClass(L"A", 1);
  m_filer.writeItem(L"Z", 1);
  m_filer.writeItem(L"A", 2);
  m_filer.writeItem(L"M", 3);
  m_filer.endClass();
  EXPECT_EQ(closed(), documentText("<A version=\"1\" index=\"1\"><Z long=\"1\"/><A long=\"2\"/>"
                                   "<M long=\"3\"/></A>"));
}

TEST_F(ClassScope, OpeningAScopeFilesTheOneStillOpen) {
  m_filer.beginClass(L"A", 1);
  m_filer.writeItem(L"N", 1);
  EXPECT_EQ(m_filer.beginClass(L"B", 1), 1);
  m_filer.writeItem(L"N", 2);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(closed(), documentText("<A version=\"1\" index=\"1\"><N long=\"1\"/></A>"
                                   "<B version=\"1\" index=\"1\"><N long=\"2\"/></B>"));
}

TEST_F(ClassScope, ElementsStandInTheOrderClosed) {
  CKtFiler other(m_filer);
  m_filer.beginClass(L"A", 1);
  other.beginClass(L"B", 1);
  other.endClass();
  m_filer.endClass();
  EXPECT_EQ(closed(), documentText("<B version=\"1\" index=\"1\"/><A version=\"1\" index=\"1\"/>"));
}

TEST_F(ClassScope, EndingWithNoScopeOpenGivesMinusOne) {
  EXPECT_EQ(m_filer.endClass(), -1);
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(m_filer.endClass(), -1);
}

TEST_F(ClassScope, AScopeThatIsNotEndedIsNotInTheDocument) {
  CKtFiler other(m_filer);
  m_filer.beginClass(L"A", 1);
  other.beginClass(L"B", 1);
  EXPECT_EQ(other.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), documentText("<B version=\"1\" index=\"1\"/>"));
}

TEST_F(ClassScope, OpeningWithoutADocumentChangesNothing) {
  load("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>");
  m_filer.beginClass(L"A");
  m_filer.closeFiler();
  EXPECT_EQ(m_filer.beginClass(L"A", 1), 0);
  EXPECT_EQ(m_filer.beginClass(L"not a name", 1), 0);
  EXPECT_EQ(itemNumber(m_filer), 1);
  CKtFiler neverOpened;
  EXPECT_EQ(neverOpened.beginClass(L"A", 1), 0);
  EXPECT_EQ(neverOpened.endClass(), -1);
  EXPECT_EQ(neverOpened.beginClass(L"A"), 0);
}

// --- names -----------------------------------------------------------------------------------

TEST_F(ClassScope, ANameThatXmlCannotCarryIsRefused) {
  for (const wchar_t* name : {L"", L" ", L"1A", L"-A", L".A", L"A B", L"A<", L"A&B", L"A/", L"A\"",
                              L"A'", L"A>", L"A=", L"A\x01", L"A\n"}) {
    EXPECT_EQ(raised([&] { m_filer.beginClass(name, 1); }), E_FAIL) << CString(name).GetString();
    EXPECT_EQ(m_filer.getLastUsedIndex(), -1);
  }
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(closed(), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(ClassScope, ARefusedNameComesAfterTheOpenScopeWasFiled) {
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(raised([&] { m_filer.beginClass(L"not a name", 1); }), E_FAIL);
  EXPECT_EQ(m_filer.endClass(), -1);
  EXPECT_EQ(closed(), documentText("<A version=\"1\" index=\"1\"/>"));
}

// No element took the place of the one last read, and the direction was turned to writing before.
TEST_F(ClassScope, ARefusedNameAfterReadingLeavesTheElementReadToBeFiled) {
  load("<A><N long=\"1\"/></A><B/>");
  m_filer.beginClass(L"A");
  EXPECT_EQ(raised([&] { m_filer.beginClass(L"not a name", 1); }), E_FAIL);
  EXPECT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(closed(), documentText("<B/><A><N long=\"1\"/></A>"));
}

TEST_F(ClassScope, NamesMayHoldLettersOfAnyScriptAndMarks) {
  for (const wchar_t* name : {L"\u00C9l\u00E9ment", L"_A", L"A-b.c_1"}) {
    EXPECT_EQ(m_filer.beginClass(name, 1), 1);
    EXPECT_EQ(m_filer.endClass(), 1);
    EXPECT_EQ(m_filer.beginClass(name, 1), 1);
    EXPECT_EQ(m_filer.endClass(), 2);
  }
  EXPECT_EQ(m_filer.closeFiler(), 1);
  m_filer.newFiler(kPath);
  EXPECT_EQ(m_filer.beginClass(L"\u00C9l\u00E9ment"), 1);
}

TEST_F(ClassScope, ANameThatTheEncodingLacksFailsToBeSavedAndLosesNothing) {
  const std::string former = documentText("<B/>");
  load("<B/>");
  m_filer.beginClass(L"\u5F62", 1);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_LT(raised([&] { m_filer.closeFiler(); }), 0);
  EXPECT_EQ(savedText(kPath), former);
  EXPECT_EQ(m_filer.beginClass(L"\u5F62"), 1);
}

TEST_F(ClassScope, NamesDifferByCase) {
  m_filer.beginClass(L"line", 1);
  m_filer.endClass();
  m_filer.beginClass(L"LINE", 1);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(m_filer.beginClass(L"Line"), 0);
}

// --- reading ---------------------------------------------------------------------------------

TEST_F(ClassScope, ElementsAreReadInDocumentOrderUntilNoneIsLeft) {
  load("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>");
  EXPECT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(m_filer.endClass(), 0);
  EXPECT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(m_filer), 2);
  EXPECT_EQ(m_filer.endClass(), 0);
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
  EXPECT_EQ(itemNumber(m_filer), 2);
}

TEST_F(ClassScope, AnotherNameInBetweenStartsReadingOver) {
  load(
      "<A><N long=\"1\"/></A><A><N long=\"2\"/></A><B><N long=\"10\"/></B>"
      "<A><N long=\"3\"/></A>");
  for (const auto& [name, number] :
       {std::pair{L"A", 1L}, std::pair{L"A", 2L}, std::pair{L"B", 10L}, std::pair{L"A", 1L}}) {
    ASSERT_EQ(m_filer.beginClass(name), 1);
    EXPECT_EQ(itemNumber(m_filer), number);
    EXPECT_EQ(m_filer.endClass(), 0);
  }
  // Three were counted, three were read.
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
}

TEST_F(ClassScope, TheElementReadStaysCurrentWhenItsScopeEnds) {
  load("<A><N long=\"1\"/></A>");
  m_filer.beginClass(L"A");
  EXPECT_EQ(m_filer.endClass(), 0);
  EXPECT_EQ(m_filer.endClass(), 0);
  EXPECT_EQ(itemNumber(m_filer), 1);
}

TEST_F(ClassScope, ReadingANameThatIsNotThereLeavesTheCurrentElement) {
  load("<A><N long=\"1\"/></A>");
  m_filer.beginClass(L"A");
  EXPECT_EQ(m_filer.beginClass(L"B"), 0);
  EXPECT_EQ(itemNumber(m_filer), 1);
}

TEST_F(ClassScope, WritingAfterReadingCountsAfresh) {
  load("<A/><A/><A/>");
  m_filer.beginClass(L"A");
  m_filer.beginClass(L"A");
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 5);
  EXPECT_EQ(m_filer.endClass(), 4);
  EXPECT_EQ(closed(), documentText("<A/><A/><A/><A version=\"1\" index=\"4\"/>"));
}

TEST_F(ClassScope, TheElementReadIsNotFiledAgainByWriting) {
  load("<A/><B/>");
  m_filer.beginClass(L"A");
  m_filer.beginClass(L"C", 1);
  m_filer.endClass();
  EXPECT_EQ(closed(), documentText("<A/><B/><C version=\"1\" index=\"1\"/>"));
}

TEST_F(ClassScope, ElementsJustWrittenCanBeRead) {
  m_filer.beginClass(L"A", 1);
  m_filer.writeItem(L"N", 1);
  m_filer.endClass();
  m_filer.beginClass(L"A", 1);
  m_filer.writeItem(L"N", 2);
  m_filer.endClass();
  ASSERT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(m_filer), 1);
  ASSERT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(m_filer), 2);
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
}

TEST_F(ClassScope, ReadingAbandonsAScopeThatIsOpenForWriting) {
  load("<A><N long=\"1\"/></A>");
  m_filer.beginClass(L"B", 1);
  EXPECT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(closed(), documentText("<A><N long=\"1\"/></A>"));
}

// Reading the name of the scope that is being written looks behind an element that has no
// siblings yet, and counts it as read all the same.
TEST_F(ClassScope, AScopeOpenForWritingHasNoSiblingToRead) {
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 1);
  // Counts that are not loaded make the result one more.
  m_filer.beginVector(L"V", 0);
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(closed(), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(ClassScope, NodesOfAnyKindAreCountedByTheirNames) {
  load("<A><N long=\"1\"/></A><!--note--><?A data?>text<A><N long=\"2\"/></A>");
  EXPECT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 3);
  EXPECT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(m_filer), -1);
  EXPECT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(m_filer), 2);
  EXPECT_EQ(m_filer.beginClass(L"#comment"), 1);
  EXPECT_EQ(m_filer.beginClass(L"#text"), 1);
  EXPECT_EQ(m_filer.endClass(), 0);
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.endClass(), 4);
}

TEST_F(ClassScope, ANodeThatIsNoElementTakesNoItems) {
  load("<!--note-->");
  ASSERT_EQ(m_filer.beginClass(L"#comment"), 1);
  EXPECT_EQ(raised([&] { m_filer.writeItem(L"N", 1); }), E_FAIL);
  double value = 4;
  EXPECT_EQ(m_filer.readItem(L"N", &value), 0);
  EXPECT_EQ(value, 4);
}

// --- the last used index ---------------------------------------------------------------------

TEST_F(ClassScope, TheLastUsedIndexIsOneMoreThanTheCount) {
  EXPECT_EQ(m_filer.getLastUsedIndex(), -1);
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 2);
  m_filer.endClass();
  EXPECT_EQ(m_filer.getLastUsedIndex(), -1);
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 3);
  m_filer.endClass();
  m_filer.beginClass(L"A");
  EXPECT_EQ(m_filer.getLastUsedIndex(), 2);
  m_filer.beginClass(L"A");
  EXPECT_EQ(m_filer.getLastUsedIndex(), 1);
}

// --- reading and writing mixed ---------------------------------------------------------------

TEST_F(ClassScope, ItemsWrittenIntoAnElementThatIsReadChangeTheDocument) {
  load("<A><N long=\"1\"/></A><A/>");
  m_filer.beginClass(L"A");
  EXPECT_EQ(m_filer.writeItem(L"M", 2), 1);
  EXPECT_EQ(m_filer.endClass(), 0);
  EXPECT_EQ(closed(), documentText("<A><N long=\"1\"/><M long=\"2\"/></A><A/>"));
}

// The element that opening a scope files is in the document when its elements are counted.
TEST_F(ClassScope, AnElementReadFromTheFormerFileIsFiledBeforeCounting) {
  load("<A><N long=\"1\"/></A>");
  m_filer.beginClass(L"A");
  m_filer.beginVector(L"V", 0);
  m_filer.endVector();
  ASSERT_EQ(m_filer.newFiler(kOtherPath), 1);
  EXPECT_EQ(m_filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(m_filer.endClass(), 2);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kOtherPath),
            documentText("<A><N long=\"1\"/><V size=\"0\"/></A><A version=\"1\" index=\"2\"/>"));
}

TEST_F(ClassScope, AVectorWrittenIntoAnElementThatIsReadMakesEndingFileItLast) {
  load("<A><N long=\"1\"/></A><A/><B/>");
  m_filer.beginClass(L"A");
  EXPECT_EQ(m_filer.beginVector(L"V", 1), 1);
  EXPECT_EQ(m_filer.endVector(), 1);
  // One of two is unread, and the counts are not loaded.
  EXPECT_EQ(m_filer.endClass(), 2);
  EXPECT_EQ(m_filer.getLastUsedIndex(), -1);
  EXPECT_EQ(closed(), documentText("<A/><B/><A><N long=\"1\"/><V size=\"1\"/></A>"));
}

}  // namespace
}  // namespace quorvan::test
