// Bending data as `quorvan bars` writes it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>
#include <tools/bvbs/writing/ascii_text.h>

namespace {

using quorvan::test::fileBytes;
using quorvan::test::runTool;
using quorvan::test::ToolRun;
using quorvan::test::writeFile;

std::string steelOf(int mark, double diameter, const std::string& grade = "B500B",
                    const std::string& adherence = "Ha") {
  return R"("SteelGrade": ")" + grade + R"(", "Adherence": ")" + adherence + R"(", "Diameter": )" +
         std::to_string(diameter) + R"(, "Reference": )" + std::to_string(mark) +
         R"(, "Hidden": false})";
}

std::string times(int count, const std::string& element) {
  std::string text = element;
  for (int i = 1; i < count; ++i) {
    text += ", " + element;
  }
  return text;
}

std::string straightBar(int mark, double length, const std::string& hooks,
                        const std::string& steel) {
  return R"({"class": "CKtZantoStraightBar", "Point1": [0, 0, 0], "Point2": [)" +
         std::to_string(length) + ", 0, 0], " + hooks + ", " +
         (steel.empty() ? steelOf(mark, 20) : steel);
}

const std::string kNoHooks =
    R"("HookLength1": 0, "HookLength2": 0, "Hook1Up": true, "Hook2Up": true, "HookAngle1": 0, "HookAngle2": 0)";

std::string hooksOf(bool isSecondUp) {
  return R"("HookLength1": 140, "HookLength2": 140, "Hook1Up": true, "Hook2Up": )" +
         std::string(isSecondUp ? "true" : "false") + R"(, "HookAngle1": 90, "HookAngle2": 90)";
}

std::string bentBar(const std::string& name, const std::string& points, const std::string& steel) {
  return R"({"class": ")" + name + R"(", )" + points +
         R"(, "HookLength1": 0, "HookAngle1": 0, "HookLength2": 0, "HookAngle2": 0, )" + steel;
}

std::string polygonBar(const std::string& points, const std::string& steel) {
  return R"({"class": "CKtZantoPolygonBar", "Points": [)" + points +
         R"(], "HookLength1": 0, "HookLength2": 0, "Side": true, "HookAngle1": 0, "HookAngle2": 0, )" +
         steel;
}

struct Written {
  ToolRun run;
  std::string text;

  [[nodiscard]] std::vector<std::string> records() const {
    std::vector<std::string> all;
    std::size_t at = 0;
    while (at < text.size()) {
      const std::size_t end = text.find("\r\n", at);
      all.push_back(text.substr(at, end - at));
      at = end == std::string::npos ? text.size() : end + 2;
    }
    return all;
  }
};

Written dataOf(const std::string& elements, const std::vector<std::string>& options = {},
               const std::string& name = "12") {
  writeFile("job.json",
            R"({"drawing": {"name": ")" + name +
                R"(", "version": "1", "servicePack": 1, "checkSum": 1}, "elements": [)" + elements +
                "]}");
  EXPECT_EQ(runTool({"write", "job.json", "-o", "job.xml"}).err, "");
  std::vector<std::string> arguments{"bars",      "job.xml", "--angles", "deg",
                                     "--project", "B12",     "-o",       "job.abs"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  Written written{runTool(arguments), {}};
  if (written.run.status != 2) {
    written.text = fileBytes("job.abs");
  }
  return written;
}

// The records of bars in the plane, whose checksums were computed by hand from the rule.
TEST(BendingData, HasARecordForEachShape) {
  const Written written = dataOf(
      times(4, straightBar(1, 4940, kNoHooks, {})) + ", " +
      times(4, straightBar(2, 4920, hooksOf(true), {})) + ", " +
      times(4, straightBar(3, 4920, hooksOf(false), {})) + ", " +
      times(6, bentBar("CKtZantoLBar",
                       R"("Point1": [0, 594, 0], "Point2": [0, 0, 0], "Point3": [1194, 0, 0])",
                       steelOf(4, 12))) +
      ", " +
      times(8, bentBar("CKtZantoUBar",
                       R"("Point1": [0, 395, 0], "Point2": [0, 0, 0], "Point3": [806, 0, 0])",
                       steelOf(5, 10))));
  const std::string head = "BF2D@HjB12@r12@i@";
  EXPECT_EQ(written.records(),
            (std::vector<std::string>{
                head + "p1@l4940@n4@e12.183@d20@gB500B@s140@v@Gl4940@w0@C73@",
                head + "p2@l5240@n4@e12.923@d20@gB500B@s140@v@Gl150@w90@l4940@w90@l150@w0@C72@",
                head + "p3@l5240@n4@e12.923@d20@gB500B@s140@v@Gl150@w90@l4940@w-90@l150@w0@C90@",
                head + "p4@l1800@n6@e1.598@d12@gB500B@s48@v@Gl600@w90@l1200@w0@C72@",
                head + "p5@l1616@n8@e0.996@d10@gB500B@s40@v@Gl400@w90@l816@w90@l400@w0@C79@"}));
  EXPECT_EQ(written.run.status, 0);
  EXPECT_EQ(written.run.err, "");
}

