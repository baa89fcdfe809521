// Vector scopes: opening, closing, and what an open one does to the items around it.

#include <tests/filer/filer_test.h>

#include <string>

namespace quorvan::test {
namespace {

class VectorScope : public FilerTest {
 protected:
  VectorScope() { m_filer.newFiler(kPath); }

  void write() { m_filer.beginClass(L"A", 1); }

  void load(const std::string& items) {
    writeText(kPath, documentText("<A>" + items + "</A>"));
    m_filer.newFiler(kPath);
    ASSERT_EQ(m_filer.beginClass(L"A"), 1);
  }

  // The document as saved, which is expected to hold the class A with these items.
  void expectItems(const std::string& items) {
    m_filer.closeFiler();
    EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\">" + items + "</A>"));
  }

  CKtFiler m_filer;
  long m_count = 77;
};

// --- writing ---------------------------------------------------------------------------------

TEST_F(VectorScope, GathersTheItemsWrittenWhileItIsOpen) {
  write();
  EXPECT_EQ(m_filer.beginVector(L"V", 2), 1);
  m_filer.writeItem(L"Point1", CKtPnt3D(1, 2, 3));
  m_filer.writeItem(L"Bulge1", 0.5);
  EXPECT_EQ(m_filer.endVector(), 1);
  expectItems(
      "<V size=\"2\"><Point1 X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
      "<Bulge1 double=\"0.5000000\"/></V>");
}

TEST_F(VectorScope, CountsAreCutToSixteenBits) {
  write();
  for (const long count : {40000L, -1L, 0L, 32767L, 32768L, 65535L, 65536L, 70000L, 2147483647L}) {
    EXPECT_EQ(m_filer.beginVector(L"V", count), 1);
    EXPECT_EQ(m_filer.endVector(), 1);
  }
  expectItems(
      "<V size=\"-25536\"/><V size=\"-1\"/><V size=\"0\"/><V size=\"32767\"/>"
      "<V size=\"-32768\"/><V size=\"-1\"/><V size=\"0\"/><V size=\"4464\"/>"
      "<V size=\"-1\"/>");
}

TEST_F(VectorScope, NeedsAClassElement) {
  EXPECT_EQ(m_filer.beginVector(L"V", 1), 0);
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 0);
  EXPECT_EQ(m_count, 77);
  EXPECT_EQ(m_filer.endVector(), 0);
}

TEST_F(VectorScope, EndingWithNoneOpenGivesZero) {
  write();
  EXPECT_EQ(m_filer.endVector(), 0);
  m_filer.beginVector(L"V", 0);
  EXPECT_EQ(m_filer.endVector(), 1);
  EXPECT_EQ(m_filer.endVector(), 0);
}

TEST_F(VectorScope, ASecondOneFilesTheFirst) {
  write();
  m_filer.beginVector(L"V", 1);
  m_filer.writeItem(L"N", 1);
  EXPECT_EQ(m_filer.beginVector(L"W", 1), 1);
  m_filer.writeItem(L"N", 2);
  m_filer.endVector();
  expectItems("<V size=\"1\"><N long=\"1\"/></V><W size=\"1\"><N long=\"2\"/></W>");
}

TEST_F(VectorScope, OneThatIsNeverEndedIsNotFiled) {
  write();
  m_filer.writeItem(L"N", 1);
  m_filer.beginVector(L"V", 1);
  m_filer.writeItem(L"M", 2);
  expectItems("<N long=\"1\"/>");
}

TEST_F(VectorScope, StaysOpenAcrossClassesAndIsFiledInTheOneThatIsOpenThen) {
  write();
  m_filer.beginVector(L"V", 3);
  m_filer.writeItem(L"N", 1);
  m_filer.endClass();
  m_filer.writeItem(L"N", 2);
  m_filer.beginClass(L"B", 1);
  m_filer.writeItem(L"N", 3);
  EXPECT_EQ(m_filer.endVector(), 1);
  m_filer.writeItem(L"N", 4);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath),
            documentText("<A version=\"1\" index=\"1\"/><B version=\"1\" index=\"1\">"
                         "<V size=\"3\"><N long=\"1\"/><N long=\"2\"/><N long=\"3\"/></V>"
                         "<N long=\"4\"/></B>"));
}

