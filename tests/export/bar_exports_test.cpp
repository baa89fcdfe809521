// Bars and links: each argument has a value of its own and is found under its item.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/export/host_filing.h>
#include <tests/support/transfer_text.h>

namespace quorvan::test {
namespace {

class BarExports : public HostFiling {
 protected:
  BarExports() { start(); }

  // The five items that follow, for the arguments L"S", L"A", 77, 88.5 and the flag.
  static std::string attributes(bool hidden) {
    return "<SteelGrade string=\"S\"/><Adherence string=\"A\"/><Diameter double=\"88.5000000\"/>"
           "<Reference long=\"77\"/>" +
           std::string(hidden ? "<Hidden string=\"True\"/>" : "<Hidden string=\"False\"/>");
  }

  static std::string point(const char* name, double first) {
    return pointItem(name, {first, first + 1, first + 2});
  }

  static void expectFiled(const char* className, const std::string& items) {
    EXPECT_EQ(saveAlone(), transferFile(classElement(className, 1, items)));
  }
};

TEST_F(BarExports, StraightBar) {
  exportBarStraight(1, 2, 3, 4, 5, 6, 7, 8, true, false, 11, 12, L"S", L"A", 77, 88.5, false);
  expectFiled("CKtZantoStraightBar", point("Point1", 1) + point("Point2", 4) +
                                         doubleItem("HookLength1", 7) +
                                         doubleItem("HookLength2", 8) + flagItem("Hook1Up", true) +
                                         flagItem("Hook2Up", false) + doubleItem("HookAngle1", 11) +
                                         doubleItem("HookAngle2", 12) + attributes(false));
}

TEST_F(BarExports, StraightBarWithTheOtherFlags) {
  exportBarStraight(1, 2, 3, 4, 5, 6, 7, 8, false, true, 11, 12, L"S", L"A", 77, 88.5, true);
  expectFiled("CKtZantoStraightBar", point("Point1", 1) + point("Point2", 4) +
                                         doubleItem("HookLength1", 7) +
                                         doubleItem("HookLength2", 8) + flagItem("Hook1Up", false) +
                                         flagItem("Hook2Up", true) + doubleItem("HookAngle1", 11) +
                                         doubleItem("HookAngle2", 12) + attributes(true));
}

// Lengths first, angles behind.
TEST_F(BarExports, Pin) {
  exportPin(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, L"S", L"A", 77, 88.5, true);
  expectFiled("CKtZantoPin", point("Point1", 1) + point("Point2", 4) +
                                 doubleItem("HookLength1", 7) + doubleItem("HookLength2", 8) +
                                 doubleItem("HookAngle1", 9) + doubleItem("HookAngle2", 10) +
                                 attributes(true));
}

TEST_F(BarExports, Stirrup) {
  exportStirrup(1, 2, 3, 4, 5, 6, 7, 8, L"S", L"A", 77, 88.5, false);
  expectFiled("CKtZantoStirrup", point("Point1", 1) + point("Point2", 4) +
                                     doubleItem("HookLength1", 7) + doubleItem("HookAngle1", 8) +
                                     attributes(false));
}

TEST_F(BarExports, FrameRect) {
  exportFrameRect(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, L"S", L"A", 77, 88.5, true);
  expectFiled("CKtZantoFrameRect", point("Point1", 1) + point("Point2", 4) + point("Point3", 7) +
                                       doubleItem("HookLength1", 10) +
                                       doubleItem("HookAngle1", 11) + attributes(true));
}

TEST_F(BarExports, FrameCirc) {
  exportFrameCirc(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, L"S", L"A", 77, 88.5, false);
  expectFiled("CKtZantoFrameCirc",
              point("Center", 1) + point("StartPoint", 4) + doubleItem("FrameRadius", 7) +
                  doubleItem("RecoverLength", 8) + doubleItem("HookLength1", 9) +
                  doubleItem("HookAngle1", 10) + attributes(false));
}

// Each hook's angle follows its own length.
TEST_F(BarExports, LBar) {
  exportLBar(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, L"S", L"A", 77, 88.5, true);
  expectFiled("CKtZantoLBar", point("Point1", 1) + point("Point2", 4) + point("Point3", 7) +
                                  doubleItem("HookLength1", 10) + doubleItem("HookAngle1", 11) +
                                  doubleItem("HookLength2", 12) + doubleItem("HookAngle2", 13) +
                                  attributes(true));
}

TEST_F(BarExports, UBar) {
  exportUBar(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, L"S", L"A", 77, 88.5, false);
  expectFiled("CKtZantoUBar", point("Point1", 1) + point("Point2", 4) + point("Point3", 7) +
                                  doubleItem("HookLength1", 10) + doubleItem("HookAngle1", 11) +
                                  doubleItem("HookLength2", 12) + doubleItem("HookAngle2", 13) +
                                  attributes(false));
}

TEST_F(BarExports, PointBar) {
  exportPointBar(1, 2, 3, L"S", L"A", 77, 88.5, true);
  expectFiled("CKtZantoPointBar", point("Point1", 1) + attributes(true));
}

TEST_F(BarExports, PolygonBar) {
  double xs[] = {1, 4, 7};
  double ys[] = {2, 5, 8};
  double zs[] = {3, 6, 9};
  exportBarPolygon(3, xs, ys, zs, 10, 11, true, 13, 14, L"S", L"A", 77, 88.5, false);
  expectFiled("CKtZantoPolygonBar",
              longItem("NoPoints", 3) + point("Point1", 1) + point("Point2", 4) +
                  point("Point3", 7) + doubleItem("HookLength1", 10) +
                  doubleItem("HookLength2", 11) + longItem("Side", 1) +
                  doubleItem("HookAngle1", 13) + doubleItem("HookAngle2", 14) + attributes(false));
  EXPECT_EQ(std::vector<double>(xs, xs + 3), (std::vector<double>{1, 4, 7}));
}

TEST_F(BarExports, PolygonBarOnTheOtherSide) {
  double zero[] = {0};
  exportBarPolygon(1, zero, zero, zero, 10, 11, false, 13, 14, L"S", L"A", 77, 88.5, true);
  expectFiled("CKtZantoPolygonBar", longItem("NoPoints", 1) + pointItem("Point1", {0, 0, 0}) +
                                        doubleItem("HookLength1", 10) +
                                        doubleItem("HookLength2", 11) + longItem("Side", 0) +
                                        doubleItem("HookAngle1", 13) +
                                        doubleItem("HookAngle2", 14) + attributes(true));
}

TEST_F(BarExports, PolygonBarsWithoutPoints) {
  std::string expected;
  int index = 0;
  for (const int count : {0, -1, -2147483647 - 1}) {
    exportBarPolygon(count, nullptr, nullptr, nullptr, 10, 11, true, 13, 14, L"S", L"A", 77, 88.5,
                     false);
    expected += classElement("CKtZantoPolygonBar", ++index,
                             longItem("NoPoints", 0) + doubleItem("HookLength1", 10) +
                                 doubleItem("HookLength2", 11) + longItem("Side", 1) +
                                 doubleItem("HookAngle1", 13) + doubleItem("HookAngle2", 14) +
                                 attributes(false));
  }
  EXPECT_EQ(saveAlone(), transferFile(expected));
}

TEST_F(BarExports, NothingIsWrittenWhileStopped) {
  stopFiling();
  double zero[] = {0};
  for (const bool hidden : {false, true}) {
    exportBarStraight(1, 2, 3, 4, 5, 6, 7, 8, true, false, 11, 12, L"S", L"A", 77, 88.5, hidden);
    exportPin(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, L"S", L"A", 77, 88.5, hidden);
    exportStirrup(1, 2, 3, 4, 5, 6, 7, 8, L"S", L"A", 77, 88.5, hidden);
    exportFrameRect(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, L"S", L"A", 77, 88.5, hidden);
    exportFrameCirc(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, L"S", L"A", 77, 88.5, hidden);
    exportLBar(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, L"S", L"A", 77, 88.5, hidden);
    exportUBar(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, L"S", L"A", 77, 88.5, hidden);
    exportPointBar(1, 2, 3, L"S", L"A", 77, 88.5, hidden);
    exportBarPolygon(1, zero, zero, zero, 10, 11, false, 13, 14, L"S", L"A", 77, 88.5, hidden);
  }
  EXPECT_EQ(saveAlone(), transferFile(""));
}

}  // namespace
}  // namespace quorvan::test
