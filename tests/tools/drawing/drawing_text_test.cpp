// The text of a drawing JSON: what of JSON is taken, how deep, and where its elements stand.
#include <tools/drawing/drawing_file.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <tests/tools/sample.h>
#include <tools/console/console.h>
#include <tools/drawing/element_lines.h>

namespace quorvan::tool {

namespace {

DrawingInput drawingOfText(const std::string& text) {
  test::writeFile("text.json", text);
  return readDrawing("text.json");
}

std::string refusedText(const std::string& text) {
  try {
    drawingOfText(text);
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "taken";
}

std::string circleText(const std::string& radius = "1", const std::string& color = "7") {
  return R"({"class": "CKtZantoCircle", "Center": [1, 2, 3], "Radius": )" + radius +
         R"(, "Color": )" + color + "}";
}

std::string withElements(const std::string& elements) {
  return R"({"drawing": null, "elements": [)" + elements + "]}";
}

const ItemValue& itemOf(const DrawingInput& drawing, std::string_view name) {
  return *findItem(drawing.entries.at(0).element.items, name);
}

TEST(ToolDrawingText, StandsInAnyOrderAndLayout) {
  const std::string texts[] = {
      withElements(circleText()),
      "\r\n{\r\n\t\"elements\" : [\r\n" + circleText() +
          "\r\n]\r\n,\r\n\"drawing\" : null\r\n}\r\n",
      "\xEF\xBB\xBF" + withElements(circleText()),
      (R"({"elements":[{"Color":7,"Radius":1.0e0,"Center":[1.0,20e-1,3],"class":"CKtZantoCircle"}],)"
       R"("drawing":null})"),
      withElements(R"({"\u0063lass": "CKtZanto\u0043ircle", "Center": [1, 2, 3], "Radius": 1, )"
                   R"("Color": 7})")};
  for (const std::string& text : texts) {
    const DrawingInput drawing = drawingOfText(text);
    ASSERT_EQ(drawing.entries.size(), 1U) << text;
    EXPECT_EQ(drawing.entries[0].element.schema->className, "CKtZantoCircle");
    EXPECT_EQ(itemOf(drawing, "Center").point.y, 2.0);
    EXPECT_EQ(itemOf(drawing, "Radius").number, 1.0);
    EXPECT_EQ(itemOf(drawing, "Color").integer, 7);
  }
}

TEST(ToolDrawingText, ThatIsNoJsonIsRefusedWithItsLine) {
  for (const std::string text : {"", " ", "{", "[", "nonsense", "{\"drawing\": null,}", "\"",
                                 "{\"drawing\": nul", "{'drawing': null}", "// remark\n{}"}) {
    EXPECT_TRUE(refusedText(text).starts_with("text.json: no JSON: parse error at line ")) << text;
  }
  EXPECT_NE(refusedText("{\n\n\"drawing\" null}").find("at line 3, column 14"), std::string::npos);
  EXPECT_TRUE(refusedText(withElements("") + "x").starts_with("text.json: no JSON: "));
  EXPECT_TRUE(refusedText(withElements("\"\xFF\"")).starts_with("text.json: no JSON: parse error"));
}

TEST(ToolDrawingText, IsAnObjectWithItsTwoMembers) {
  EXPECT_EQ(refusedText("[]"), "text.json: a drawing must be an object");
  EXPECT_EQ(refusedText("5"), "text.json: a drawing must be an object");
  EXPECT_EQ(refusedText("{}"), "text.json: \"drawing\" is missing");
  EXPECT_EQ(refusedText("{\"drawing\": null}"), "text.json: \"elements\" is missing");
  EXPECT_EQ(refusedText("{\"elements\": []}"), "text.json: \"drawing\" is missing");
}

// A drawing has seven brackets within each other; a file of a million of them is none.
TEST(ToolDrawingText, IsNoDeeperThanSixtyFourBrackets) {
  const auto nested = [](std::size_t depth) {
    return withElements(std::string(depth - 2, '[') + std::string(depth - 2, ']'));
  };
  const std::string tooDeep = "text.json: no drawing: brackets within brackets, more than 64 deep";
  EXPECT_EQ(refusedText(nested(64)), "text.json:1: elements[0]: an element must be an object");
  EXPECT_EQ(refusedText(nested(65)), tooDeep);
  EXPECT_EQ(refusedText(std::string(1000000, '[')), tooDeep);
  EXPECT_EQ(refusedText(std::string(1000000, '{')), tooDeep);
  // Those in texts, and those that are closed, do not count.
  EXPECT_EQ(
      refusedText(withElements('"' + std::string(100, '[') + "\\\"" + std::string(100, '{') + '"')),
      "text.json:1: elements[0]: an element must be an object");
  std::string flat;
  for (int i = 0; i < 100; ++i) {
    flat += (i == 0 ? "" : ",") + circleText();
  }
  EXPECT_EQ(drawingOfText(withElements(flat)).entries.size(), 100U);
}

TEST(ToolDrawingText, HasNumbersBeyondJsonAsTexts) {
  EXPECT_EQ(itemOf(drawingOfText(withElements(circleText("\"inf\""))), "Radius").number, INFINITY);
  EXPECT_EQ(itemOf(drawingOfText(withElements(circleText("\"-inf\""))), "Radius").number,
            -INFINITY);
  EXPECT_TRUE(
      std::isnan(itemOf(drawingOfText(withElements(circleText("\"nan\""))), "Radius").number));
  for (const char* const text :
       {"\"NaN\"", "\"Inf\"", "\"+inf\"", "\"infinity\"", "\"1\"", "\"\""}) {
    EXPECT_EQ(refusedText(withElements(circleText(text))),
              "text.json:1: elements[0] (CKtZantoCircle): \"Radius\" must be a number, not " +
                  std::string(text));
  }
}

TEST(ToolDrawingText, HasColorsOfThirtyTwoBits) {
  const auto colorOf = [](const std::string& text) {
    return itemOf(drawingOfText(withElements(circleText("1", text))), "Color").integer;
  };
  EXPECT_EQ(colorOf("4294967295"), 4294967295);
  EXPECT_EQ(colorOf("-2147483648"), -2147483648);
  EXPECT_EQ(colorOf("1e2"), 100);
  for (const char* const text : {"4294967296", "-2147483649", "0.5", "\"nan\"", "\"inf\""}) {
    EXPECT_EQ(refusedText(withElements(circleText("1", text))),
              "text.json:1: elements[0] (CKtZantoCircle): \"Color\" must be a whole number of 32 "
              "bits, not " +
                  std::string(text));
  }
}

TEST(ToolDrawingText, HasNoTerminatorInItsTexts) {
  const DrawingInput drawing = drawingOfText(withElements(
      R"({"class": "CKtZantoText", "Contents": "a\u0000b\u00e9\ud83d\ude00", "Location": [0, 0, 0],)"
      R"( "Angle": 0, "JustificationX": 0, "JustificationY": 0, "Color": 7, "Height": 1})"));
  EXPECT_EQ(itemOf(drawing, "Contents").text, "a\uFFFDb\u00e9\U0001f600");
}

// Not half a character at the end of what is quoted.
TEST(ToolDrawingText, IsQuotedByWholeCharacters) {
  std::string accents;
  for (int i = 0; i < 100; ++i) {
    accents += "\u00e9";
  }
  EXPECT_EQ(refusedText(withElements(circleText('"' + accents + '"'))),
            "text.json:1: elements[0] (CKtZantoCircle): \"Radius\" must be a number, not \"" +
                accents.substr(0, 58));
}

TEST(ToolDrawingText, NamesTheFirstElementThatIsWrongByItsLine) {
  const std::string head = "{\"drawing\": null, \"elements\": [\n" + circleText() + ",\n\n";
  EXPECT_EQ(refusedText(head + "{\"class\": 5}, 6]}"),
            "text.json:4: elements[1]: \"class\" must be a text, not 5");
  EXPECT_EQ(refusedText(head + "null]}"), "text.json:4: elements[1]: an element must be an object");
  EXPECT_EQ(refusedText(head + "{\"class\": \"CKtZantoArc\"}]}"),
            "text.json:4: elements[1] (CKtZantoArc): \"CKtZantoArc\" is not an element class");
}

TEST(ToolJsonStrings, EndBehindTheirQuote) {
  const std::pair<std::string, std::size_t> cases[] = {
      {R"("")", 2},    {R"("a" "b")", 3}, {R"("\"")", 4},   {R"("\\" ")", 4},    {R"("\\\"x" )", 7},
      {R"("open)", 5}, {R"(")", 1},       {R"("open\)", 6}, {R"("\u0022x")", 9}, {"\"[{\"]", 4}};
  for (const auto& [text, end] : cases) {
    EXPECT_EQ(endOfString(text, 0), end) << text;
  }
  EXPECT_EQ(endOfString(R"(xx"ab"yy)", 2), 6U);
}

// Any value for an element, with blanks and line ends wherever they may be; the lines are counted
// while the text is put together.
class ChanceJson {
 public:
  explicit ChanceJson(unsigned seed) : m_random(seed) {}

