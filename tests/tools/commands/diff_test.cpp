#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <tests/support/saved_file.h>
#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using nlohmann::json;
using quorvan::test::fileBytes;
using quorvan::test::replaced;
using quorvan::test::runTool;
using quorvan::test::sampleBytes;
using quorvan::test::writeFile;

quorvan::test::ToolRun diff(const std::string& after,
                            const std::vector<std::string>& options = {}) {
  quorvan::test::writeSample();
  writeFile("after.xml", after);
  std::vector<std::string> arguments{"diff", "sample.xml", "after.xml"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return runTool(arguments);
}

// The sample without its first element of the class.
std::string without(const std::string& className) {
  std::string bytes = sampleBytes();
  const std::size_t begin = bytes.find('<' + className + ' ');
  const std::string end = "</" + className + '>';
  bytes.erase(begin, bytes.find(end, begin) + end.size() - begin);
  return bytes;
}

TEST(ToolDiff, SaysNothingAboutEqualFiles) {
  const auto run = diff(sampleBytes());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "");
}

TEST(ToolDiff, ComparesByContentAndNotByIndexOrOrder) {
  std::string bytes = sampleBytes();
  const std::string end = "</CKtZantoLine>";
  const std::size_t begin = bytes.find("<CKtZantoLine");
  const std::size_t length = bytes.find(end) + end.size() - begin;
  const std::string line = bytes.substr(begin, length);
  bytes.erase(begin, length);
  bytes.insert(bytes.find("<CKtDrawingControl"), replaced(line, "index=\"1\"", "index=\"9\""));
  const auto run = diff(bytes);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
}

TEST(ToolDiff, TakesDifferencesWithinTheToleranceForNone) {
  const std::string shifted = replaced(sampleBytes(), "X=\"5200.0000000\" Y=\"40.0000000\"",
                                       "X=\"5200.0009000\" Y=\"39.9991000\"");
  EXPECT_EQ(diff(shifted).status, 0);
  EXPECT_EQ(diff(shifted, {"--tolerance", "0.0005"}).status, 1);
  EXPECT_EQ(diff(shifted, {"--tolerance", "0"}).status, 1);
  EXPECT_EQ(diff(shifted, {"--tolerance", "-1"}).status, 2);
}

TEST(ToolDiff, NamesWhatWasDeletedAndAdded) {
  EXPECT_EQ(diff(without("CKtZantoPin")).out,
            "deleted: pin, mark 4, diameter 8 B500B, length 340, at (500, 250, 0)  [Pin 1]\n\n"
            "1 deleted, 0 added, 0 moved, 0 changed\n");
  quorvan::test::writeSample();
  writeFile("before.xml", without("CKtZantoCircle"));
  const auto run = runTool({"diff", "before.xml", "sample.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "added: Circle, at (4500, 200, 0), radius 125.5  [Circle 1]\n\n"
            "0 deleted, 1 added, 0 moved, 0 changed\n");
}

TEST(ToolDiff, NamesWhatWasMovedAndByWhat) {
  const std::string moved =
      replaced(replaced(sampleBytes(), R"(<Point1 X="500.0000000" Y="250)",
                        R"(<Point1 X="600.0000000" Y="250)"),
               R"(<Point2 X="700.0000000" Y="250)", R"(<Point2 X="800.0000000" Y="250)");
  EXPECT_EQ(diff(moved).out,
            "moved: pin, mark 4, diameter 8 B500B, length 340, at (500, 250, 0), by (100, 0, 0)  "
            "[Pin 1]\n\n"
            "0 deleted, 0 added, 1 moved, 0 changed\n");
}

TEST(ToolDiff, NamesWhatWasChangedItemByItem) {
  const std::string changed = replaced(
      replaced(sampleBytes(), R"(<Diameter double="12.0000000"/>)", R"(<Diameter double="14"/>)"),
      R"(<HookLength2 double="100.0000000"/>)", R"(<HookLength2 double="120"/>)");
  EXPECT_EQ(diff(changed).out,
            "changed: L bar, mark 2, diameter 12 B500B, length 560, at (100, 460, 0)  [LBar 1]\n"
            "    HookLength2: 100 \u2192 120\n"
            "    Diameter: 12 \u2192 14\n\n"
            "0 deleted, 0 added, 0 moved, 1 changed\n");
}

TEST(ToolDiff, KnowsABarByItsMarkWhenItsShapeChanged) {
  const std::string longer = replaced(sampleBytes(), R"(<Point1 X="500.0000000" Y="250)",
                                      R"(<Point1 X="450.0000000" Y="250)");
  const auto run = diff(longer);
  EXPECT_NE(run.out.find("    Point1: 500, 250, 0 \u2192 450, 250, 0\n"), std::string::npos)
      << run.out;
}

TEST(ToolDiff, ComparesTheControlRecord) {
  const std::string renamed =
      replaced(sampleBytes(), R"(<CheckSum long="4711"/>)", R"(<CheckSum long="4712"/>)");
  EXPECT_EQ(diff(renamed).out,
            "changed: drawing control record  [DrawingControl 1]\n"
            "    CheckSum: 4711 \u2192 4712\n\n"
            "0 deleted, 0 added, 0 moved, 1 changed\n");
}

