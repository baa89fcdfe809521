// Where elements stand in files of every encoding and form.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include <tests/tools/sample.h>
#include <tools/files/source_places.h>
#include <tools/files/source_text.h>

namespace {

using quorvan::tool::encodingOf;
using quorvan::tool::SourceEncoding;

std::string positionsIn(const std::string& bytes) {
  std::ostringstream none;
  quorvan::tool::Console console{none, none};
  quorvan::tool::Progress progress(console, "");
  const SourceEncoding encoding = encodingOf(bytes);
  std::string text;
  const auto places = quorvan::tool::findPlaces(quorvan::tool::plainText(bytes, encoding),
                                                encoding.isSingleByte, progress);
  for (const auto& position : places.elements) {
    text += std::to_string(position.line) + ':' + std::to_string(position.column) + ' ';
  }
  return text;
}

std::string utf16(const std::string& ascii, bool isBigEndian) {
  std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char unit : ascii) {
    const char pair[] = {isBigEndian ? '\0' : unit, isBigEndian ? unit : '\0'};
    bytes.append(pair, 2);
  }
  return bytes;
}

TEST(ToolPositions, CountLinesAndCharactersFromOne) {
  EXPECT_EQ(positionsIn("<a><b/><b x='1'/></a>"), "1:1 1:4 1:8 ");
  EXPECT_EQ(positionsIn("<a>\n  <b/>\n\n<b/></a>"), "1:1 2:3 4:1 ");
}

TEST(ToolPositions, TakeEveryLineEndForOne) {
  EXPECT_EQ(positionsIn("<a>\r\n<b/>\r<b/>\n<b/></a>"), "1:1 2:1 3:1 4:1 ");
}

TEST(ToolPositions, CountCharactersAndNotBytes) {
  EXPECT_EQ(positionsIn("<a x='\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80'><b/></a>"), "1:1 1:12 ");
  EXPECT_EQ(positionsIn("<?xml version='1.0' encoding='ISO-8859-1'?><a x='\xE9\xE8'><b/></a>"),
            "1:44 1:54 ");
}

TEST(ToolPositions, AreTheSameInUtf16) {
  for (const bool isBigEndian : {false, true}) {
    const std::string bytes =
        utf16("<?xml version='1.0' encoding='UTF-16'?>\n<a><b/></a>", isBigEndian);
    EXPECT_EQ(positionsIn(bytes), "2:1 2:4 ");
    EXPECT_EQ(encodingOf(bytes).name(), "UTF-16");
  }
}

TEST(ToolPositions, DoNotTakeOtherMarkupForTags) {
  EXPECT_EQ(positionsIn("<!-- <x> --><?p <x> ?><a><![CDATA[<x>]]><!-- <x> --></a>"), "1:23 ");
  EXPECT_EQ(positionsIn("<!DOCTYPE a [<!ENTITY e \"<x>]>\"><!-- ]> ' --><?p '>?>]><a/>"), "1:56 ");
  EXPECT_EQ(positionsIn("<a x='>' y=\"<'>\"><b/></a>"), "1:1 1:18 ");
}

TEST(ToolEncoding, IsTheDeclaredOneAsItIsSpelt) {
  EXPECT_EQ(encodingOf("<?xml version=\"1.0\" encoding=\"Windows-1252\"?><a/>").name(),
            "Windows-1252");
  EXPECT_EQ(encodingOf("<?xml version='1.0'?><a encoding='x'/>").name(), "UTF-8");
  EXPECT_EQ(encodingOf("\xEF\xBB\xBF<a/>").name(), "UTF-8");
  EXPECT_EQ(encodingOf("<a/>").name(), "UTF-8");
}

TEST(ToolPositions, AreNoneInATextWithoutTags) {
  EXPECT_EQ(positionsIn(""), "");
  EXPECT_EQ(positionsIn("text"), "");
  EXPECT_EQ(positionsIn("<!-- <a/> -->"), "");
}

TEST(ToolPositions, EndWithAFileThatIsCutShort) {
  EXPECT_EQ(positionsIn("<"), "");
  EXPECT_EQ(positionsIn("<a"), "1:1 ");
  EXPECT_EQ(positionsIn("<a x='<b/>"), "1:1 ");
  EXPECT_EQ(positionsIn("<a/><!-- <b/>"), "1:1 ");
  EXPECT_EQ(positionsIn("<a/><![CDATA[<b/>"), "1:1 ");
  EXPECT_EQ(positionsIn("<!DOCTYPE a [<a/>"), "");
}

TEST(ToolPositions, DoNotCountTheMarkOfTheFile) {
  EXPECT_EQ(positionsIn("\xEF\xBB\xBF<a><b/></a>"), "1:1 1:4 ");
}

