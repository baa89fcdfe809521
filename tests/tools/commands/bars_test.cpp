#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using nlohmann::json;
using quorvan::test::runTool;

json barsOf(const std::string& drawing) {
  quorvan::test::writeFile("bars.json", drawing);
  EXPECT_EQ(runTool({"write", "bars.json", "-o", "bars.xml"}).err, "");
  return json::parse(runTool({"bars", "--json", "bars.xml"}).out)["bars"];
}

std::string drawingOf(const std::string& elements) {
  return R"({"drawing": null, "elements": [)" + elements + "]}";
}

const std::string kSteel =
    R"("SteelGrade": "B500B", "Adherence": "Ha", "Diameter": 8, "Reference": 1, "Hidden": false)";

std::string pin(double length, const std::string& steel = kSteel) {
  return R"({"class": "CKtZantoPin", "Point1": [0, 0, 0], "Point2": [)" + std::to_string(length) +
         R"(, 0, 0], "HookLength1": 0, "HookLength2": 0, "HookAngle1": 0, "HookAngle2": 0, )" +
         steel + "}";
}

TEST(ToolBars, ShowsTheSampleAsPinned) {
  quorvan::test::writeSample();
  const auto run = runTool({"bars", "sample.xml"});
  EXPECT_EQ(run.status, 0);
  quorvan::test::expectGolden("bars.txt", run.out);
}

TEST(ToolBars, GivesCsvAndJsonAsPinned) {
  quorvan::test::writeSample();
  quorvan::test::expectGolden("bars.csv", runTool({"bars", "--csv", "sample.xml"}).out);
  quorvan::test::expectGolden("bars.json", runTool({"bars", "--json", "sample.xml"}).out);
}

// The lengths of the sample by hand, shape by shape.
TEST(ToolBars, MeasuresEveryShapeByTheConventionThatItStates) {
  quorvan::test::writeSample();
  const json bars = json::parse(runTool({"bars", "--json", "sample.xml"}).out)["bars"];
  const std::pair<int, double> expected[] = {
      {1, 3920 + 150 + 150},          // straight bar with two hooks
      {2, 60 + 400 + 100},            // L bar: both legs, one hook
      {3, 960 + 380 + 960},           // U bar: the third leg equals the first
      {4, 200 + 80 + 60},             // pin
      {5, 500 + 500 + 600 + 120},     // polygon bar: 300 by 400 gives 500
      {6, 2 * (320 + 420) + 2 * 90},  // rectangular frame, a hook at both ends
      {7, 1257 + 300 + 2 * 80},       // circular frame: 2 pi 200, overlap, two hooks
      {8, 2 * 420 + 2 * 90},          // stirrup: there and back
  };
  ASSERT_EQ(bars.size(), std::size(expected));
  for (std::size_t i = 0; i < bars.size(); ++i) {
    EXPECT_EQ(bars[i]["mark"], expected[i].first);
    EXPECT_EQ(bars[i]["length"], expected[i].second) << bars[i];
  }
}

// 8 mm: 0.3946 kg/m at 7850 kg/m3.
TEST(ToolBars, WeighsSteel) {
  const json bars = barsOf(drawingOf(pin(10000)));
  EXPECT_EQ(bars[0]["totalLength"], 10.0);
  EXPECT_EQ(bars[0]["mass"], 3.95);
}

TEST(ToolBars, CountsTheBarsOfRepartitions) {
  quorvan::test::writeSample();
  const json bars = json::parse(runTool({"bars", "--json", "sample.xml"}).out)["bars"];
  EXPECT_EQ(bars[5]["number"], 5);
  EXPECT_EQ(bars[5]["elements"], json::parse(R"([{"class": "CKtZantoFrameRect", "index": "1"},
                            {"class": "CKtZantoRepartition", "index": "1"}])"));
}

TEST(ToolBars, ListsBarsSeenEndOnWithTheOthersOfTheirMark) {
  quorvan::test::writeSample();
  const json bars = json::parse(runTool({"bars", "--json", "sample.xml"}).out)["bars"];
  EXPECT_EQ(bars[0]["number"], 2);
  EXPECT_EQ(bars[0]["hidden"], 1);
  EXPECT_EQ(bars[0]["endOn"], json::parse(R"([{"class": "CKtZantoPointBar", "index": "1"}])"));
}

