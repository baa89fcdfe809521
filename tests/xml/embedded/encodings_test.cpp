// Loading in every encoding and saving in the declared one.
#include <gtest/gtest.h>

#include <string>

#include <tests/xml/embedded/embedded_dom.h>

namespace quorvan::test {
namespace {

std::string declaration(const std::string& encoding) {
  return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>\r\n";
}

// Latin text as UTF-16.
std::string utf16(const std::string& latin1, bool isLittle, bool hasMark = true) {
  std::string bytes = hasMark ? (isLittle ? "\xFF\xFE" : "\xFE\xFF") : "";
  for (const char unit : latin1) {
    bytes += isLittle ? unit : '\0';
    bytes += isLittle ? '\0' : unit;
  }
  return bytes;
}

using Encodings = EmbeddedDom;

TEST_F(Encodings, ADocumentWithoutDeclarationIsSavedInUtf8WithoutOne) {
  EXPECT_EQ(resaved("<a b=\"\xC3\xA9\xE2\x82\xAC\"/>"), "<a b=\"\xC3\xA9\xE2\x82\xAC\"/>\r\n");
}

TEST_F(Encodings, TheMarkOfUtf8IsDropped) {
  EXPECT_EQ(resaved("\xEF\xBB\xBF<a b=\"\xC3\xA9\"/>"), "<a b=\"\xC3\xA9\"/>\r\n");
}

TEST_F(Encodings, Utf8StaysUtf8) {
  const std::string file = declaration("UTF-8") + "<a b=\"\xC3\xA9\xE2\x82\xAC\"/>\r\n";
  EXPECT_EQ(resaved(file), file);
  const std::string names = declaration("UTF-8") + "<\xC3\xA9 \xE2\x84\xA6=\"\"/>\r\n";
  EXPECT_EQ(resaved(names), names);
}

TEST_F(Encodings, TheNameOfTheEncodingIsWrittenAsItWas) {
  EXPECT_EQ(resaved("<?xml version='1.0' encoding='Utf-8' standalone='yes'?><a/>"),
            "<?xml version=\"1.0\" encoding=\"Utf-8\" standalone=\"yes\"?>\r\n<a/>\r\n");
  EXPECT_EQ(resaved("<?xml version='1.0' standalone='no'?><a/>"),
            "<?xml version=\"1.0\" standalone=\"no\"?>\r\n<a/>\r\n");
}

TEST_F(Encodings, Latin1StaysLatin1) {
  const std::string file = declaration("ISO-8859-1") + "<a b=\"\xE9\x80\x9F\xFF&#8364;\"/>\r\n";
  EXPECT_EQ(resaved(file), file);
  const std::string misspelt = declaration("iso8859-1") + "<a b=\"\xE9\x80\x9F\xFF&#8364;\"/>\r\n";
  EXPECT_EQ(resaved(misspelt), misspelt);
}

TEST_F(Encodings, Windows1252StaysWindows1252) {
  std::string all;
  for (int byte = 0x80; byte < 0x100; ++byte) {
    all += static_cast<char>(byte);
  }
  const std::string file = declaration("windows-1252") + "<a b=\"" + all + "&#256;\"/>\r\n";
  EXPECT_EQ(resaved(file), file);
  IXMLDOMNodePtr root = dom::nextSibling(dom::firstChild(m_document));
  EXPECT_EQ(attributeOf(root, "b").substr(0, 8), "\xE2\x82\xAC\xC2\x81\xE2\x80\x9A");
}

TEST_F(Encodings, AsciiStaysAscii) {
  const std::string file = declaration("US-ASCII") + "<a b=\"&#233;&#8364;&#128512;\"/>\r\n";
  EXPECT_EQ(resaved(file), file);
  EXPECT_EQ(resaved(declaration("US-ASCII") + "<a b=\"\xE9\"/>"), "(refused)");
}

TEST_F(Encodings, Utf16IsSavedWithItsMark) {
  const std::string little = declaration("UTF-16") + "<a b=\"\xE9\"/>\r\n";
  EXPECT_EQ(resaved(utf16(little, true)), utf16(little, true));
  EXPECT_EQ(resaved(utf16(little, false)), utf16(little, true));
  const std::string big = declaration("UTF-16BE") + "<a b=\"\xE9\"/>\r\n";
  EXPECT_EQ(resaved(utf16(big, false)), utf16(big, false));
}

TEST_F(Encodings, Utf16WithoutAnEncodingNameIsSavedAsUtf8) {
  EXPECT_EQ(resaved(utf16("<a b=\"\xE9\"/>", true)), "<a b=\"\xC3\xA9\"/>\r\n");
  EXPECT_EQ(resaved(utf16("<?xml version='1.0'?><a b=\"\xE9\"/>", false)),
            "<?xml version=\"1.0\"?>\r\n<a b=\"\xC3\xA9\"/>\r\n");
}

TEST_F(Encodings, LongUtf16DocumentsAreSavedWhole) {
  std::string characters;
  for (int i = 0; i < 60000; ++i) {
    characters += i % 3 == 0 ? "&#128512;" : i % 3 == 1 ? "&#8364;" : "x";
  }
  const std::string start = "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a b=\"";
  ASSERT_TRUE(loads(utf16(start + characters + "\"/>", true)));
  const std::string before = outline(m_document);
  const std::string bytes = saved();
  EXPECT_EQ(bytes.size(), 2 + 2 * (declaration("UTF-16").size() + 6 + 80000 + 3 + 2));
  ASSERT_TRUE(loads(bytes));
  EXPECT_EQ(outline(m_document), before);
}

// Characters of every length at the end of what is written at once.
TEST_F(Encodings, CharactersOfUtf16AreNotCutByTheEndOfABlock) {
  const std::string start = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<a b=\"";
  const struct {
    const char* reference;
    std::string units;
  } characters[] = {{"&#233;", std::string("\xE9\0", 2)},
                    {"&#8364;", "\xAC\x20"},
                    {"&#128512;", std::string("\x3D\xD8\x00\xDE", 4)}};
  for (const auto& [reference, units] : characters) {
    for (std::size_t shift = 0; shift < 5; ++shift) {
      std::string file = start + std::string(shift, 'x');
      std::string expected = utf16(file, true);
      for (int i = 0; i < 35000; ++i) {
        file += reference;
        expected += units;
      }
      expected += utf16("\"/>\r\n", true, false);
      ASSERT_TRUE(loads(utf16(file + "\"/>", true)));
      ASSERT_TRUE(saved() == expected) << reference << ", " << shift;
    }
  }
}

TEST_F(Encodings, LoneSurrogatesInUtf16AreRefused) {
  const auto value = [](const std::string& units) {
    return utf16("<a b=\"", true) + units + utf16("\"/>", true, false);
  };
  EXPECT_NE(resaved(value(std::string("\x3D\xD8\x00\xDE", 4))), "(refused)");
  EXPECT_EQ(resaved(value(std::string("\x3D\xD8\x41\x00", 4))), "(refused)");
  EXPECT_EQ(resaved(value(std::string("\x3D\xD8\x3D\xD8", 4))), "(refused)");
  EXPECT_EQ(resaved(value(std::string("\x00\xDE", 2))), "(refused)");
  EXPECT_EQ(resaved(value(std::string("\xFE\xFF", 2))), "(refused)");
  EXPECT_EQ(resaved(utf16("<a b=\"\xE9\"/>", false, false)), "<a b=\"\xC3\xA9\"/>\r\n");
  EXPECT_EQ(resaved(utf16("<a b=\"", false, false) + "\xD8\x3D" + utf16("A\"/>", false, false)),
            "(refused)");
  EXPECT_EQ(resaved(utf16("<a/>", true) + std::string("\x3D", 1)), "(refused)");
  EXPECT_EQ(resaved(utf16("<a/>", true) + std::string("\x3D\xD8", 2)), "(refused)");
}

TEST_F(Encodings, BytesThatContradictTheDeclarationAreRefused) {
  EXPECT_EQ(resaved(utf16(declaration("ISO-8859-1") + "<a/>", true)), "(refused)");
  EXPECT_EQ(resaved(utf16(declaration("UTF-8") + "<a/>", true)), "(refused)");
  EXPECT_EQ(resaved(utf16(declaration("windows-1252") + "<a/>", true)), "(refused)");
  EXPECT_EQ(resaved(declaration("UTF-16") + "<a/>"), "(refused)");
}

TEST_F(Encodings, InvalidUtf8IsRefused) {
  for (const char* bytes :
       {"\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80",
        "\xF8\x88\x80\x80\x80", "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\x80", "\xFF"}) {
    const std::string attribute = std::string("<a b=\"") + bytes + "\"/>";
    EXPECT_EQ(resaved(attribute), "(refused)");
    EXPECT_EQ(resaved("<a>" + std::string(bytes) + "</a>"), "(refused)");
    EXPECT_EQ(resaved("<!--" + std::string(bytes) + "--><a/>"), "(refused)");
  }
  EXPECT_NE(resaved("<a b=\"\xEF\xBF\xBD\xF4\x8F\xBF\xBF\xEE\x80\x80\"/>"), "(refused)");
}

TEST_F(Encodings, UnknownEncodingsAreRefused) {
  for (const char* name : {"ISO-8859-2", "windows-936", "Shift_JIS", "EBCDIC", "UTF-7", "utf8"}) {
    EXPECT_EQ(resaved(declaration(name) + "<a/>"), "(refused)") << name;
  }
}

TEST_F(Encodings, ADocumentWithAnUnknownEncodingIsNotSaved) {
  IXMLDOMDocumentPtr document;
  ASSERT_EQ(dom::createDocument(document), S_OK);
  dom::append(document, dom::createProcessingInstruction(document, "xml",
                                                         "version='1.0' encoding='Shift_JIS'"));
  dom::append(document, dom::createElement(document, "a"));
  EXPECT_EQ(raisedBy([&] { dom::save(document, wide(file("out.xml"))); }), E_FAIL);
  EXPECT_FALSE(std::filesystem::exists(file("out.xml")));
}

TEST_F(Encodings, ANameThatTheEncodingLacksIsNotSaved) {
  appended(m_root, "\xE9\x89\x84");
  writeFile("output.xml", "old");
  EXPECT_EQ(raisedBy([&] { static_cast<void>(saved()); }), static_cast<HRESULT>(0xC00CE029U));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file("")), {}), 1);
  m_document = newDocument();
  appended(dom::nextSibling(dom::firstChild(m_document)), "b\xC3\xA9ton");
  EXPECT_EQ(saved(), declaration("ISO-8859-1") + "<Document><b\xE9ton/></Document>\r\n");
}

