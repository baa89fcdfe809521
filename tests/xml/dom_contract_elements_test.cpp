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

  // A new element with numbers and one with a whole number.
  void appendNumbers(const IXMLDOMNodePtr& parent, const dom::Name& name = "N") const {
    const dom::Name names[] = {"X", "Y", "Z"};
    const double numbers[] = {1.5, -0.00000004, 1e22};
    EXPECT_TRUE(dom::appendElement(m_document, parent, name, names, numbers));
    EXPECT_TRUE(dom::appendElement(m_document, parent, name, "long", std::int32_t{-70000}));
  }
  static constexpr const char* kNumbers =
      "N(X=1.5000000 Y=-0.0000000 Z=10000000000000000000000.0000000) N(long=-70000)";
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

TEST_F(NewElement, TakesNumbersToSevenDecimalsAndWholeNumbersWhereverItGoes) {
  const IXMLDOMNodePtr alone = element("Alone");
  const IXMLDOMNodePtr elsewhere = dom::createElement(newDocument(), "Elsewhere");
  for (const IXMLDOMNodePtr& parent : {m_root, alone, elsewhere}) {
    appendNumbers(parent);
  }
  EXPECT_EQ(outline(m_root), std::string("Document[") + kNumbers + "]");
  EXPECT_EQ(outline(alone), std::string("Alone[") + kNumbers + "]");
  EXPECT_EQ(outline(elsewhere), std::string("Elsewhere[") + kNumbers + "]");
}

TEST_F(NewElement, WithNumbersRaisesAsAnyOther) {
  EXPECT_EQ(raisedBy([&] { appendNumbers(m_root, "1N"); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { appendNumbers(nullptr); }), E_POINTER);
  EXPECT_EQ(outline(m_root), "Document");
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