TEST(ToolBars, CountsBarsSeenEndOnAloneWithoutLength) {
  const json bars =
      barsOf(drawingOf(R"({"class": "CKtZantoPointBar", "Point1": [0, 0, 0], )" + kSteel + "}, " +
                       R"({"class": "CKtZantoPointBar", "Point1": [9, 0, 0], )" + kSteel + "}"));
  ASSERT_EQ(bars.size(), 1U);
  EXPECT_EQ(bars[0]["number"], 2);
  EXPECT_EQ(bars[0]["length"], nullptr);
}

TEST(ToolBars, KeepsBarsOfDifferentLengthApartAndThoseOfEqualLengthTogether) {
  const json bars = barsOf(drawingOf(pin(1000.4) + ", " + pin(1000.6) + ", " + pin(1010)));
  ASSERT_EQ(bars.size(), 2U);
  EXPECT_EQ(bars[0]["number"], 2);
  EXPECT_EQ(bars[1]["length"], 1010.0);
}

TEST(ToolBars, TakesOtherUnits) {
  quorvan::test::writeFile("m.json",
                           drawingOf(pin(2.5, quorvan::test::replaced(kSteel, "8,", "0.016,"))));
  runTool({"write", "m.json", "-o", "m.xml"});
  const json list = json::parse(runTool({"bars", "--json", "--unit", "m", "m.xml"}).out);
  EXPECT_EQ(list["bars"][0]["length"], 2.5);
  EXPECT_EQ(list["mass"], 3.95);  // 1.578 kg/m
  EXPECT_EQ(list["bars"][0]["diameter"], 16);
  EXPECT_EQ(runTool({"bars", "--unit", "foot", "m.xml"}).status, 2);
}

// A repartition as it stands in a file.
std::string repartition(const std::string& of, int index, int view, const std::string& top,
                        const std::string& bottom, const std::string& positions,
                        const std::string& axis = "[0, 10, 0]") {
  return R"({"class": "CKtZantoRepartition", "Point1": [0, 0, 0], "Point2": [0, 0, 0], )"
         R"("Bulge": [0, 0, 0], "ViewPoint": )" +
         std::to_string(view) + R"(, "Axis": )" + axis + R"(, "AxisDistancesTop": [)" + top +
         R"(], "AxisDistancesBottom": [)" + bottom + R"(], "Positions": [)" + positions +
         R"(], "DefClassName": ")" + of + R"(", "Index": )" + std::to_string(index) +
         R"(, "Hidden": false})";
}

std::string straight(const std::string& end, const std::string& steel = kSteel, int hook = 0) {
  const std::string length = std::to_string(hook);
  return R"({"class": "CKtZantoStraightBar", "Point1": [0, 0, 0], "Point2": )" + end +
         R"(, "HookLength1": )" + length + R"(, "HookLength2": )" + length +
         R"(, "Hook1Up": true, "Hook2Up": true, "HookAngle1": 90, "HookAngle2": 90, )" + steel +
         "}";
}

std::string pointBar(const std::string& steel = kSteel) {
  return R"({"class": "CKtZantoPointBar", "Point1": [0, 0, 0], )" + steel + "}";
}

