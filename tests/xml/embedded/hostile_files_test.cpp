// Files made to hurt their reader.
#include <gtest/gtest.h>

#include <string>

#include <tests/xml/embedded/embedded_dom.h>
#include <quorvan/xml/embedded/reading/limits.h>

namespace quorvan::test {
namespace {

using embedded::kMaxAttributes;
using embedded::kMaxDepth;

using HostileFiles = EmbeddedDom;

std::string nested(std::size_t depth) {
  std::string file;
  for (std::size_t i = 0; i < depth; ++i) {
    file += "<a>";
  }
  for (std::size_t i = 0; i < depth; ++i) {
    file += "</a>";
  }
  return file;
}

std::string withAttributes(std::size_t count) {
  std::string file = "<a";
  for (std::size_t i = 0; i < count; ++i) {
    file += " b" + std::to_string(i) + "=\"\"";
  }
  return file + "/>";
}

TEST_F(HostileFiles, DepthIsBounded) {
  EXPECT_TRUE(loads(nested(kMaxDepth - 1)));
  EXPECT_TRUE(loads(nested(kMaxDepth)));
  EXPECT_FALSE(loads(nested(kMaxDepth + 1)));
  EXPECT_FALSE(loads(nested(100000)));
  const std::string doctype = "<!DOCTYPE a>";  // read by the general parser
  EXPECT_TRUE(loads(doctype + nested(kMaxDepth)));
  EXPECT_FALSE(loads(doctype + nested(kMaxDepth + 1)));
}

TEST_F(HostileFiles, ADeepDocumentIsSavedMovedAndReleased) {
  ASSERT_TRUE(loads(nested(kMaxDepth)));
  std::string expected = nested(kMaxDepth - 1);
  expected.replace(expected.find("</a>"), 0, "<a/>");
  EXPECT_EQ(saved(), expected + "\r\n");
  const IXMLDOMNodePtr root = dom::firstChild(m_document);
  const IXMLDOMDocumentPtr other = newDocument();
  dom::append(dom::nextSibling(dom::firstChild(other)), root);
  EXPECT_TRUE(dom::firstChild(m_document) == nullptr);
  dom::append(m_document, root);
  EXPECT_EQ(saved(), expected + "\r\n");
}

TEST_F(HostileFiles, ADocumentBuiltDeeperThanFilesMayBeIsHandledAllTheSame) {
  IXMLDOMNodePtr at = m_root;
  for (int i = 0; i < 100000; ++i) {
    at = appended(at, "a");
  }
  EXPECT_EQ(saved().size(), std::string("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
                                        "<Document></Document>\r\n")
                                    .size() +
                                99999 * 7 + 4);
}

TEST_F(HostileFiles, TheNumberOfAttributesIsBounded) {
  EXPECT_TRUE(loads(withAttributes(kMaxAttributes - 1)));
  EXPECT_TRUE(loads(withAttributes(kMaxAttributes)));
  EXPECT_FALSE(loads(withAttributes(kMaxAttributes + 1)));
  EXPECT_TRUE(loads("<!DOCTYPE a>" + withAttributes(kMaxAttributes)));
  EXPECT_FALSE(loads("<!DOCTYPE a>" + withAttributes(kMaxAttributes + 1)));
}

// More than a block of the writer's, ended at every place of an attribute.
TEST_F(HostileFiles, AnElementOfManyAttributesIsSavedAsItWasRead) {
  for (std::size_t length = 0; length < 24; ++length) {
    std::string document = "<a";
    for (std::size_t i = 0; i < kMaxAttributes; ++i) {
      document += " b" + std::to_string(i) + "=\"" + std::string(length, 'v') + '"';
    }
    document += "/>\r\n";
    EXPECT_TRUE(resaved(document) == document) << length;
  }
}

TEST_F(HostileFiles, EntitiesAreResolvedInTextAndValues) {
  ASSERT_TRUE(
      loads("<!DOCTYPE a [<!ENTITY e 'x&#38;amp;<b>y</b>'><!ENTITY f 'v'>]>"
            "<a c='&f;&#9;'>1&e;2</a>"));
  const IXMLDOMNodePtr root = dom::nextSibling(dom::firstChild(m_document));
  EXPECT_EQ(outline(root), "a(c=v\t)[#text b[#text] #text]");
  EXPECT_EQ(saved(),
            "<!DOCTYPE a [<!ENTITY e 'x&#38;amp;<b>y</b>'><!ENTITY f 'v'>]>\r\n"
            "<a c=\"v&#9;\">1x&amp;<b>y</b>2</a>\r\n");
}

std::string bomb(int levels, const std::string& use) {
  std::string file = "<!DOCTYPE a [<!ENTITY e0 \"0123456789\">";
  for (int i = 1; i <= levels; ++i) {
    file += "<!ENTITY e" + std::to_string(i) + " \"";
    for (int k = 0; k < 10; ++k) {
      file += "&e" + std::to_string(i - 1) + ";";
    }
    file += "\">";
  }
  return file + "]>" + use;
}

TEST_F(HostileFiles, EntitiesCannotMakeADocumentMuchLargerThanItsFile) {
  EXPECT_TRUE(loads(bomb(3, "<a>&e3;</a>")));
  EXPECT_TRUE(loads(bomb(3, "<a b=\"&e3;\"/>")));
  EXPECT_FALSE(loads(bomb(7, "<a>&e7;</a>")));
  EXPECT_FALSE(loads(bomb(7, "<a b=\"&e7;\"/>")));
  EXPECT_FALSE(loads(bomb(20, "<a>&e20;</a>")));
}

TEST_F(HostileFiles, OneLongEntityUsedOftenIsRefused) {
  std::string file = "<!DOCTYPE a [<!ENTITY e \"" + std::string(100000, 'x') + "\">]><a>";
  for (int i = 0; i < 1000; ++i) {
    file += "&e;";
  }
  EXPECT_FALSE(loads(file + "</a>"));
}

TEST_F(HostileFiles, EntitiesThatContainThemselvesAreRefused) {
  EXPECT_FALSE(loads("<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>"));
  EXPECT_FALSE(loads("<!DOCTYPE a [<!ENTITY e '&e;'>]><a b='&e;'/>"));
}

TEST_F(HostileFiles, ExternalEntitiesAreNotOpened) {
  writeFile("secret.txt", "secret");
  const std::string secret = path("secret.txt");
  EXPECT_FALSE(loads("<!DOCTYPE a [<!ENTITY e SYSTEM \"" + secret + "\">]><a>&e;</a>"));
  EXPECT_FALSE(loads("<!DOCTYPE a [<!ENTITY e SYSTEM \"file://" + secret + "\">]><a b='&e;'/>"));
  EXPECT_FALSE(loads("<!DOCTYPE a [<!ENTITY e SYSTEM \"" + secret + "\" NDATA n>]><a>&e;</a>"));
  EXPECT_TRUE(loads("<!DOCTYPE a [<!ENTITY e SYSTEM \"" + secret + "\">]><a/>"));
  EXPECT_TRUE(loads("<!DOCTYPE a SYSTEM \"" + secret + "\"><a/>"));
  EXPECT_TRUE(loads("<!DOCTYPE a [<!ENTITY % p SYSTEM \"" + secret + "\">%p;]><a/>"));
  EXPECT_EQ(saved().find("secret\r\n"), std::string::npos);
}

TEST_F(HostileFiles, WhatCouldBeDeclaredElsewhereIsNotLeftOut) {
  for (const char* doctype : {"<!DOCTYPE a SYSTEM 'x'>", "<!DOCTYPE a PUBLIC 'x' 'y'>",
                              "<!DOCTYPE a [<!ENTITY % p ''>%p;]>"}) {
    EXPECT_FALSE(loads(std::string(doctype) + "<a>&e;</a>"));
    EXPECT_FALSE(loads(std::string(doctype) + "<a b='&e;'/>"));
    EXPECT_TRUE(loads(std::string(doctype) + "<a b='&lt;&#233;'>&gt;</a>"));
  }
}

TEST_F(HostileFiles, NamesOfOneHashDoNotMakeReadingSlow) {
  // Blocks of the same hash can be combined freely, so a file can hold any number of such names.
  embedded::NameTable names;
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 20000; ++i) {
      const std::string text = "n" + std::to_string(i);
      const embedded::NameId id = names.intern(dom::Name(text, 12345));
      ASSERT_EQ(names[id].view(), text);
      ASSERT_EQ(names.find(dom::Name(text, 12345)), id);
    }
  }
  EXPECT_EQ(names.find(dom::Name("missing", 12345)), embedded::kNoName);
}

