// Pattern search: which element is found, and what makes one differ or raise.

#include <tests/filer/seek_fixture.h>

#include <string>
#include <utility>
#include <vector>

namespace quorvan::test {
namespace {

// --- what is found ---------------------------------------------------------------------------

TEST_F(Seek, WithoutAPatternRaisesAndLeavesTheCurrentElement) {
  load("<A index=\"1\"><N long=\"1\"/></A>");
  ASSERT_EQ(m_filer.beginClass(L"A"), 1);
  EXPECT_EQ(raised([&] { m_filer.seek(nullptr); }), E_POINTER);
  EXPECT_EQ(itemNumber(m_filer), 1);
}

TEST_F(Seek, APatternWithoutItemsFindsTheFirstOfItsClass) {
  load("<B index=\"1\"/><A index=\"7\"/><A index=\"8\"/>");
  EXPECT_EQ(seekFor("<A/>"), 7);
}

TEST_F(Seek, AClassThatIsNotThereIsNotFound) {
  load("<A index=\"1\"/>");
  EXPECT_EQ(seekFor("<B/>"), -1);
}

TEST_F(Seek, WhatTheFilerWroteIsFound) {
  m_filer.newFiler(kPath);
  for (int i = 1; i <= 3; ++i) {
    m_filer.beginClass(L"A", 1);
    m_filer.writeItem(L"P", CKtPnt3D(i, 2, 3));
    m_filer.writeItem(L"N", i % 2);
    m_filer.endClass();
  }
  m_pattern.newFiler(kPatternPath);
  m_pattern.beginClass(L"A", 1);
  m_pattern.writeItem(L"P", CKtPnt3D(3, 2, 3));
  m_pattern.writeItem(L"N", 1);
  m_pattern.endClass();
  EXPECT_EQ(m_filer.seek(&m_pattern), 3);
}

TEST_F(Seek, PointsMatchAtSevenDecimals) {
  m_filer.newFiler(kPath);
  for (const double x : {1.0000002, 1.00000004}) {
    m_filer.beginClass(L"A", 1);
    m_filer.writeItem(L"P", CKtPnt3D(x, 2, 3));
    m_filer.endClass();
  }
  m_pattern.newFiler(kPatternPath);
  m_pattern.beginClass(L"A", 1);
  m_pattern.writeItem(L"P", CKtPnt3D(1, 2, 3));
  m_pattern.endClass();
  EXPECT_EQ(m_filer.seek(&m_pattern), 2);
}

TEST_F(Seek, ValuesAreComparedAsTexts) {
  load(
      "<A index=\"1\"><N double=\"1.50\"/></A><A index=\"2\"><N double=\"1.5\"/></A>"
      "<A index=\"3\"><S string=\"Red\"/></A><A index=\"4\"><S string=\"red\"/></A>");
  EXPECT_EQ(seekFor("<A><N double=\"1.5\"/></A>"), 2);
  EXPECT_EQ(seekFor("<A><N double=\"1.500\"/></A>"), -1);
  EXPECT_EQ(seekFor("<A><S string=\"red\"/></A>"), 4);
  EXPECT_EQ(seekFor("<A><S string=\"RED\"/></A>"), -1);
}

TEST_F(Seek, AccentsAndEmptyTextsCompareExactly) {
  load("<A index=\"1\"><S string=\"\"/></A><A index=\"2\"><S string=\"\xE9t\xE9\"/></A>");
  EXPECT_EQ(seekFor("<A><S string=\"\"/></A>"), 1);
  EXPECT_EQ(seekFor("<A><S string=\"\xE9t\xE9\"/></A>"), 2);
  EXPECT_EQ(seekFor("<A><S string=\"ete\"/></A>"), -1);
}

TEST_F(Seek, OfTwoThatMatchTheFirstInTheDocumentIsFound) {
  load(
      "<A index=\"9\"><N long=\"1\"/></A><A index=\"2\"><N long=\"2\"/></A>"
      "<A index=\"5\"><N long=\"2\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), 2);
}

TEST_F(Seek, EveryItemOfThePatternMustMatch) {
  load(
      "<A index=\"1\"><N long=\"1\"/></A>"
      "<A index=\"2\"><N long=\"1\"/><M long=\"1\"/></A>"
      "<A index=\"3\"><M long=\"2\"/><N long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"1\"/><M long=\"2\"/></A>"), 3);
  EXPECT_EQ(seekFor("<A><N long=\"1\"/><M long=\"3\"/></A>"), -1);
  EXPECT_EQ(seekFor("<A><N long=\"1\"/><K/></A>"), -1);
}

TEST_F(Seek, ItemsThatThePatternLacksDoNotMatter) {
  load("<A index=\"1\"><N long=\"1\"/><M long=\"2\"/></A>");
  EXPECT_EQ(seekFor("<A><M long=\"2\"/></A>"), 1);
}

TEST_F(Seek, AttributesOfTheClassElementTakeNoPart) {
  load("<A version=\"1\" index=\"4\" x=\"y\"/>");
  EXPECT_EQ(seekFor("<A version=\"2\" index=\"1\" z=\"\"/>"), 4);
}

TEST_F(Seek, AttributesThatThePatternLacksDoNotMatter) {
  load("<A index=\"1\"><N unit=\"mm\" long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"1\"/></A>"), 1);
  EXPECT_EQ(seekFor("<A><N/></A>"), 1);
}

TEST_F(Seek, OnlyTheFirstItemOfANameIsCompared) {
  load("<A index=\"1\"><N long=\"1\"/><N long=\"2\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"2\"/></A>"), -1);
  EXPECT_EQ(seekFor("<A><N long=\"1\"/></A>"), 1);
  // Both items of the pattern meet the first.
  EXPECT_EQ(seekFor("<A><N long=\"1\"/><N long=\"1\"/></A>"), 1);
  EXPECT_EQ(seekFor("<A><N long=\"1\"/><N long=\"2\"/></A>"), -1);
}

