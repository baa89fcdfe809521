// What the program guesses from a drawing: units of angles, texts that are marks.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <tests/tools/picture.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::drawFile;
using quorvan::test::measure;
using quorvan::test::runTool;

std::string text(const std::string& contents, double x, double y, double angle = 0.0) {
  return R"(<CKtZantoText><Contents string=")" + contents + R"("/><Location X=")" +
         std::to_string(x) + R"(" Y=")" + std::to_string(y) + R"(" Z="0"/><Angle double=")" +
         std::to_string(angle) +
         R"("/><JustificationX long="1"/><JustificationY long="1"/><Color long="7"/>)"
         R"(<Height double="60"/></CKtZantoText>)";
}

std::string circle(double x, double y) {
  return R"(<CKtZantoCircle><Center X=")" + std::to_string(x) + R"(" Y=")" + std::to_string(y) +
         R"(" Z="0"/><Radius double="80"/><Color long="5"/></CKtZantoCircle>)";
}

// A bar of 3000 along x, with hooks of that angle.
std::string bar(int mark, double hookAngle = 0.0) {
  return R"(<CKtZantoStraightBar><Point1 X="0" Y="0" Z="0"/><Point2 X="3000" Y="0" Z="0"/>)"
         R"(<HookLength1 double="150"/><HookAngle1 double=")" +
         std::to_string(hookAngle) + R"("/><Diameter double="12"/><Reference long=")" +
         std::to_string(mark) + R"("/></CKtZantoStraightBar>)";
}

std::string unitOf(const std::string& elements) {
  quorvan::test::writeFile("angles.xml", "<Document>" + elements + "</Document>");
  const auto info = nlohmann::json::parse(runTool({"info", "--json", "angles.xml"}).out);
  const auto& angles = info["files"][0]["angles"];
  return angles.is_null() ? "none" : angles["guessedUnit"].get<std::string>();
}

TEST(ToolAngles, AreGuessedFromWhatIsPlausible) {
  EXPECT_EQ(unitOf(text("x", 0, 0, 3.0)), "degrees");
  EXPECT_EQ(unitOf(text("x", 0, 0, 1.5)), "degrees");
  EXPECT_EQ(unitOf(text("x", 0, 0, 1.5707963)), "radians");
  EXPECT_EQ(unitOf(bar(1, 2.3561945)), "radians");
  EXPECT_EQ(unitOf(bar(1, 1.57)), "radians");
  EXPECT_EQ(unitOf(bar(1, 90)), "degrees");
  EXPECT_EQ(unitOf(bar(1, 2.3561945) + text("x", 0, 0, 0.4) + text("y", 0, 0, 0.1)), "radians");
  EXPECT_EQ(unitOf(bar(1, 1.5707963) + text("x", 0, 0, 30)), "degrees");
  EXPECT_EQ(unitOf(bar(1)), "none");
}

TEST(ToolAngles, AreSaidByInfo) {
  quorvan::test::writeFile("angles.xml", "<Document>" + text("x", 0, 0, 3) + "</Document>");
  EXPECT_NE(runTool({"info", "angles.xml"}).out.find("angles        degrees, guessed from 1\n"),
            std::string::npos);
}

std::size_t bubbles(const std::string& elements) {
  std::size_t count = 0;
  for (const auto& shape :
       measure(drawFile("<Document>" + elements + "</Document>", {"--scale", "25"}))
           .layer("marks")) {
    count += shape.tag == "circle" ? 1U : 0U;
  }
  return count;
}

TEST(ToolMarks, AreNotNamedByNumbersThatMeanSomethingElse) {
  EXPECT_EQ(bubbles(bar(20) + text("20", 1500, 200)), 1U);
  EXPECT_EQ(bubbles(bar(3) + text("3 x 200", 1500, 200)), 1U);
  EXPECT_EQ(bubbles(bar(3) + text("norm. 3", 1500, 200)), 1U);
  EXPECT_EQ(bubbles(bar(3) + text("3 HA 16", 1500, 200)), 1U) << "another diameter";
}

TEST(ToolMarks, AreNamedByTextsThatAreMarks) {
  for (const char* const name :
       {"(3)", "(3) 2 HA12", "rep. 3", "R\u00E9p 3", "n\u00B0 3", "No 3", "3 HA 12 L=3.20",
        "3 \u00D812", "27 cadres HA8 (rep. 3)", "pos.3"}) {
    EXPECT_EQ(bubbles(bar(3) + text(name, 1500, 200)), 0U) << name;
  }
  EXPECT_EQ(bubbles(bar(3) + text("3", 1500, 200) + circle(1500, 200)), 0U);
}

TEST(ToolMarks, AreNamedNearTheirBarOnly) {
  EXPECT_EQ(bubbles(bar(3) + text("rep. 3", 1500, 6000)), 1U);
  EXPECT_EQ(bubbles(bar(3) + text("rep. 4", 1500, 200)), 1U);
  EXPECT_EQ(bubbles(bar(3) + text("3", 1500, 200) + circle(900, 200)), 1U);
}

}  // namespace