TEST(BendingData, MakesOneShapeOfALinkWithItsHooks) {
  const Written written = dataOf(times(
      24,
      R"({"class": "CKtZantoFrameRect", "Point1": [0, 0, 0], "Point2": [292, 0, 0], "Point3": [292, 192, 0], "HookLength1": 86, "HookAngle1": 135, )" +
          steelOf(6, 8)));
  EXPECT_EQ(written.text,
            "BF2D@HjB12@r12@i@p6@l1180@n24@e0.466@d8@gB500B@s32@v@Gl90@w135@l200@w90@l300@w90@l200@"
            "w90@l300@w135@l90@w0@C91@\r\n");
  EXPECT_NE(written.run.err.find("note: shapes with bends beyond a right angle: 1"),
            std::string::npos);
  EXPECT_EQ(written.run.status, 0);
}

TEST(BendingData, MeasuresLegsToTheCornerOfTheAxisWhereAsked) {
  const Written written = dataOf(
      R"({"class": "CKtZantoFrameRect", "Point1": [0, 0, 0], "Point2": [292, 0, 0], "Point3": [292, 192, 0], "HookLength1": 86, "HookAngle1": 135, )" +
          steelOf(6, 8),
      {"--obtuse-legs", "axis"});
  EXPECT_NE(written.text.find("@Gl86@w135@l196@w90@l300@w90@l200@w90@l296@w135@l86@w0@"),
            std::string::npos)
      << written.text;
}

// 12 mm over a roller of 48: a right angle takes 24.9 off.
TEST(BendingData, SaysTheLengthThatIsCutWhereAsked) {
  const std::string angle = bentBar(
      "CKtZantoLBar", R"("Point1": [0, 594, 0], "Point2": [0, 0, 0], "Point3": [1194, 0, 0])",
      steelOf(4, 12));
  EXPECT_NE(dataOf(angle).text.find("@l1800@n1@e1.598@"), std::string::npos);
  EXPECT_NE(dataOf(angle, {"--cut-length", "axis"}).text.find("@l1775@n1@e1.576@"),
            std::string::npos);
}

TEST(BendingData, TurnsABarInSpaceIntoAFrameOfItsOwn) {
  const std::string steel = steelOf(8, 16);
  const Written written =
      dataOf(polygonBar("[0, 0, 0], [0, 292, 0], [584, 292, 0], [584, 292, -292]", steel) + ", " +
             polygonBar("[5, 5, 292], [5, 5, 0], [5, 589, 0], [297, 589, 0]", steel));
  ASSERT_EQ(written.records().size(), 1U) << written.text;
  EXPECT_EQ(
      written.records().front(),
      "BF3D@HjB12@r12@i@p8@l1200@n2@e1.894@d16@gB500B@s64@v@Gx300@y0@z0@x0@y600@z0@x0@y0@z300@"
      "C71@");
}

// The same crank drawn up and down, to the left and to the right, from one end and the other.
TEST(BendingData, HasOneRecordForEqualShapesHoweverTheyLie) {
  const std::string steel = steelOf(3, 12);
  const Written written =
      dataOf(polygonBar("[0, 0, 0], [500, 0, 0], [800, 300, 0], [1600, 300, 0]", steel) + ", " +
             polygonBar("[1600, 300, 0], [800, 300, 0], [500, 0, 0], [0, 0, 0]", steel) + ", " +
             polygonBar("[0, 0, 0], [0, -500, 0], [300, -800, 0], [300, -1600, 0]", steel) + ", " +
             polygonBar("[0, 0, 0], [500, 0, 0], [800, -300, 0], [1600, -300, 0]", steel));
  ASSERT_EQ(written.records().size(), 1U) << written.text;
  EXPECT_NE(written.text.find("@n4@"), std::string::npos);
  EXPECT_NE(written.text.find("@Gl502@w45@l429@w-45@l802@w0@"), std::string::npos) << written.text;
}

TEST(BendingData, HasOneRecordForEqualShapesOfTwoClasses) {
  const std::string steel = steelOf(4, 12);
  const Written written = dataOf(
      polygonBar("[0, 594, 0], [0, 0, 0], [1194, 0, 0]", steel) + ", " +
      bentBar("CKtZantoLBar",
              R"("Point1": [0, 594, 0], "Point2": [0, 0, 0], "Point3": [1194, 0, 0])", steel));
  ASSERT_EQ(written.records().size(), 1U) << written.text;
  EXPECT_NE(written.text.find("@n2@"), std::string::npos);
}

