// The contract of the XML document service: saving and loading.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/xml/dom_contract.h>

namespace quorvan::test {
namespace {

const std::string kDeclaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n";

TEST_F(DomContract, ANewDocumentIsSavedAsTwoLines) {
  EXPECT_EQ(saved(), kDeclaration + "<Document/>\r\n");
}

TEST_F(DomContract, ElementsAreSavedWithoutWhiteSpaceBetweenThem) {
  const IXMLDOMNodePtr line = appended(m_root, "CKtZantoLine");
  dom::addAttribute(m_document, line, "version", std::int16_t{1});
  dom::addAttribute(m_document, line, "index", std::int16_t{-7});
  const IXMLDOMNodePtr origin = appended(line, "Origin");
  dom::addAttribute(m_document, origin, "X", dom::AsciiText{"12.5000000"});
  dom::addAttribute(m_document, origin, "Y", dom::AsciiText{"-0.0000000"});
  dom::addAttribute(m_document, appended(line, "Color"), "long", std::int32_t{-2147483647});
  dom::addAttribute(m_document, appended(line, "Layer"), "string", L"");
  appended(m_root, "Empty");
  EXPECT_EQ(saved(), kDeclaration +
                         "<Document><CKtZantoLine version=\"1\" index=\"-7\">"
                         "<Origin X=\"12.5000000\" Y=\"-0.0000000\"/><Color long=\"-2147483647\"/>"
                         "<Layer string=\"\"/></CKtZantoLine><Empty/></Document>\r\n");
}

TEST_F(DomContract, MarkupInAValueIsEscaped) {
  dom::addAttribute(m_document, m_root, "a", L"<&>\"' &lt; \t\n\r");
  EXPECT_EQ(saved(),
            kDeclaration + "<Document a=\"&lt;&amp;&gt;&quot;' &amp;lt; &#9;&#10;&#13;\"/>\r\n");
}

TEST_F(DomContract, Latin1CharactersAreSavedAsBytesAndOthersAsReferences) {
  dom::addAttribute(m_document, m_root, "a", L"\u00a0\u00e9\u00ff \u0100 \u20ac\u0152 \u4e2d");
  dom::addAttribute(m_document, m_root, "b", std::wstring{L'\xD83D', L'\xDE00'});
  EXPECT_EQ(saved(), kDeclaration +
                         "<Document a=\"\xA0\xE9\xFF &#256; &#8364;&#338; &#20013;\" "
                         "b=\"&#128512;\"/>\r\n");
}

TEST_F(DomContract, InstructionsAreSavedOnTheirOwnLinesOutsideTheRoot) {
  dom::append(m_document, dom::createProcessingInstruction(m_document, "p", "d=\"1\""));
  dom::append(m_root, dom::createProcessingInstruction(m_document, "q", "e"));
  EXPECT_EQ(saved(), kDeclaration + "<Document><?q e?></Document>\r\n<?p d=\"1\"?>\r\n");
}

TEST_F(DomContract, AnInstructionWithoutDataIsSavedWithoutABlank) {
  dom::append(m_root, dom::createProcessingInstruction(m_document, "q", ""));
  EXPECT_EQ(saved(), kDeclaration + "<Document><?q?></Document>\r\n");
}

TEST_F(DomContract, ASavedDocumentLoadsAsItWas) {
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  dom::addAttribute(m_document, line, "a", L"<&>\"' \t\n\r b\u00e9ton \u20ac \u4e2d ");
  appended(line, "Color");
  const std::string before = outline(m_root);
  const std::string bytes = saved();
  ASSERT_TRUE(loads(bytes));
  EXPECT_EQ(outline(dom::nextSibling(dom::firstChild(m_document))), before);
  EXPECT_EQ(saved(), bytes);
}

TEST_F(DomContract, AMissingFileIsNotLoaded) {
  EXPECT_FALSE(dom::load(m_document, wide(file("missing.xml"))));
  EXPECT_FALSE(dom::load(m_document, wide(file("missing") / "missing.xml")));
  EXPECT_FALSE(dom::load(m_document, wide(file(""))));
  EXPECT_FALSE(dom::load(m_document, CString()));
  EXPECT_TRUE(dom::firstChild(m_document) == nullptr);
}

TEST_F(DomContract, AFailedLoadLeavesADocumentThatCanBeFilled) {
  EXPECT_FALSE(loads("<a>"));
  EXPECT_EQ(outline(m_document), "");
  dom::append(m_document, dom::createElement(m_document, "New"));
  EXPECT_EQ(saved(), "<New/>\r\n");
  EXPECT_TRUE(loads("<b/>"));
  EXPECT_EQ(outline(m_document), "b");
}

TEST_F(DomContract, WhatIsNoWellFormedDocumentIsNotLoaded) {
  const std::vector<std::string> inputs = {
      "",
      " \r\n",
      "text",
      "<?xml version=\"1.0\"?>",
      "<!--c-->",
      "<a>",
      "<a></b>",
      "<a/><b/>",
      "<a/>text",
      "text<a/>",
      "<a b=c/>",
      "<a b=\"1\" b=\"2\"/>",
      "<a b=\"<\"/>",
      "<a b=\"&\"/>",
      "<a>&</a>",
      "<a>]]></a>",
      "<a>&undefined;</a>",
      "<a b=\"&undefined;\"/>",
      "<a>&#1;</a>",
      "<a>&#xFFFE;</a>",
      "<a>&#xD800;</a>",
      "<a>&#x110000;</a>",
      "<a b=\"&#0;\"/>",
      "<a>\x01</a>",
      "<a b=\"\x1F\"/>",
      " <?xml version=\"1.0\"?><a/>",
      "<!--c--><?xml version=\"1.0\"?><a/>",
      "<?XML version=\"1.0\"?><a/>",
      "<?xml encoding=\"UTF-8\"?><a/>",
      "<?xml version=\"2.0\"?><a/>",
      "<?xml version=\"1.0\" encoding=\"no-such-encoding\"?><a/>",
      "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a/>",
      "<a b=\"\xE9\"/>",
      "<a>\xC3</a>",
      "<!-- -- --><a/>",
      "<a><?xml version=\"1.0\"?></a>",
      "<1/>",
      "<a 1=\"\"/>",
      "<a b=\"1\"c=\"2\"/>",
      "< a/>",
      "<a",
      "<a b",
      "<a b=\"",
  };
  for (const std::string& input : inputs) {
    EXPECT_FALSE(loads(input)) << input;
    EXPECT_TRUE(dom::firstChild(m_document) == nullptr) << input;
  }
}

TEST_F(DomContract, UndeclaredPrefixesAreNotLoaded) {
  EXPECT_FALSE(loads("<p:a/>"));
  EXPECT_FALSE(loads("<a p:b=\"1\"/>"));
  EXPECT_FALSE(loads("<a><b xmlns:p=\"urn:x\"/><p:c/></a>"));
  EXPECT_TRUE(loads("<p:a xmlns:p=\"urn:x\" p:b=\"1\"/>"));
  EXPECT_TRUE(loads("<a xml:lang=\"fr\"/>"));
}

TEST_F(DomContract, BlanksAndLineEndsMayStandAroundTheRoot) {
  EXPECT_TRUE(loads("\r\n <a/>\r\n\n "));
  EXPECT_EQ(outline(m_document), "a");
}

TEST_F(DomContract, WhiteSpaceBetweenElementsMakesNoNodes) {
  ASSERT_TRUE(loads("<a>\r\n\t<b>\n</b>  <c/>\n</a>"));
  EXPECT_EQ(outline(m_document), "a[b c]");
}

TEST_F(DomContract, TextIsOneNode) {
  ASSERT_TRUE(loads("<a> x &amp; y&#32;z\r\n<b/>&lt;</a>"));
  EXPECT_EQ(outline(m_document), "a[#text b #text]");
}

TEST_F(DomContract, ReferencesInValuesAreResolved) {
  ASSERT_TRUE(loads("<a b='&lt;&gt;&amp;&quot;&apos;\"&#233;&#xE9;&#x20AC;&#128512;'/>"));
  EXPECT_EQ(attributeOf(dom::firstChild(m_document), "b"),
            "<>&\"'\"\xC3\xA9\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST_F(DomContract, FilesAreReadInTheirEncoding) {
  const std::vector<std::string> inputs = {
      "<a b=\"\xC3\xA9\"/>",
      "\xEF\xBB\xBF<a b=\"\xC3\xA9\"/>",
      "<?xml version='1.0' encoding='utf-8'?><a b=\"\xC3\xA9\"/>",
      "<?xml version='1.0' encoding='iso-8859-1'?><a b=\"\xE9\"/>",
      "<?xml version='1.0' encoding='windows-1252'?><a b=\"\xE9\"/>",
      "<?xml version='1.0' encoding='us-ascii'?><a b=\"&#233;\"/>",
      std::string("\xFF\xFE<\0a\0 \0b\0=\0'\0\xE9\0'\0/\0>\0", 22),
      std::string("\xFE\xFF\0<\0a\0 \0b\0=\0'\0\xE9\0'\0/\0>", 22),
  };
  for (const std::string& input : inputs) {
    ASSERT_TRUE(loads(input)) << input;
    IXMLDOMNodePtr root = dom::firstChild(m_document);
    if (dom::nodeNameIs(root, "xml")) {
      root = dom::nextSibling(root);
    }
    EXPECT_EQ(attributeOf(root, "b"), "\xC3\xA9") << input;
  }
}

TEST_F(DomContract, LoadingReplacesTheContent) {
  ASSERT_TRUE(loads("<a><b/></a>"));
  ASSERT_TRUE(loads("<c/>"));
  EXPECT_EQ(outline(m_document), "c");
}

TEST_F(DomContract, SavingReplacesTheWholeFile) {
  for (const auto durability : {dom::Durability::kDisk, dom::Durability::kScratch}) {
    writeFile("output.xml", std::string(100000, 'x'));
    dom::save(m_document, wide(file("output.xml")), durability);
    EXPECT_EQ(savedBytes(file("output.xml")), kDeclaration + "<Document/>\r\n");
  }
}

TEST_F(DomContract, APassingFileIsGoneWhenItIsSaved) {
  for (const bool isSomethingThere : {false, true}) {
    if (isSomethingThere) {
      writeFile("output.xml", "old");
    }
    dom::save(m_document, wide(file("output.xml")), dom::Durability::kPassing);
    EXPECT_TRUE(std::filesystem::is_empty(file(""))) << isSomethingThere;
  }
}

TEST_F(DomContract, SavingLeavesNothingElseInTheFolder) {
  dom::save(m_document, wide(file("output.xml")));
  static_cast<void>(saved());
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(file(""))) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(names, std::vector<std::string>{"output.xml"});
}

TEST_F(DomContract, ADocumentWithoutRootElementIsNotSaved) {
  writeFile("output.xml", "old");
  IXMLDOMDocumentPtr document;
  ASSERT_EQ(dom::createDocument(document), S_OK);
  EXPECT_EQ(raisedBy([&] { dom::save(document, wide(file("output.xml"))); }), E_FAIL);
  dom::append(document, dom::createProcessingInstruction(document, "xml", "version='1.0'"));
  EXPECT_EQ(raisedBy([&] { dom::save(document, wide(file("output.xml"))); }), E_FAIL);
  EXPECT_EQ(fileBytes(file("output.xml")), "old");
}

TEST_F(DomContract, AFailedSaveRaisesAndTheDocumentCanBeSavedElsewhere) {
  appended(m_root, "Line");
  std::filesystem::create_directory(file("folder"));
  EXPECT_LT(raisedBy([&] { dom::save(m_document, wide(file("missing") / "x.xml")); }), 0);
  EXPECT_LT(raisedBy([&] { dom::save(m_document, wide(file("folder"))); }), 0);
  EXPECT_LT(raisedBy([&] { dom::save(m_document, CString()); }), 0);
  EXPECT_EQ(saved(), kDeclaration + "<Document><Line/></Document>\r\n");
}

TEST_F(DomContract, AFileIsNotHeldAfterLoadingAndSaving) {
  static_cast<void>(saved());
  ASSERT_TRUE(dom::load(m_document, wide(file("output.xml"))));
  EXPECT_TRUE(std::filesystem::remove(file("output.xml")));
}

TEST_F(DomContract, PathsMayHaveBlanksAccentsAndSigns) {
  const std::filesystem::path path =
      file("") / std::filesystem::path(u8"plan n\u00b0 1 (b\u00e9ton) #2 100%.xml");
  dom::save(m_document, wide(path));
  EXPECT_EQ(savedBytes(path), kDeclaration + "<Document/>\r\n");
  EXPECT_TRUE(dom::load(m_document, wide(path)));
}

}  // namespace
}  // namespace quorvan::test