TEST_F(HostileFiles, AVeryLongValueCostsNoMoreThanItsLength) {
  const std::string value(8000000, 'x');
  ASSERT_TRUE(loads("<!DOCTYPE a><a b=\"" + value + "\"/>"));  // read by the general parser
  ASSERT_TRUE(loads("<a b=\"" + value + "\">" + value + "</a>"));
  EXPECT_EQ(attributeOf(dom::firstChild(m_document), "b").size(), value.size());
}

TEST_F(HostileFiles, TruncatedFilesAreRefused) {
  const std::string file =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<!--c--><Document>\r\n"
      "<Line a=\"1\" b='\xE9&lt;'>t&#233;<!--c--><?p d?><![CDATA[x]]></Line></Document>";
  for (std::size_t length = 0; length < file.size(); ++length) {
    EXPECT_FALSE(loads(std::string_view(file).substr(0, length))) << length;
  }
  EXPECT_TRUE(loads(file));
}

TEST_F(HostileFiles, AChangedByteNeverDoesMoreThanChangeTheDocument) {
  const std::string file =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<!DOCTYPE a [<!ENTITY e 'x'>]>"
      "<Document>\r\n<Line a=\"1\" b=\"\xE9&lt;\">t&#233;&e;<!--c--><?p d?><![CDATA[x]]></Line>"
      "</Document>";
  int loaded = 0;
  for (std::size_t i = 0; i < file.size(); ++i) {
    for (const char byte : {'\0', '<', '&', '\xFF', static_cast<char>(file[i] ^ 1)}) {
      std::string changed = file;
      changed[i] = byte;
      if (!loads(changed)) {
        continue;
      }
      ++loaded;
      const std::string before = outline(m_document);
      std::string bytes;
      if (raisedBy([&] { bytes = saved(); }) != S_OK) {
        continue;  // an encoding name that only the reader knows
      }
      ASSERT_TRUE(loads(bytes)) << changed;
      EXPECT_EQ(outline(m_document), before) << changed;
    }
  }
  EXPECT_GT(loaded, 40);
}

}  // namespace
}  // namespace quorvan::test
