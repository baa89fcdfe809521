// Attributes where the tree has to move or keep them apart: added late, long, many, replaced.
#include <gtest/gtest.h>

#include <map>
#include <span>
#include <string>
#include <vector>

#include <tests/xml/embedded/embedded_dom.h>

namespace quorvan::test {
namespace {

class AttributeStorage : public EmbeddedDom {
 protected:
  void put(const IXMLDOMNodePtr& node, const std::string& name, const std::string& value) {
    ASSERT_TRUE(dom::addAttribute(m_document, node, dom::Name(name), dom::AsciiText{value}));
  }
};

TEST_F(AttributeStorage, ElementsCanGetAttributesInTurns) {
  const IXMLDOMNodePtr a = element("A");
  const IXMLDOMNodePtr b = element("B");
  std::string expected;
  for (int i = 0; i < 2000; ++i) {
    const std::string name = "n" + std::to_string(i);
    put(a, name, std::to_string(i));
    put(b, name, std::to_string(i));
    expected.append(i == 0 ? "" : " ").append(name).append("=").append(std::to_string(i));
  }
  EXPECT_EQ(outline(a), "A(" + expected + ")");
  EXPECT_EQ(outline(b), "B(" + expected + ")");
}

TEST_F(AttributeStorage, ValuesOfEveryLengthAreKept) {
  std::string expected;
  for (const std::size_t length :
       {0U, 1U, 3U, 4U, 5U, 15U, 16U, 17U, 65533U, 65534U, 65535U, 65536U, 1000000U, 7U}) {
    const std::string value(length, 'v');
    put(m_root, "n" + std::to_string(length), value);
    expected.append(" n").append(std::to_string(length)).append("=\"").append(value).append("\"");
  }
  EXPECT_EQ(saved(),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document" + expected + "/>\r\n");
  ASSERT_TRUE(loads(saved()));
  EXPECT_EQ(saved(),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document" + expected + "/>\r\n");
}

TEST_F(AttributeStorage, ElementsMadeInOneStepKeepValuesOfEveryLength) {
  std::string expected;
  for (const std::size_t length : {0U,  1U,  2U,  3U,  4U,  5U,    7U,    8U,     9U,     15U,
                                   16U, 17U, 31U, 32U, 33U, 4095U, 4096U, 65534U, 65535U, 65536U}) {
    std::string value;
    for (std::size_t i = 0; i < length; ++i) {
      value.push_back(static_cast<char>('a' + i % 23));
    }
    const dom::NewAttribute attributes[] = {{"a", {value}}, {"b", {"1"}}, {"c", {value}}};
    ASSERT_TRUE(dom::appendElement(m_document, m_root, "E", attributes));
    expected += "<E a=\"" + value + "\" b=\"1\" c=\"" + value + "\"/>";
  }
  EXPECT_EQ(saved(), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document>" + expected +
                         "</Document>\r\n");
}

TEST_F(AttributeStorage, ElementsMadeInOneStepTakeManyAttributesAndMoreLater) {
  const dom::NewAttribute attributes[] = {{"a", {"1"}}, {"b", {"2"}}, {"c", {"3"}},
                                          {"d", {"4"}}, {"e", {"5"}}, {"f", {"6"}}};
  ASSERT_TRUE(dom::appendElement(m_document, m_root, "Six", attributes));
  ASSERT_TRUE(dom::appendElement(m_document, m_root, "Two", std::span(attributes).first(2)));
  const IXMLDOMNodePtr two = dom::firstChildNamed(m_root, "Two");
  put(two, "b", "again");
  put(two, "g", "7");
  ASSERT_TRUE(dom::appendElement(m_document, two, "None", {}));
  EXPECT_EQ(outline(m_root), "Document[Six(a=1 b=2 c=3 d=4 e=5 f=6) Two(a=1 b=again g=7)[None]]");
}

TEST_F(AttributeStorage, ElementsMadeInOneStepTakeNamesWithHighNumbers) {
  std::string expected = "Document[";
  for (int i = 0; i < 17000; ++i) {
    const std::string text = "n" + std::to_string(i);
    const dom::Name names[] = {dom::Name(text), dom::Name("X")};
    const double numbers[] = {i / 4.0, 7.0};
    ASSERT_TRUE(dom::appendElement(m_document, m_root, dom::Name(text), names, numbers));
    expected += text + "(" + text + "=" + std::to_string(i / 4) + "." +
                std::to_string(i % 4 * 25 + 100).substr(1) + "00000 X=7.0000000) ";
  }
  expected.back() = ']';
  EXPECT_EQ(outline(m_root), expected);
}

TEST_F(AttributeStorage, WideTextsOfEveryLengthAreKept) {
  for (std::size_t length = 0; length < 140; ++length) {
    const std::wstring plain(length, L'p');
    for (const std::wstring& text :
         {plain, plain + L"<", plain + L"\u00e9", plain + L"\u20ac\u20ac", L"\u20ac" + plain,
          std::wstring(length, L'\u20ac')}) {
      ASSERT_TRUE(dom::appendElement(m_document, m_root, "T", "string", text));
      const IXMLDOMNodePtr made = dom::firstChildNamed(m_root, "T");
      dom::AttributeValue value;
      ASSERT_TRUE(dom::attribute(made, "string", value));
      ASSERT_EQ(value.toText().view(), text);
      dom::append(IXMLDOMNodePtr(element("Elsewhere")), made);
    }
  }
}

TEST_F(AttributeStorage, ElementsCrossTheEndsOfTheMemoryBlocks) {
  std::string expected = "Document[";
  for (int i = 0; i < 3000; ++i) {
    const IXMLDOMNodePtr child = appended(m_root, "E");
    const std::string value(static_cast<std::size_t>(i), 'x');
    put(child, "a", value);
    put(child, "b", "1");
    expected.append(i == 0 ? "" : " ").append("E(a=").append(value).append(" b=1)");
  }
  EXPECT_EQ(outline(m_root), expected + "]");
}

TEST_F(AttributeStorage, ReplacedValuesKeepTheirPlaceWhateverTheirLength) {
  for (const std::size_t first : {0U, 3U, 100U, 70000U}) {
    for (const std::size_t second : {0U, 4U, 101U, 70000U, 70001U}) {
      const IXMLDOMNodePtr node = element("E");
      put(node, "a", "1");
      put(node, "b", std::string(first, 'x'));
      put(node, "c", "3");
      put(node, "b", std::string(second, 'y'));
      put(node, "d", "4");
      EXPECT_EQ(outline(node), "E(a=1 b=" + std::string(second, 'y') + " c=3 d=4)");
      put(node, "d", "longer than before");
      put(node, "c", "");
      EXPECT_EQ(outline(node), "E(a=1 b=" + std::string(second, 'y') + " c= d=longer than before)");
    }
  }
}

TEST_F(AttributeStorage, ManyDifferentNamesAreKeptApart) {
  for (int i = 0; i < 40000; ++i) {
    const IXMLDOMNodePtr child = appended(m_root, "E");
    put(child, "n" + std::to_string(i), std::to_string(i));
    put(child, "m" + std::to_string(i), "");
  }
  IXMLDOMNodePtr child = dom::firstChild(m_root);
  for (int i = 0; i < 40000; ++i) {
    ASSERT_EQ(outline(child), "E(n" + std::to_string(i) + "=" + std::to_string(i) + " m" +
                                  std::to_string(i) + "=)");
    ASSERT_EQ(attributeOf(child, "n" + std::to_string(i)), std::to_string(i));
    child = dom::nextSibling(child);
  }
}

TEST_F(AttributeStorage, LongNamesAreKept) {
  const std::string name(100000, 'n');
  const IXMLDOMNodePtr child = appended(m_root, name.c_str());
  put(child, name, "1");
  EXPECT_EQ(outline(m_root), "Document[" + name + "(" + name + "=1)]");
  ASSERT_TRUE(loads(saved()));
  EXPECT_EQ(outline(dom::nextSibling(dom::firstChild(m_document))),
            "Document[" + name + "(" + name + "=1)]");
}

TEST_F(AttributeStorage, LongTextIsKept) {
  const std::string text(200000, 't');
  const std::string file =
      "<a>" + text + "<!--" + text + "--><![CDATA[" + text + "]]><?p " + text + "?></a>\r\n";
  EXPECT_EQ(resaved(file), file);
}

TEST_F(AttributeStorage, WhatIsStoredApartMovesAlong) {
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  const IXMLDOMNodePtr text = appended(m_root, "Text");
  put(line, "late", "1");
  put(line, "long", std::string(70000, 'x'));
  put(text, "late", "2");
  const std::string before = outline(m_root);
  const IXMLDOMDocumentPtr other = newDocument();
  const IXMLDOMNodePtr otherRoot = dom::nextSibling(dom::firstChild(other));
  dom::append(otherRoot, line);
  dom::append(otherRoot, text);
  EXPECT_EQ(outline(otherRoot), before);
  put(line, "more", "3");
  dom::append(m_root, line);
  dom::append(m_root, text);
  EXPECT_EQ(attributeOf(line, "long"), std::string(70000, 'x'));
  EXPECT_EQ(attributeOf(line, "more"), "3");
  EXPECT_EQ(attributeOf(text, "late"), "2");
}

}  // namespace
}  // namespace quorvan::test
