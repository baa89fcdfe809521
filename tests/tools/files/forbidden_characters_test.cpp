#include <gtest/gtest.h>

#include <random>

#include <tools/files/forbidden_characters.h>
#include <tools/files/source_text.h>

namespace {

using quorvan::tool::CleanedText;
using quorvan::tool::encodingOf;

CleanedText cleaned(const std::string& bytes) {
  const auto encoding = encodingOf(bytes);
  return quorvan::tool::withoutForbiddenCharacters(quorvan::tool::plainText(bytes, encoding),
                                                   encoding.isSingleByte);
}

// "1:4 2:1": where they stood.
std::string forbiddenPlaces(const std::string& bytes) {
  std::string text;
  for (const auto& place : cleaned(bytes).places) {
    text +=
        (text.empty() ? "" : " ") + std::to_string(place.line) + ':' + std::to_string(place.column);
  }
  return text;
}

const std::string kMarkOfUtf8 = "\xEF\xBB\xBF";
const std::string kLatinDeclaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";

TEST(ToolForbidden, LeaveASoundFileAsItIs) {
  for (const std::string bytes : {"", "<a/>", "<a b='1'>\r\n\t\xC3\xA9 \xF0\x9F\x98\x80</a>",
                                  "&#9;&#10;&#13;&#x20;&#65533;", "&amp;&lt;&quot;"}) {
    EXPECT_EQ(cleaned(bytes).text, bytes);
    EXPECT_TRUE(cleaned(bytes).places.empty()) << bytes;
  }
}

TEST(ToolForbidden, AreAllControlCharactersButThreeWrittenOut) {
  for (int code = 0; code < 0x20; ++code) {
    const bool isAllowed = code == '\t' || code == '\n' || code == '\r';
    const std::string unit(1, static_cast<char>(code));
    EXPECT_EQ(cleaned("<a>" + unit + "</a>").text,
              isAllowed ? "<a>" + unit + "</a>" : "<a>&#65533;</a>")
        << code;
  }
  EXPECT_TRUE(cleaned("\x7F").places.empty());
}

TEST(ToolForbidden, AreTheSameAsReferences) {
  for (const char* const reference :
       {"&#0;", "&#1;", "&#31;", "&#x1;", "&#x1F;", "&#x1f;", "&#001;", "&#xFFFE;", "&#xffff;",
        "&#65535;", "&#xD800;", "&#xDFFF;", "&#55296;", "&#x110000;", "&#1114112;",
        "&#99999999999999999999999;"}) {
    EXPECT_EQ(cleaned(reference).text, "&#65533;") << reference;
  }
  for (const char* const reference : {"&#9;", "&#xA;", "&#13;", "&#32;", "&#xD7FF;", "&#xE000;",
                                      "&#xFFFD;", "&#x10000;", "&#x10FFFF;", "&#x10fffe;"}) {
    EXPECT_EQ(cleaned(reference).text, reference);
  }
}

TEST(ToolForbidden, LeaveWhatIsNoReference) {
  for (const char* const text : {"&#;", "&#x;", "&#1", "&#1 ;", "&# 1;", "&#-1;", "&#1x;", "#1;",
                                 "&1;", "&#", "&", "&#x", "&#xG;", "&#+1;"}) {
    EXPECT_EQ(cleaned(text).text, text);
  }
}

TEST(ToolForbidden, AreTheTwoLastOfThePlaneInUtf8) {
  EXPECT_EQ(cleaned("a\xEF\xBF\xBE-\xEF\xBF\xBFz").text, "a&#65533;-&#65533;z");
  EXPECT_EQ(cleaned("\xEF\xBF\xBD").text, "\xEF\xBF\xBD");
  EXPECT_EQ(cleaned(kLatinDeclaration + "\xEF\xBF\xBF").text, kLatinDeclaration + "\xEF\xBF\xBF");
}

TEST(ToolForbidden, StandInLinesAndCharacters) {
  EXPECT_EQ(forbiddenPlaces("\x01"), "1:1");
  EXPECT_EQ(forbiddenPlaces("<a>\x01\x02</a>"), "1:4 1:5");
  EXPECT_EQ(forbiddenPlaces("<a>\n\n \x01</a>"), "3:2");
  EXPECT_EQ(forbiddenPlaces("a\r\nb\rc\nd\x01"), "4:2");
  EXPECT_EQ(forbiddenPlaces("\r\x01"), "2:1");
}

TEST(ToolForbidden, CountCharactersAndNotBytes) {
  EXPECT_EQ(forbiddenPlaces("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\x01"), "1:4");
  EXPECT_EQ(forbiddenPlaces(kLatinDeclaration + "\n\xE9\xE8\x01"), "2:3");
}

TEST(ToolForbidden, CountAReferenceAsItIsWritten) {
  EXPECT_EQ(forbiddenPlaces("&#1;&#x1F;\x01"), "1:1 1:5 1:11");
  EXPECT_EQ(forbiddenPlaces("\xEF\xBF\xBF\x01"), "1:1 1:2");
}

TEST(ToolForbidden, DoNotCountTheMarkOfTheFile) {
  EXPECT_EQ(forbiddenPlaces(kMarkOfUtf8 + "<a>\x01</a>"), "1:4");
}

TEST(ToolForbidden, AreFoundInUtf16) {
  const std::string bytes("\xFF\xFE\x01\x00<\x00\x00\xD8<\x00", 10);
  EXPECT_EQ(cleaned(bytes).text, "&#65533;<&#65533;<");
  EXPECT_EQ(forbiddenPlaces(bytes), "1:1 1:3");
}

TEST(ToolForbidden, AreGoneAfterwards) {
  constexpr std::string_view kPieces[] = {
      "\x01",  "\x1F", "&#2;", "&#xFFFF;", "\xEF\xBF\xBE", "a",   "\n", "\xC3\xA9",
      "&#65;", "&",    "#1;",  "\r",       "\xEF\xBF\xBD", "<b/>"};
  std::mt19937 random(11);
  for (int round = 0; round < 1000; ++round) {
    std::string bytes;
    std::size_t forbidden = 0;
    for (auto count = random() % 20; count > 0; --count) {
      const std::size_t piece = random() % std::size(kPieces);
      // An ampersand before "#1;" would make one of both.
      if (bytes.ends_with('&')) {
        bytes += ' ';
      }
      forbidden += piece < 5 ? 1U : 0U;
      bytes += kPieces[piece];
    }
    const CleanedText once = cleaned(bytes);
    ASSERT_EQ(once.places.size(), forbidden) << bytes;
    EXPECT_TRUE(cleaned(once.text).places.empty()) << bytes;
    EXPECT_EQ(cleaned(once.text).text, once.text);
  }
}

}  // namespace
