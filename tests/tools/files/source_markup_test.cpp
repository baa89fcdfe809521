// The pieces of a source, the nodes that stray in it, and what is said of one that is refused.
#include <tools/files/source_markup.h>

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <tools/files/refusal_wording.h>
#include <tools/files/source_places.h>

namespace quorvan::tool {

namespace {

using PieceKind = SourcePiece::Kind;

struct NamedPiece {
  PieceKind kind;
  std::string text;
  std::string name = {};

  friend bool operator==(const NamedPiece&, const NamedPiece&) = default;
};

void PrintTo(const NamedPiece& piece, std::ostream* out) {
  *out << static_cast<int>(piece.kind) << ' ' << piece.text << " (" << piece.name << ')';
}

std::vector<NamedPiece> piecesOf(const std::string& text) {
  std::vector<NamedPiece> pieces;
  SourceMarkup markup(text, false);
  while (markup.next()) {
    const bool hasName = markup.piece().opensElement() ||
                         markup.piece().kind == PieceKind::kEndTag ||
                         markup.piece().kind == PieceKind::kInstruction;
    pieces.push_back({markup.piece().kind, std::string(markup.text()),
                      hasName ? std::string(markup.name()) : std::string()});
  }
  return pieces;
}

const std::vector<NamedPiece> kPieces = {
    {PieceKind::kStartTag, "<a>", "a"},
    {PieceKind::kStartTag, "<a-b.c x='>' y=\"/>\">", "a-b.c"},
    {PieceKind::kStartTag, "<long\r\n\tx = '\"'\r\n>", "long"},
    {PieceKind::kEmptyTag, "<a/>", "a"},
    {PieceKind::kEmptyTag, "<e x='/' />", "e"},
    {PieceKind::kEndTag, "</a>", "a"},
    {PieceKind::kEndTag, "</a\n>", "a"},
    {PieceKind::kText, "text ]]&gt; 'x\" >", ""},
    {PieceKind::kCharacterData, "<![CDATA[<a> ]] > ]]>", ""},
    {PieceKind::kComment, "<!-- <a> -- '-->", ""},
    {PieceKind::kComment, "<!---->", ""},
    {PieceKind::kInstruction, "<?php <a> > ?>", "php"},
    {PieceKind::kInstruction, "<?xml-stylesheet x?>", "xml-stylesheet"},
    {PieceKind::kDocumentType, "<!DOCTYPE a SYSTEM \"x>y\">", ""},
    {PieceKind::kDocumentType, "<!DOCTYPE a [<!ENTITY e '>]'><!-- ]> --><?p ]> ?>]>", ""},
};

TEST(ToolMarkup, IsEveryPieceByItself) {
  for (const NamedPiece& piece : kPieces) {
    EXPECT_EQ(piecesOf(piece.text), std::vector<NamedPiece>{piece});
    EXPECT_EQ(piecesOf(" \r\n" + piece.text + "<z/>").front().kind, piece.kind) << piece.text;
  }
  EXPECT_TRUE(piecesOf("").empty());
  EXPECT_TRUE(piecesOf(" \t\r\n").empty());
}

TEST(ToolMarkup, BeginsWithADeclarationThereAlone) {
  const std::string declaration = "<?xml version=\"1.0\"?>";
  EXPECT_EQ(piecesOf(declaration).front().kind, PieceKind::kDeclaration);
  EXPECT_EQ(piecesOf(' ' + declaration).front().kind, PieceKind::kInstruction);
  EXPECT_EQ(piecesOf("<?xml?>").front().kind, PieceKind::kInstruction);
  EXPECT_EQ(piecesOf("<?xmlx y?>").front().kind, PieceKind::kInstruction);
}

// Pieces one behind the other, with white space or without: the same ones come out.
TEST(ToolMarkup, IsThePiecesOfAnySequence) {
  std::mt19937 random(471);
  const char* const blanks[] = {"", " ", "\n", "\r\n\t"};
  for (int round = 0; round < 300; ++round) {
    std::string text = "<first/>";
    std::vector<NamedPiece> expected{{PieceKind::kEmptyTag, "<first/>", "first"}};
    for (std::size_t i = random() % 12; i > 0; --i) {
      const NamedPiece& piece = kPieces[random() % kPieces.size()];
      // A text takes in the blanks behind it, and another text.
      if (piece.kind == PieceKind::kText) {
        continue;
      }
      text += blanks[random() % 4] + piece.text;
      expected.push_back(piece);
    }
    EXPECT_EQ(piecesOf(text), expected) << text;
  }
}

// Whatever is cut off: no piece reaches beyond the end, and the walk comes to it.
TEST(ToolMarkup, EndsWithTheTextThatIsCutShort) {
  std::string whole;
  for (const NamedPiece& piece : kPieces) {
    whole += piece.text;
  }
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::string text = whole.substr(0, length);
    std::size_t end = 0;
    SourceMarkup markup(text, false);
    while (markup.next()) {
      ASSERT_GE(markup.piece().begin, end);
      ASSERT_GT(markup.piece().end, markup.piece().begin);
      ASSERT_LE(markup.piece().end, length);
      end = markup.piece().end;
    }
    EXPECT_EQ(end, length);
  }
}

SourcePlaces placesIn(const std::string& text, bool isSingleByte = false) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  Progress progress(console, "places");
  return findPlaces(text, isSingleByte, progress);
}

