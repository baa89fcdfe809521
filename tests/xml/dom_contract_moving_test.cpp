// The contract of the XML document service: appending, moving, and who keeps what alive.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include <tests/xml/dom_contract.h>

namespace quorvan::test {
namespace {

TEST_F(DomContract, AChildBecomesTheLastOne) {
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  appended(line, "A");
  appended(line, "B");
  appended(m_root, "Text");
  EXPECT_EQ(outline(m_root), "Document[Line[A B] Text]");
}

TEST_F(DomContract, ADetachedElementTakesChildrenAndIsAppendedWithThem) {
  const IXMLDOMNodePtr line = element("Line");
  appended(line, "Color");
  EXPECT_EQ(outline(m_root), "Document");
  dom::append(m_root, line);
  EXPECT_EQ(outline(m_root), "Document[Line[Color]]");
}

TEST_F(DomContract, AnElementThatWasJustMadeIsAppendedWithWhatItHolds) {
  const IXMLDOMNodePtr line = element("Line");
  appended(line, "Color");
  dom::appendNew(m_root, line);
  dom::appendNew(m_root, element("Text"));
  EXPECT_EQ(outline(m_root), "Document[Line[Color] Text]");
  EXPECT_EQ(raisedBy([&] { dom::appendNew(IXMLDOMNodePtr(), line); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::appendNew(m_root, IXMLDOMNodePtr()); }), E_POINTER);
}

TEST_F(DomContract, AnElementThatWasJustMadeDoesNotGoBelowAnInstruction) {
  const IXMLDOMNodePtr declaration = dom::firstChild(m_document);
  const IXMLDOMNodePtr line = element("Line");
  EXPECT_EQ(raisedBy([&] { dom::appendNew(declaration, line); }), E_FAIL);
  dom::appendNew(m_root, line);
  EXPECT_EQ(outline(m_root), "Document[Line]");
}

TEST_F(DomContract, CopiesOfAHandleAreKnown) {
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  const IXMLDOMNodePtr text = appended(m_root, "Text");
  const IXMLDOMNodePtr copy(line);
  EXPECT_TRUE(dom::isCopy(line, copy));
  EXPECT_TRUE(dom::isCopy(line, line));
  EXPECT_FALSE(dom::isCopy(line, text));
  EXPECT_FALSE(dom::isCopy(line, IXMLDOMNodePtr()));
}

TEST_F(DomContract, AChildThatHasAParentIsMoved) {
  const IXMLDOMNodePtr a = appended(m_root, "A");
  const IXMLDOMNodePtr b = appended(m_root, "B");
  const IXMLDOMNodePtr c = appended(m_root, "C");
  dom::append(m_root, b);
  EXPECT_EQ(outline(m_root), "Document[A C B]");
  dom::append(m_root, a);
  EXPECT_EQ(outline(m_root), "Document[C B A]");
  dom::append(m_root, a);
  EXPECT_EQ(outline(m_root), "Document[C B A]");
  dom::append(c, b);
  EXPECT_EQ(outline(m_root), "Document[C[B] A]");
  dom::append(m_root, b);
  EXPECT_EQ(outline(m_root), "Document[C A B]");
  EXPECT_TRUE(dom::nextSibling(b) == nullptr);
}

TEST_F(DomContract, AnElementDoesNotGoBelowItself) {
  const IXMLDOMNodePtr a = appended(m_root, "A");
  const IXMLDOMNodePtr b = appended(a, "B");
  const IXMLDOMNodePtr c = appended(b, "C");
  EXPECT_EQ(raisedBy([&] { dom::append(a, a); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(b, a); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(c, a); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(c, m_root); }), E_FAIL);
  const IXMLDOMNodePtr leaf = element("Leaf");
  EXPECT_EQ(raisedBy([&] { dom::append(leaf, leaf); }), E_FAIL);
  EXPECT_EQ(outline(m_root), "Document[A[B[C]]]");
}

TEST_F(DomContract, ASecondRootElementIsRefused) {
  const IXMLDOMNodePtr second = element("Second");
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, second); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, appended(m_root, "Line")); }), E_FAIL);
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) Document[Line]");
}

