// The contract of the XML document service: documents, elements, attributes and their values.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <tests/xml/dom_contract.h>

namespace quorvan::test {
namespace {

TEST_F(DomContract, ANewDocumentIsEmpty) {
  IXMLDOMDocumentPtr document;
  ASSERT_EQ(dom::createDocument(document), S_OK);
  EXPECT_TRUE(document != nullptr);
  EXPECT_TRUE(dom::firstChild(document) == nullptr);
}

TEST_F(DomContract, CreatingADocumentReleasesTheOneHeld) {
  IXMLDOMDocumentPtr document = m_document;
  ASSERT_EQ(dom::createDocument(document), S_OK);
  EXPECT_EQ(outline(document), "");
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) Document");
}

TEST_F(DomContract, CopiesOfADocumentHandleShareTheDocument) {
  const IXMLDOMDocumentPtr copy = m_document;
  appended(m_root, "Line");
  m_document = nullptr;
  EXPECT_EQ(outline(copy), "xml(version=1.0 encoding=ISO-8859-1) Document[Line]");
}

TEST_F(DomContract, ANullDocumentRaisesEPointer) {
  const IXMLDOMDocumentPtr none;
  const IXMLDOMNodePtr line = element("Line");
  EXPECT_EQ(raisedBy([&] { dom::load(none, L"x.xml"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::save(none, L"x.xml"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::createElement(none, "Line"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::createProcessingInstruction(none, "p", ""); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(none, line, "a", std::int16_t{1}); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(none, line, "a", std::int32_t{1}); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(none, line, "a", dom::AsciiText{"1"}); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(none, line, "a", L"1"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::append(none, line); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::firstChild(none); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::revision(none); }), E_POINTER);
  EXPECT_EQ(outline(line), "Line");
}

class IgnoredCounts final : public dom::ChildNameCounts {
 public:
  void count(const dom::Name& /*name*/, int /*children*/) override {}
};

TEST_F(DomContract, ANullNodeRaisesEPointer) {
  const IXMLDOMNodePtr none;
  dom::AttributeValue value;
  IgnoredCounts counts;
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(m_document, none, "a", L"1"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, none); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::append(m_root, none); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::append(none, m_root); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::firstChild(none); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::nextSibling(none); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::firstChildNamed(none, "a"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::nextSiblingNamed(none, "a"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::nodeName(none); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::nodeNameIs(none, "a"); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::hasAttributes(none); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::attribute(none, "a", value); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::countChildNames(none, counts); }), E_POINTER);
  EXPECT_EQ(raisedBy([&] { dom::AttributeCursor cursor(none); }), E_POINTER);
}

TEST_F(DomContract, TheNameOfANullNodeIsEmptyForTheUserOfTheLibrary) {
  EXPECT_TRUE(quorvan::nodeName(nullptr) == L"");
  EXPECT_TRUE(quorvan::nodeName(m_root) == L"Document");
  EXPECT_TRUE(quorvan::nodeName(dom::firstChild(m_document)) == L"xml");
}

TEST_F(DomContract, AnElementHasItsNameAnEmptyMapAndNoPlace) {
  const IXMLDOMNodePtr line = element("CKtZantoLine");
  EXPECT_EQ(dom::nodeName(line).view().text(), "CKtZantoLine");
  EXPECT_TRUE(dom::hasAttributes(line));
  EXPECT_FALSE(dom::AttributeCursor(line).next());
  EXPECT_TRUE(dom::firstChild(line) == nullptr);
  EXPECT_TRUE(dom::nextSibling(line) == nullptr);
  EXPECT_EQ(outline(m_root), "Document");
}

TEST_F(DomContract, NamesOfLettersDigitsAndMarksAreAccepted) {
  for (const char* name : {"a", "_a", "a-b.c", "A1", "xmlThing", "\xC3\xA9l\xC3\xA9ment",
                           "\xE9\x89\x84\xE7\xAD\x8B", "a\xC2\xB7"}) {
    EXPECT_EQ(dom::nodeName(element(name)).view().text(), name);
    EXPECT_TRUE(dom::addAttribute(m_document, m_root, dom::Name(std::string_view(name)), L"1"));
    EXPECT_EQ(attributeOf(m_root, name), "1");
  }
}

TEST_F(DomContract, NamesThatXmlCannotCarryRaiseEFail) {
  const std::vector<std::string> names = {"",
                                          " ",
                                          "a b",
                                          "1a",
                                          "-a",
                                          ".a",
                                          "a<",
                                          "a&b",
                                          "a/b",
                                          "a\"",
                                          "a'b",
                                          "a=b",
                                          "a\t",
                                          "a\x01",
                                          "#text",
                                          "a:b",
                                          ":a",
                                          "a:",
                                          "a::b",
                                          "a:b:c",
                                          "\xC2\xB7",
                                          "a\xC3\x97",
                                          "a\xE2\x82\xAC",
                                          "a\xF0\x9F\x98\x80",
                                          "a\xFF"};
  for (const std::string& name : names) {
    EXPECT_EQ(raisedBy([&] { dom::createElement(m_document, dom::Name(name)); }), E_FAIL) << name;
    EXPECT_EQ(raisedBy([&] { dom::addAttribute(m_document, m_root, dom::Name(name), L"1"); }),
              E_FAIL)
        << name;
  }
  EXPECT_EQ(outline(m_root), "Document");
}

TEST_F(DomContract, NamesAreTakenOver) {
  std::string text = "Origin";
  const IXMLDOMNodePtr origin = element(text.c_str());
  text = "Reused";
  EXPECT_EQ(dom::nodeName(origin).view().text(), "Origin");
}

TEST_F(DomContract, ANameIsComparedExactly) {
  const IXMLDOMNodePtr line = element("Line");
  EXPECT_TRUE(dom::nodeNameIs(line, "Line"));
  EXPECT_FALSE(dom::nodeNameIs(line, "line"));
  EXPECT_FALSE(dom::nodeNameIs(line, "Lin"));
  EXPECT_FALSE(dom::nodeNameIs(line, "Line2"));
  EXPECT_TRUE(dom::nodeNameIs(element("b\xC3\xA9ton"), "b\xC3\xA9ton"));
}

TEST_F(DomContract, AttributesKeepTheirOrder) {
  const IXMLDOMNodePtr line = element("Line");
  for (const char* name : {"version", "index", "Z", "Y", "X"}) {
    dom::addAttribute(m_document, line, dom::Name(std::string_view(name)), L"1");
  }
  EXPECT_EQ(outline(line), "Line(version=1 index=1 Z=1 Y=1 X=1)");
}

TEST_F(DomContract, AnAttributeReplacesTheOneOfItsName) {
  const IXMLDOMNodePtr line = element("Line");
  for (const wchar_t* value : {L"short", L"a longer value than before", L"", L"1"}) {
    dom::addAttribute(m_document, line, "a", value);
    EXPECT_EQ(attributeOf(line, "a"), textOf([&] {
                dom::AttributeValue found;
                dom::attribute(line, "a", found);
                return found;
              }()));
  }
  EXPECT_EQ(outline(line), "Line(a=1)");
}

TEST_F(DomContract, AttributesCanBeAddedToAnElementInTheTree) {
  const IXMLDOMNodePtr first = appended(m_root, "First");
  dom::addAttribute(m_document, first, "a", L"1");
  appended(m_root, "Second");
  dom::addAttribute(m_document, first, "b", L"2");
  appended(first, "Inner");
  dom::addAttribute(m_document, first, "c", L"3");
  dom::addAttribute(m_document, first, "a", L"4 is longer than it was");
  EXPECT_EQ(attributeOf(first, "a"), "4 is longer than it was");
  EXPECT_EQ(attributeOf(first, "b"), "2");
  EXPECT_EQ(attributeOf(first, "c"), "3");
}

TEST_F(DomContract, AMissingAttributeLeavesTheValueAlone) {
  dom::addAttribute(m_document, m_root, "a", L"1");
  dom::AttributeValue value;
  ASSERT_TRUE(dom::attribute(m_root, "a", value));
  EXPECT_FALSE(dom::attribute(m_root, "b", value));
  EXPECT_FALSE(dom::attribute(m_root, "A", value));
  EXPECT_EQ(textOf(value), "1");
}

TEST_F(DomContract, NumbersAreDecimalText) {
  dom::addAttribute(m_document, m_root, "a", std::int16_t{-32768});
  dom::addAttribute(m_document, m_root, "b", std::int16_t{-25536});
  dom::addAttribute(m_document, m_root, "c", std::numeric_limits<std::int32_t>::min());
  dom::addAttribute(m_document, m_root, "d", std::numeric_limits<std::int32_t>::max());
  dom::addAttribute(m_document, m_root, "e", dom::AsciiText{"12.5000000"});
  EXPECT_EQ(outline(m_root), "Document(a=-32768 b=-25536 c=-2147483648 d=2147483647 e=12.5000000)");
}

TEST_F(DomContract, AValueReadsAsNumberAndText) {
  dom::addAttribute(m_document, m_root, "a", dom::AsciiText{"-0.2500000"});
  dom::addAttribute(m_document, m_root, "b", L" +17 m");
  dom::AttributeValue value;
  ASSERT_TRUE(dom::attribute(m_root, "a", value));
  EXPECT_EQ(value.toDouble(), -0.25);
  EXPECT_EQ(value.toLong(), 0);
  EXPECT_TRUE(value.toText() == L"-0.2500000");
  ASSERT_TRUE(dom::attribute(m_root, "b", value));
  EXPECT_EQ(value.toDouble(), 17);
  EXPECT_EQ(value.toLong(), 17);
  EXPECT_TRUE(value.toText() == L" +17 m");
}

TEST_F(DomContract, ValuesCompareExactly) {
  dom::addAttribute(m_document, m_root, "a", L"True");
  dom::addAttribute(m_document, m_root, "b", dom::AsciiText{"True"});
  dom::addAttribute(m_document, m_root, "c", L"true");
  dom::addAttribute(m_document, m_root, "d", L"True ");
  dom::AttributeValue a;
  dom::AttributeValue other;
  dom::attribute(m_root, "a", a);
  dom::attribute(m_root, "b", other);
  EXPECT_TRUE(a == other);
  dom::attribute(m_root, "c", other);
  EXPECT_FALSE(a == other);
  dom::attribute(m_root, "d", other);
  EXPECT_FALSE(a == other);
}

TEST_F(DomContract, TextIsKeptExactly) {
  const std::vector<std::wstring> texts = {
      L"",
      L" ",
      L"  two  ",
      L"<a b=\"c\">&amp;'</a>",
      L"tab\tline\nreturn\r.",
      L"b\u00e9ton \u00f8 12 \u00b0 \u20ac \u0152 \u4e2d",
      L"\x7f\u0080\u009f\ufffd\ue000",
      std::wstring(100000, L'x') + L'\u00e9',
  };
  for (const std::wstring& text : texts) {
    ASSERT_TRUE(dom::addAttribute(m_document, m_root, "a", text));
    dom::AttributeValue value;
    ASSERT_TRUE(dom::attribute(m_root, "a", value));
    EXPECT_TRUE(value.toText().view() == text);
  }
}

TEST_F(DomContract, ASurrogatePairIsOneCharacter) {
  dom::addAttribute(m_document, m_root, "a", std::wstring{L'\xD83D', L'\xDE00'});
  EXPECT_EQ(attributeOf(m_root, "a"), "\xF0\x9F\x98\x80");
}

TEST_F(DomContract, WhatXmlCannotCarryBecomesTheReplacementCharacter) {
  std::wstring text = L"a";
  for (wchar_t unit = 0; unit < 0x20; ++unit) {
    if (unit != L'\t' && unit != L'\n' && unit != L'\r') {
      text += unit;
    }
  }
  for (const wchar_t unit : {L'\xDC00', L'\xFFFE', L'\xDFFF', L'\xFFFF', L'\xD800'}) {
    text += unit;
  }
  text += L'z';
  dom::addAttribute(m_document, m_root, "a", text);
  std::string expected = "a";
  for (std::size_t i = 2; i < text.size(); ++i) {
    expected += "\xEF\xBF\xBD";
  }
  EXPECT_EQ(attributeOf(m_root, "a"), expected + "z");
}

TEST_F(DomContract, ASavedFileWithReplacedCharactersCanBeOpened) {
  dom::addAttribute(m_document, m_root, "a", std::wstring(L"a\x0001\xFFFE\xD800z", 5));
  const std::string bytes = saved();
  EXPECT_TRUE(loads(bytes));
  EXPECT_EQ(attributeOf(dom::nextSibling(dom::firstChild(m_document)), "a"),
            "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDz");
}

TEST_F(DomContract, TheDeclarationHasItsParts) {
  const IXMLDOMNodePtr declaration = dom::firstChild(m_document);
  EXPECT_TRUE(dom::hasAttributes(declaration));
  EXPECT_EQ(attributeOf(declaration, "version"), "1.0");
  EXPECT_EQ(attributeOf(declaration, "encoding"), "ISO-8859-1");
  EXPECT_EQ(attributeOf(declaration, "standalone"), "(none)");
}

TEST_F(DomContract, AnInstructionHasItsTargetForANameAndNoMap) {
  const IXMLDOMNodePtr instruction =
      dom::createProcessingInstruction(m_document, "plot", "scale=\"50\"");
  EXPECT_TRUE(dom::nodeNameIs(instruction, "plot"));
  EXPECT_FALSE(dom::hasAttributes(instruction));
  EXPECT_FALSE(dom::AttributeCursor(instruction).next());
  EXPECT_EQ(attributeOf(instruction, "scale"), "(none)");
  EXPECT_FALSE(dom::addAttribute(m_document, instruction, "a", L"1"));
}

TEST_F(DomContract, AnInstructionWithoutAValidTargetRaisesEFail) {
  for (const char* target : {"", "1", "a b", "a?"}) {
    EXPECT_EQ(raisedBy([&] {
                dom::createProcessingInstruction(m_document, dom::Name(std::string_view(target)),
                                                 "");
              }),
              E_FAIL)
        << target;
  }
}

}  // namespace
}  // namespace quorvan::test
