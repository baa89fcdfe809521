#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <filesystem>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using nlohmann::json;
using quorvan::test::fileBytes;
using quorvan::test::replaced;
using quorvan::test::runTool;
using quorvan::test::savedBytes;

// Writes the drawing JSON; gives what the program says to it.
quorvan::test::ToolRun write(const std::string& drawing) {
  quorvan::test::writeFile("drawing.json", drawing);
  std::filesystem::remove("written.xml");
  return runTool({"write", "drawing.json", "-o", "written.xml"});
}

void expectRefusal(const std::string& drawing, const std::string& message) {
  const auto run = write(drawing);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "quorvan: drawing.json" + message + "\n");
  EXPECT_FALSE(std::filesystem::exists("written.xml"));
}

TEST(ToolWrite, WritesTheSampleAsPinned) {
  const auto run = write(quorvan::test::sampleDrawing());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out + run.err, "");
  EXPECT_EQ(savedBytes("written.xml"), quorvan::test::sampleBytes());
}

TEST(ToolWrite, GivesTheSameFileForItsListing) {
  quorvan::test::writeSample();
  const std::string listing = runTool({"list", "--json", "sample.xml"}).out;
  ASSERT_EQ(write(listing).status, 0);
  EXPECT_EQ(savedBytes("written.xml"), quorvan::test::sampleBytes());
  EXPECT_EQ(runTool({"list", "--json", "written.xml"}).out, listing);
}

// Elements that are no series come back as they were given.
TEST(ToolWrite, GivesTheSameDrawingInItsListing) {
  ASSERT_EQ(write(quorvan::test::sampleDrawing()).status, 0);
  const json given = json::parse(quorvan::test::sampleDrawing());
  const json listed = json::parse(runTool({"list", "--json", "written.xml"}).out);
  EXPECT_EQ(listed["drawing"], given["drawing"]);
  ASSERT_EQ(listed["elements"].size(), given["elements"].size());
  for (std::size_t i = 0; i + 1 < given["elements"].size(); ++i) {
    EXPECT_EQ(listed["elements"][i], given["elements"][i]);
  }
  EXPECT_EQ(listed["elements"].back()["class"], "CKtZantoRepartition");
}

class ToolWriteExamples : public testing::TestWithParam<const char*> {};

TEST_P(ToolWriteExamples, GivesTheSameFileForTheListing) {
  const std::string drawing =
      quorvan::test::dataPath("../examples/drawings/") + GetParam() + ".json";
  ASSERT_EQ(runTool({"write", drawing, "-o", "first.xml"}).err, "");
  quorvan::test::writeFile("listing.json", runTool({"list", "--json", "first.xml"}).out);
  ASSERT_EQ(runTool({"write", "listing.json", "-o", "second.xml"}).err, "");
  EXPECT_EQ(fileBytes("second.xml"), fileBytes("first.xml"));
}

INSTANTIATE_TEST_SUITE_P(Drawings, ToolWriteExamples,
                         testing::Values("beam-b12", "column-c3", "slab-d2"));

TEST(ToolWrite, KeepsEveryDigitOfTheFile) {
  const std::string line =
      R"({"drawing": null, "elements": [{"class": "CKtZantoLine", )"
      R"("Point1": [-0.0, 123456789.1234568, 1e20], "Point2": [0.1, -2147483648.5, 1e-7], )"
      R"("Color": 4294967295}]})";
  ASSERT_EQ(write(line).err, "");
  const std::string bytes = savedBytes("written.xml");
  EXPECT_NE(bytes.find(R"(<Point1 X="-0.0000000" Y="123456789.1234568" )"
                       R"(Z="100000000000000000000.0000000"/>)"),
            std::string::npos)
      << bytes;
  EXPECT_NE(bytes.find(R"(<Color long="-1"/>)"), std::string::npos);
  ASSERT_EQ(write(runTool({"list", "--json", "written.xml"}).out).err, "");
  EXPECT_EQ(savedBytes("written.xml"), bytes);
}

// The library files lists and numbers that readers cannot find again.
TEST(ToolWrite, GivesTheSameFileForWhatReadersCannotRead) {
  std::string points = "[0, 0, 0]";
  for (int i = 1; i < 33000; ++i) {
    points += ", [0, 0, 0]";
  }
  const std::string drawing =
      R"({"drawing": null, "elements": [{"class": "CKtFilledPolygon", "Points": [)" + points +
      R"(], "Color": 1}, {"class": "CKtZantoCircle", "Center": ["inf", "-inf", "nan"], )"
      R"("Radius": "inf", "Color": 1}]})";
  ASSERT_EQ(write(drawing).err, "");
  const std::string bytes = savedBytes("written.xml");
  EXPECT_NE(bytes.find(R"(<Vector size="-32536">)"), std::string::npos);
  EXPECT_NE(bytes.find(R"(<Center X="inf" Y="-inf" Z="nan"/><Radius double="inf"/>)"),
            std::string::npos);
  ASSERT_EQ(write(runTool({"list", "--json", "written.xml"}).out).err, "");
  EXPECT_EQ(savedBytes("written.xml"), bytes);
}

