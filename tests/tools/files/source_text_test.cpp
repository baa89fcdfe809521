// Where elements stand in files of every encoding and form.
#include <gtest/gtest.h>

#include <sstream>

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

}  // namespace