TEST_F(DomContract, TheRootCanBeTakenOutAndReplaced) {
  const IXMLDOMNodePtr other = element("Other");
  appended(m_root, "Line");
  dom::append(other, m_root);
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1)");
  dom::append(m_document, other);
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) Other[Document[Line]]");
  EXPECT_TRUE(dom::nodeNameIs(dom::firstChildNamed(other, "Document"), "Document"));
}

TEST_F(DomContract, OnlyElementsAndDocumentsHoldChildren) {
  const IXMLDOMNodePtr instruction = dom::createProcessingInstruction(m_document, "p", "d");
  EXPECT_EQ(raisedBy([&] { dom::append(instruction, element("A")); }), E_FAIL);
  ASSERT_TRUE(loads("<a>t<!--c--><b/></a>"));
  const IXMLDOMNodePtr text = dom::firstChild(dom::firstChild(m_document));
  EXPECT_EQ(raisedBy([&] { dom::append(text, element("A")); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(dom::nextSibling(text), element("A")); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, text); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(text, text); }), E_FAIL);
  EXPECT_EQ(outline(m_document), "a[#text #comment b]");
}

TEST_F(DomContract, InstructionsStandInElementsAndDocuments) {
  dom::append(m_root, dom::createProcessingInstruction(m_document, "p", "d"));
  dom::append(m_document, dom::createProcessingInstruction(m_document, "q", "d"));
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) Document[p] q");
}

TEST_F(DomContract, AnElementOfAnotherDocumentChangesHands) {
  const IXMLDOMDocumentPtr other = newDocument();
  const IXMLDOMNodePtr otherRoot = dom::nextSibling(dom::firstChild(other));
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  appended(m_root, "Text");
  dom::addAttribute(m_document, line, "version", std::int16_t{1});
  const IXMLDOMNodePtr color = appended(line, "Color");
  dom::addAttribute(m_document, color, "string", L"b\u00e9ton");
  dom::append(otherRoot, line);
  EXPECT_EQ(outline(m_root), "Document[Text]");
  EXPECT_EQ(outline(otherRoot), "Document[Line(version=1)[Color(string=b\xC3\xA9ton)]]");
}

TEST_F(DomContract, AnElementCreatedByAnotherDocumentIsAppendedAtOnce) {
  const IXMLDOMDocumentPtr other = newDocument();
  dom::append(m_root, dom::createElement(other, "Line"));
  const IXMLDOMNodePtr text = dom::createElement(other, "Text");
  dom::addAttribute(m_document, text, "a", L"1");
  dom::append(m_root, text);
  EXPECT_EQ(outline(m_root), "Document[Line Text(a=1)]");
}

TEST_F(DomContract, HandlesFollowANodeIntoAnotherDocument) {
  IXMLDOMDocumentPtr other = newDocument();
  IXMLDOMNodePtr otherRoot = dom::nextSibling(dom::firstChild(other));
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  const IXMLDOMNodePtr alsoLine = line;
  const IXMLDOMNodePtr color = appended(line, "Color");
  const IXMLDOMNodePtr layer = appended(line, "Layer");
  const std::vector<IXMLDOMNodePtr> copies(3, color);
  dom::append(otherRoot, line);
  m_root = nullptr;
  m_document = nullptr;

  dom::addAttribute(other, copies[1], "long", std::int32_t{7});
  dom::append(alsoLine, color);
  EXPECT_EQ(outline(otherRoot), "Document[Line[Layer Color(long=7)]]");
  EXPECT_EQ(attributeOf(copies[2], "long"), "7");
  EXPECT_TRUE(dom::nextSibling(layer) != nullptr);

  other = nullptr;
  otherRoot = nullptr;
  EXPECT_EQ(outline(alsoLine), "Line[Layer Color(long=7)]");
}

TEST_F(DomContract, AnElementGoesToAnotherDocumentAndBack) {
  const IXMLDOMDocumentPtr other = newDocument();
  const IXMLDOMNodePtr otherRoot = dom::nextSibling(dom::firstChild(other));
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  appended(line, "Color");
  for (int round = 0; round < 3; ++round) {
    dom::append(otherRoot, line);
    EXPECT_EQ(outline(m_root), "Document");
    EXPECT_EQ(outline(otherRoot), "Document[Line[Color]]");
    dom::append(m_root, line);
    EXPECT_EQ(outline(m_root), "Document[Line[Color]]");
    EXPECT_EQ(outline(otherRoot), "Document");
  }
}