TEST_F(VectorScope, EndingOneWithNoClassOpenRaisesAndKeepsIt) {
  write();
  m_filer.beginVector(L"V", 1);
  m_filer.writeItem(L"N", 1);
  m_filer.endClass();
  EXPECT_EQ(raised([&] { m_filer.endVector(); }), E_POINTER);
  EXPECT_EQ(raised([&] { m_filer.endVector(); }), E_POINTER);
  EXPECT_EQ(itemNumber(m_filer), 1);
  m_filer.beginClass(L"B", 1);
  EXPECT_EQ(m_filer.endVector(), 1);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath),
            documentText("<A version=\"1\" index=\"1\"/><B version=\"1\" index=\"1\">"
                         "<V size=\"1\"><N long=\"1\"/></V></B>"));
}

TEST_F(VectorScope, ARefusedNameLeavesNoneOpen) {
  write();
  m_filer.beginVector(L"V", 1);
  EXPECT_EQ(raised([&] { m_filer.beginVector(L"no name", 1); }), E_FAIL);
  EXPECT_EQ(m_filer.endVector(), 0);
  expectItems("<V size=\"1\"/>");
}

TEST_F(VectorScope, WritingOneWithoutADocumentRaises) {
  load("<V size=\"1\"/>");
  m_filer.closeFiler();
  EXPECT_EQ(raised([&] { m_filer.beginVector(L"W", 1); }), E_POINTER);
  // Only writing needs the document.
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 1);
}

// --- reading ---------------------------------------------------------------------------------

TEST_F(VectorScope, IsReadWithItsSizeAndItems) {
  load("<N long=\"1\"/><V size=\"2\"><N long=\"2\"/></V>");
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 1);
  EXPECT_EQ(m_count, 2);
  EXPECT_EQ(itemNumber(m_filer), 2);
  EXPECT_EQ(m_filer.endVector(), 1);
  EXPECT_EQ(itemNumber(m_filer), 1);
}

TEST_F(VectorScope, ReadingOneDoesNotChangeTheDocument) {
  const std::string items = "<V size=\"1\"/><M long=\"1\"/>";
  load(items);
  m_filer.beginVector(L"V", &m_count);
  m_filer.endVector();
  m_filer.beginVector(L"V", &m_count);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A>" + items + "</A>"));
}

TEST_F(VectorScope, TheFirstOfItsNameIsRead) {
  load("<V size=\"1\"/><V size=\"2\"/>");
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 1);
  EXPECT_EQ(m_count, 1);
}

TEST_F(VectorScope, OneThatIsNotThereLeavesNoneOpenAndTheCountAlone) {
  load("<V size=\"1\"><N long=\"2\"/></V><N long=\"1\"/>");
  ASSERT_EQ(m_filer.beginVector(L"V", &m_count), 1);
  m_count = 77;
  EXPECT_EQ(m_filer.beginVector(L"W", &m_count), 0);
  EXPECT_EQ(m_count, 77);
  EXPECT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(m_filer.endVector(), 0);
}

TEST_F(VectorScope, OneWithoutSizeIsClosedAgain) {
  load("<V Size=\"1\"><N long=\"2\"/></V><N long=\"1\"/>");
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 0);
  EXPECT_EQ(m_count, 77);
  EXPECT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(m_filer.endVector(), 0);
}

TEST_F(VectorScope, ANodeThatTakesNoAttributesIsClosedAgain) {
  load("<?V data?><N long=\"1\"/>");
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 0);
  EXPECT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(m_filer.endVector(), 0);
}

