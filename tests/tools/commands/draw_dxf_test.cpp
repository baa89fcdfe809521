// quorvan draw -o x.dxf: the drawing for CAD programs.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::fileBytes;
using quorvan::test::runTool;
using quorvan::test::sampleBytes;
using quorvan::test::ToolRun;
using quorvan::test::writeFile;

using DxfArguments = std::vector<std::string>;

ToolRun runDxf(const std::string& bytes, const DxfArguments& options = {}) {
  writeFile("drawn.xml", bytes);
  DxfArguments arguments{"draw", "drawn.xml", "-o", "drawn.dxf"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return runTool(arguments);
}

// A group a line: "8 LINES".
std::string dxfOf(const std::string& bytes, const DxfArguments& options = {}) {
  const ToolRun run = runDxf(bytes, options);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "");
  const std::string file = fileBytes("drawn.dxf");
  std::string groups;
  bool isCode = true;
  for (std::size_t at = 0; at < file.size(); isCode = !isCode) {
    const std::size_t end = file.find("\r\n", at);
    if (end == std::string::npos) {
      ADD_FAILURE() << "a line without end";
      break;
    }
    const std::string line = file.substr(at, end - at);
    groups += isCode ? line.substr(line.find_first_not_of(' ')) + ' ' : line + '\n';
    at = end + 2;
  }
  return groups;
}

std::string dxfOfElements(const std::string& elements, const DxfArguments& options = {}) {
  return dxfOf("<Document>" + elements + "</Document>", options);
}

std::string dxfSection(const std::string& groups, const std::string& name) {
  const std::size_t begin = groups.find("0 SECTION\n2 " + name + '\n');
  return begin == std::string::npos
             ? std::string()
             : groups.substr(begin, groups.find("0 ENDSEC\n", begin) - begin);
}

std::size_t countOfGroups(const std::string& groups, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = groups.find(part); at != std::string::npos;
       at = groups.find(part, at + 1)) {
    ++found;
  }
  return found;
}

std::string dxfPoint(const char* name, const std::string& x, const std::string& y) {
  return std::string("<") + name + " X=\"" + x + "\" Y=\"" + y + "\" Z=\"0\"/>";
}

std::string dxfLine(const std::string& x, const std::string& y, const std::string& color = "3") {
  return "<CKtZantoLine version=\"1\" index=\"7\">" + dxfPoint("Point1", "0", "0") +
         dxfPoint("Point2", x, y) + "<Color long=\"" + color + "\"/></CKtZantoLine>";
}

std::string dxfTextElement(const std::string& contents, const std::string& height = "2.5",
                           const std::string& angle = "0") {
  return "<CKtZantoText version=\"1\" index=\"1\"><Contents string=\"" + contents + "\"/>" +
         dxfPoint("Location", "10", "20") + "<Angle double=\"" + angle +
         "\"/><JustificationX long=\"0\"/><JustificationY long=\"0\"/><Color long=\"7\"/>"
         "<Height double=\"" +
         height + "\"/></CKtZantoText>";
}

std::string dxfBar(const std::string& diameter = "16", const std::string& hidden = "False",
                   const std::string& length = "1000") {
  return "<CKtZantoStraightBar version=\"1\" index=\"4\">" + dxfPoint("Point1", "0", "0") +
         dxfPoint("Point2", length, "0") +
         "<HookLength1 double=\"0\"/><HookLength2 double=\"0\"/><Hook1Up string=\"True\"/>"
         "<Hook2Up string=\"True\"/><HookAngle1 double=\"0\"/><HookAngle2 double=\"0\"/>"
         "<SteelGrade string=\"B500B\"/><Adherence string=\"Ha\"/><Diameter double=\"" +
         diameter + "\"/><Reference long=\"12\"/><Hidden string=\"" + hidden +
         "\"/></CKtZantoStraightBar>";
}

