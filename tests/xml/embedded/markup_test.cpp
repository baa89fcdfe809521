// What a loaded file keeps of its layout and of markup that is no element.
#include <gtest/gtest.h>

#include <string>

#include <tests/xml/embedded/embedded_dom.h>

namespace quorvan::test {
namespace {

using Markup = EmbeddedDom;

TEST_F(Markup, LineBreaksAreWrittenWhereWhiteSpaceStood) {
  EXPECT_EQ(resaved("<a>\n\t<b>\n\t\t<c/>\n\t</b>\n</a>"),
            "<a>\r\n\t<b>\r\n\t\t<c/>\r\n\t</b>\r\n</a>\r\n");
  EXPECT_EQ(resaved("<a> <b/><c/>    <d/></a>"), "<a>\r\n\t<b/><c/>\r\n\t<d/></a>\r\n");
  EXPECT_EQ(resaved("<a><b> </b></a>"), "<a><b>\r\n\t</b></a>\r\n");
  EXPECT_EQ(resaved("<a>\r\n<b></b></a>"), "<a>\r\n\t<b/></a>\r\n");
}

TEST_F(Markup, WhiteSpaceOfAReferenceCountsAsWhiteSpace) {
  EXPECT_EQ(resaved("<a>&#32;<b/>&#10; &#xD;</a>"), "<a>\r\n\t<b/>\r\n</a>\r\n");
}

TEST_F(Markup, AFileWithoutWhiteSpaceComesBackAsItWas) {
  const std::string file =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
      "<Document><CKtZantoLine version=\"1\" index=\"1\"><Origin X=\"1.0000000\"/>"
      "</CKtZantoLine></Document>\r\n";
  EXPECT_EQ(resaved(file), file);
}

TEST_F(Markup, NewElementsBringNoWhiteSpace) {
  ASSERT_TRUE(loads("<a>\n\t<b/>\n</a>"));
  appended(dom::firstChild(m_document), "new");
  EXPECT_EQ(saved(), "<a>\r\n\t<b/><new/>\r\n</a>\r\n");
}

TEST_F(Markup, AMovedElementLeavesItsWhiteSpaceBehind) {
  ASSERT_TRUE(loads("<a>\n\t<b>\n<c/></b>\n\t<d/>\n</a>"));
  const IXMLDOMNodePtr root = dom::firstChild(m_document);
  dom::append(root, dom::firstChild(root));
  EXPECT_EQ(saved(), "<a>\r\n\t<d/><b>\r\n\t\t<c/></b>\r\n</a>\r\n");
  m_document = newDocument();
  dom::append(dom::nextSibling(dom::firstChild(m_document)), root);
  EXPECT_EQ(saved(),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
            "<Document><a>\r\n\t\t<d/><b>\r\n\t\t\t<c/></b>\r\n\t</a></Document>\r\n");
}

TEST_F(Markup, CommentsAndTextMoveLikeElements) {
  ASSERT_TRUE(loads("<a><!--c-->text<![CDATA[d]]><b/></a>"));
  const IXMLDOMNodePtr root = dom::firstChild(m_document);
  const IXMLDOMNodePtr b = dom::firstChildNamed(root, "b");
  for (int i = 0; i < 3; ++i) {
    dom::append(b, dom::firstChild(root));
  }
  EXPECT_EQ(saved(), "<a><b><!--c-->text<![CDATA[d]]></b></a>\r\n");
  const IXMLDOMNodePtr comment = dom::firstChild(b);
  dom::append(m_document, comment);
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, dom::firstChild(b)); }), E_FAIL);
  EXPECT_EQ(saved(), "<a><b>text<![CDATA[d]]></b></a>\r\n<!--c-->\r\n");
}

TEST_F(Markup, IndentationEndsSomewhere) {
  std::string file;
  for (int i = 0; i < 150; ++i) {
    file += "<a> ";
  }
  for (int i = 0; i < 150; ++i) {
    file += "</a>";
  }
  const std::string saved = resaved(file);
  EXPECT_NE(saved.find('\n' + std::string(100, '\t') + '<'), std::string::npos);
  EXPECT_EQ(saved.find(std::string(101, '\t')), std::string::npos);
}