TEST_F(Encodings, WhatCannotBeReferredToBecomesAQuestionMark) {
  ASSERT_TRUE(
      loads("<a><!--\xE2\x82\xAC \xC3\xA9--><?p \xE2\x82\xAC?>"
            "<![CDATA[1\xE2\x82\xAC"
            "2]]>\xE2\x82\xAC</a>"));
  const IXMLDOMNodePtr a = dom::firstChild(m_document);
  m_document = newDocument();
  dom::append(dom::nextSibling(dom::firstChild(m_document)), a);
  EXPECT_EQ(saved(), declaration("ISO-8859-1") +
                         "<Document><a><!--? \xE9--><?p ?\?>"
                         "<![CDATA[1]]>&#8364;<![CDATA[2]]>&#8364;</a></Document>\r\n");
}

TEST_F(Encodings, TheDeclarationTakesNothingThatAFileCouldNotBeginWith) {
  const IXMLDOMNodePtr declared = dom::firstChild(m_document);
  EXPECT_TRUE(dom::addAttribute(m_document, declared, "standalone", L"yes"));
  EXPECT_TRUE(dom::addAttribute(m_document, declared, "encoding", L"UTF-8"));
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(m_document, declared, "encoding", L"a b"); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(m_document, declared, "version", L"1.1"); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::addAttribute(m_document, declared, "other", L"1"); }), E_FAIL);
  EXPECT_EQ(saved(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
            "<Document/>\r\n");
}