TEST(ToolDrawDxf, WritesTheSampleAsPinned) {
  quorvan::test::writeSample();
  ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "sample.dxf"}).err, "");
  quorvan::test::expectGolden("sample.dxf", fileBytes("sample.dxf"));
  ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "sample.dxf", "--dxf", "2000"}).err, "");
  quorvan::test::expectGolden("sample-2000.dxf", fileBytes("sample.dxf"));
}

TEST(ToolDrawDxf, GivesTheSameBytesForTheSameInput) {
  for (const char* const version : {"R12", "2000"}) {
    runDxf(sampleBytes(), {"--dxf", version});
    const std::string first = fileBytes("drawn.dxf");
    runDxf(sampleBytes(), {"--dxf", version});
    EXPECT_EQ(fileBytes("drawn.dxf"), first);
  }
}

TEST(ToolDrawDxf, HasTheSectionsOfItsVersion) {
  const std::string old = dxfOf(sampleBytes());
  EXPECT_NE(dxfSection(old, "HEADER").find("9 $ACADVER\n1 AC1009\n9 $DWGCODEPAGE\n3 ANSI_1252\n"),
            std::string::npos);
  EXPECT_EQ(dxfSection(old, "CLASSES") + dxfSection(old, "OBJECTS"), "");
  EXPECT_TRUE(old.ends_with("0 ENDSEC\n0 EOF\n"));
  const std::string newer = dxfOf(sampleBytes(), {"--dxf", "2000"});
  EXPECT_NE(dxfSection(newer, "HEADER").find("9 $ACADVER\n1 AC1015\n"), std::string::npos);
  for (const char* const name : {"CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"}) {
    EXPECT_NE(dxfSection(newer, name), "") << name;
  }
}

// What an outline goes round twice is filled as on paper, where programs leave a hatch empty.
TEST(ToolDrawDxf, HatchesAnOutlineUnlessItCrossesItself) {
  const std::vector<std::string> version = {"--dxf", "2000"};
  const std::string hatched =
      dxfOfElements(quorvan::test::fillOf({{0, 0, 0}, {4, 2, 0}, {0, 4, 0}, {1, 2, 0}}), version);
  EXPECT_EQ(countOfGroups(hatched, "0 HATCH\n"), 1U);
  const std::string cut =
      dxfOfElements(quorvan::test::fillOf({{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}}), version);
  EXPECT_EQ(countOfGroups(cut, "0 HATCH\n"), 0U);
  EXPECT_EQ(countOfGroups(cut, "0 SOLID\n"), 4U);
}

// In version 2000 every object has a handle of its own, and each is below the next free one.
TEST(ToolDrawDxf, GivesNoHandleTwice) {
  const std::string groups = dxfOf(sampleBytes(), {"--dxf", "2000"});
  std::set<unsigned long> handles;
  unsigned long seed = 0;
  bool isSeed = false;
  std::istringstream lines(groups);
  for (std::string line; std::getline(lines, line); isSeed = line == "9 $HANDSEED") {
    if (!line.starts_with("5 ") && !line.starts_with("105 ")) {
      continue;
    }
    const unsigned long handle = std::stoul(line.substr(line.find(' ') + 1), nullptr, 16);
    if (isSeed) {
      seed = handle;
    } else {
      EXPECT_TRUE(handles.insert(handle).second) << line;
    }
  }
  EXPECT_LT(*handles.rbegin(), seed);
}

// A line, with class, index and mark behind it.
TEST(ToolDrawDxf, LaysAnElementWhereItIs) {
  EXPECT_EQ(dxfSection(dxfOfElements(dxfLine("1234.5", "-67")), "ENTITIES"),
            "0 SECTION\n2 ENTITIES\n0 LINE\n8 LINES\n62 3\n10 0.0\n20 0.0\n30 0.0\n11 1234.5\n"
            "21 -67.0\n31 0.0\n1001 QUORVAN\n1000 CKtZantoLine\n1071 7\n1000 \n");
}