TEST_F(Markup, TextKeepsItsBlanksAndGetsWindowsLineEnds) {
  EXPECT_EQ(resaved("<a> x\n y\r\n z\r\t<b/> &lt;&amp;&gt;\"' </a>"),
            "<a> x\r\n y\r\n z\r\n\t<b/> &lt;&amp;&gt;\"' </a>\r\n");
  EXPECT_EQ(resaved("<a>x&#13;y</a>"), "<a>x&#13;y</a>\r\n");
  EXPECT_EQ(resaved("<a>x\r</a><!--c\r-->"), "<a>x\r\n</a>\r\n<!--c\r\n-->\r\n");
}

TEST_F(Markup, TabsAndLineEndsInAttributesAreKept) {
  const std::string kept = "<a b=\"1&#9;2&#10;3&#10;4&#10;5 6&#13;\" c=\"x\"/>\r\n";
  EXPECT_EQ(resaved("<a b=\"1\t2\n3\r\n4\r5 6&#13;\" c=\"x\"/>"), kept);
  EXPECT_EQ(resaved("<a\n\tb='1\t2\n3\r\n4\r5 6&#13;'\n\tc='x'\n/>"), kept);
  EXPECT_EQ(resaved("<?xml version='1.0' encoding='ISO-8859-1'?><a b=\"\xE9\t&quot;\"/>"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<a b=\"\xE9&#9;&quot;\"/>\r\n");
}

TEST_F(Markup, TheLineEndThatEndsAnAttributeIsKept) {
  EXPECT_EQ(resaved("<a b='1\r' c='\n2\r\n'/>"), "<a b=\"1&#10;\" c=\"&#10;2&#10;\"/>\r\n");
}

// Tabs and line ends are kept where nothing but them tells a value from what the parser makes of
// it.
TEST_F(Markup, TabsInAttributesThatADoctypeChangesAreBlanks) {
  const std::string entity = "<!DOCTYPE a [<!ENTITY e 'v'>]>";
  EXPECT_EQ(resaved(entity + "<a b='&e;\t1' c='\t2'/>"),
            entity + "\r\n<a b=\"v 1\" c=\"&#9;2\"/>\r\n");
  const std::string tokens = "<!DOCTYPE a [<!ATTLIST a b NMTOKENS #IMPLIED>]>";
  EXPECT_EQ(resaved(tokens + "<a b=' 1\t2 ' c=' 1\t2 '/>"),
            tokens + "\r\n<a b=\"1 2\" c=\" 1&#9;2 \"/>\r\n");
}

TEST_F(Markup, ARuleForSpaceThatIsNoneChangesNothing) {
  EXPECT_EQ(resaved("<a xml:space=\"other\"> <b/></a>"),
            "<a xml:space=\"other\">\r\n\t<b/></a>\r\n");
  EXPECT_EQ(resaved("<a xml:space=\"preserve\"><b xml:space=\"\"> <c/></b></a>"),
            "<a xml:space=\"preserve\"><b xml:space=\"\"> <c/></b></a>\r\n");
}

TEST_F(Markup, PreservedSpaceIsText) {
  EXPECT_EQ(resaved("<a xml:space=\"preserve\"> <b>\n</b> </a>"),
            "<a xml:space=\"preserve\"> <b>\r\n</b> </a>\r\n");
  EXPECT_EQ(resaved("<a><b xml:space=\"preserve\"> <c xml:space=\"default\"> <d/></c> </b> </a>"),
            "<a><b xml:space=\"preserve\"> <c xml:space=\"default\">\r\n\t\t\t<d/></c> </b>"
            "\r\n</a>\r\n");
  EXPECT_EQ(resaved("<a><b xml:space=\"preserve\"/> <c/></a>"),
            "<a><b xml:space=\"preserve\"/>\r\n\t<c/></a>\r\n");
}

TEST_F(Markup, CommentsInstructionsAndCDataComeBack) {
  EXPECT_EQ(
      resaved("<?p d ?><!-- c\n --><a><!--&lt;--><?q?><?r  x<y?><![CDATA[<&]]\n]]></a><!--e-->"),
      "<?p d ?>\r\n<!-- c\r\n -->\r\n<a><!--&lt;--><?q?><?r x<y?><![CDATA[<&]]\r\n]]></a>\r\n"
      "<!--e-->\r\n");
  EXPECT_EQ(resaved("<a><![CDATA[]]><![CDATA[ ]]>x<![CDATA[y]]></a>"),
            "<a><![CDATA[]]><![CDATA[ ]]>x<![CDATA[y]]></a>\r\n");
}

TEST_F(Markup, TheDoctypeComesBackAsItsSource) {
  const std::string doctype =
      "<!DOCTYPE a SYSTEM \"a.dtd\" [\r\n<!-- c -->\r\n<?p d?>\r\n<!ELEMENT a ANY>\r\n"
      "<!ATTLIST a b CDATA 'd' x NMTOKEN #IMPLIED>\r\n<!ENTITY e \"\xC3\xA9 > &#38;\">\r\n"
      "<!NOTATION n SYSTEM 'n'>\r\n]  >";
  EXPECT_EQ(resaved(doctype + "<a/>"), doctype + "\r\n<a/>\r\n");
  EXPECT_EQ(outline(m_document), "a a");
  EXPECT_FALSE(dom::hasAttributes(dom::firstChild(m_document)));
  EXPECT_TRUE(dom::firstChild(dom::firstChild(m_document)) == nullptr);
}

TEST_F(Markup, LineEndsOfEveryKindInADoctypeAreWrittenAsWindowsHasThem) {
  EXPECT_EQ(resaved("<!DOCTYPE a [\r<!ELEMENT a ANY>\n\r\r\n]><a/>"),
            "<!DOCTYPE a [\r\n<!ELEMENT a ANY>\r\n\r\n\r\n]>\r\n<a/>\r\n");
}

TEST_F(Markup, ADoctypeLeavesTheDeclarationAsItWas) {
  for (const char* standalone : {"", " standalone=\"yes\"", " standalone=\"no\""}) {
    const std::string file = std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"") + standalone +
                             "?>\r\n<!DOCTYPE a>\r\n<a/>\r\n";
    EXPECT_EQ(resaved(file), file);
  }
}

