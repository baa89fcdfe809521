#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <tests/support/transfer_text.h>
#include <tools/files/plain_source.h>
#include <tools/files/source_places.h>
#include <tools/files/tree_loader.h>

namespace {

using quorvan::tool::Attribute;
using quorvan::tool::Console;
using quorvan::tool::DocumentLoad;
using quorvan::tool::DocumentTree;
using quorvan::tool::Node;
using quorvan::tool::Position;
using quorvan::tool::Progress;
using quorvan::tool::SourceEncoding;
using quorvan::tool::SourcePlaces;

void tell(const DocumentTree& tree, const Node* node, std::string& text) {
  for (; node != nullptr; node = tree.nextSibling(*node)) {
    const Position position = tree.position(*node);
    text += std::to_string(position.line) + ':' + std::to_string(position.column) + ' ' +
            std::string(tree.name(*node));
    for (const Attribute& attribute : tree.attributes(*node)) {
      text += ' ' + std::string(attribute.name) + "=[" + std::string(attribute.value) + ']';
    }
    text += " {\n";
    tell(tree, tree.firstChild(*node), text);
    text += "}\n";
  }
}

std::string told(const DocumentTree& tree) {
  std::string text;
  tell(tree, &tree.root(), text);
  return text;
}

class PlainSource {
 public:
  explicit PlainSource(std::string bytes)
      : m_source(std::make_shared<const std::string>(std::move(bytes))),
        m_encoding(quorvan::tool::encodingOf(*m_source)) {
    if (const auto tree = readPlainSource(m_source, m_encoding, m_progress)) {
      m_isTaken = true;
      m_told = told(*tree);
    }
  }

  [[nodiscard]] bool isTaken() const { return m_isTaken; }
  [[nodiscard]] const std::string& tree() const { return m_told; }

  // What the document service makes of it; nothing of what only it reads.
  std::string serviceTree() {
    const char* const file = "plain.xml";
    quorvan::test::writeBytes(file, *m_source);
    const SourcePlaces places =
        findPlaces(plainText(*m_source, m_encoding), m_encoding.isSingleByte, m_progress);
    const DocumentLoad load = loadDocument(file, places.elements, m_progress);
    const bool isPlain = load.isWellFormed && load.isPlaced && load.nodeBeforeRoot.empty() &&
                         places.beforeRoot.empty() && places.below.empty() &&
                         !places.hasDeclarations;
    return isPlain ? told(load.tree) : std::string("not the same");
  }