TEST(ToolDrawDxf, DrawsABarAsWideAsItIs) {
  const std::string entities = dxfSection(dxfOfElements(dxfBar()), "ENTITIES");
  EXPECT_EQ(entities,
            "0 SECTION\n2 ENTITIES\n0 POLYLINE\n8 BARS_16\n66 1\n10 0.0\n20 0.0\n30 0.0\n70 0\n"
            "40 16.0\n41 16.0\n1001 QUORVAN\n1000 CKtZantoStraightBar\n1071 4\n1000 12\n"
            "0 VERTEX\n8 BARS_16\n10 0.0\n20 0.0\n30 0.0\n0 VERTEX\n8 BARS_16\n10 1000.0\n20 0.0\n"
            "30 0.0\n0 SEQEND\n8 BARS_16\n");
}

TEST(ToolDrawDxf, DrawsABarAsItsAxisOrItsOutline) {
  const std::string axis = dxfOfElements(dxfBar(), {"--bars", "axis"});
  EXPECT_EQ(countOfGroups(axis, "\n40 16.0\n41 16.0\n"), 0U);
  EXPECT_EQ(countOfGroups(axis, "0 VERTEX\n"), 2U);
  const std::string outline = dxfOfElements(dxfBar(), {"--bars", "outline"});
  EXPECT_EQ(countOfGroups(outline, "0 VERTEX\n"), 4U);
  EXPECT_EQ(countOfGroups(outline, "0 VERTEX\n8 BARS_16\n10 1000.0\n20 -8.0\n"), 1U);
  EXPECT_EQ(countOfGroups(outline, "\n70 1\n1001 QUORVAN"), 1U);
}

// The diameter in a layer's name is in millimetres.
TEST(ToolDrawDxf, KeepsTheUnitOfTheDrawing) {
  const std::string groups =
      dxfOfElements(dxfBar("0.016", "False", "6"), {"--unit", "m", "--dxf", "2000"});
  EXPECT_EQ(countOfGroups(groups, "\n8 BARS_16\n100 AcDbPolyline\n90 2\n70 0\n43 0.016\n"), 1U);
  EXPECT_EQ(countOfGroups(dxfSection(groups, "ENTITIES"), "\n10 6.0\n20 0.0\n"), 1U);
  EXPECT_EQ(countOfGroups(groups, "9 $INSUNITS\n70 6\n"), 1U);
  EXPECT_EQ(countOfGroups(dxfOfElements(dxfBar(), {"--dxf", "2000"}), "9 $INSUNITS\n70 4\n"), 1U);
  EXPECT_EQ(countOfGroups(dxfOfElements(dxfBar(), {"--dxf", "2000", "--unit", "cm"}),
                          "9 $INSUNITS\n70 5\n"),
            1U);
}

TEST(ToolDrawDxf, PutsHiddenBarsOnDashedLayers) {
  const std::string hidden = dxfBar("16", "True");
  const std::string layer = "0 LAYER\n2 BARS_16_HIDDEN\n70 0\n62 1\n6 ";
  EXPECT_EQ(countOfGroups(dxfOfElements(hidden), layer + "DASHED\n"), 1U);
  EXPECT_EQ(countOfGroups(dxfOfElements(hidden, {"--hidden", "solid"}), layer + "CONTINUOUS\n"),
            1U);
  EXPECT_EQ(countOfGroups(dxfOfElements(hidden, {"--hidden", "off"}), "0 POLYLINE\n"), 0U);
}

TEST(ToolDrawDxf, WritesTheLayersThatAreAskedFor) {
  const std::string some = dxfOf(sampleBytes(), {"--layers", "lines,texts"});
  EXPECT_NE(countOfGroups(some, "0 LINE\n8 LINES\n"), 0U);
  EXPECT_NE(countOfGroups(some, "0 TEXT\n8 TEXTS\n"), 0U);
  EXPECT_EQ(countOfGroups(some, "0 LAYER\n"), 3U);
  EXPECT_EQ(countOfGroups(dxfOf(sampleBytes(), {"--without", "texts"}), "0 TEXT\n"), 0U);
}

