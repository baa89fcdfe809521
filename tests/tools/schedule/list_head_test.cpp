// What stands on top of a bar list: its title, and the conventions by which it is made.
#include <tools/schedule/list_tables.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/schedule/listed_bars.h>

namespace quorvan::tool {

namespace {

using test::barAlongX;

// The conventions of a list of nothing by these options, as one text.
std::string headOf(const ListOptions& options, const ListWording& words = kEnglishList,
                   const std::vector<AngleUnit>& angles = {AngleUnit::kDegrees}) {
  BarList list;
  list.options = options;
  for (const AngleUnit unit : angles) {
    ListedDrawing drawing;
    drawing.angles = unit;
    list.drawings.push_back(drawing);
  }
  std::string text;
  for (const std::string& paragraph : conventionsOf(list, words)) {
    text += paragraph + '\n';
  }
  return text;
}

bool headSays(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

TEST(ToolListTitle, NamesFilesAndTheOneDrawing) {
  const test::LoadedFile named(test::documentOf(barAlongX(1, 500) + test::controlOf("B 1")));
  const test::LoadedFile nameless(test::documentOf(barAlongX(1, 500)));
  const BarList one = makeBarList({&named.file()}, {});
  EXPECT_EQ(listTitle(one, kEnglishList), "Bar list of loaded.xml, drawing B 1");
  EXPECT_EQ(listTitle(one, kFrenchList), "Nomenclature de loaded.xml, plan B 1");
  EXPECT_EQ(listTitle(makeBarList({&nameless.file()}, {}), kEnglishList), "Bar list of loaded.xml");
  const BarList two = makeBarList({&named.file(), &nameless.file()}, {});
  EXPECT_EQ(listTitle(two, kEnglishList), "Bar list of loaded.xml, loaded.xml");
  EXPECT_EQ(nameOf(two.drawings[0]), "B 1");
  EXPECT_EQ(nameOf(two.drawings[1]), "loaded.xml");
}

TEST(ToolListConventions, OfBarsAsDrawnSayWhatIsMeasuredAndNothingOfBending) {
  for (const ListWording* const words : kListWordings) {
    const std::string head = headOf({}, *words);
    EXPECT_TRUE(head.starts_with(words->conventions.axis));
    EXPECT_TRUE(headSays(head, words->conventions.hooksFromCorner));
    EXPECT_TRUE(headSays(head, words->conventions.ringAxis));
    EXPECT_FALSE(headSays(head, words->conventions.rollers));
    EXPECT_FALSE(headSays(head, words->conventions.degrees));
    EXPECT_EQ(std::ranges::count(head, '\n'), 4);
  }
  EXPECT_TRUE(headOf({}).ends_with(
      "Units: diameter in mm, length in mm, total length in m, mass in kg at 7850 kg/m3.\n"));
}

TEST(ToolListConventions, NameTheUnitOfTheLengths) {
  for (const LengthUnit& unit : kLengthUnits) {
    const std::string name(unit.name);
    EXPECT_TRUE(
        headSays(headOf(test::inUnit(unit)), ", length in " + name + ", total length in m"));
    EXPECT_TRUE(headSays(headOf(test::inUnit(unit), kFrenchList), ", longueur en " + name + ","));
  }
}

TEST(ToolListConventions, OfASchedulePutItsOwnRulesFirst) {
  const std::string iso = headOf(test::bySchedule(Schedule::kIso3766));
  EXPECT_TRUE(iso.starts_with("After ISO 3766. "));
  EXPECT_FALSE(headSays(iso, "Code 99"));
  EXPECT_TRUE(headSays(iso, "Angles: degrees. Rollers: 4 diameters up to 16 mm, 7 above.\n"));
  EXPECT_TRUE(headSays(iso, "\nRounded: lengths to 10 mm, dimensions to 1 mm.\n"));
  const std::string british = headOf(test::bySchedule(Schedule::kBs8666));
  EXPECT_TRUE(british.starts_with("After BS 8666:2020. "));
  EXPECT_TRUE(headSays(british, " Code 99: a shape that fits no code, with its legs in order.\n"));
  EXPECT_TRUE(headSays(british, "\nRounded: lengths up to 25 mm, dimensions to 5 mm.\n"));
  const std::string french = headOf(test::bySchedule(Schedule::kBs8666), kFrenchList);
  EXPECT_TRUE(french.starts_with("Selon BS 8666:2020. "));
  EXPECT_TRUE(headSays(french, "longueurs \u00e0 25 mm par exc\u00e8s, cotes \u00e0 5 mm."));
}

TEST(ToolListConventions, SayWhatABendTakesOff) {
  struct Case {
    Deduction deduction;
    const char* text;
  };
  const Case cases[] = {
      {{0.0, 0.0}, "Length: the sum of the outside dimensions.\n"},
      {{2.0, 0.0}, "Length: the sum of the outside dimensions less 2 d for each bend.\n"},
      {{1.75, 0.0}, "less 1.75 d for each bend.\n"},
      {{0.0, 25.0}, "less 25 mm for each bend.\n"},
      {{0.0, 12.345}, "less 12.35 mm for each bend.\n"},
  };
  for (const Case& one : cases) {
    ListOptions options = test::bySchedule(Schedule::kIso3766);
    options.cutting.deduction = one.deduction;
    EXPECT_TRUE(headSays(headOf(options), one.text)) << headOf(options);
  }
  EXPECT_FALSE(headSays(headOf(test::bySchedule(Schedule::kIso3766)), "sum of the outside"));
}

TEST(ToolListConventions, SayOnWhichRollerHooksAndRingsAreBent) {
  ListOptions options = test::bySchedule(Schedule::kIso3766);
  options.bending.mandrel = Mandrel{5.0, 0.0};
  options.bending.hooks = HookMeaning::kStraight;
  options.bending.ring = RingRadius::kInner;
  const std::string head = headOf(options);
  EXPECT_TRUE(headSays(head,
                       "Hooks: their length is the straight part behind the bend. Circular "
                       "frames: the radius is the inner one. Angles: degrees. Rollers: 5 d.\n"));
  options.bending.mandrel = Mandrel{0.0, 62.5};
  EXPECT_TRUE(headSays(headOf(options), "Rollers: 62.5 mm.\n"));
  EXPECT_TRUE(headSays(headOf(options, kFrenchList), "Mandrins\u00a0: 62,5 mm.\n"));
}

// Drawings whose angles differ have no unit in common to be said.
TEST(ToolListConventions, SayTheUnitOfAnglesThatAllDrawingsShare) {
  const ListOptions options = test::bySchedule(Schedule::kIso3766);
  const auto degrees = AngleUnit::kDegrees;
  const auto radians = AngleUnit::kRadians;
  EXPECT_TRUE(headSays(headOf(options, kEnglishList, {degrees, degrees}), " Angles: degrees. "));
  EXPECT_TRUE(headSays(headOf(options, kEnglishList, {radians, radians}), " Angles: radians. "));
  EXPECT_FALSE(headSays(headOf(options, kEnglishList, {degrees, radians}), "Angles"));
  EXPECT_FALSE(headSays(headOf(options, kEnglishList, {radians, degrees}), "Angles"));
  EXPECT_TRUE(headSays(headOf(options, kFrenchList, {radians}), " Angles\u00a0: en radians. "));
}

TEST(ToolListConventions, SayRoundingWhereThereIsAny) {
  ListOptions options;
  EXPECT_FALSE(headSays(headOf(options), "Rounded"));
  options.cutting.lengthStep = 5.0;
  EXPECT_TRUE(headSays(headOf(options), "Rounded: lengths to 5 mm, dimensions to 0 mm.\n"));
  options.cutting.lengthStep = 0.0;
  options.cutting.legStep = 2.5;
  options.cutting.rounding = Rounding::kUp;
  EXPECT_TRUE(headSays(headOf(options), "Rounded: lengths up to 0 mm, dimensions to 2.5 mm.\n"));
  EXPECT_TRUE(headSays(headOf(options, kFrenchList), "par exc\u00e8s, cotes \u00e0 2,5 mm.\n"));
}

TEST(ToolListConventions, SayThatTwinsCountOnce) {
  ListOptions options;
  EXPECT_FALSE(headSays(headOf(options), "in several views count once"));
  options.twins = TwinSeries::kOnce;
  EXPECT_TRUE(headSays(headOf(options),
                       "not in the file. Repartitions of one mark with the same "
                       "number and steps in several views count once.\n"));
}

}  // namespace

}  // namespace quorvan::tool