 private:
  std::ostringstream m_none;
  Console m_console{m_none, m_none};
  Progress m_progress{m_console, "test"};
  std::shared_ptr<const std::string> m_source;
  SourceEncoding m_encoding;
  bool m_isTaken = false;
  std::string m_told;
};

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n";

TEST(ToolPlainSource, IsWhatTheLibraryFiles) {
  PlainSource source(
      std::string(kDeclaration) +
      "<Document><CKtZantoText version=\"1\" index=\"1\"><Contents string=\"\xE9 "
      "&lt;&#8364;&gt;\"/><Location X=\"1.0000000\" Y=\"2.0000000\" Z=\"0.0000000\"/>"
      "</CKtZantoText></Document>\r\n");
  ASSERT_TRUE(source.isTaken());
  EXPECT_NE(source.tree().find("string=[\u00E9 <\u20AC>]"), std::string::npos) << source.tree();
  EXPECT_EQ(source.tree(), source.serviceTree());
}

TEST(ToolPlainSource, IsNothingThatADocumentCouldSayOtherwise) {
  for (const char* const bytes : {"",
                                  "<a>",
                                  "<a></b>",
                                  "<a/><b/>",
                                  "<a/>text",
                                  "<a>text</a>",
                                  "<a><!--c--></a>",
                                  "<a><![CDATA[]]></a>",
                                  "<!DOCTYPE a><a/>",
                                  "<?p?><a/>",
                                  "<a><?p?></a>",
                                  "<a b='1'/>",
                                  "<a b=\"1\" b=\"2\"/>",
                                  "<a xmlns=\"x\"/>",
                                  "<p:a/>",
                                  "<a p:b=\"1\"/>",
                                  "<a b=\"\t\"/>",
                                  "<a b=\"\n\"/>",
                                  "<a b=\"<\"/>",
                                  "<a b=\"&e;\"/>",
                                  "<a b=\"&#1;\"/>",
                                  "<a b=\"&#xD;\"/>",
                                  "<a b=\"&lt\"/>",
                                  "<a b=\"\x01\"/>",
                                  "<a b=\"\x7F\"/>",
                                  "<a b=\"\xFF\"/>",
                                  "<a b=\"1\"",
                                  "<a b=\"1/>",
                                  "<a b=1/>",
                                  "<a b/>",
                                  "<a =\"1\"/>",
                                  "<a b=\"1\"c=\"2\"/>",
                                  "<1/>",
                                  "< a/>",
                                  "<xml/>",
                                  "<a><b><c><d><e/></d></c></b></a>",
                                  "<?xml version=\"1.1\"?><a/>",
                                  "<?xml version=\"1.0\" encoding=\"cp1252\"?><a/>",
                                  "\xEF\xBB\xBF<a/>",
                                  "</a>"}) {
    EXPECT_FALSE(PlainSource(bytes).isTaken()) << bytes;
  }
}

// A drawing in the form in which the library files one, more or less.
std::string randomDrawing(std::mt19937& random) {
  static const char* const kValues[] = {"1.0000000", "",    "True", "&lt;&amp;&quot;",
                                        "&#8364;",   " x ", "\xE9", "'"};
  static const char* const kBlanks[] = {"", "", "", " ", "\r\n", "\n\t"};
  const auto pick = [&random](const auto& all) {
    return std::string(all[random() % std::size(all)]);
  };
  std::string text = random() % 2 == 0 ? std::string(kDeclaration) : std::string();
  const auto open = [&](const std::string& name) {
    text += '<' + name;
    for (std::size_t i = random() % 4; i > 0; --i) {
      text += " a" + std::to_string(i) + "=\"" + pick(kValues) + '"' + pick(kBlanks);
    }
    const bool isEmpty = random() % 3 == 0;
    text += isEmpty ? "/>" : ">" + pick(kBlanks);
    return !isEmpty;
  };
  const auto fill = [&](const auto& self, int depth) -> void {
    const std::string name = "n" + std::to_string(random() % 5);
    if (!open(name)) {
      return;
    }
    for (std::size_t i = depth == 3 ? 0 : random() % 4; i > 0; --i) {
      self(self, depth + 1);
      text += pick(kBlanks);
    }
    text += "</" + name + '>';
  };
  fill(fill, 0);
  return text + pick(kBlanks);
}

// Puts something into it that may or may not be right there, or takes something out.
void damage(std::string& text, std::mt19937& random) {
  static const char* const kPieces[] = {"&",      "<",   ">",   "/",       "\"",           "'",
                                        "=",      "\t",  "]]>", "<!---->", "<x/>",         "&#65;",
                                        "&#x41;", "x",   " ",   "\x80",    "\xE2\x82\xAC", "?",
                                        "<?p?>",  "xml", "&e;"};
  const std::size_t at = random() % (text.size() + 1);
  if (random() % 2 == 0) {
    text.insert(at, kPieces[random() % std::size(kPieces)]);
  } else {
    text.erase(at, 1 + random() % 4);
  }
}

// It may leave to the service what the service takes, never the other way round.
TEST(ToolPlainSource, IsReadAsTheServiceReadsIt) {
  const char* const wanted = std::getenv("QUORVAN_TEST_DOCUMENTS");
  const int rounds = wanted == nullptr ? 1500 : std::atoi(wanted);
  std::mt19937 random(20);
  int taken = 0;
  for (int round = 0; round < rounds; ++round) {
    std::string bytes = randomDrawing(random);
    for (std::size_t faults = random() % 3; faults > 0; --faults) {
      damage(bytes, random);
    }
    PlainSource source(bytes);
    if (source.isTaken()) {
      ++taken;
      ASSERT_EQ(source.tree(), source.serviceTree()) << bytes;
    }
  }
  EXPECT_GT(taken, rounds / 5);
}

}  // namespace