TEST(ToolWrite, RefusesBracketsWithinBrackets) {
  expectRefusal(
      R"({"drawing": null, "elements": )" + std::string(40000, '[') + std::string(40000, ']') + "}",
      ": no drawing: brackets within brackets, more than 64 deep");
}

TEST(ToolWrite, ReplacesTheFileThatWasThere) {
  ASSERT_EQ(write(quorvan::test::sampleDrawing()).status, 0);
  ASSERT_EQ(runTool({"write", "drawing.json", "-o", "written.xml"}).status, 0);
  EXPECT_EQ(savedBytes("written.xml"), quorvan::test::sampleBytes());
}

TEST(ToolWrite, LeavesNothingBesideTheFile) {
  std::filesystem::create_directory("folder");
  quorvan::test::writeFile("drawing.json", quorvan::test::sampleDrawing());
  ASSERT_EQ(runTool({"write", "drawing.json", "-o", "folder/written.xml"}).status, 0);
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator("folder")) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(names, std::vector<std::string>{"written.xml"});
}

TEST(ToolWrite, WritesADrawingWithoutControlRecord) {
  ASSERT_EQ(write(R"({"drawing": null, "elements": []})").status, 0);
  EXPECT_EQ(savedBytes("written.xml"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document/>\r\n");
}

TEST(ToolWrite, WritesControlRecordsThatDoNotCloseTheFile) {
  quorvan::test::writeFile(
      "two.xml", replaced(quorvan::test::sampleBytes(), "<CKtDrawingControl",
                          R"(<CKtDrawingControl version="1" index="1"><ZantoVersion string="1"/>)"
                          R"(<ServicePack long="0"/><CheckSum long="9"/><DrawingName string="x"/>)"
                          R"(</CKtDrawingControl><CKtDrawingControl)"));
  quorvan::test::writeFile(
      "two.xml", replaced(fileBytes("two.xml"),
                          R"(</CKtDrawingControl><CKtDrawingControl version="1" index="1")",
                          R"(</CKtDrawingControl><CKtDrawingControl version="1" index="2")"));
  ASSERT_EQ(write(runTool({"list", "--json", "two.xml"}).out).err, "");
  EXPECT_EQ(savedBytes("written.xml"), fileBytes("two.xml"));
}

TEST(ToolWrite, RefusesWhatIsNoJsonWithItsLine) {
  expectRefusal("{\"drawing\": null,\n \"elements\": [,]}",
                ": no JSON: parse error at line 2, column 15: syntax error while parsing value - "
                "unexpected ','; expected '[', '{', or a literal");
}

TEST(ToolWrite, RefusesMistakesWithTheLineOfTheElement) {
  const std::string begin = "{\"drawing\": null,\n\"elements\": [\n";
  const std::string circle =
      R"({"class": "CKtZantoCircle", "Center": [0, 0, 0], "Radius": 1, "Color": 7})";
  const auto refusal = [&](const std::string& from, const std::string& to,
                           const std::string& message) {
    expectRefusal(begin + circle + ",\n" + replaced(circle, from, to) + "\n]}",
                  ":4: elements[1]" + message);
  };
  refusal("Radius", "Radios", " (CKtZantoCircle): \"Radios\" is not an item of CKtZantoCircle");
  refusal(R"(, "Color": 7)", "", " (CKtZantoCircle): \"Color\" is missing");
  refusal(": 7", ": 7.5",
          " (CKtZantoCircle): \"Color\" must be a whole number of 32 bits, not 7.5");
  refusal(": 7", ": 4294967296",
          " (CKtZantoCircle): \"Color\" must be a whole number of 32 bits, not 4294967296");
  refusal("[0, 0, 0]", "[0, 0]",
          " (CKtZantoCircle): \"Center\" must be three numbers [x, y, z], not [0, 0]");
  refusal(": 1,", ": \"1\",", " (CKtZantoCircle): \"Radius\" must be a number, not \"1\"");
  refusal("Circle", "Circe", " (CKtZantoCirce): \"CKtZantoCirce\" is not an element class");
  refusal(circle, "[]", ": an element must be an object");
  refusal(R"("class": "CKtZantoCircle", )", "", ": \"class\" is missing");
}

TEST(ToolWrite, RefusesADrawingWithoutItsParts) {
  expectRefusal("[]", ": a drawing must be an object");
  expectRefusal(R"({"elements": []})", ": \"drawing\" is missing");
  expectRefusal(R"({"drawing": null})", ": \"elements\" is missing");
  expectRefusal(R"({"drawing": {"name": "x"}, "elements": []})", ": \"version\" is missing");
}

TEST(ToolWrite, RefusesASeriesOfOneFrame) {
  std::string drawing = quorvan::test::sampleDrawing();
  const std::size_t second = drawing.find(",\n  {\"value1\": 400");
  const std::size_t end = drawing.find("\n]}\n]}", second);
  drawing.erase(second, end - second);
  expectRefusal(drawing,
                ": a series of which one frame alone is left; it needs two, but for straight bars "
                "seen in view 1");
  // The program can be used again in the same process.
  ASSERT_EQ(write(quorvan::test::sampleDrawing()).status, 0);
  EXPECT_EQ(savedBytes("written.xml"), quorvan::test::sampleBytes());
}

TEST(ToolWrite, KeepsTheOldFileWhenTheDrawingIsRefused) {
  quorvan::test::writeFile("old.xml", "an old drawing");
  quorvan::test::writeFile(
      "drawing.json",
      R"({"drawing": {"name": "x", "version": "1", "servicePack": 0, "checkSum": 0}, )"
      R"("elements": [{"series": [)"
      R"({"value1": 0, "value2": 0, "value3": 0, "value4": 0, "value5": 1, )"
      R"("value6": 0, "className": "CKtZantoStirrup", "hookLength1": 0, )"
      R"("hookAngle1": 0, "steelGrade": "B500B", "adherence": "Ha", )"
      R"("reference": 1, "diameter": 8, "hidden": false, "keyC": 1, )"
      R"("viewPoint": 2, "lastInt": 0}]}]})");
  EXPECT_EQ(runTool({"write", "drawing.json", "-o", "old.xml"}).status, 2);
  EXPECT_EQ(fileBytes("old.xml"), "an old drawing");
}

TEST(ToolWrite, RefusesPartsThatLackAMember) {
  const std::string begin = "{\"drawing\": null,\n\"elements\": [\n";
  expectRefusal(begin + R"({"series": [{"value1": 0}]}]})",
                ":3: elements[0]: series[0]: \"value2\" is missing");
  expectRefusal(begin + R"({"class": "CKtZantoFormwork", "Segments": [)"
                        R"({"start": [0, 0, 0], "end": [1, 0, 0], "bulge": [0, 0, 0]}, )"
                        R"({"start": [0, 0, 0], "end": [1, 0, 0]}]}]})",
                R"(:3: elements[0] (CKtZantoFormwork): "Segments[1]" must be )"
                R"({"start": ..., "end": ..., "bulge": ...}, )"
                R"(not {"start": [0, 0, 0], "end": [1, 0, 0]})");
}

// A text with U+0000 is neither cut short nor refused.
TEST(ToolWrite, WritesTheReplacementForACharacterThatXmlForbids) {
  const std::string text =
      R"({"drawing": null, "elements": [{"class": "CKtZantoText", "Contents": "a\u0000b", )"
      R"("Location": [0, 0, 0], "Angle": 0, "JustificationX": 0, "JustificationY": 0, )"
      R"("Color": 1, "Height": 1}]})";
  ASSERT_EQ(write(text).err, "");
  EXPECT_NE(savedBytes("written.xml").find(R"(<Contents string="a&#65533;b"/>)"),
            std::string::npos);
}

TEST(ToolWrite, FilesTheSeriesOfADrawingWithoutAControlRecord) {
  const std::string drawing = quorvan::test::sampleDrawing();
  ASSERT_EQ(write(drawing).err, "");
  const std::string whole = savedBytes("written.xml");
  const std::size_t begin = drawing.find("{", drawing.find("\"drawing\""));
  ASSERT_EQ(
      write(replaced(drawing, drawing.substr(begin, drawing.find('}') + 1 - begin), "null")).err,
      "");
  const std::string record =
      whole.substr(whole.find("<CKtDrawingControl"),
                   whole.find("</Document>") - whole.find("<CKtDrawingControl"));
  EXPECT_EQ(savedBytes("written.xml"), replaced(whole, record, ""));
}

TEST(ToolWrite, RefusesAFolderThatThereIsNot) {
  quorvan::test::writeFile("drawing.json", quorvan::test::sampleDrawing());
  const auto run = runTool({"write", "drawing.json", "-o", "nowhere/written.xml"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("nothing can be written there"), std::string::npos) << run.err;
}

}  // namespace
