// The pattern filer: finding its class element and walking over the items.

#include <tests/filer/filer_test.h>

#include <memory>
#include <string>
#include <type_traits>

#include <quorvan/xml/handles.h>

namespace quorvan::test {
namespace {

static_assert(std::has_virtual_destructor_v<CKtFiler>);
static_assert(std::is_base_of_v<CKtFiler, CKtPatternFiler>);
static_assert(sizeof(CKtPatternFiler) == sizeof(CKtFiler));  // no data of its own

class PatternFiler : public FilerTest {
 protected:
  void load(const std::string& classElements) {
    writeText(kPatternPath, documentText(classElements));
    ASSERT_EQ(m_pattern.newFiler(kPatternPath), 1);
  }

  int first() { return m_pattern.getFirstChildNode(std::addressof(m_node)); }
  int next() { return m_pattern.getNextChildNode(std::addressof(m_node)); }
  [[nodiscard]] CString nodeName() const { return quorvan::nodeName(m_node); }

  CKtPatternFiler m_pattern;
  CString m_name = L"before";
  IXMLDOMNodePtr m_node;
};

TEST_F(PatternFiler, TheClassIsTheFirstChildOfTheRoot) {
  load("<A/><B/>");
  EXPECT_EQ(m_pattern.getClassName(m_name), 1);
  EXPECT_EQ(m_name, L"A");
  EXPECT_EQ(m_pattern.getLastUsedIndex(), 2);
}

TEST_F(PatternFiler, TheClassIsTheFirstNodeWhateverItsKind) {
  load("<!--note--><A/>");
  EXPECT_EQ(m_pattern.getClassName(m_name), 1);
  EXPECT_EQ(m_name, L"#comment");
}

TEST_F(PatternFiler, ClassNamesOfOtherScriptsAreGiven) {
  m_pattern.newFiler(kPatternPath);
  m_pattern.beginClass(L"\u00C9l\u00E9ment", 1);
  m_pattern.endClass();
  EXPECT_EQ(m_pattern.getClassName(m_name), 1);
  EXPECT_EQ(m_name, L"\u00C9l\u00E9ment");
}

TEST_F(PatternFiler, WithoutAClassNothingIsGiven) {
  m_pattern.newFiler(kPatternPath);
  EXPECT_EQ(m_pattern.getClassName(m_name), 0);
  EXPECT_EQ(m_name, L"before");
  EXPECT_EQ(first(), 0);
  EXPECT_EQ(next(), 0);
}

TEST_F(PatternFiler, WithoutARootNothingIsGiven) {
  writeText(kPatternPath, "<xml/>");
  EXPECT_EQ(m_pattern.newFiler(kPatternPath), 0);
  EXPECT_EQ(m_pattern.getClassName(m_name), 0);
  EXPECT_EQ(m_name, L"before");
}

TEST_F(PatternFiler, WithoutADocumentAskingForTheClassRaises) {
  EXPECT_EQ(raised([&] { m_pattern.getClassName(m_name); }), E_POINTER);
}

TEST_F(PatternFiler, AScopeStillOpenIsNotInThePatternYet) {
  m_pattern.newFiler(kPatternPath);
  m_pattern.beginClass(L"A", 1);
  EXPECT_EQ(m_pattern.getClassName(m_name), 0);
  m_pattern.endClass();
  EXPECT_EQ(m_pattern.getClassName(m_name), 1);
}

TEST_F(PatternFiler, ItemsAreHandedOutInOrder) {
  load("<A><N/><!--c--><M/>text</A>");
  m_pattern.getClassName(m_name);
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(nodeName(), L"N");
  for (const wchar_t* name : {L"#comment", L"M", L"#text"}) {
    EXPECT_EQ(next(), 1);
    EXPECT_EQ(nodeName(), name);
  }
}

TEST_F(PatternFiler, PastTheLastItemTheHandleStaysAndTheCursorIsEmpty) {
  load("<A><N/><M/></A>");
  m_pattern.getClassName(m_name);
  first();
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(next(), 0);
  EXPECT_EQ(nodeName(), L"M");
  EXPECT_EQ(next(), 0);
  // With no cursor items go into the class again.
  EXPECT_EQ(m_pattern.endVector(), 0);
  EXPECT_EQ(first(), 1);
  EXPECT_EQ(nodeName(), L"N");
}

TEST_F(PatternFiler, AClassWithoutItemsEmptiesTheHandle) {
  load("<A><N/></A>");
  m_pattern.getClassName(m_name);
  first();
  load("<B/>");
  m_pattern.getClassName(m_name);
  EXPECT_EQ(first(), 0);
  EXPECT_EQ(m_node, nullptr);
  EXPECT_EQ(next(), 0);
}

TEST_F(PatternFiler, AClassWithoutItemsEmptiesTheCursor) {
  m_pattern.newFiler(kPatternPath);
  m_pattern.beginClass(L"A", 1);
  m_pattern.beginVector(L"V", 1);
  EXPECT_EQ(first(), 0);
  EXPECT_EQ(m_pattern.endVector(), 0) << "the cursor is the current vector";
}

TEST_F(PatternFiler, WithNoClassCurrentTheHandleIsEmptied) {
  load("<A><N/></A>");
  m_pattern.getClassName(m_name);
  ASSERT_EQ(first(), 1);
  CKtPatternFiler other;
  EXPECT_EQ(other.getFirstChildNode(std::addressof(m_node)), 0);
  EXPECT_EQ(m_node, nullptr);
  first();
  EXPECT_EQ(other.getNextChildNode(std::addressof(m_node)), 0);
  EXPECT_EQ(nodeName(), L"N");
}

TEST_F(PatternFiler, AskingForTheClassSetsTheCursorToItsFirstItem) {
  load("<A><N/><M/></A>");
  m_pattern.getClassName(m_name);
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(nodeName(), L"M");
}

// The cursor is the filer's current vector.
TEST_F(PatternFiler, TheItemHandedOutLastTakesTheItemsWritten) {
  load("<A><N/><M/></A>");
  m_pattern.getClassName(m_name);
  first();
  next();
  EXPECT_EQ(m_pattern.writeItem(L"K", 5), 1);
  m_pattern.closeFiler();
  // A new filer writes: closing filed the class element once more.
  EXPECT_EQ(savedText(kPatternPath), documentText("<A><N/><M><K long=\"5\"/></M></A>"));
}

TEST_F(PatternFiler, HandlesOutliveTheFiler) {
  {
    CKtPatternFiler pattern;
    writeText(kOtherPath, documentText("<A><N/></A>"));
    pattern.newFiler(kOtherPath);
    pattern.getClassName(m_name);
    pattern.getFirstChildNode(std::addressof(m_node));
  }
  EXPECT_EQ(nodeName(), L"N");
}

}  // namespace
}  // namespace quorvan::test