TEST(ToolDrawDxf, LeavesOutWhatLiesBesideTheWindow) {
  const std::string pair = dxfLine("10", "10") + dxfBar("16", "False", "-500");
  EXPECT_EQ(countOfGroups(dxfOfElements(pair, {"--window", "5,5,50,50"}), "0 POLYLINE\n"), 0U);
  EXPECT_EQ(countOfGroups(dxfOfElements(pair, {"--window", "5,5,50,50"}), "0 LINE\n"), 1U);
}

// Everything is in, wherever it lies; the first view is of what belongs together.
TEST(ToolDrawDxf, KeepsWhatLiesFarFromTheRest) {
  std::string elements;
  for (int i = 0; i < 40; ++i) {
    elements += dxfLine(std::to_string(10 + i), "10");
  }
  elements += "<CKtZantoLine version=\"1\" index=\"9\">" + dxfPoint("Point1", "9000000", "0") +
              dxfPoint("Point2", "9000001", "0") + "<Color long=\"1\"/></CKtZantoLine>";
  const std::string groups = dxfOfElements(elements);
  EXPECT_EQ(countOfGroups(groups, "0 LINE\n"), 41U);
  EXPECT_EQ(countOfGroups(groups, "9 $EXTMAX\n10 9000001.0\n"), 1U);
  EXPECT_EQ(countOfGroups(groups, "\n12 24.5\n22 5.0\n"), 1U);
}

TEST(ToolDrawDxf, KeepsTheFilesColourIndex) {
  EXPECT_EQ(countOfGroups(dxfOfElements(dxfLine("1", "1", "211")), "\n62 211\n"), 1U);
  EXPECT_EQ(countOfGroups(dxfSection(dxfOfElements(dxfLine("1", "1", "256")), "ENTITIES"), "\n62 "),
            0U);
}

TEST(ToolDrawDxf, TakesTheNearestIndexOfAColour) {
  const auto colored = [](const char* number) {
    return dxfSection(dxfOfElements(dxfLine("1", "1", number), {"--colors", "rgb"}), "ENTITIES");
  };
  EXPECT_EQ(countOfGroups(colored("16711680"), "\n62 1\n"), 1U);
  EXPECT_EQ(countOfGroups(colored("16776960"), "\n62 2\n"), 1U);
  EXPECT_EQ(countOfGroups(colored("0"), "\n62 7\n"), 1U);
  EXPECT_EQ(countOfGroups(colored("16777215"), "\n62 7\n"), 1U);
  EXPECT_EQ(countOfGroups(colored("8421505"), "\n62 8\n"), 1U);
}

TEST(ToolDrawDxf, NamesTextsThatDoNotFit) {
  const ToolRun run =
      runDxf("<Document>" + dxfTextElement("x &#x2264; 5") + dxfTextElement(std::string(300, 'y')) +
             dxfTextElement("a&#10;b") + "</Document>");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.err.find("ANSI 1252 lacks, written as \\U+nnnn: 1: Text, Contents \"x \u2264 5\""),
            std::string::npos)
      << run.err;
  EXPECT_NE(run.err.find("texts cut, which are longer than a DXF can hold: 1: "),
            std::string::npos);
  EXPECT_NE(run.err.find("control characters, which become blanks: 1: "), std::string::npos);
  const std::string groups = dxfSection(dxfOfElements(dxfTextElement("a&#10;b")), "ENTITIES");
  EXPECT_NE(groups.find("\n1 a b\n"), std::string::npos);
}

TEST(ToolDrawDxf, HoldsALongerTextInVersion2000) {
  const std::string text = dxfTextElement(std::string(300, 'y'));
  EXPECT_EQ(countOfGroups(dxfOfElements(text), "\n1 " + std::string(255, 'y') + '\n'), 1U);
  EXPECT_EQ(
      countOfGroups(dxfOfElements(text, {"--dxf", "2000"}), "\n1 " + std::string(300, 'y') + '\n'),
      1U);
}