TEST_F(Encodings, DeclarationsThatNoFileCanBeginWithAreNotCreated) {
  for (const char* data : {"", "version='1.1'", "encoding='UTF-8'", "version='1.0' x='1'",
                           "version='1.0'encoding='UTF-8'", "version='1.0' standalone='maybe'",
                           "version='1.0' standalone='yes' encoding='UTF-8'", "version=1.0",
                           "version='1.0' encoding='1'", "version='1.0\"", "version",
                           "version=", "version='1.0' encoding=''", "version='1.0' encoding='_a'",
                           "version='1.0' encoding='{a'", "version='1.0' encoding='a:b'",
                           "version='1.0' encoding='a{'"}) {
    EXPECT_EQ(raisedBy([&] { dom::createProcessingInstruction(m_document, "xml", data); }), E_FAIL)
        << data;
  }
  EXPECT_NE(dom::createProcessingInstruction(m_document, "xml", " version = \"1.0\" "), nullptr);
  EXPECT_NE(dom::createProcessingInstruction(m_document, "xml", "version='1.0' encoding='Z.z_0-9'"),
            nullptr);
}

TEST_F(Encodings, TheDeclarationStandsFirstOrNowhere) {
  const IXMLDOMNodePtr second =
      dom::createProcessingInstruction(m_document, "xml", "version='1.0'");
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, second); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(m_root, second); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, dom::firstChild(m_document)); }), E_FAIL);
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) Document");
}

}  // namespace
}  // namespace quorvan::test