// --- the direction ---------------------------------------------------------------------------

TEST_F(VectorScope, OneThatIsNotThereLeavesTheDirection) {
  write();
  EXPECT_EQ(m_filer.beginVector(L"W", &m_count), 0);
  // Still writing: the scope is filed.
  EXPECT_EQ(m_filer.endClass(), 1);
}

TEST_F(VectorScope, ReadingOneTurnsAWrittenScopeToReading) {
  write();
  m_filer.beginVector(L"V", 3);
  m_filer.endVector();
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 1);
  EXPECT_EQ(m_count, 3);
  // The class element is not filed any more, and stays current.
  EXPECT_EQ(m_filer.endClass(), -1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 2);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText(""));
}

TEST_F(VectorScope, OneThatIsOpenForWritingIsFiledBeforeAnotherIsRead) {
  write();
  m_filer.beginVector(L"V", 4);
  m_filer.writeItem(L"N", 5);
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 1);
  EXPECT_EQ(m_count, 4);
  EXPECT_EQ(itemNumber(m_filer), 5);
}

TEST_F(VectorScope, OneWithoutSizeTurnsToReadingToo) {
  write();
  m_filer.writeItem(L"V", 1);
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 0);
  EXPECT_EQ(m_filer.endClass(), -1);
}

TEST_F(VectorScope, WritingOneIntoAnElementThatIsReadFilesIt) {
  load("<N long=\"1\"/>");
  EXPECT_EQ(m_filer.beginVector(L"V", 1), 1);
  m_filer.writeItem(L"M", 2);
  EXPECT_EQ(m_filer.endVector(), 1);
  m_filer.beginVector(L"V", &m_count);
  EXPECT_EQ(m_count, 1);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A><N long=\"1\"/><V size=\"1\"><M long=\"2\"/>"
                                           "</V></A>"));
}

TEST_F(VectorScope, OneThatIsReadStaysInItsPlaceWhenAnotherIsWritten) {
  load("<V size=\"1\"/><M long=\"2\"/>");
  ASSERT_EQ(m_filer.beginVector(L"V", &m_count), 1);
  EXPECT_EQ(m_filer.beginVector(L"W", 3), 1);
  EXPECT_EQ(m_filer.endVector(), 1);
  m_filer.beginVector(L"V", &m_count);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A><V size=\"1\"/><M long=\"2\"/><W size=\"3\"/></A>"));
}

TEST_F(VectorScope, ARefusedNameTurnsToWriting) {
  load("<N long=\"1\"/>");
  EXPECT_EQ(raised([&] { m_filer.beginVector(L"no name", 1); }), E_FAIL);
  // The element that was only read is filed, and so no more current.
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), -1);
}

// A vector open for reading is filed again, and so moved, when writing began meanwhile.
TEST_F(VectorScope, OneThatIsReadMovesIntoTheClassWrittenNext) {
  load("<V size=\"1\"><N long=\"1\"/></V><M long=\"2\"/>");
  m_filer.beginVector(L"V", &m_count);
  m_filer.beginClass(L"B", 1);
  m_filer.writeItem(L"O", 3);
  EXPECT_EQ(m_filer.endVector(), 1);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath),
            documentText("<A><M long=\"2\"/></A><B version=\"1\" index=\"1\"><V size=\"1\">"
                         "<N long=\"1\"/><O long=\"3\"/></V></B>"));
}

TEST_F(VectorScope, AnyItemWithASizeCanBeOpened) {
  load("<L size=\"2\"><point X=\"1\" Y=\"2\" Z=\"3\"/></L>");
  EXPECT_EQ(m_filer.beginVector(L"L", &m_count), 1);
  CKtPnt3D point;
  EXPECT_EQ(m_filer.readItem(L"point", &point), 1);
  EXPECT_EQ(point.Z(), 3);
}

}  // namespace
}  // namespace quorvan::test
