// Tags that are mended where they stand.
#include <tools/repair/start_tag.h>

#include <gtest/gtest.h>

#include <string>

namespace quorvan::tool {

namespace {

std::string mended(const std::string& tag, const AttributeMend& mend) {
  StartTag start(tag);
  start.mend(mend);
  return start.source();
}

TEST(ToolStartTag, GetsAValueAndKeepsAllElse) {
  const AttributeMend one{"long", "long", "1"};
  EXPECT_EQ(mended("<A long=\"x\"/>", one), "<A long=\"1\"/>");
  EXPECT_EQ(mended("<A  long = 'x'  b='2' >", one), "<A  long = \"1\"  b='2' >");
  EXPECT_EQ(mended("<A\n\tb=\" long='7' \"\r\n\tlong=''\n/>", one),
            "<A\n\tb=\" long='7' \"\r\n\tlong=\"1\"\n/>");
  EXPECT_EQ(mended("<A xlong=\"2\" long=\"3\" longer=\"4\">", one),
            "<A xlong=\"2\" long=\"1\" longer=\"4\">");
  EXPECT_EQ(mended("<A long=\"a>b/>\">", one), "<A long=\"1\">");
}

TEST(ToolStartTag, GetsANewAttributeBehindItsLast) {
  const AttributeMend added{"", "index", "5"};
  EXPECT_EQ(mended("<A>", added), "<A index=\"5\">");
  EXPECT_EQ(mended("<A/>", added), "<A index=\"5\"/>");
  EXPECT_EQ(mended("<A />", added), "<A index=\"5\" />");
  EXPECT_EQ(mended("<A version=\"1\">", added), "<A version=\"1\" index=\"5\">");
  EXPECT_EQ(mended("<A a='1' b=\"2\" >", added), "<A a='1' b=\"2\" index=\"5\" >");
  EXPECT_EQ(mended("<A index=\"4\">", added), "<A index=\"5\">");  // never twice
}

TEST(ToolStartTag, GetsAnotherNameWithTheTextAsItStands) {
  const AttributeMend retyped{"double", "long", std::nullopt};
  EXPECT_EQ(mended("<A double='&#49;&amp;'/>", retyped), "<A long='&#49;&amp;'/>");
  EXPECT_EQ(mended("<A double=\"1.0\"/>", {"double", "long", "1"}), "<A long=\"1\"/>");
  EXPECT_EQ(mended("<A b='1'/>", retyped), "<A b='1' long=\"\"/>");
}

TEST(ToolStartTag, EscapesWhatATextMayNotHold) {
  EXPECT_EQ(mended("<A s=\"\"/>", {"s", "s", "a<b & \"c\" 'd' > \u00e9"}),
            "<A s=\"a&lt;b &amp; &quot;c&quot; 'd' > \u00e9\"/>");
}

TEST(ToolStartTag, IsRenamedAndOpened) {
  const std::pair<const char*, const char*> cases[] = {{"<Dessin>", "<Document>"},
                                                       {"<D a='1'>", "<Document a='1'>"},
                                                       {"<D\r\na='1'>", "<Document\r\na='1'>"},
                                                       {"<D/>", "<Document/>"},
                                                       {"<Documents >", "<Document >"}};
  for (const auto& [tag, expected] : cases) {
    StartTag start(tag);
    start.rename("Document");
    EXPECT_EQ(start.source(), expected);
  }
  StartTag empty("<D a='/' />");
  empty.open();
  EXPECT_EQ(empty.source(), "<D a='/' >");
}

// One mend behind the other, as an element gets them.
TEST(ToolStartTag, TakesSeveralMends) {
  StartTag start("<A index='x'/>");
  start.mend({"", "version", "1"});
  start.mend({"index", "index", "12"});
  start.mend({"", "index", "3"});
  EXPECT_EQ(start.source(), "<A index=\"3\" version=\"1\"/>");
}

}  // namespace

}  // namespace quorvan::tool