TEST_F(DomContract, TheRootGoesToADocumentWithoutOne) {
  IXMLDOMDocumentPtr other;
  ASSERT_EQ(dom::createDocument(other), S_OK);
  appended(m_root, "Line");
  dom::append(other, m_root);
  EXPECT_EQ(outline(other), "Document[Line]");
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1)");
  EXPECT_TRUE(dom::nodeNameIs(dom::firstChildNamed(m_root, "Line"), "Line"));
  dom::append(m_document, dom::createElement(other, "New"));
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) New");
}

TEST_F(DomContract, AMoveThatIsRefusedChangesNeitherDocument) {
  const IXMLDOMDocumentPtr other = newDocument();
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  EXPECT_EQ(raisedBy([&] { dom::append(other, line); }), E_FAIL);
  EXPECT_EQ(outline(m_root), "Document[Line]");
  EXPECT_EQ(outline(other), "xml(version=1.0 encoding=ISO-8859-1) Document");
}

TEST_F(DomContract, ANodeKeepsItsTreeAlive) {
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  appended(m_root, "Text");
  dom::addAttribute(m_document, line, "a", L"1");
  m_document = nullptr;
  EXPECT_EQ(outline(m_root), "Document[Line(a=1) Text]");
  m_root = nullptr;
  EXPECT_EQ(outline(line), "Line(a=1)");
  EXPECT_TRUE(dom::nodeNameIs(dom::nextSibling(line), "Text"));
}

TEST_F(DomContract, ADetachedNodeOutlivesItsDocument) {
  const IXMLDOMNodePtr line = element("Line");
  m_root = nullptr;
  m_document = nullptr;
  EXPECT_EQ(outline(line), "Line");
  IXMLDOMDocumentPtr other = newDocument();
  dom::append(dom::nextSibling(dom::firstChild(other)), line);
  EXPECT_EQ(outline(other), "xml(version=1.0 encoding=ISO-8859-1) Document[Line]");
}

TEST_F(DomContract, HandlesAreCopiedMovedAndReleasedInAnyOrder) {
  std::vector<IXMLDOMNodePtr> handles;
  for (int i = 0; i < 50; ++i) {
    handles.push_back(appended(m_root, "Line"));
  }
  IXMLDOMNodePtr moved = std::move(handles[7]);
  EXPECT_TRUE(dom::nodeNameIs(moved, "Line"));
  handles.erase(handles.begin() + 3, handles.begin() + 20);
  handles[0] = handles[1];
  handles[1] = nullptr;
  const IXMLDOMNodePtr& same = handles[2];
  handles[2] = same;
  EXPECT_TRUE(dom::nodeNameIs(handles[2], "Line"));
  std::swap(moved, handles[0]);
  m_document = nullptr;
  m_root = nullptr;
  handles.clear();
  EXPECT_TRUE(dom::nodeNameIs(moved, "Line"));
  int siblings = 0;
  for (; moved != nullptr; moved = dom::nextSibling(moved)) {
    ++siblings;
  }
  EXPECT_EQ(siblings, 49);
}

TEST_F(DomContract, NodesOfTheFormerContentStayValidAfterALoad) {
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  ASSERT_TRUE(loads("<a/>"));
  EXPECT_EQ(outline(m_root), "Document[Line]");
  EXPECT_EQ(outline(m_document), "a");
  dom::append(dom::firstChild(m_document), line);
  EXPECT_EQ(outline(m_document), "a[Line]");
  EXPECT_EQ(outline(m_root), "Document");
}

TEST_F(DomContract, AnElementMadeBeforeALoadCanBeAppendedAfterIt) {
  const IXMLDOMNodePtr line = element("Line");
  dom::addAttribute(m_document, line, "a", L"1");
  ASSERT_TRUE(loads("<a><b/></a>"));
  dom::append(dom::firstChild(m_document), line);
  EXPECT_EQ(outline(m_document), "a[b Line(a=1)]");
}

}  // namespace
}  // namespace quorvan::test