// Where each tag was put is known while the text is put together.
TEST(ToolPositions, AreThoseOfEveryTagWhateverStandsBetween) {
  constexpr std::string_view kFillers[] = {
      "\n",   "\r\n",           "\r",         "  ",   "\xC3\xA9",       "\xF0\x9F\x98\x80",
      "</a>", "<!-- <a> ' -->", "<?p <a> ?>", "text", "<![CDATA[<a>]]>"};
  constexpr std::string_view kTags[] = {"<a>", "<a/>", "<a b='>' c=\"'<\"/>", "<\xC3\xA9/>"};
  std::mt19937 random(12);
  for (int round = 0; round < 500; ++round) {
    std::string bytes;
    std::string expected;
    for (auto count = random() % 12; count > 0; --count) {
      bytes += kFillers[random() % std::size(kFillers)];
      const std::string tag(kTags[random() % std::size(kTags)]);
      // The line ends before the tag, whichever they are, each as one.
      std::size_t line = 1;
      std::size_t column = 1;
      for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (bytes[at] == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n') {
          continue;
        }
        const bool isLineEnd = bytes[at] == '\n' || bytes[at] == '\r';
        const bool isInside = (static_cast<unsigned char>(bytes[at]) & 0xC0U) == 0x80U;
        line += isLineEnd ? 1U : 0U;
        column = isLineEnd ? 1 : column + (isInside ? 0U : 1U);
      }
      expected += std::to_string(line) + ':' + std::to_string(column) + ' ';
      bytes += tag;
    }
    ASSERT_EQ(positionsIn(bytes), expected) << bytes;
  }
}

TEST(ToolEncoding, KnowsByteOrderMarks) {
  for (const auto& [bytes, isUtf16, isBigEndian] : {std::tuple{"\xEF\xBB\xBF<a/>", false, false},
                                                    {"\xFF\xFE<", true, false},
                                                    {"\xFE\xFF<", true, true}}) {
    const SourceEncoding encoding = encodingOf(bytes);
    EXPECT_TRUE(encoding.hasMark);
    EXPECT_EQ(encoding.isUtf16, isUtf16);
    EXPECT_EQ(encoding.isBigEndian, isBigEndian);
    EXPECT_FALSE(encoding.isSingleByte);
  }
  EXPECT_FALSE(encodingOf("<a/>").hasMark);
  EXPECT_FALSE(encodingOf("").hasMark);
  EXPECT_FALSE(encodingOf("\xEF\xBB").hasMark);
}

TEST(ToolEncoding, HasOneByteACharacterWhereAnotherThanUtf8IsDeclared) {
  for (const auto& [name, isSingleByte] : {std::pair{"ISO-8859-1", true},
                                           {"windows-1252", true},
                                           {"UTF-8", false},
                                           {"utf-8", false}}) {
    const std::string bytes = "<?xml version='1.0' encoding='" + std::string(name) + "'?><a/>";
    EXPECT_EQ(encodingOf(bytes).isSingleByte, isSingleByte) << name;
    EXPECT_EQ(encodingOf(bytes).name(), name);
  }
  EXPECT_FALSE(encodingOf("<a/>").isSingleByte);
}

TEST(ToolEncoding, IsNotTakenFromABrokenDeclaration) {
  for (const char* const bytes :
       {"<?xml encoding", "<?xml encoding=", "<?xml encoding?>", "<?xml"}) {
    EXPECT_EQ(encodingOf(bytes).name(), "UTF-8") << bytes;
  }
}

TEST(ToolPlainText, IsWithoutTheMark) {
  const std::string marked = "\xEF\xBB\xBF<a/>";
  EXPECT_EQ(quorvan::tool::plainText(marked, encodingOf(marked)), "<a/>");
  EXPECT_EQ(quorvan::tool::plainText("<a/>", encodingOf("<a/>")), "<a/>");
}

TEST(ToolPlainText, IsUtf8OfUtf16) {
  const std::string big("\xFE\xFF\x00<\x20\xAC\xD8\x3D\xDE\x00", 10);
  EXPECT_EQ(quorvan::tool::plainText(big, encodingOf(big)), "<\u20AC\U0001F600");
  const std::string little("\xFF\xFE<\x00\xAC\x20\x3D\xD8\x00\xDE", 10);
  EXPECT_EQ(quorvan::tool::plainText(little, encodingOf(little)), "<\u20AC\U0001F600");
}

TEST(ToolPlainText, SurvivesHalvesOfCharacters) {
  const std::string odd("\xFF\xFE<\x00<", 5);
  EXPECT_EQ(quorvan::tool::plainText(odd, encodingOf(odd)), "<");
  const std::string lone("\xFE\xFF\xD8\x3D\x00<", 6);
  EXPECT_TRUE(quorvan::tool::plainText(lone, encodingOf(lone)).ends_with('<'));
  const std::string last("\xFE\xFF\x00<\xD8\x3D", 6);
  EXPECT_TRUE(quorvan::tool::plainText(last, encodingOf(last)).starts_with('<'));
}

TEST(ToolBytes, AreAllOfTheFile) {
  std::string all;
  for (int i = 0; i < 3000000; ++i) {
    all += static_cast<char>(i * 7);
  }
  for (const std::string& bytes : {std::string(), std::string("\r\n\x1A\0\n", 5), all}) {
    quorvan::test::writeFile("bytes.bin", bytes);
    EXPECT_TRUE(quorvan::tool::readBytes("bytes.bin", "bytes.bin") == bytes) << bytes.size();
  }
}

TEST(ToolBytes, SayWhyTheyCannotBeRead) {
  const auto reasonFor = [](const char* path) -> std::string {
    try {
      quorvan::tool::readBytes(path, path);
    } catch (const quorvan::tool::Failure& failure) {
      return failure.what();
    }
    return "none";
  };
  EXPECT_EQ(reasonFor("missing.xml"), "missing.xml: no such file");
  EXPECT_EQ(reasonFor("."), ".: is a folder");
}

}  // namespace