json listOf(const std::string& drawing, const std::vector<std::string>& options = {}) {
  quorvan::test::writeFile("bars.json", drawing);
  EXPECT_EQ(runTool({"write", "bars.json", "-o", "bars.xml"}).err, "");
  std::vector<std::string> arguments{"bars", "--json", "bars.xml"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return json::parse(runTool(arguments).out);
}

TEST(ToolBars, CountsBarsForThemselvesBesideOneThatARepartitionRepeats) {
  const std::string bars = straight("[1000, 0, 0]") + ", " + straight("[1000, 0, 0]") + ", " +
                           straight("[1000, 0, 0]") + ", ";
  const json list = listOf(
      drawingOf(bars + repartition("CKtZantoStraightBar", 2, 1, "9, 9, 9, 9, 9", "9, 9, 9, 9, 9",
                                   "150, 150, 150, 150, 150", "[0, 0, 0]")));
  ASSERT_EQ(list["bars"].size(), 1U);
  EXPECT_EQ(list["bars"][0]["number"], 7);
  EXPECT_EQ(list["bars"][0]["explanation"],
            "3 drawn, 1 of them repeated by Repartition 1 (5 bars): 7");
}

TEST(ToolBars, ExplainsTheNumbersWhereAsked) {
  quorvan::test::writeSample();
  const std::string explained = runTool({"bars", "--explain", "sample.xml"}).out;
  EXPECT_NE(explained.find("1 drawn, 1 of them repeated by Repartition 1 (5 bars): 5\n"),
            std::string::npos);
  EXPECT_EQ(runTool({"bars", "sample.xml"}).out.find("repeated by Repartition"), std::string::npos);
  EXPECT_NE(runTool({"bars", "--csv", "--explain", "sample.xml"}).out.find("2 drawn: 2"),
            std::string::npos);
}

// The corner of a slab: bars from 1.00 to 2.00 m, drawn by the longest, with hooks of 100.
TEST(ToolBars, GivesEachBarOfASeriesItsOwnLength) {
  const std::string drawing =
      drawingOf(straight("[2000, 0, 0]", kSteel, 100) + ", " +
                repartition("CKtZantoStraightBar", 1, 3, "500, 625, 750, 875, 1000",
                            "-500, -625, -750, -875, -1000", "150, 150, 150, 150"));
  const json list = listOf(drawing);
  ASSERT_EQ(list["bars"].size(), 1U);
  EXPECT_EQ(list["bars"][0]["number"], 5);
  EXPECT_EQ(list["bars"][0]["length"], 1200);
  EXPECT_EQ(list["bars"][0]["lengthTo"], 2200);
  EXPECT_EQ(list["bars"][0]["totalLength"], 8.5);
  EXPECT_NE(runTool({"bars", "bars.xml"}).out.find("1200 to 2200   8.50"), std::string::npos);
  const json each = listOf(drawing, {"--by-length"});
  ASSERT_EQ(each["bars"].size(), 5U);
  EXPECT_EQ(each["bars"][1]["length"], 1450);
  EXPECT_EQ(each["bars"][1]["lengthTo"], 1450);
  EXPECT_EQ(each["bars"][1]["number"], 1);
  EXPECT_EQ(each["mass"], list["mass"]);
}

// Pushed as a host does: bars at 45 degrees, 1000 and 2000 long. Their distances lie along x.
TEST(ToolBars, MeasuresASeriesAtAnAngleAlongItsBars) {
  const auto frame = [](const std::string& first, const std::string& second) {
    return "{" + first + ", " + second + R"(, "className": "CKtZantoStraightBar", )" +
           R"("hookLength1": 0, "hookAngle1": 0, "steelGrade": "B500B", "adherence": "Ha", )" +
           R"("reference": 1, "diameter": 8, "hidden": false, "keyC": 1, "viewPoint": 3, )" +
           R"("lastInt": 0})";
  };
  const std::string drawing =
      drawingOf(straight("[1414.2135624, 1414.2135624, 0]") + R"(, {"series": [)" +
                frame(R"("value1": 0, "value2": 0, "value3": 0)",
                      R"("value4": 707.1067812, "value5": 707.1067812, "value6": 0)") +
                ", " +
                frame(R"("value1": 0, "value2": 200, "value3": 0)",
                      R"("value4": 1414.2135624, "value5": 1614.2135624, "value6": 0)") +
                "]}");
  // A series is filed when the record of the drawing closes the filing.
  const json list = listOf(quorvan::test::replaced(
      drawing, "null", R"({"name": "A", "version": "1", "servicePack": 0, "checkSum": 0})"));
  ASSERT_EQ(list["bars"].size(), 1U);
  EXPECT_EQ(list["bars"][0]["length"], 1000);
  EXPECT_EQ(list["bars"][0]["lengthTo"], 2000);
  EXPECT_EQ(list["bars"][0]["totalLength"], 3.0);
}

TEST(ToolBars, CountsASeriesInTwoViewsTwiceWithARemarkOrOnce) {
  const std::string drawing = drawingOf(
      pin(500) + ", " + repartition("CKtZantoPin", 1, 2, "1, 1, 1", "0, 0, 0", "150, 200") + ", " +
      repartition("CKtZantoPin", 1, 3, "1, 1, 1", "0, 0, 0", "200, 150"));
  const json twice = listOf(drawing);
  EXPECT_EQ(twice["bars"][0]["number"], 6);
  EXPECT_EQ(twice["bars"][0]["remarks"][0],
            "Repartition 1, 2 look like the same bars in several views: all of them count");
  const auto checked = runTool({"check", "bars.xml"});
  EXPECT_EQ(checked.status, 2);  // the drawing has no control record, either
  EXPECT_NE(checked.out.find("507"), std::string::npos);
  const json once = listOf(drawing, {"--views", "once"});
  EXPECT_EQ(once["bars"][0]["number"], 3);
  EXPECT_EQ(once["bars"][0]["remarks"][0],
            "Repartition 2 shows the bars of Repartition 1 in another view");
}

TEST(ToolBars, CountsSeriesOfOneViewOrOfOtherStepsAsTheyAre) {
  const json list =
      listOf(drawingOf(pin(500) + ", " +
                       repartition("CKtZantoPin", 1, 2, "1, 1, 1", "0, 0, 0", "150, 200") + ", " +
                       repartition("CKtZantoPin", 1, 2, "1, 1, 1", "0, 0, 0", "150, 200") + ", " +
                       repartition("CKtZantoPin", 1, 3, "1, 1, 1", "0, 0, 0", "150, 210")),
             {"--views", "once"});
  EXPECT_EQ(list["bars"][0]["number"], 9);
  EXPECT_EQ(list["bars"][0]["remarks"], json::array());
}

std::vector<std::string> leftOut(const json& list) {
  std::vector<std::string> lines;
  for (const json& one : list["notInSums"]) {
    lines.push_back(one["class"].get<std::string>() + ' ' + one["index"].get<std::string>() + " x" +
                    std::to_string(one["number"].get<int>()) + ": " +
                    one["reason"].get<std::string>());
  }
  return lines;
}

TEST(ToolBars, NamesRepartitionsWhoseBarIsNotThere) {
  const json list =
      listOf(drawingOf(repartition("CKtZantoUBar", -1, 2, "1, 1", "0, 0", "150") + ", " +
                       repartition("CKtZantoLine", 1, 2, "1, 1, 1", "0, 0, 0", "150, 150")));
  EXPECT_EQ(leftOut(list),
            (std::vector<std::string>{
                "CKtZantoRepartition 1 x2: the bar that it repeats is not in the file",
                "CKtZantoRepartition 2 x3: the bar that it repeats is not in the file"}));
}

TEST(ToolBars, LeavesBarsSeenEndOnToARowOfTheirDiameterAndGradeAlone) {
  const std::string thick = quorvan::test::replaced(kSteel, "8,", "12,");
  const std::string drawing = drawingOf(pin(500) + ", " + pointBar() + ", " + pointBar(thick));
  // A series is filed when the drawing's record closes the filing.
  const json list = listOf(quorvan::test::replaced(
      drawing, "null", R"({"name": "A", "version": "1", "servicePack": 0, "checkSum": 0})"));
  ASSERT_EQ(list["bars"].size(), 2U);
  EXPECT_EQ(list["bars"][0]["endOn"].size(), 1U);
  EXPECT_EQ(list["bars"][1]["diameter"], 12);
  EXPECT_EQ(list["bars"][1]["length"], nullptr);
  EXPECT_EQ(leftOut(list), (std::vector<std::string>{"CKtZantoPointBar 2 x1: seen end-on: its "
                                                     "length is not in the file"}));
  EXPECT_EQ(list["sums"].size(), 1U);
}

TEST(ToolBars, MarksTheLengthOfAStirrupAsALowerBound) {
  quorvan::test::writeSample();
  const std::string text = runTool({"bars", "sample.xml"}).out;
  EXPECT_NE(text.find("  \u2265 1020  "), std::string::npos);
  const json list = json::parse(runTool({"bars", "--json", "sample.xml"}).out);
  EXPECT_EQ(list["bars"][7]["isLowerBound"], true);
  EXPECT_EQ(list["bars"][5]["isLowerBound"], false);
}

TEST(ToolBars, NamesBarsWithoutALengthThatCanBeReckonedWith) {
  quorvan::test::writeFile("bars.json", drawingOf(pin(500) + ", " + pin(600) + ", " + pin(700) +
                                                  ", " + pin(800) + ", " + pin(900)));
  EXPECT_EQ(runTool({"write", "bars.json", "-o", "bars.xml"}).err, "");
  std::string bytes = quorvan::test::fileBytes("bars.xml");
  bytes = quorvan::test::replaced(bytes, R"(X="500.0000000")", R"(X="inf")");
  bytes = quorvan::test::replaced(bytes, R"(<Point2 X="600.0000000" Y="0.0000000" Z="0.0000000"/>)",
                                  "");
  bytes = quorvan::test::replaced(bytes, R"(X="700.0000000")",
                                  "X=\"7" + std::string(300, '0') + ".0\"");
  bytes = quorvan::test::replaced(bytes, R"(X="800.0000000")", R"(X="0.0000000")");
  quorvan::test::writeFile("bars.xml", bytes);
  const json list = json::parse(runTool({"bars", "--json", "bars.xml"}).out);
  ASSERT_EQ(list["bars"].size(), 1U);
  EXPECT_EQ(list["bars"][0]["length"], 900);
  EXPECT_EQ(leftOut(list),
            (std::vector<std::string>{"CKtZantoPin 1 x1: Point2 is missing or no number",
                                      "CKtZantoPin 2 x1: Point2 is missing or no number",
                                      "CKtZantoPin 3 x1: no length that can be reckoned with",
                                      "CKtZantoPin 4 x1: no length that can be reckoned with"}));
}

TEST(ToolBars, ListsMeshesByTypeAndSize) {
  const std::string mesh =
      R"({"class": "CKtZantoMesh", "Type": "ST 25 C", "Reference": "T1", "Angle": 0, )"
      R"("ExtensionX": 6000, "ExtensionY": 2400, "Points": []})";
  const json list = listOf(drawingOf(mesh + ", " + mesh));
  ASSERT_EQ(list["meshes"].size(), 1U);
  EXPECT_EQ(list["meshes"][0]["pieces"], 2);
  EXPECT_EQ(list["meshes"][0]["area"], 14.4);
  EXPECT_NE(runTool({"bars", "bars.xml"}).out.find("ST 25 C       2     6000     2400  14.40"),
            std::string::npos);
}

TEST(ToolBars, MakesOneListOfTheDrawingsOfAFolder) {
  std::filesystem::create_directories("job/second");
  const auto drawing = [](const std::string& name) {
    return R"({"drawing": {"name": ")" + name +
           R"(", "version": "1", "servicePack": 0, "checkSum": 0}, "elements": [)" + pin(1000) +
           "]}";
  };
  quorvan::test::writeFile("a.json", drawing("A"));
  quorvan::test::writeFile("b.json", drawing("B"));
  runTool({"write", "a.json", "-o", "job/a.xml"});
  runTool({"write", "b.json", "-o", "job/second/b.XML"});
  quorvan::test::writeFile("job/notes.txt", "no drawing");
  const json list = json::parse(runTool({"bars", "--json", "job"}).out);
  ASSERT_EQ(list["bars"].size(), 2U);
  EXPECT_EQ(list["bars"][0]["drawing"], "A");
  EXPECT_EQ(list["bars"][1]["drawing"], "B");
  ASSERT_EQ(list["sums"].size(), 1U);
  EXPECT_EQ(list["sums"][0]["number"], 2);
  EXPECT_EQ(list["drawings"][1]["totalLength"], 1.0);
  const auto twice = runTool({"bars", "--csv", "job/a.xml", "job"});
  EXPECT_NE(twice.err.find("named twice, and taken once"), std::string::npos);
  EXPECT_EQ(std::ranges::count(twice.out, '\n'), 3);
  EXPECT_EQ(runTool({"bars", "job", "nowhere.xml"}).status, 2);
}