TEST_F(Markup, TheDoctypeIsNamedAsItSays) {
  ASSERT_TRUE(loads("<?xml version='1.0'?><!--c--><!DOCTYPE\n root\n><root/><!--d-->"));
  EXPECT_EQ(outline(m_document), "xml(version=1.0) #comment root root #comment");
  ASSERT_TRUE(loads("<!DOCTYPE other[]><root/>"));
  EXPECT_EQ(outline(m_document), "other root");
}

TEST_F(Markup, TheDoctypeStaysWhereItIs) {
  ASSERT_TRUE(loads("<!DOCTYPE a><a/>"));
  const IXMLDOMNodePtr doctype = dom::firstChild(m_document);
  EXPECT_EQ(raisedBy([&] { dom::append(dom::nextSibling(doctype), doctype); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(m_document, doctype); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::append(newDocument(), doctype); }), E_FAIL);
  EXPECT_EQ(outline(m_document), "a a");
}

TEST_F(Markup, AttributesThatADoctypeAddsStayThere) {
  EXPECT_EQ(resaved("<!DOCTYPE a [<!ATTLIST a b CDATA 'd'>]><a c=\"1\"/>"),
            "<!DOCTYPE a [<!ATTLIST a b CDATA 'd'>]>\r\n<a c=\"1\"/>\r\n");
}

TEST_F(Markup, InstructionsThatCouldNotBeReadBackAreNotCreated) {
  EXPECT_EQ(raisedBy([&] { dom::createProcessingInstruction(m_document, "p", "a?>b"); }), E_FAIL);
  EXPECT_EQ(raisedBy([&] { dom::createProcessingInstruction(m_document, "XmL", ""); }), E_FAIL);
  for (const char* reserved : {"Xml", "xMl", "XML"}) {
    EXPECT_EQ(raisedBy([&] {
                dom::createProcessingInstruction(m_document, dom::Name(std::string_view(reserved)),
                                                 "");
              }),
              E_FAIL);
  }
  dom::append(m_root, dom::createProcessingInstruction(m_document, "p", "1\x01\xFF"));
  ASSERT_TRUE(loads(saved()));
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) Document[p]");
}

// Nothing in an instruction can stand for another character.
TEST_F(Markup, ALoneReturnInAnInstructionIsALineEndToWhoeverReadsIt) {
  dom::append(m_root, dom::createProcessingInstruction(m_document, "p", "1\r2"));
  const std::string bytes = saved();
  EXPECT_NE(bytes.find("<?p 1\r2?>"), std::string::npos) << bytes;
  EXPECT_NE(resaved(bytes).find("<?p 1\r\n2?>"), std::string::npos);
}

}  // namespace
}  // namespace quorvan::test
