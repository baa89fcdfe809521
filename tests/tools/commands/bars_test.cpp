#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
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
  EXPECT_EQ(runTool({"bars", "--unit", "foot", "m.xml"}).status, 2);
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

}  // namespace
