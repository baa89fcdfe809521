#include <tools/model/angle_unit.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include <tests/support/transfer_text.h>
#include <tests/tools/loaded_file.h>

namespace {

using quorvan::test::doubleItem;
using quorvan::test::loadedElements;
using quorvan::tool::AngleGuess;
using quorvan::tool::AngleUnit;

constexpr AngleUnit kDegrees = AngleUnit::kDegrees;
constexpr AngleUnit kRadians = AngleUnit::kRadians;

std::string textAt(double angle) {
  return "<CKtZantoText>" + doubleItem("Angle", angle) + "</CKtZantoText>";
}

std::string pinWith(double first, double second) {
  return "<CKtZantoPin>" + doubleItem("HookAngle1", first) + doubleItem("HookAngle2", second) +
         "</CKtZantoPin>";
}

AngleGuess guessFor(const std::string& elements) {
  return guessAngleUnit(loadedElements(elements).file());
}

TEST(ToolAngleUnit, HasAName) {
  EXPECT_EQ(angleUnitName(kDegrees), "degrees");
  EXPECT_EQ(angleUnitName(kRadians), "radians");
}

TEST(ToolAngleUnit, IsDegreesWhereNothingSpeaksForEither) {
  for (const std::string& elements : {std::string(), textAt(0), pinWith(0, 0),
                                      std::string("<Other><Angle double='1'/></Other>")}) {
    EXPECT_EQ(guessFor(elements).unit, kDegrees);
    EXPECT_EQ(guessFor(elements).angles, 0U);
  }
}

TEST(ToolAngleUnit, IsDegreesBeyondAFullTurnOfRadians) {
  EXPECT_EQ(guessFor(textAt(6.2831853)).unit, kRadians);
  EXPECT_EQ(guessFor(textAt(7.8539816)).unit, kDegrees);
  EXPECT_EQ(guessFor(pinWith(1.5707963, 1.5707963) + textAt(-90)).unit, kDegrees);
  EXPECT_EQ(guessFor(textAt(1.5707963) + pinWith(135, 0)).unit, kDegrees);
}

TEST(ToolAngleUnit, IsRadiansAtMultiplesOf15Degrees) {
  for (const double angle : {0.2617994, 0.5235988, 0.7853982, 1.5707963, 2.3561945, 3.1415927,
                             -1.5707963, 1.57, 3.14, 4.712389}) {
    EXPECT_EQ(guessFor(textAt(angle)).unit, kRadians) << angle;
    EXPECT_EQ(guessFor(pinWith(angle, 0)).unit, kRadians) << angle;
  }
  for (const double angle : {1.0, 1.5, 2.0, 3.0, 5.0, 0.1, 1.56}) {
    EXPECT_EQ(guessFor(textAt(angle)).unit, kDegrees) << angle;
  }
}

TEST(ToolAngleUnit, FollowsHooksRatherThanTexts) {
  EXPECT_EQ(guessFor(pinWith(1.5707963, 0) + textAt(1) + textAt(2) + textAt(3)).unit, kRadians);
  EXPECT_EQ(guessFor(pinWith(1, 2) + textAt(1.5707963)).unit, kDegrees);
}

TEST(ToolAngleUnit, FollowsMostOfTheDifferentAngles) {
  EXPECT_EQ(guessFor(textAt(1.5707963) + textAt(3.1415927) + textAt(1)).unit, kRadians);
  EXPECT_EQ(guessFor(textAt(1.5707963) + textAt(1)).unit, kDegrees) << "a draw";
  EXPECT_EQ(guessFor(textAt(1.5707963) + textAt(1) + textAt(2)).unit, kDegrees);
}

TEST(ToolAngleUnit, HearsEachAngleOnce) {
  std::string elements = textAt(1.5707963) + textAt(3.1415927);
  for (int i = 0; i < 10; ++i) {
    elements += textAt(1) + textAt(-1);
  }
  EXPECT_EQ(guessFor(elements).unit, kRadians);
  EXPECT_EQ(guessFor(elements).angles, 22U);
}

TEST(ToolAngleUnit, TakesTheAnglesOfMeshesLikeThoseOfTexts) {
  EXPECT_EQ(guessFor("<CKtZantoMesh>" + doubleItem("Angle", 1.5707963) + "</CKtZantoMesh>").unit,
            kRadians);
}

TEST(ToolAngleUnit, DoesNotDependOnTheOrderOfElements) {
  std::mt19937 random(34);
  constexpr double kAngles[] = {1.5707963, 1.0, 0.7853982, 2.0, 3.1415927, 0.0, -1.5707963};
  for (int round = 0; round < 30; ++round) {
    std::vector<std::string> elements;
    for (auto count = 1 + random() % 8; count > 0; --count) {
      const double angle = kAngles[random() % std::size(kAngles)];
      elements.push_back(random() % 3 == 0 ? pinWith(angle, 0) : textAt(angle));
    }
    const auto joinedText = [&elements] {
      std::string all;
      for (const std::string& element : elements) {
        all += element;
      }
      return all;
    };
    const AngleGuess before = guessFor(joinedText());
    std::shuffle(elements.begin(), elements.end(), random);
    const AngleGuess after = guessFor(joinedText());
    EXPECT_EQ(after.unit, before.unit);
    EXPECT_EQ(after.angles, before.angles);
  }
}

}  // namespace
