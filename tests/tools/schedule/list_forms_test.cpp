// A bar list as text, CSV and JSON, which say the same.
#include <tools/schedule/list_writers.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <random>
#include <sstream>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tests/tools/schedule/listed_bars.h>

namespace quorvan::tool {

namespace {

using nlohmann::json;
using test::barAlongX;
using test::ListedBars;

ListWriting inFrench() {
  ListWriting writing;
  writing.words = &kFrenchList;
  return writing;
}

// The text behind the conventions.
std::string belowTheHead(const std::string& text) {
  return text.substr(text.find('\n', text.find("kg/m3.")) + 1);
}

TEST(ToolListText, HasRowsSumsAndTheTotalMass) {
  const ListedBars bars(barAlongX(1, 1000, 8) + barAlongX(2, 12000, 16, 12));
  EXPECT_EQ(
      belowTheHead(bars.text()),
      "\n"
      "mark  shape         grade  adherence  diameter  number  length  total   mass  elements\n"
      "   1  straight bar  B500B  Ha                8       1    1000   1.00   0.39  StraightBar "
      "1\n"
      "  12  straight bar  B500B  Ha               16       1   12000  12.00  18.94  StraightBar "
      "2\n"
      "\n"
      "diameter  grade  number  total   mass\n"
      "       8  B500B       1   1.00   0.39\n"
      "      16  B500B       1  12.00  18.94\n"
      "\n"
      "Total mass: 19.33 kg\n");
  EXPECT_TRUE(bars.text(inFrench()).ends_with("\nMasse totale\u00a0: 19,33 kg\n"));
}

TEST(ToolListText, SaysThatThereAreNoBars) {
  const ListedBars none(test::lineOf({}, {1, 0, 0}));
  EXPECT_EQ(belowTheHead(none.text()), "\nNo bars.\n");
  EXPECT_EQ(belowTheHead(none.text(inFrench())), "\nAucune barre.\n");
}

// French has a space before a colon, and no line ends in it.
TEST(ToolListText, HasTitlesOverItsOtherTables) {
  const ListedBars bars(barAlongX(1, 0));
  EXPECT_EQ(belowTheHead(bars.text()),
            "\nNo bars.\n\nNot in these sums:\n"
            "class        index  number  reason\n"
            "StraightBar  1           1  no length that can be reckoned with\n");
  EXPECT_NE(bars.text(inFrench()).find("\n\nHors de ces totaux\u00a0:\n"), std::string::npos);
}

TEST(ToolListText, ListsTheDrawingsOfAJob) {
  const test::LoadedFile first(test::documentOf(barAlongX(1, 1000) + test::controlOf("A")));
  const test::LoadedFile second(test::documentOf(barAlongX(1, 3000) + test::controlOf("B")));
  std::ostringstream out;
  printList(makeBarList({&first.file(), &second.file()}, {}), {}, out);
  EXPECT_TRUE(
      out.str().ends_with("\nBy drawing:\n"
                          "drawing  file        number  total  mass\n"
                          "A        loaded.xml       1   1.00  0.62\n"
                          "B        loaded.xml       1   3.00  1.85\n"))
      << out.str();
}

TEST(ToolListText, ExplainsItsNumbersWhereAsked) {
  const ListedBars bars(barAlongX(1, 1000));
  ListWriting writing;
  EXPECT_EQ(bars.text(writing).find("How the numbers"), std::string::npos);
  writing.explain = true;
  EXPECT_TRUE(
      bars.text(writing).ends_with("\nHow the numbers came about:\n"
                                   "mark  shape         explanation\n"
                                   "   1  straight bar  1 drawn: 1\n"));
}

// What a drawing is called may not steer the terminal.
TEST(ToolListText, ShowsWhatIsNotPrintable) {
  const ListedBars bars(barAlongX(1, 1000) + test::controlOf("A\u202eB"));
  EXPECT_EQ(bars.text().find("\u202e"), std::string::npos);
  EXPECT_EQ(bars.text().find("drawing A\n"), std::string::npos);
}

TEST(ToolListCsv, HasAHeaderWithUnitsAndALineARow) {
  const ListedBars bars(barAlongX(1, 1000.0, 9.5));
  EXPECT_EQ(bars.csv(),
            "drawing,mark,shape,grade,adherence,diameter [mm],number,length [mm],length to [mm],"
            "total length [m],mass [kg],elements,remarks\n"
            "loaded.xml,1,straight bar,B500B,Ha,9.5,1,1000,,1.00,0.56,StraightBar 1,\n");
  ListWriting french = inFrench();
  french.csv.separator = ';';
  french.csv.decimalMark = ',';
  EXPECT_EQ(bars.csv(french),
            "plan;rep\u00e8re;fa\u00e7onnage;nuance;adh\u00e9rence;diam\u00e8tre [mm];nombre;"
            "longueur [mm];longueur jusqu'\u00e0 [mm];longueur totale [m];masse [kg];"
            "\u00e9l\u00e9ments;remarques\n"
            "loaded.xml;1;barre droite;B500B;Ha;9,5;1;1000;;1,00;0,56;StraightBar 1;\n");
}

TEST(ToolListCsv, HasAHeaderAloneWithoutBars) {
  const std::string csv = ListedBars(test::lineOf({}, {1, 0, 0})).csv();
  EXPECT_EQ(std::ranges::count(csv, '\n'), 1);
  EXPECT_TRUE(csv.starts_with("drawing,mark,"));
}

TEST(ToolListJson, HasNumbersAsTheListShowsThem) {
  const ListedBars bars(barAlongX(1, 1.2345, 0.0095), test::inUnit(kLengthUnits[2]));
  const json list = json::parse(bars.json());
  EXPECT_EQ(list["unit"], "m");
  EXPECT_EQ(list["schedule"], "axis");
  EXPECT_EQ(list["density"], 7850);
  const json& bar = list["bars"][0];
  EXPECT_EQ(bar["diameter"].dump(), "9.5");
  EXPECT_EQ(bar["length"].dump(), "1.235");
  EXPECT_EQ(bar["lengthTo"].dump(), "1.235");
  EXPECT_EQ(bar["totalLength"].dump(), "1.24");
  EXPECT_EQ(bar["number"].dump(), "1");
  EXPECT_EQ(bar["bent"]["legs"][0]["axis"].dump(), "1234.5");
  EXPECT_EQ(bar["bent"]["bends"].dump(), "[]");
  EXPECT_FALSE(bar.contains("code"));
}

TEST(ToolListJson, NamesItsSchedule) {
  const std::pair<Schedule, const char*> schedules[] = {
      {Schedule::kAxis, "axis"}, {Schedule::kIso3766, "iso3766"}, {Schedule::kBs8666, "bs8666"}};
  for (const auto& [schedule, name] : schedules) {
    const json list = json::parse(ListedBars(barAlongX(1, 990), test::bySchedule(schedule)).json());
    EXPECT_EQ(list["schedule"], name);
    EXPECT_EQ(list["bars"][0].contains("code"), schedule == Schedule::kBs8666);
    EXPECT_EQ(list["bars"][0]["length"], schedule == Schedule::kBs8666 ? 1000 : 990);
  }
}

TEST(ToolListJson, HasBendsInDegreesByTheirSide) {
  test::BarParts parts;
  parts.className = "PolygonBar";
  parts.points = {{0, 0, 0}, {500, 0, 0}, {500, 400, 0}, {900, 400, 0}};
  const json bent = json::parse(
      ListedBars(barOf(parts), test::bySchedule(Schedule::kBs8666)).json())["bars"][0]["bent"];
  ASSERT_EQ(bent["bends"].size(), 2U);
  EXPECT_EQ(bent["bends"][0]["angle"].dump(), "90");
  EXPECT_EQ(bent["bends"][1]["angle"].dump(), "-90");
  EXPECT_EQ(bent["bends"][0]["radius"].dump(), "25");  // four diameters, and half of one
  EXPECT_EQ(bent["legs"][1], json::parse(R"({"axis": 400, "outside": 410, "straight": 350,
                                             "isArc": false, "isUnknown": false})"));
  EXPECT_EQ(bent["roller"], 40);
  EXPECT_EQ(bent["fits"], true);
  EXPECT_EQ(bent["dimensions"][1], json::parse(R"({"letter": "B", "value": 410,
                                                   "isFree": false})"));
}

TEST(ToolListJson, LeavesLengthsOpenThatAreNotInTheFile) {
  test::BarParts point;
  point.className = "PointBar";
  point.points = {{}};
  const json list =
      json::parse(ListedBars(barOf(point), test::bySchedule(Schedule::kBs8666)).json(inFrench()));
  const json& bar = list["bars"][0];
  for (const char* const name : {"length", "lengthTo", "totalLength", "mass"}) {
    EXPECT_TRUE(bar[name].is_null()) << name;
  }
  EXPECT_FALSE(bar.contains("code"));
  EXPECT_FALSE(bar.contains("bent"));
  EXPECT_EQ(list["mass"], 0);
  EXPECT_EQ(list["notInSums"][0]["reason"],
            "vue en bout\u00a0: sa longueur n'est pas dans le fichier");
}

// Whichever form a program reads, it finds the same list.
TEST(ToolListForms, SayTheSameOfEveryRow) {
  std::mt19937 random(421);
  const double diameters[] = {6, 8, 12, 16, 25};
  for (const LengthUnit& unit : kLengthUnits) {
    const double scale = 0.001 / unit.inMetres;
    std::string elements;
    for (int i = 1; i <= 40; ++i) {
      elements += barAlongX(i, static_cast<double>(300 + random() % 9000) * scale,
                            diameters[random() % 5] * scale, static_cast<long>(random() % 9));
    }
    const ListedBars bars(elements, test::inUnit(unit));
    const json rows = json::parse(bars.json())["bars"];
    std::istringstream csv(bars.csv());
    std::string line;
    std::getline(csv, line);
    for (const json& row : rows) {
      ASSERT_TRUE(std::getline(csv, line));
      std::vector<std::string> fields;
      std::istringstream fieldsOfLine(line);
      for (std::string field; std::getline(fieldsOfLine, field, ',');) {
        fields.push_back(field);
      }
      ASSERT_GE(fields.size(), 11U);
      EXPECT_EQ(std::stod(fields[1]), row["mark"].get<double>());
      EXPECT_EQ(std::stod(fields[5]), row["diameter"].get<double>());
      EXPECT_EQ(std::stod(fields[6]), row["number"].get<double>());
      EXPECT_EQ(std::stod(fields[7]), row["length"].get<double>());
      EXPECT_EQ(std::stod(fields[9]), row["totalLength"].get<double>());
      EXPECT_EQ(std::stod(fields[10]), row["mass"].get<double>());
    }
    EXPECT_FALSE(std::getline(csv, line));
  }
}

}  // namespace

}  // namespace quorvan::tool