TEST(BendingData, MakesAnArcOfACircularFrame) {
  const Written written = dataOf(
      R"({"class": "CKtZantoFrameCirc", "Center": [0, 0, 0], "StartPoint": [200, 0, 0], "FrameRadius": 200, "RecoverLength": 400, "HookLength1": 0, "HookAngle1": 0, )" +
      steelOf(7, 10));
  EXPECT_NE(written.text.find("@l1657@n1@e1.022@d10@gB500B@s40@v@Gr200@w474.59@w0@C"),
            std::string::npos)
      << written.text;
}

TEST(BendingData, HasASheetOfMeshWithoutWhatTheDrawingDoesNotSay) {
  const Written written = dataOf(times(
      3,
      R"({"class": "CKtZantoMesh", "Type": "ST 25 C", "Reference": "9", "Angle": 0, "ExtensionX": 6000, "ExtensionY": 2400, "Points": []})"));
  EXPECT_EQ(written.text.substr(0, written.text.find("@C") + 1),
            "BFMA@HjB12@r12@i@p9@l6000@n3@e@g@s@mST 25 C@b2400@v@");
}

TEST(BendingData, HasAHeaderAloneForAStirrup) {
  const Written written = dataOf(
      R"({"class": "CKtZantoStirrup", "Point1": [0, 0, 0], "Point2": [0, 420, 0], "HookLength1": 0, "HookAngle1": 0, )" +
      steelOf(8, 8));
  EXPECT_EQ(written.text.substr(0, written.text.find("@C") + 1),
            "BF2D@HjB12@r12@i@p8@l@n1@e@d8@gB500B@s32@v@");
  EXPECT_EQ(written.run.status, 1);
  EXPECT_EQ(written.run.err,
            "job.xml: warning: mark 8, Stirrup 1: its width is not in the file: header alone, "
            "without shape, length and mass\n");
}

TEST(BendingData, HasNoRecordOfABarSeenEndOnAndSaysSo) {
  const Written written =
      dataOf(R"({"class": "CKtZantoPointBar", "Point1": [0, 0, 0], )" + steelOf(9, 16));
  EXPECT_EQ(written.text, "");
  EXPECT_EQ(written.run.status, 1);
  EXPECT_EQ(written.run.err,
            "job.xml: warning: mark 9, PointBar 1: no record: seen end-on: its length is not in "
            "the file\n");
}

TEST(BendingData, RefusesTextsOutsideAsciiUnlessTheyAreSpelt) {
  const std::string bar = straightBar(1, 1000, kNoHooks, {});
  const Written refused = dataOf(bar, {}, "Dalle étage");
  EXPECT_EQ(refused.text, "");
  EXPECT_EQ(refused.run.status, 1);
  EXPECT_EQ(refused.run.err,
            "job.xml: warning: all marks: no record: \"Dalle étage\" is not of ASCII, or has an @; "
            "--ascii spells it in it\n");
  const Written spelt = dataOf(bar, {"--ascii"}, "Dalle étage");
  EXPECT_NE(spelt.text.find("@rDalle etage@"), std::string::npos);
  EXPECT_EQ(spelt.run.status, 0);
  const Written grade = dataOf(straightBar(1, 1000, kNoHooks, steelOf(1, 20, "Würth")) + ", " +
                               straightBar(2, 1000, kNoHooks, {}));
  ASSERT_EQ(grade.records().size(), 1U);
  EXPECT_NE(grade.run.err.find("mark 1, StraightBar 1: no record: \"Würth\""), std::string::npos);
}

TEST(BendingData, SaysTheAdherenceOfPlainBarsInThePrivateBlock) {
  const Written written = dataOf(straightBar(1, 1000, kNoHooks, steelOf(1, 8, "S235", "Dx")));
  EXPECT_NE(written.text.find("@w0@Padherence Dx@C"), std::string::npos) << written.text;
}

TEST(BendingData, NamesShapesThatARollerCannotBend) {
  const Written written =
      dataOf(polygonBar("[0, 0, 0], [500, 0, 0], [500, 30, 0], [0, 30, 0]", steelOf(3, 12)));
  EXPECT_EQ(written.run.status, 1);
  EXPECT_NE(written.run.err.find("mark 3, PolygonBar 1: "), std::string::npos);
  EXPECT_EQ(written.records().size(), 1U);
}