std::string strays(const std::vector<StrayNode>& nodes) {
  std::string text;
  for (const StrayNode& node : nodes) {
    text += std::to_string(node.position.line) + ':' + std::to_string(node.position.column) + ' ' +
            node.text + (node.className.empty() ? "" : " in " + node.className) +
            (node.item.empty() ? "" : ", " + node.item) + "; ";
  }
  return text;
}

TEST(ToolPlaces, AreThoseOfTagsAndOfWhatStrays) {
  const SourcePlaces places = placesIn(
      "<?xml version=\"1.0\"?>\n<!-- c --><?p x?>\n<D>\n stray\n<A><!-- c -->in<P>deep<Q>own</Q>"
      "</P><?q?></A><![CDATA[y]]></D>\n<!-- behind -->");
  ASSERT_EQ(places.elements.size(), 4U);
  EXPECT_EQ(places.elements[0].line, 3U);
  EXPECT_EQ(places.elements[3].line, 5U);
  EXPECT_EQ(places.elements[3].column, 23U);
  EXPECT_EQ(strays(places.beforeRoot), "2:1 <!-- c -->; 2:11 <?p x?>; ");
  EXPECT_EQ(strays(places.below),
            "4:2 stray\n; 5:14 in in A; 5:19 deep in A, P; 5:37 <?q?> in A; "
            "5:46 <![CDATA[y]]>; ");
  EXPECT_FALSE(places.hasDeclarations);
}

TEST(ToolPlaces, KnowADocumentTypeThatDeclares) {
  EXPECT_FALSE(placesIn("<!DOCTYPE D SYSTEM 'd'><D/>").hasDeclarations);
  EXPECT_TRUE(placesIn("<!DOCTYPE D [<!ENTITY e 'x'>]><D/>").hasDeclarations);
}

TEST(ToolPlaces, ShowTheBeginningOfALongNodeByWholeCharacters) {
  const std::string sixty(60, 'x');
  EXPECT_EQ(placesIn("<D>" + sixty + "</D>").below.at(0).text, sixty);
  EXPECT_EQ(placesIn("<D>" + sixty + "y</D>").below.at(0).text, sixty + "...");
  for (const std::string character : {"\u00e9", "\u20ac", "\U0001f600"}) {
    std::string text;
    while (text.size() < 100) {
      text += character;
    }
    for (std::size_t shift = 0; shift < 4; ++shift) {
      const std::string shown =
          placesIn("<D>" + std::string(shift, 'x') + text + "</D>").below.at(0).text;
      ASSERT_TRUE(shown.ends_with("..."));
      const std::size_t size = shown.size() - 3 - shift;
      EXPECT_EQ(size % character.size(), 0U) << shown;
      EXPECT_GT(size + shift, 52U);
      EXPECT_LE(size + shift, 60U);
    }
  }
  EXPECT_EQ(placesIn("<D>\xE9</D>", true).below.at(0).text, "\u00e9");
}

std::string worded(const std::string& reason, const std::string& bytes = "<a/>",
                   Position at = {1, 1}) {
  return inWords({at, reason}, bytes).reason;
}

TEST(ToolRefusals, NameTheTagThatIsClosedByAnother) {
  EXPECT_EQ(worded("mismatched tag", "<a>\n  <b>\n  </c></a>", {3, 5}),
            "<b> of line 2, column 3 is closed by </c>");
  EXPECT_EQ(worded("mismatched tag", "<a><b/><c></c></d>", {1, 17}),
            "<a> of line 1, column 1 is closed by </d>");
  EXPECT_EQ(worded("mismatched tag", "<a x='</b>'><!-- </b> --></c>", {1, 28}),
            "<a> of line 1, column 1 is closed by </c>");
}

TEST(ToolRefusals, NameTheTagThatIsNotClosed) {
  EXPECT_EQ(worded("no element found", "<a>\n<b></b>\n<c>", {3, 4}),
            "<c> of line 3, column 1 is not closed");
  EXPECT_EQ(worded("no element found", "", {1, 1}), "the file has no root element");
  EXPECT_EQ(worded("no element found", "<!-- a -->", {1, 11}), "the file has no root element");
}

TEST(ToolRefusals, SayWhatTheParserMeans) {
  EXPECT_EQ(worded("duplicate attribute"), "the tag has an attribute twice");
  EXPECT_EQ(worded("unclosed token"), "the file ends within the tag or comment that begins here");
  EXPECT_EQ(worded("junk after document element"),
            "something stands behind the end of the root element");
  EXPECT_EQ(worded("undefined entity"), "the entity that is used here is declared nowhere");
  EXPECT_EQ(worded("unknown encoding"), "the encoding that the declaration names is not known");
  EXPECT_EQ(worded("something new"), "something new");
  EXPECT_EQ(inWords({{7, 8}, "syntax error"}, "<a/>").position.line, 7U);
}

}  // namespace

}  // namespace quorvan::tool
