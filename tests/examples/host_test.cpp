// What the example host says about drawings that it cannot write.

#include <examples/host/drawing.h>
#include <examples/host/json_element.h>
#include <gtest/gtest.h>
#include <quorvan/platform/com_error.h>

#include <string>

#include <tests/examples/drawing_files.h>
#include <tests/support/saved_file.h>

namespace quorvan::test {
namespace {

using Json = nlohmann::json;

std::string messageFor(const Json& drawing) {
  try {
    readDrawing(drawing);
    return "";
  } catch (const DrawingError& error) {
    return error.what();
  }
}

// A drawing whose second element is the given one.
Json withElement(const std::string& element) {
  Json drawing = Json::parse(R"({
    "drawing": {"name": "B12", "version": "2025.1", "servicePack": 2, "checkSum": 1},
    "elements": [{"class": "CKtZantoLine", "Point1": [0, 0, 0], "Point2": [1, 0, 0], "Color": 1}]
  })");
  drawing["elements"].push_back(Json::parse(element));
  return drawing;
}

std::string messageForElement(const std::string& element) {
  return messageFor(withElement(element));
}

TEST(ExampleHost, TakesAWholeElement) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoCircle", "Center": [0, 0, 0], "Radius": 1,
                                  "Color": 4294967295})"),
            "");
}

TEST(ExampleHost, NamesTheElementThatLacksAnItem) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoCircle", "Center": [0, 0, 0], "Color": 1})"),
            R"(element 2 (CKtZantoCircle) has no item "Radius")");
}

TEST(ExampleHost, NamesAnItemThatDoesNotBelong) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoCircle", "Center": [0, 0, 0], "Radius": 1,
                                  "Color": 1, "Colour": 2})"),
            R"(element 2 (CKtZantoCircle) has an item "Colour" that does not belong here)");
}

TEST(ExampleHost, RefusesAPointOfTwoNumbers) {
  EXPECT_EQ(
      messageForElement(
          R"({"class": "CKtZantoCircle", "Center": [0, 0], "Radius": 1, "Color": 1})"),
      R"(element 2 (CKtZantoCircle) has an item "Center" that is not made of three numbers each)");
}

TEST(ExampleHost, RefusesATextForANumber) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoCircle", "Center": [0, 0, 0], "Radius": "1"})"),
            R"(element 2 (CKtZantoCircle) has an item "Radius" that is not a number)");
}

TEST(ExampleHost, RefusesAColorBelowZeroAndAboveThirtyTwoBits) {
  for (const char* color : {"-1", "4294967296", "1.5"}) {
    EXPECT_EQ(messageForElement(R"({"class": "CKtZantoCircle", "Center": [0, 0, 0], "Radius": 1,
                                    "Color": )" +
                                std::string(color) + "}"),
              "element 2 (CKtZantoCircle) has an item \"Color\" that is not a whole number from 0 "
              "to 4294967295");
  }
}

TEST(ExampleHost, RefusesAClassThatIsNone) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoArc"})"),
            "element 2 (CKtZantoArc) is of no class that can be written");
}

TEST(ExampleHost, AsksForASeriesInsteadOfARepartition) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoRepartition"})"),
            "element 2 (CKtZantoRepartition) cannot be written: repartitions come from the frames "
            "of a \"series\"");
}

TEST(ExampleHost, NamesTheFrameOfASeries) {
  EXPECT_EQ(messageForElement(R"({"series": [{"value1": 0}]})"),
            R"(element 2, frame 1 has no item "value2")");
}

TEST(ExampleHost, NamesTheSegmentOfAFormwork) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoFormwork", "Segments": [
                {"start": [0, 0, 0], "end": [1, 0, 0], "bulge": [0, 0, 0]},
                {"start": [0, 0, 0], "end": [1, 0, 0]}]})"),
            R"(element 2 (CKtZantoFormwork), segment 2 has no item "bulge")");
}

TEST(ExampleHost, RefusesATextThatWouldBeCutShort) {
  EXPECT_EQ(messageForElement(R"({"class": "CKtZantoText", "Contents": "a\u0000b"})"),
            R"(element 2 (CKtZantoText) has an item "Contents" that is not a text without U+0000)");
}

TEST(ExampleHost, RefusesAFileWithoutElements) {
  EXPECT_EQ(messageFor(Json::parse(R"({"drawing": {"name": "B12", "version": "1",
                                       "servicePack": 0, "checkSum": 0}})")),
            R"(the file has no item "elements")");
  EXPECT_EQ(messageFor(Json::array()), "the file must be an object");
}

TEST(ExampleHost, RefusesAnElementThatIsNoObject) {
  EXPECT_EQ(messageForElement("7"), "element 2 must be an object");
}

// One frame gives a series no direction: the library raises it when the filing ends.
constexpr const char* kSeriesOfOne = R"({"series": [
    {"value1": 0, "value2": 0, "value3": 0, "value4": 0, "value5": 1, "value6": 0,
     "className": "CKtZantoStirrup", "hookLength1": 0, "hookAngle1": 0, "steelGrade": "B500B",
     "adherence": "Ha", "reference": 1, "diameter": 8, "hidden": false, "keyC": 1,
     "viewPoint": 2, "lastInt": 0}]})";

TEST(ExampleHost, KeepsTheOldFileWhenTheLibraryRefusesASeries) {
  const Json drawing = withElement(kSeriesOfOne);
  std::ofstream("old.xml") << "an old drawing";
  EXPECT_THROW(writeDrawing(readDrawing(drawing), "old.xml"), std::out_of_range);
  EXPECT_EQ(fileBytes("old.xml"), "an old drawing");
  EXPECT_FALSE(std::filesystem::exists("old.xml.draft"));
}

TEST(ExampleHost, WritesTheNextDrawingAfterOneThatFailed) {
  const Json drawing = withElement(kSeriesOfOne);
  EXPECT_THROW(writeDrawing(readDrawing(drawing), "failed.xml"), std::out_of_range);
  EXPECT_EQ(savedBytes(writeExample("slab-d2")), fileBytes(goldenPath("slab-d2.xml")));
}

TEST(ExampleHost, RaisesWhenTheFolderIsNotThere) {
  const Drawing drawing = readDrawing(exampleJson("slab-d2"));
  EXPECT_THROW(writeDrawing(drawing, "no-such-folder/slab.xml"), _com_error);
}

}  // namespace
}  // namespace quorvan::test