TEST(BendingData, TakesTheRollerThatIsGiven) {
  const Written written = dataOf(straightBar(1, 1000, kNoHooks, {}), {"--mandrel", "10d"});
  EXPECT_NE(written.text.find("@s200@"), std::string::npos);
}

TEST(BendingData, GoesToTheOutputWithoutAFile) {
  EXPECT_EQ(dataOf(straightBar(1, 1000, kNoHooks, {})).run.out, "");
  const ToolRun run = runTool({"bars", "job.xml", "--bvbs", "--project", "B12"});
  EXPECT_EQ(run.out, fileBytes("job.abs"));
}

TEST(BendingData, HasARecordForEachLengthOfASeries) {
  const std::string series =
      R"({"class": "CKtZantoRepartition", "Point1": [0, 500, 0], "Point2": [400, 500, 0], "Bulge": [0, 0, 0], "ViewPoint": 2, "Axis": [10, 0, 0], "AxisDistancesTop": [500, 600, 700], "AxisDistancesBottom": [-500, -500, -500], "Positions": [200, 200], "DefClassName": "CKtZantoStraightBar", "Index": 1, "Hidden": false})";
  const std::string bar =
      R"({"class": "CKtZantoStraightBar", "Point1": [0, 0, 0], "Point2": [0, 1000, 0], )" +
      kNoHooks + ", " + steelOf(12, 10);
  const std::string other =
      R"({"class": "CKtZantoStraightBar", "Point1": [0, 0, 0], "Point2": [0, 900, 0], )" +
      kNoHooks + ", " + steelOf(13, 10);
  const auto records = dataOf(bar + ", " + other + ", " + series).records();
  ASSERT_EQ(records.size(), 4U);
  const char* const expected[] = {"p12.1@l1000@n1@", "p12.2@l1100@n1@", "p12.3@l1200@n1@"};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NE(records[i].find(expected[i]), std::string::npos) << records[i];
    EXPECT_NE(records[i].find("@v@c1@G"), std::string::npos) << records[i];
  }
  EXPECT_NE(records[3].find("p13@"), std::string::npos);
  EXPECT_NE(records[3].find("@v@G"), std::string::npos);
}

// Two series that share a length are one group, whichever was filed first.
TEST(BendingData, HasOneGroupForSeriesThatShareALength) {
  const auto series = [](int index, const std::string& top) {
    return R"({"class": "CKtZantoRepartition", "Point1": [0, 500, 0], "Point2": [400, 500, 0], "Bulge": [0, 0, 0], "ViewPoint": 2, "Axis": [10, 0, 0], "AxisDistancesTop": [)" +
           top +
           R"(], "AxisDistancesBottom": [0, 0, 0], "Positions": [200, 200], "DefClassName": "CKtZantoStraightBar", "Index": )" +
           std::to_string(index) + R"(, "Hidden": false})";
  };
  const std::string bar =
      R"({"class": "CKtZantoStraightBar", "Point1": [0, 0, 0], "Point2": [0, 1000, 0], )" +
      kNoHooks + ", " + steelOf(12, 10);
  const auto records = dataOf(times(3, bar) + ", " + series(1, "1000, 1100, 1200") + ", " +
                              series(2, "1400, 1500, 1600") + ", " + series(3, "1200, 1300, 1400"))
                           .records();
  ASSERT_EQ(records.size(), 7U);
  for (std::size_t i = 0; i < records.size(); ++i) {
    EXPECT_NE(records[i].find("@p12." + std::to_string(i + 1) + "@"), std::string::npos);
    EXPECT_NE(records[i].find("@c1@G"), std::string::npos) << records[i];
  }
}

TEST(BendingData, RefusesOptionsThatAreNotForIt) {
  dataOf(straightBar(1, 1000, kNoHooks, {}));
  EXPECT_EQ(runTool({"bars", "job.xml", "--project", "A"}).status, 2);
  EXPECT_EQ(runTool({"bars", "job.xml", "--bvbs", "--schedule", "bs8666"}).status, 2);
  EXPECT_NE(runTool({"bars", "job.xml", "--bvbs", "--json"}).status, 0);
}

TEST(BendingData, SpellsTextsInAscii) {
  using quorvan::tool::bvbs::asciiText;
  using quorvan::tool::bvbs::transliterated;
  EXPECT_EQ(transliterated("Müller & Söhne, Straße 5"), "Mueller & Soehne, Strasse 5");
  EXPECT_EQ(transliterated("béton Ø12 – « dalle »"), "beton O12 - \" dalle \"");
  EXPECT_EQ(transliterated("a@b\t漢"), "a(at)b ?");
  EXPECT_EQ(asciiText("B12"), "B12");
  EXPECT_FALSE(asciiText("a@b"));
  EXPECT_FALSE(asciiText("é"));
}

}  // namespace
