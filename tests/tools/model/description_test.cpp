#include <tools/model/description.h>

#include <gtest/gtest.h>

#include <random>
#include <set>

#include <quorvan/elements/element_classes.h>

#include <tests/tools/item_samples.h>
#include <tests/tools/loaded_file.h>
#include <tests/tools/sample.h>

namespace {

using quorvan::test::elementText;
using quorvan::test::loadedElements;
using quorvan::test::LoadedFile;
using quorvan::tool::placeText;
namespace items = quorvan::items;

std::string descriptionOf(const std::string& element) {
  const LoadedFile loaded = loadedElements(element);
  return describe(loaded.element(0), loaded.items(0));
}

TEST(ToolPlace, IsWrittenWithThreeDecimalsAtMost) {
  EXPECT_EQ(placeText({30, 40, 0}), "(30, 40, 0)");
  EXPECT_EQ(placeText({1.5, -2.25, 0.1239}), "(1.5, -2.25, 0.124)");
  EXPECT_EQ(placeText({-0.0, -0.0001, 1e6}), "(0, 0, 1000000)");
}

TEST(ToolDescription, SaysOfEachElementOfADrawingWhatItIs) {
  const LoadedFile loaded(quorvan::test::sampleBytes());
  const auto said = [&loaded](std::string_view className) -> std::string {
    for (const auto& element : loaded.file().elements()) {
      if (element.className() == className) {
        return describe(element, loaded.items(element.place));
      }
    }
    return "none";
  };
  EXPECT_EQ(said("CKtZantoLine"), "Line, at (0, -100, 0) to (4000, -100, 0)");
  EXPECT_EQ(said("CKtZantoCircle"), "Circle, at (4500, 200, 0), radius 125.5");
  EXPECT_EQ(said("CKtFilledPolygon"), "FilledPolygon, 4 points from (-200, 0, 0)");
  EXPECT_EQ(said("CKtZantoMesh"),
            "Mesh, Type \"ST 25 C\", Reference \"T1\", 4 points from (0, 900, 0)");
  EXPECT_EQ(said("CKtZantoFormwork"), "Formwork, 4 segments from (0, 0, 0)");
  EXPECT_EQ(said("CKtZantoStraightBar"),
            "straight bar, mark 1, diameter 16 B500B, length 4220, at (40, 40, 0)");
  EXPECT_EQ(said("CKtZantoLBar"), "L bar, mark 2, diameter 12 B500B, length 560, at (100, 460, 0)");
  EXPECT_EQ(said("CKtZantoPin"), "pin, mark 4, diameter 8 B500B, length 340, at (500, 250, 0)");
  EXPECT_EQ(said("CKtZantoPointBar"),
            "bar seen end-on, mark 1, diameter 16 B500B, at (4600, 300, 0)");
  EXPECT_EQ(said("CKtZantoPolygonBar"),
            "polygon bar, mark 5, diameter 14 B500B, length 1720, at (500, 460, 0)");
  EXPECT_EQ(said("CKtZantoFrameRect"),
            "rectangular frame, mark 6, diameter 8 B500B, length 1660, at (4440, 40, 0)");
  EXPECT_EQ(said("CKtZantoFrameCirc"),
            "circular frame, mark 7, diameter 8 B500B, length 1716.6, about (4600, 900, 0)");
  EXPECT_EQ(said("CKtZantoStirrup"),
            "stirrup, mark 8, diameter 8 B500B, length 1020, at (5200, 40, 0)");
  EXPECT_EQ(said("CKtZantoRepartition"),
            "repartition of 5 FrameRect, spacing 3 x 200, 250, at (200, 250, 0)");
  EXPECT_EQ(said("CKtDrawingControl"), "drawing control record");
}

TEST(ToolDescription, SaysThatABarIsHidden) {
  const std::string point = "<Point1 X='1' Y='2' Z='3'/>";
  EXPECT_EQ(descriptionOf("<CKtZantoPointBar>" + point +
                          "<Reference long='7'/><Hidden string='True'/></CKtZantoPointBar>"),
            "bar seen end-on, mark 7, diameter 0, hidden, at (1, 2, 3)");
}

TEST(ToolDescription, LeavesOutWhatIsNotThere) {
  EXPECT_EQ(descriptionOf("<CKtZantoPolygonBar/>"), "polygon bar, mark 0, diameter 0, length 0");
  EXPECT_EQ(descriptionOf("<CKtFilledPolygon/>"), "FilledPolygon");
  EXPECT_EQ(descriptionOf("<CKtZantoFormwork/>"), "Formwork");
  EXPECT_EQ(descriptionOf("<CKtZantoRepartition/>"), "repartition of 0 ");
}

TEST(ToolDescription, LeavesOutALengthBeyondReckoning) {
  const std::string huge(400, '9');
  EXPECT_EQ(descriptionOf("<CKtZantoPin><HookLength1 double='" + huge + "'/></CKtZantoPin>"),
            "pin, mark 0, diameter 0, at (0, 0, 0)");
}

TEST(ToolDescription, IsOneLineForEveryClass) {
  std::mt19937 random(36);
  std::set<std::string> beginnings;
  for (const items::ElementSchema& schema : items::allElements()) {
    auto values = quorvan::test::randomItems(schema, random);
    for (auto& value : values) {
      value.text = "text";
    }
    const std::string said = descriptionOf(elementText(schema, values));
    EXPECT_FALSE(said.empty());
    EXPECT_EQ(said.find('\n'), std::string::npos) << said;
    EXPECT_TRUE(beginnings.insert(said.substr(0, said.find(','))).second) << said;
  }
}

}  // namespace