// A repartition is compared by the bar that it repeats, whatever that one's index is.
TEST(ToolDiff, ComparesRepartitionsByTheBarThatTheyRepeat) {
  const std::string renumbered =
      replaced(replaced(sampleBytes(), R"(<CKtZantoFrameRect version="1" index="1">)",
                        R"(<CKtZantoFrameRect version="1" index="5">)"),
               R"(<Index long="1"/>)", R"(<Index long="5"/>)");
  EXPECT_EQ(diff(renumbered).out, "");
  const std::string lost = replaced(sampleBytes(), R"(<Index long="1"/>)", R"(<Index long="5"/>)");
  EXPECT_NE(diff(lost).out.find("    repeated bar: mark 6, diameter 8 B500B \u2192 none\n"),
            std::string::npos);
}

TEST(ToolDiff, SaysAShiftOfEverythingInOneLine) {
  const auto drawing = [](double by) {
    std::string elements;
    for (int i = 0; i < 6; ++i) {
      elements += quorvan::test::circleOf({by, 100.0 * i, 0}, 10.0 + i);
    }
    return quorvan::test::documentOf(elements + quorvan::test::lineOf({by, 0, 0}, {by + 50, 0, 0}));
  };
  writeFile("before.xml", drawing(0));
  writeFile("after.xml", drawing(250));
  EXPECT_EQ(runTool({"diff", "before.xml", "after.xml"}).out,
            "moved: everything, 7 elements, by (250, 0, 0)  [6 Circle, 1 Line]\n\n"
            "0 deleted, 0 added, 7 moved, 0 changed\n");
}

TEST(ToolDiff, SaysNumberSpacingAndLengthOfASeriesThatChanged) {
  const auto drawing = [](int count, double step, double high) {
    return quorvan::test::documentOf(
        quorvan::test::barOf({.points = {{0, 0, 0}, {0, high, 0}}, .mark = 3}) +
        quorvan::test::seriesOf(quorvan::test::uprightBars(0, 0, high, count, step)));
  };
  writeFile("before.xml", drawing(26, 150, 1000));
  writeFile("after.xml", drawing(31, 125, 1200));
  const std::string report = runTool({"diff", "before.xml", "after.xml"}).out;
  const std::size_t begin = report.find("changed: repartition of 26 StraightBar, spacing 150");
  ASSERT_NE(begin, std::string::npos) << report;
  EXPECT_NE(report.find("    number: 26 \u2192 31\n    spacing: 150 \u2192 125\n"
                        "    length: 1000 \u2192 1200\n",
                        begin),
            std::string::npos)
      << report;
  EXPECT_EQ(report.find("Positions"), std::string::npos);
  EXPECT_EQ(report.find("150, 150"), std::string::npos);
}

// The list stands beside the drawing; what goes out of the standard output stays what it was.
TEST(ToolDiff, DrawsBothDrawingsOverEachOther) {
  const std::string changed = without("CKtZantoPin");
  const std::string report = diff(changed).out;
  const auto run = diff(changed, {"-o", "review.svg"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, report);
  const std::string picture = fileBytes("review.svg");
  EXPECT_NE(picture.find("<title>sample.xml \u2192 after.xml</title>"), std::string::npos);
  EXPECT_NE(picture.find(">1 \u2212</text>"), std::string::npos);
  EXPECT_NE(picture.find("deleted: pin, mark 4, diameter 8 B500B, length 340"), std::string::npos);
  EXPECT_NE(picture.find("mark 4: gone, 1 bar, \u22120.1 kg"), std::string::npos);
}

TEST(ToolDiff, WritesAPageWithAButtonForEachCloud) {
  EXPECT_EQ(diff(without("CKtZantoPin"), {"-o", "review.html"}).status, 1);
  const std::string page = fileBytes("review.html");
  EXPECT_NE(page.find("<button type=\"button\"><b>1 \u2212</b><span>deleted: pin, mark 4"),
            std::string::npos);
  EXPECT_NE(page.find("data-e=\"0\""), std::string::npos);
  EXPECT_EQ(page.find("{{"), std::string::npos);
}

TEST(ToolDiff, DrawsEqualDrawingsWithoutAnyCloud) {
  EXPECT_EQ(diff(sampleBytes(), {"-o", "review.svg"}).status, 0);
  EXPECT_EQ(fileBytes("review.svg").find("data-e="), std::string::npos);
}

TEST(ToolDiff, RefusesToWriteAReviewOverADrawingOrInAnotherForm) {
  EXPECT_EQ(diff(sampleBytes(), {"-o", "sample.xml"}).status, 2);
  EXPECT_EQ(fileBytes("sample.xml"), sampleBytes());
  EXPECT_NE(diff(sampleBytes(), {"-o", "review.dxf"}).err.find("is drawn as .svg"),
            std::string::npos);
}

TEST(ToolDiff, GivesJsonAsPinned) {
  const std::string changed =
      replaced(replaced(without("CKtZantoPin"), R"(<Diameter double="12.0000000"/>)",
                        R"(<Diameter double="14"/>)"),
               R"(<Radius double="125.5000000"/>)", R"(<Radius double="100"/>)");
  const auto run = diff(changed, {"--json"});
  EXPECT_EQ(run.status, 1);
  quorvan::test::expectGolden("diff.json", run.out);
}

TEST(ToolDiff, CountsEqualElementsAsOftenAsTheyAreThere) {
  const std::string line =
      R"(<CKtZantoLine><Point1 X="0" Y="0" Z="0"/><Point2 X="9" Y="0" Z="0"/><Color long="1"/>)"
      R"(</CKtZantoLine>)";
  writeFile("three.xml", "<Document>" + line + line + line + "</Document>");
  writeFile("two.xml", "<Document>" + line + line + "</Document>");
  const json result = json::parse(runTool({"diff", "--json", "three.xml", "two.xml"}).out);
  EXPECT_EQ(result["deleted"], 1);
  EXPECT_EQ(result["differences"].size(), 1U);
}

}  // namespace