TEST(ToolBars, SchedulesAfterShapeCodes) {
  const json list =
      listOf(drawingOf(straight("[984, 0, 0]", kSteel, 96)), {"--schedule", "bs8666"});
  const json& bar = list["bars"][0];
  EXPECT_EQ(bar["code"], 21);
  // 100 + 992 + 100 to the next 5, less r + 2 d with r = 16, up to the next 25.
  EXPECT_EQ(bar["length"], 1175);
  EXPECT_EQ(bar["bent"]["dimensions"][1], json::parse(R"({"letter": "B", "value": 990,
                                                          "isFree": false})"));
}

TEST(ToolBars, SchedulesAlongTheCentreLine) {
  const std::string drawing = drawingOf(straight("[984, 0, 0]", kSteel, 96));
  // Two right angles about 20 mm take 17.2 off 1176.
  EXPECT_EQ(listOf(drawing, {"--schedule", "iso3766"})["bars"][0]["length"], 1160);
  EXPECT_EQ(listOf(drawing, {"--schedule", "iso3766", "--round-lengths", "0"})["bars"][0]["length"],
            1159);
  EXPECT_EQ(listOf(drawing, {"--schedule", "iso3766", "--round-lengths", "50", "--rounding",
                             "up"})["bars"][0]["length"],
            1200);
  // The dimensions are 100, 992 and 100.
  EXPECT_EQ(listOf(drawing, {"--schedule", "iso3766", "--deduct", "2d", "--round-lengths",
                             "1"})["bars"][0]["length"],
            1192 - 2 * 16);
  EXPECT_EQ(listOf(drawing, {"--schedule", "iso3766", "--deduct", "none", "--round-lengths",
                             "1"})["bars"][0]["length"],
            1192);
  EXPECT_EQ(runTool({"bars", "--deduct", "2d", "bars.xml"}).status, 2);
  EXPECT_EQ(runTool({"bars", "--mandrel", "wide", "bars.xml"}).status, 2);
}

