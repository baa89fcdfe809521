// Attributes where the tree has to move or keep them apart: added late, long, many, replaced.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include <tests/platform/embedded/embedded_dom.h>

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