TEST(ToolDrawDxf, GivesATextWithoutHeightTheUsualOne) {
  const std::string usual = dxfTextElement("a", "80") + dxfTextElement("b", "80");
  const ToolRun run = runDxf("<Document>" + usual + dxfTextElement("c", "0") + "</Document>");
  EXPECT_NE(run.err.find("texts without a height are drawn as high as labels: 1\n"),
            std::string::npos);
  EXPECT_EQ(countOfGroups(dxfOfElements(usual + dxfTextElement("c", "0")), "\n40 80.0\n1 c\n"), 1U);
}

// What no program could hold is left out and named; the rest of the file is as it would be.
TEST(ToolDrawDxf, LeavesOutAndNamesWhatHasNoPlace) {
  const std::string good = dxfLine("10", "10");
  const std::string expected = dxfSection(dxfOfElements(good), "ENTITIES");
  for (const std::string& bad :
       {dxfLine("1e300", "0"), dxfLine("inf", "1e13"), dxfLine("-1e13", "5"), dxfBar("1e300"),
        dxfTextElement("x", "1e300"), dxfTextElement("x", "1e13")}) {
    const ToolRun run = runDxf("<Document>" + bad + good + "</Document>");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.err.find("elements left out, which lie beyond what a DXF can hold: 1: "),
              std::string::npos)
        << bad << run.err;
    EXPECT_EQ(dxfSection(dxfOfElements(bad + good), "ENTITIES"), expected) << bad;
  }
}

TEST(ToolDrawDxf, WritesNoNumberThatReadersTrip) {
  for (const std::string& odd :
       {dxfLine("-0", "-1e-300"), dxfLine("nan", "inf"), dxfBar("nan"), dxfBar("-16"), dxfBar("0"),
        dxfTextElement("x", "nan"), dxfTextElement("x", "-3"), dxfTextElement("x", "3", "1e300"),
        dxfTextElement("x", "3", "nan"), dxfBar("16", "?", "0")}) {
    for (const char* const version : {"R12", "2000"}) {
      const std::string groups = dxfOfElements(odd, {"--dxf", version});
      EXPECT_EQ(groups.find("nan"), std::string::npos) << odd;
      EXPECT_EQ(groups.find("inf"), std::string::npos) << odd;
      EXPECT_EQ(groups.find(" -0.0\n"), std::string::npos) << odd;
    }
  }
}

TEST(ToolDrawDxf, DrawsAPointWhereThereIsNoExtent) {
  const std::string circle = "<CKtZantoCircle version=\"1\" index=\"1\">" +
                             dxfPoint("Center", "5", "6") +
                             "<Radius double=\"0\"/><Color long=\"1\"/></CKtZantoCircle>";
  EXPECT_EQ(countOfGroups(dxfOfElements(circle), "0 POINT\n8 CIRCLES\n62 1\n10 5.0\n20 6.0\n"), 1U);
}

TEST(ToolDrawDxf, WritesAFileWithoutEntities) {
  const std::string groups = dxfOfElements("");
  EXPECT_EQ(dxfSection(groups, "ENTITIES"), "0 SECTION\n2 ENTITIES\n");
  EXPECT_EQ(countOfGroups(groups, "9 $EXTMAX\n10 420.0\n20 297.0\n"), 1U);
}

TEST(ToolDrawDxf, MakesBlocksOfTheBarsOfASeries) {
  const std::string groups = dxfOf(sampleBytes());
  const std::string blocks = dxfSection(groups, "BLOCKS");
  EXPECT_EQ(countOfGroups(blocks, "0 BLOCK\n"), countOfGroups(blocks, "0 ENDBLK\n"));
  EXPECT_NE(countOfGroups(blocks, "0 BLOCK\n8 0\n2 SERIES_1\n"), 0U);
  EXPECT_GE(countOfGroups(groups, "0 INSERT\n"), 2 * countOfGroups(blocks, "0 BLOCK\n"));
}

TEST(ToolDrawDxf, RefusesAVersionThatIsNone) {
  EXPECT_EQ(runDxf(sampleBytes(), {"--dxf", "2018"}).status, 2);
  EXPECT_EQ(runDxf(sampleBytes(), {"--bars", "thick"}).status, 2);
}

}  // namespace
