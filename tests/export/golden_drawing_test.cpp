// A small drawing with every kind of element and of series, byte for byte.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <tests/export/series_filing.h>
#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>

namespace quorvan::test {
namespace {

const std::string kGolden = quorvan::test::dataPath("export/golden/small_drawing.xml");

void exportGraphics() {
  const double xs[] = {0, 5000, 5000, 5000, 5000, 0, 0, 0};
  const double ys[] = {0, 0, 0, 500, 500, 500, 500, 0};
  const double zs[] = {0, 0, 0, 0, 0, 0, 0, 0};
  const double bzs[] = {0, 0.25, 0, -0.125};
  exportFormwork(8, xs, ys, zs, zs, zs, bzs);
  exportLine(-200, 250, 0, 5200, 250, 0, 8);
  exportCircle(100, 100.5, 0, 10.25, 0xFFFFFFFFUL);
  exportText(L"\u00c9l\u00e9vation \u2014 poutre \u00ab P12 \u00bb \u00f8 16 & \"\u00f8 8\" \u20ac",
             0, -300, 0, 0, 3, 1, 2, 35);
  const double meshXs[] = {0, 6000, 6000};
  const double meshYs[] = {0, 0, 2400};
  exportMesh(L"M1", L"ST 25 C", 6000, 2400, 90, 3, meshXs, meshYs, zs);
  const double arrowXs[] = {0, 50, 25};
  const double arrowYs[] = {0, 0, 43.30127018922193};
  exportFilledPolygon(3, arrowXs, arrowYs, zs, 5);
}

void exportBars() {
  exportBarStraight(30, 30, 0, 4970, 30, 0, 160, 120, true, false, 90, 135, L"B500B", L"Ha", 1, 16,
                    false);
  for (int twice = 0; twice < 2; ++twice) {
    exportBarStraight(30, 470, 0, 4970, 470, 0, 160, 120, true, false, 90, 135, L"B500B", L"Ha", 2,
                      16, true);
  }
  double xs[] = {30, 800, 1240, 4970};
  double ys[] = {470, 470, 30, 30};
  double zs[] = {0, 0, 0, 0};
  exportBarPolygon(4, xs, ys, zs, 150, 0, true, 90, 0, L"B500B", L"Ha", 3, 20, false);
  exportLBar(0, 0, 0, 0, 400, 0, 900, 400, 0, 100, 45, 110, 135, L"B500B", L"Ha", 4, 12, false);
  exportUBar(0, 0, 0, 0, 400, 0, 240, 400, 0, 80, 90, 85, 180, L"B500B", L"Ha", 5, 10, false);
}

void exportLinks() {
  exportPin(10, 20, 0, 10, 220, 0, 60, 65, 135, 90, L"B500A", L"Dx", 6, 6, true);
  exportPin(10, 20, 0, 10, 220, 0, 60, 65, 135, 90, L"B500A", L"Dx", 6, 6, true);
  exportPointBar(30, 30, 0, L"B500B", L"Ha", 7, 16, true);
  exportPointBar(30, 30, 0, L"B500B", L"Ha", 7, 16, true);
  exportStirrup(0, 0, 0, 0, 500, 0, 70, 135, L"B500B", L"Ha", 8, 8, false);
  exportFrameRect(0, 0, 0, 250, 0, 0, 250, 450, 0, 75, 135, L"B500B", L"Ha", 9, 8, false);
  exportFrameCirc(300, 300, 0, 500, 300, 0, 200, 240.5, 90, 90, L"B500B", L"Ha", 10, 8, false);
}

// A frame with the steel of the bars above.
Frame steelFrame(Frame frame, long reference, double diameter) {
  frame.steelGrade = L"B500B";
  frame.adherence = L"Ha";
  frame.reference = reference;
  frame.diameter = diameter;
  return frame;
}

void pushSeries() {
  for (const double y : {12.5, 262.5, 512.5}) {
    Frame simple;
    simple.first = CKtPnt3D(y, -y, 40);
    push(steelFrame(simple, 1, 16));
  }
  for (const double y : {0.0, 300.0, 150.0}) {
    Frame bar = barFrame({0, y, 0}, {1000, y, 0});
    bar.hidden = true;
    push(steelFrame(bar, 2, 16));
  }
  for (const double x : {0.0, 200.0, 400.0}) {
    push(steelFrame(stirrupFrame({x, 0, 0}, {x, 500, 0}), 8, 8));
  }
}

using GoldenDrawing = HostFiling;

TEST_F(GoldenDrawing, OfAHostIsSavedByteForByte) {
  startFiling(kDrawingName);
  exportGraphics();
  pushSeries();
  exportBars();
  exportLinks();
  endFiling(L"10.2", 3, L"Poutre P12, \u00e9tage 3", -123456789);
  EXPECT_EQ(savedBytes(kDrawing), fileBytes(kGolden));
}

// Starting and ending a stopped filing on it gives the same bytes again.
TEST_F(GoldenDrawing, IsTheSameAfterItWasOpenedAndSaved) {
  std::filesystem::copy_file(kGolden, kDrawing);
  startFiling(kDrawingName);
  EXPECT_EQ(saveAlone(), fileBytes(kGolden));
}

}  // namespace
}  // namespace quorvan::test
