// Drawings in JSON as files: what is read, what is refused with its line, and what comes back.
#include <tools/drawing/drawing_file.h>

#include <gtest/gtest.h>

#include <random>

#include <tests/support/saved_file.h>
#include <tests/tools/item_samples.h>
#include <tests/tools/loaded_file.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>
#include <tools/console/console.h>
#include <tools/drawing/element_lines.h>

namespace quorvan::tool {

namespace {

using test::runTool;

DrawingInput readText(const std::string& text) {
  test::writeFile("read.json", text);
  return readDrawing("read.json");
}

std::string failureOf(const std::string& text) {
  try {
    readText(text);
  } catch (const Failure& failure) {
    return failure.what();
  }
  return {};
}

constexpr const char* kControl =
    R"({"name": "B1", "version": "2025.1", "servicePack": -2, "checkSum": 2147483647})";

std::string frameText(const std::string& from = "", const std::string& to = "") {
  const std::string frame =
      R"({"value1": 1, "value2": 2, "value3": 3, "value4": 4, "value5": 5, "value6": 6, )"
      R"("className": "CKtZantoStirrup", "hookLength1": 7, "hookAngle1": 8, )"
      R"("steelGrade": "B500B", "adherence": "Ha", "reference": 9, "diameter": 10, )"
      R"("hidden": true, "keyC": 11, "viewPoint": 12, "lastInt": 13})";
  return from.empty() ? frame : test::replaced(frame, from, to);
}

std::string drawingOf(const std::string& elements, const std::string& control = "null") {
  return "{\"drawing\": " + control + ",\n\"elements\": [" + elements + "]}";
}

TEST(ToolDrawingFile, HasItsControlRecord) {
  const DrawingInput drawing = readText(drawingOf("", kControl));
  ASSERT_TRUE(drawing.control.has_value());
  EXPECT_EQ(drawing.control->name, "B1");
  EXPECT_EQ(drawing.control->version, "2025.1");
  EXPECT_EQ(drawing.control->servicePack, -2);
  EXPECT_EQ(drawing.control->checkSum, 2147483647);
  EXPECT_TRUE(drawing.entries.empty());
  EXPECT_FALSE(readText(drawingOf("")).control.has_value());
}

TEST(ToolDrawingFile, HasTheFramesOfItsSeries) {
  const DrawingInput drawing =
      readText(drawingOf("{\"series\": [" + frameText() + ", " + frameText("1,", "-1.5,") + "]}"));
  ASSERT_EQ(drawing.entries.size(), 1U);
  EXPECT_EQ(drawing.entries[0].element.schema, nullptr);
  ASSERT_EQ(drawing.entries[0].series.size(), 2U);
  const FrameInput& frame = drawing.entries[0].series[0];
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(frame.values[i], i + 1.0);
  }
  EXPECT_EQ(frame.className, "CKtZantoStirrup");
  EXPECT_EQ(frame.hookLength1, 7);
  EXPECT_EQ(frame.hookAngle1, 8);
  EXPECT_EQ(frame.steelGrade, "B500B");
  EXPECT_EQ(frame.adherence, "Ha");
  EXPECT_EQ(frame.reference, 9);
  EXPECT_EQ(frame.diameter, 10);
  EXPECT_TRUE(frame.hidden);
  EXPECT_EQ(frame.keyC, 11);
  EXPECT_EQ(frame.viewPoint, 12);
  EXPECT_EQ(frame.lastInt, 13);
  EXPECT_EQ(drawing.entries[0].series[1].values[0], -1.5);
}

TEST(ToolDrawingFile, IsRefusedForAWrongFrameWithItsLine) {
  const auto refusal = [](const std::string& from, const std::string& to) {
    return failureOf(drawingOf("\n{\"series\": [" + frameText(from, to) + "]}"));
  };
  const std::string head = "read.json:3: elements[0]: series[0]: ";
  EXPECT_EQ(refusal("\"keyC\": 11, ", ""), head + "\"keyC\" is missing");
  EXPECT_EQ(refusal("\"keyC\": 11", "\"keyC\": 11.5"),
            head + "\"keyC\" must be a whole number of 32 bits, not 11.5");
  EXPECT_EQ(refusal("\"hidden\": true", "\"hidden\": 1"),
            head + "\"hidden\" must be true or false, not 1");
  EXPECT_EQ(refusal("\"diameter\": 10", "\"diameter\": \"10\""),
            head + "\"diameter\" must be a number, not \"10\"");
  EXPECT_EQ(refusal("\"keyC\"", "\"extra\": 1, \"keyC\""),
            head + "\"extra\" is not a member of a frame of a series");
}

TEST(ToolDrawingFile, IsRefusedForASeriesThatIsNone) {
  const std::string message = "\"series\" must be an array and the only member";
  EXPECT_EQ(failureOf(drawingOf("{\"series\": 5}")), "read.json:2: elements[0]: " + message);
  EXPECT_EQ(failureOf(drawingOf("{\"series\": [], \"class\": \"CKtZantoLine\"}")),
            "read.json:2: elements[0] (CKtZantoLine): " + message);
  EXPECT_EQ(failureOf(drawingOf("{\"series\": [5]}")),
            "read.json:2: elements[0]: series[0]: a frame of a series must be an object");
}

TEST(ToolDrawingFile, IsRefusedForWrongMembersOfItsOwn) {
  EXPECT_EQ(failureOf("{\"drawing\": null, \"elements\": [], \"extra\": 1}"),
            "read.json: \"extra\" is not a member of a drawing");
  EXPECT_EQ(failureOf("{\"drawing\": null, \"elements\": {}}"),
            "read.json: \"elements\" must be an array");
  EXPECT_EQ(failureOf(drawingOf("", "5")), "read.json: \"drawing\" must be an object");
  EXPECT_EQ(failureOf(drawingOf("", test::replaced(kControl, "\"B1\"", "5"))),
            "read.json: \"name\" must be a text, not 5");
  EXPECT_EQ(failureOf(drawingOf("", test::replaced(kControl, "-2", "-2.5"))),
            "read.json: \"servicePack\" must be a whole number of 32 bits, not -2.5");
  EXPECT_EQ(failureOf(drawingOf("", test::replaced(kControl, "{", "{\"date\": 1, "))),
            "read.json: \"date\" is not a member of \"drawing\"");
}

TEST(ToolElementLines, AreThoseOfTheElementsWhateverStandsBetween) {
  const std::string text =
      "\n{ \"elements\"\n:\n[ 5 , \n\"a,]}{[\\\"\\\\\" ,\n[[],[{}],\n7]\n,{\"elements\": "
      "[1,2]}\n]}";
  EXPECT_EQ(lineOfElement(text, 0), 4U);
  EXPECT_EQ(lineOfElement(text, 1), 5U);
  EXPECT_EQ(lineOfElement(text, 2), 6U);
  EXPECT_EQ(lineOfElement(text, 3), 8U);
  EXPECT_EQ(lineOfElement(text, 4), 0U);
  EXPECT_EQ(lineOfElement("", 0), 0U);
  EXPECT_EQ(lineOfElement("{\"elements\": \"unfinished", 0), 0U);
  EXPECT_EQ(lineOfElement("{\"other\": [1], \"elements\": [2]}", 0), 1U);
  EXPECT_EQ(lineOfElement("{\"other\": {\"elements\": [1]},\n\"elements\": [2]}", 0), 2U);
}

// A file with any values becomes a listing, and the listing the same file.
TEST(ToolDrawingFile, ComesBackFromItsListingForEveryClass) {
  std::mt19937 random(105);
  for (const items::ElementSchema& schema : items::allElements()) {
    if (schema.id == items::ElementClass::kDrawingControl) {
      continue;
    }
    SCOPED_TRACE(schema.className);
    const std::vector<ItemValue> values = test::randomItems(schema, random);
    test::writeFile("first.xml", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document>" +
                                     test::elementText(schema, values) + "</Document>\r\n");
    test::writeFile("first.json", runTool({"list", "--json", "first.xml"}).out);
    const auto written = runTool({"write", "first.json", "-o", "second.xml"});
    ASSERT_EQ(written.status, 0) << written.err;
    const auto difference = runTool({"diff", "--tolerance", "0", "first.xml", "second.xml"});
    EXPECT_EQ(difference.out, "");
    test::writeFile("second.json", runTool({"list", "--json", "second.xml"}).out);
    EXPECT_EQ(test::fileBytes("second.json"), test::fileBytes("first.json"));
  }
}

}  // namespace

}  // namespace quorvan::tool