TEST_F(Seek, ListsMatchOnTheirSizeAlone) {
  m_filer.newFiler(kPath);
  m_filer.beginClass(L"A", 1);
  m_filer.writeItem(L"L", std::vector<CKtPnt3D>{{1, 2, 3}, {4, 5, 6}}, 3);
  m_filer.endClass();
  m_pattern.newFiler(kPatternPath);
  m_pattern.beginClass(L"A", 1);
  m_pattern.writeItem(L"L", std::vector<CKtPnt3D>{{9, 9, 9}}, 3);
  m_pattern.endClass();
  EXPECT_EQ(m_filer.seek(&m_pattern), 1);
  EXPECT_EQ(seekFor("<A><L size=\"2\"/></A>"), -1);
}

TEST_F(Seek, ChildrenOfAnItemAreNotComparedWithTheDocuments) {
  load("<A index=\"1\"><V size=\"1\"><N long=\"1\"/></V></A>");
  EXPECT_EQ(seekFor("<A><V size=\"1\"><M double=\"2\"><K/></M></V></A>"), 1);
}

TEST_F(Seek, AnItemWithAChildThatTakesNoAttributesMatchesNothing) {
  load("<A index=\"1\"><N long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"1\">text</N></A>"), -1);
  EXPECT_EQ(seekFor("<A><N long=\"1\"><!--c--></N></A>"), -1);
  EXPECT_EQ(seekFor("<A><N long=\"1\"><M/><?p d?></N></A>"), -1);
  EXPECT_EQ(seekFor("<A><N long=\"1\"><M><K>text</K></M></N></A>"), -1);
  EXPECT_EQ(seekFor("<A><N long=\"1\"><M><K/></M></N></A>"), 1);
}

TEST_F(Seek, AnItemThatTakesNoAttributesMatchesNothing) {
  load("<A index=\"1\"><!--c--><N long=\"1\"/></A><A index=\"2\"><N long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><!--c--></A>"), -1);
  EXPECT_EQ(seekFor("<A>text<N long=\"1\"/></A>"), -1);
}