// 200 and 400 are bent otherwise than 300 and 300: one mark, two rows to bend from.
TEST(ToolBars, KeepsShapesApartWhereTheyAreBentFrom) {
  const auto bar = [](int first, int second) {
    return R"({"class": "CKtZantoLBar", "Point1": [)" + std::to_string(first) +
           R"(, 0, 0], "Point2": [0, 0, 0], "Point3": [0, )" + std::to_string(second) +
           R"(, 0], "HookLength1": 0, "HookAngle1": 0, "HookLength2": 0, "HookAngle2": 0, )" +
           kSteel + "}";
  };
  const std::string drawing =
      drawingOf(bar(200, 400) + ", " + bar(400, 200) + ", " + bar(300, 300));
  EXPECT_EQ(listOf(drawing)["bars"].size(), 1U);
  const json rows = listOf(drawing, {"--schedule", "iso3766"})["bars"];
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0]["number"], 2);
}

TEST(ToolBars, SpeaksFrenchWithDecimalCommas) {
  quorvan::test::writeSample();
  const std::string list =
      runTool({"bars", "--lang", "fr", "--schedule", "iso3766", "--explain", "sample.xml"}).out;
  for (const char* const words :
       {"Nomenclature de sample.xml, plan B1", "cadre rectangulaire", "8,38", "Masse totale",
        "Hors de ces totaux", "1 dessinée(s), dont 1 répétée(s) par Repartition 1 (5 barres)"}) {
    EXPECT_NE(list.find(words), std::string::npos) << words << '\n' << list;
  }
  EXPECT_EQ(runTool({"bars", "--lang", "xx", "sample.xml"}).status, 2);
}

