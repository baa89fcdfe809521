// Making an element with its attributes and appending it in one step: it must do what the single
// steps do one after the other.
#include <tests/xml/dom_contract.h>

namespace quorvan::test {
namespace {

class NewElement : public DomContract {
 protected:
  [[nodiscard]] bool appendPoint(const IXMLDOMNodePtr& parent, const char* name) const {
    const dom::NewAttribute attributes[] = {{"X", {"1.0"}}, {"Y", {"2.0"}}, {"Z", {"-3.5"}}};
    return dom::appendElement(m_document, parent, dom::Name(std::string_view(name)), attributes);
  }
};

TEST_F(NewElement, BecomesTheLastChildWithItsAttributesInOrder) {
  EXPECT_TRUE(appendPoint(m_root, "A"));
  EXPECT_TRUE(appendPoint(m_root, "B"));
  EXPECT_EQ(outline(m_root), "Document[A(X=1.0 Y=2.0 Z=-3.5) B(X=1.0 Y=2.0 Z=-3.5)]");
}

TEST_F(NewElement, GoesIntoAnElementThatIsNotInTheTree) {
  const IXMLDOMNodePtr alone = element("Alone");
  EXPECT_TRUE(appendPoint(alone, "A"));
  EXPECT_TRUE(appendPoint(alone, "B"));
  EXPECT_TRUE(dom::appendElement(m_document, alone, "C", "string", L"text"));
  EXPECT_EQ(outline(alone), "Alone[A(X=1.0 Y=2.0 Z=-3.5) B(X=1.0 Y=2.0 Z=-3.5) C(string=text)]");
  EXPECT_EQ(outline(m_root), "Document");
}

TEST_F(NewElement, GoesIntoAnElementOfAnotherDocument) {
  const IXMLDOMDocumentPtr other = newDocument();
  const IXMLDOMNodePtr parent = dom::createElement(other, "Parent");
  EXPECT_TRUE(appendPoint(parent, "A"));
  EXPECT_TRUE(dom::appendElement(m_document, parent, "B", "string", L"text"));
  EXPECT_EQ(outline(parent), "Parent[A(X=1.0 Y=2.0 Z=-3.5) B(string=text)]");
}

TEST_F(NewElement, TakesAnyTextThatXmlCarries) {
  EXPECT_TRUE(dom::appendElement(m_document, m_root, "T", "string", L"<\u00e9 & \u20ac>"));
  EXPECT_TRUE(dom::appendElement(m_document, m_root, "U", "string", L""));
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_root, "T"), "string"), "<\u00e9 & \u20ac>");
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_root, "U"), "string"), "");
}

TEST_F(NewElement, ReplacesACharacterThatXmlCannotCarry) {
  EXPECT_TRUE(dom::appendElement(m_document, m_root, "T", "string",
                                 L"a\x01"
                                 L"b"));
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_root, "T"), "string"), "a\uFFFDb");
}

TEST_F(NewElement, RaisesForANameThatXmlCannotCarry) {
  EXPECT_EQ(raisedBy([&] { static_cast<void>(appendPoint(m_root, "1A")); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::appendElement(m_document, m_root, "", "string", L"x"); }), E_FAIL);
  EXPECT_EQ(outline(m_root), "Document");
}

TEST_F(NewElement, RaisesForNullHandles) {
  EXPECT_EQ(raisedBy([&] { static_cast<void>(appendPoint(nullptr, "A")); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::appendElement(nullptr, m_root, "A", "string", L"x"); }), E_POINTER);
}

TEST_F(NewElement, ChangesTheRevisionBelowTheRootButNotAtIt) {
  const IXMLDOMNodePtr child = appended(m_root, "Child");
  const std::uint64_t before = dom::revision(m_document);
  EXPECT_TRUE(appendPoint(m_root, "A"));
  EXPECT_EQ(dom::revision(m_document), before);
  EXPECT_TRUE(appendPoint(child, "A"));
  if (before != 0) {
    EXPECT_NE(dom::revision(m_document), before);
  }
}

}  // namespace
}  // namespace quorvan::test