TEST_F(Seek, ANodeOfTheDocumentThatTakesNoAttributesMatchesNothing) {
  load("<A index=\"1\"><?N long=\"1\"?><N long=\"1\"/></A><A index=\"2\"><N long=\"1\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"1\"/></A>"), 2);
}

// --- the index -------------------------------------------------------------------------------

TEST_F(Seek, TheIndexIsReadAsANumberAsFarAsItGoes) {
  for (const auto& [index, number] : std::vector<std::pair<std::string, int>>{
           {"12", 12}, {" +7x", 7}, {"-25536", -25536}, {"", 0}, {"seven", 0}, {"0", 0}}) {
    load("<A index=\"" + index + "\"/>");
    EXPECT_EQ(seekFor("<A/>"), number) << index;
    m_filer.closeFiler();
  }
}

TEST_F(Seek, AnElementWithoutIndexIsFoundButNotNumbered) {
  load("<A Index=\"3\"><N long=\"1\"/></A><A index=\"2\"><N long=\"2\"/></A>");
  EXPECT_EQ(seekFor("<A/>"), -1);
  EXPECT_EQ(itemNumber(m_filer), 1);
  EXPECT_EQ(nextNumber(L"A"), 2);
}

TEST_F(Seek, ANodeThatTakesNoAttributesIsFoundButNotNumbered) {
  load("<!--c--><A index=\"1\"/>");
  EXPECT_EQ(seekFor("<!--other-->"), -1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), 2);
}

// --- errors ----------------------------------------------------------------------------------

TEST_F(Seek, AnItemThatLacksAnAttributeOfThePatternsRaises) {
  load("<A index=\"1\"><N string=\"1\"/></A>");
  EXPECT_EQ(raisedSeeking("<A><N long=\"1\"/></A>"), E_POINTER);
}

TEST_F(Seek, AValueThatDiffersInFrontOfAMissingAttributeEndsTheComparison) {
  load("<A index=\"1\"><N a=\"1\"/></A><A index=\"2\"><N a=\"2\" b=\"2\"/></A>");
  EXPECT_EQ(seekFor("<A><N a=\"2\" b=\"2\"/></A>"), 2);
  EXPECT_EQ(raisedSeeking("<A><N b=\"2\" a=\"2\"/></A>"), E_POINTER);
  EXPECT_EQ(raisedSeeking("<A><N a=\"1\" b=\"2\"/></A>"), E_POINTER);
}

TEST_F(Seek, AnItemThatDiffersInFrontOfAMissingAttributeEndsTheComparison) {
  load("<A index=\"1\"><N long=\"1\"/><M string=\"\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"2\"/><M long=\"1\"/></A>"), -1);
  EXPECT_EQ(raisedSeeking("<A><N long=\"1\"/><M long=\"1\"/></A>"), E_POINTER);
}

TEST_F(Seek, AnElementThatMatchesInFrontOfOneThatWouldRaiseIsFound) {
  load(
      "<A index=\"1\"><N long=\"1\"/></A><A index=\"2\"><N/></A><A index=\"3\"><N "
      "long=\"2\"/></A>");
  EXPECT_EQ(seekFor("<A><N long=\"1\"/></A>"), 1);
  EXPECT_EQ(raisedSeeking("<A><N long=\"2\"/></A>"), E_POINTER);
}

TEST_F(Seek, AMissingAttributeBelowAChildThatCannotMatchRaisesAllTheSame) {
  load("<A index=\"1\"><N/></A>");
  EXPECT_EQ(raisedSeeking("<A><N long=\"1\">text</N></A>"), E_POINTER);
}

TEST_F(Seek, AnErrorLeavesTheElementThatRaisedItCurrent) {
  load(
      "<A index=\"1\"><N x=\"\" long=\"1\"/></A><A index=\"2\"><N long=\"2\"/></A>"
      "<A index=\"3\"><N long=\"3\"/></A>");
  EXPECT_EQ(raisedSeeking("<A><N x=\"a\"/><M/></A>"), E_POINTER);
  EXPECT_EQ(itemNumber(m_filer), 2);
  // Three were there, three more were counted, two were tested.
  EXPECT_EQ(m_filer.getLastUsedIndex(), 5);
  EXPECT_EQ(nextPatternItem(), L"M");
  EXPECT_EQ(nextNumber(L"A"), 3);
}