TEST(ToolBars, GivesCsvForSpreadsheetsWithADecimalComma) {
  quorvan::test::writeSample();
  const std::string csv = runTool({"bars", "--csv", "--semicolon", "sample.xml"}).out;
  EXPECT_NE(csv.find(";16;2;4220;;8,44;13,32;"), std::string::npos) << csv;
}

TEST(ToolBars, WritesTheFormThatTheEndingSays) {
  quorvan::test::writeSample();
  EXPECT_EQ(runTool({"bars", "sample.xml", "-o", "list.csv"}).out, "");
  EXPECT_EQ(quorvan::test::fileBytes("list.csv"), runTool({"bars", "--csv", "sample.xml"}).out);
  EXPECT_EQ(runTool({"bars", "sample.xml", "-o", "list.json"}).status, 0);
  EXPECT_EQ(quorvan::test::fileBytes("list.json"), runTool({"bars", "--json", "sample.xml"}).out);
  EXPECT_EQ(runTool({"bars", "sample.xml", "-o", "list.html", "--schedule", "bs8666"}).status, 0);
  const std::string page = quorvan::test::fileBytes("list.html");
  EXPECT_NE(page.find("<td class=\"n\">3935</td>"), std::string::npos);
  EXPECT_NE(page.find(">B 3935</text>"), std::string::npos);
  EXPECT_EQ(runTool({"bars", "sample.xml", "-o", "list.txt"}).status, 2);
  EXPECT_EQ(runTool({"bars", "sample.xml", "-o", "sample.xml"}).status, 2);
}