  std::string blank() {
    const char* const blanks[] = {"", "", " ", "\n", "\r\n", "\t \n\n"};
    return blanks[m_random() % 6];
  }
  std::string text() {
    const char* const texts[] = {R"("")", R"("elements")", R"("]}")", R"("\"[")", R"("\\")"};
    return texts[m_random() % 5];
  }
  std::string value(int depth) {
    switch (m_random() % (depth > 3 ? 3U : 5U)) {
      case 0:
        return "-1.5e3";
      case 1:
        return "null";
      case 2:
        return text();
      case 3:
        return '[' + list(depth + 1, false) + ']';
      default:
        return '{' + list(depth + 1, true) + '}';
    }
  }
  unsigned below(unsigned most) { return static_cast<unsigned>(m_random() % most); }

 private:
  std::string list(int depth, bool hasKeys) {
    std::string result = blank();
    const unsigned count = below(4);
    for (unsigned i = 0; i < count; ++i) {
      result += i == 0 ? "" : "," + blank();
      result += hasKeys ? text() + blank() + ':' + blank() : "";
      result += value(depth) + blank();
    }
    return result;
  }

  std::mt19937 m_random;
};

TEST(ToolElementLines, AreCountedRightInAnyLayout) {
  ChanceJson chance(431);
  for (int round = 0; round < 200; ++round) {
    std::string text = chance.blank() + '{' + chance.blank() + "\"drawing\":" + chance.value(0) +
                       ',' + chance.blank() + "\"elements\"" + chance.blank() + ':' +
                       chance.blank() + '[';
    std::vector<std::size_t> lines;
    const unsigned count = chance.below(6);
    for (unsigned i = 0; i < count; ++i) {
      text += (i == 0 ? "" : ",") + chance.blank();
      lines.push_back(1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')));
      text += chance.value(0) + chance.blank();
    }
    text += ']' + chance.blank() + '}' + chance.blank();
    for (std::size_t i = 0; i < lines.size(); ++i) {
      EXPECT_EQ(lineOfElement(text, i), lines[i]) << text;
    }
    EXPECT_EQ(lineOfElement(text, lines.size()), 0U) << text;
  }
}

}  // namespace

}  // namespace quorvan::tool