TEST_F(Seek, WithoutADocumentItRaises) {
  writeText(kPatternPath, documentText("<A/>"));
  m_pattern.newFiler(kPatternPath);
  EXPECT_EQ(raised([&] { m_filer.seek(&m_pattern); }), E_POINTER);
}

TEST_F(Seek, ForAPatternWithoutADocumentItRaises) {
  load("<A index=\"1\"/>");
  EXPECT_EQ(raised([&] { m_filer.seek(&m_pattern); }), E_POINTER);
}

TEST_F(Seek, APatternWithoutAClassFindsNothing) {
  load("<A index=\"1\"/>");
  EXPECT_EQ(seekFor(""), -1);
  EXPECT_EQ(m_filer.getLastUsedIndex(), -1);
}

TEST_F(Seek, InADocumentWithoutRootFindsNothing) {
  writeText(kPath, "<xml/>");
  EXPECT_EQ(m_filer.newFiler(kPath), 0);
  EXPECT_EQ(seekFor("<A/>"), -1);
}

// --- documents and patterns that are not apart -----------------------------------------------

TEST_F(Seek, APatternInTheSameDocumentFindsItself) {
  writeText(kPath, documentText("<A index=\"4\"><N long=\"1\"/></A><A index=\"5\"/>"));
  m_pattern.newFiler(kPath);
  CKtFiler filer(m_pattern);
  EXPECT_EQ(filer.seek(&m_pattern), 4);
}

// A pattern filer that searches its own document moves on from its own class element: it reads
// the next one, and compares that with itself.
TEST_F(Seek, APatternFilerThatSearchesForItselfFindsTheSecondElement) {
  writeText(kPath, documentText("<A index=\"1\"><N long=\"1\"/></A><B index=\"1\"/>"
                                "<A index=\"2\"><N long=\"2\"/></A><A index=\"3\"/>"));
  m_pattern.newFiler(kPath);
  EXPECT_EQ(m_pattern.seek(&m_pattern), 2);
  EXPECT_EQ(m_pattern.getLastUsedIndex(), 6);
}

TEST_F(Seek, APatternFilerThatSearchesForItsOnlyElementFindsNone) {
  writeText(kPath, documentText("<A index=\"1\"><N long=\"1\"/></A>"));
  m_pattern.newFiler(kPath);
  EXPECT_EQ(m_pattern.seek(&m_pattern), -1);
}

// --- one item at a time ----------------------------------------------------------------------

class ComparingFiler : public CKtFiler {
 public:
  using CKtFiler::findChildMatch;
  using CKtFiler::GetDocumentRealNode;
};

TEST_F(Seek, OneItemIsComparedWithTheCurrentElement) {
  writeText(kPath, documentText("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>"));
  writeText(kPatternPath, documentText("<A><N long=\"2\"/></A>"));
  ComparingFiler filer;
  filer.newFiler(kPath);
  m_pattern.newFiler(kPatternPath);
  CString name;
  m_pattern.getClassName(name);
  IXMLDOMNodePtr item;
  m_pattern.getFirstChildNode(std::addressof(item));
  EXPECT_EQ(filer.findChildMatch(item), 0) << "no element is current";
  filer.beginClass(L"A");
  EXPECT_EQ(filer.findChildMatch(item), 0);
  filer.beginClass(L"A");
  EXPECT_EQ(filer.findChildMatch(item), 1);
  EXPECT_EQ(filer.findChildMatch(IXMLDOMNodePtr()), 0);
}

TEST_F(Seek, TheRootIsWithinReachOfDerivedFilers) {
  writeText(kPath, documentText("<A/>"));
  ComparingFiler filer;
  filer.newFiler(kPath);
  EXPECT_EQ(quorvan::nodeName(filer.GetDocumentRealNode()), L"Document");
  filer.closeFiler();
  EXPECT_EQ(raised([&] { filer.GetDocumentRealNode(); }), E_POINTER);
}

}  // namespace
}  // namespace quorvan::test
