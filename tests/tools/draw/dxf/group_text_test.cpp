#include <gtest/gtest.h>

#include <clocale>

#include <tools/draw/dxf/group_text.h>

namespace {

using quorvan::tool::GroupText;

std::string dxfNumber(double value) {
  GroupText groups;
  groups.number(40, value);
  const std::string& bytes = groups.bytes();
  EXPECT_EQ(bytes.substr(0, 5), " 40\r\n");
  return bytes.substr(5, bytes.size() - 7);
}

TEST(ToolDxfGroups, PutACodeAndAValueOnLinesOfTheirOwn) {
  GroupText groups;
  groups.text(0, "LINE");
  groups.integer(70, -3);
  groups.handle(330, 0x2BF);
  EXPECT_EQ(groups.bytes(), "  0\r\nLINE\r\n 70\r\n-3\r\n330\r\n2BF\r\n");
}

TEST(ToolDxfGroups, AlwaysWriteAPointInANumber) {
  EXPECT_EQ(dxfNumber(5.0), "5.0");
  EXPECT_EQ(dxfNumber(-1250.25), "-1250.25");
  EXPECT_EQ(dxfNumber(0.1), "0.1");
  EXPECT_EQ(dxfNumber(1e-7), "0.0000001");
}

TEST(ToolDxfGroups, RoundToAThousandMillionth) {
  EXPECT_EQ(dxfNumber(0.1 + 0.2), "0.3");
  EXPECT_EQ(dxfNumber(1.0 / 3.0), "0.333333333");
  EXPECT_EQ(dxfNumber(-1e-12), "0.0");
}

TEST(ToolDxfGroups, NeverWriteANegativeZero) {
  EXPECT_EQ(dxfNumber(-0.0), "0.0");
}

// Coordinates of a national grid in millimetres.
TEST(ToolDxfGroups, KeepEveryDigitOfALargeNumber) {
  EXPECT_EQ(dxfNumber(5812345678.1234567), "5812345678.123457");
  EXPECT_EQ(dxfNumber(1e12), "1000000000000.0");
  EXPECT_EQ(dxfNumber(1e20), "1e+20");
}

TEST(ToolDxfGroups, KeepTwelveDecimalsOfABulge) {
  GroupText groups;
  groups.ratio(42, 1.0 / 3.0);
  EXPECT_EQ(groups.bytes(), " 42\r\n0.333333333333\r\n");
}

TEST(ToolDxfGroups, WriteAPointInThreeGroups) {
  GroupText groups;
  groups.point(11, {1.5, -2.0});
  EXPECT_EQ(groups.bytes(), " 11\r\n1.5\r\n 21\r\n-2.0\r\n 31\r\n0.0\r\n");
}

TEST(ToolDxfGroups, WriteAPlaceInThePlaneInTwo) {
  GroupText groups;
  groups.planePoint(10, {1.5, -2.0});
  EXPECT_EQ(groups.bytes(), " 10\r\n1.5\r\n 20\r\n-2.0\r\n");
}

TEST(ToolDxfGroups, HandOverWhatTheyHaveAndBeginAnew) {
  GroupText groups;
  groups.text(0, "EOF");
  EXPECT_EQ(groups.take(), "  0\r\nEOF\r\n");
  EXPECT_EQ(groups.bytes(), "");
}

}  // namespace