TEST(ToolBars, PutsTheSketchOfEachRowIntoAFolder) {
  quorvan::test::writeSample();
  EXPECT_EQ(runTool({"bars", "sample.xml", "--sketches", "shapes"}).status, 0);
  const std::string frame = quorvan::test::fileBytes("shapes/mark-6.svg");
  EXPECT_NE(frame.find(">320</text>"), std::string::npos) << frame;
  EXPECT_NE(frame.find(">135\u00B0</text>"), std::string::npos) << frame;
  EXPECT_NE(quorvan::test::fileBytes("shapes/mark-8.svg").find(">?</text>"), std::string::npos);
}

TEST(ToolBars, SaysWhenThereAreNone) {
  quorvan::test::writeFile("none.xml", "<Document/>");
  const auto run = runTool({"bars", "none.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("\nNo bars.\n"), std::string::npos);
}

// The beam's drawing holds a bar list of its own: texts in columns, a row a mark. A stirrup has no
// width in the file, but in that list.
TEST(ToolBars, AgreesWithTheBarListInTheExampleDrawing) {
  const std::string path = quorvan::test::dataPath("../examples/drawings/beam-b12.json");
  ASSERT_EQ(runTool({"write", path, "-o", "b12.xml"}).status, 0);
  const json drawing = json::parse(quorvan::test::fileBytes(path));
  std::map<double, std::map<double, std::string>, std::greater<>> rows;
  for (const json& element : drawing["elements"]) {
    if (element.value("class", "") == "CKtZantoText") {
      rows[element["Location"][1]][element["Location"][0]] = element["Contents"];
    }
  }
  std::string expected;
  for (auto& [y, row] : rows) {
    if (row[6520].starts_with("HA")) {
      expected += row[6190] + ' ' + row[6520] + ' ' + row[6970] + ' ' + row[7370] + '\n';
    }
  }
  std::string found;
  const json list = json::parse(runTool({"bars", "--json", "b12.xml"}).out);
  for (const json& bar : list["bars"]) {
    const double length = bar["shape"] == "stirrup" ? 1130.0 : bar["length"].get<double>();
    const auto centimetres = std::to_string(1000 + std::lround(length / 10.0));
    found += std::to_string(bar["mark"].get<int>()) + " HA" +
             std::to_string(std::lround(bar["diameter"].get<double>())) + ' ' +
             std::to_string(bar["number"].get<int>()) + ' ' + centimetres[1] + ',' +
             centimetres.substr(2) + '\n';
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(std::ranges::count(found, '\n'), 15);
}

// The free leg of code 64 is its sixth dimension.
TEST(ToolBars, HasAColumnForEachDimensionOfAShapeCode) {
  quorvan::test::writeFile(
      "f.json",
      drawingOf(
          R"({"class": "CKtZantoPolygonBar", "Points": [[0, 0, 0], [300, 0, 0], [300, 400, 0], [-400, 400, 0], [-400, 0, 0], [100, 0, 0], [100, 400, 0], [-200, 400, 0]], "HookLength1": 0, "HookLength2": 0, "Side": true, "HookAngle1": 0, "HookAngle2": 0, )" +
          kSteel + "}"));
  runTool({"write", "f.json", "-o", "f.xml"});
  const std::string list = runTool({"bars", "--csv", "--schedule", "bs8666", "f.xml"}).out;
  EXPECT_NE(list.find(",A [mm],B [mm],C [mm],D [mm],E [mm],F [mm],R [mm],"), std::string::npos);
  EXPECT_NE(list.find(",64,"), std::string::npos);
  EXPECT_NE(list.find(",305,410,710,410,510,305,,"), std::string::npos) << list;
}

}  // namespace
