#include <tests/export/series_filing.h>

#include <quorvan/filer/filer.h>

namespace quorvan::test {

namespace {

// Half a unit of the seventh decimal.
constexpr double kHalfDigit = 0.6e-7;

}  // namespace

void push(const Frame& frame) {
  pushRepartitionFrameRect(frame.first.X(), frame.first.Y(), frame.first.Z(), frame.second.X(),
                           frame.second.Y(), frame.second.Z(), frame.className.c_str(),
                           frame.hookLength1, frame.hookAngle1, frame.steelGrade.c_str(),
                           frame.adherence.c_str(), frame.reference, frame.diameter, frame.hidden,
                           frame.keyC, frame.viewPoint, frame.lastInt);
}

Frame stirrupFrame(const CKtPnt3D& first, const CKtPnt3D& second) {
  Frame frame;
  frame.first = first;
  frame.second = second;
  frame.className = L"CKtZantoStirrup";
  return frame;
}

Frame barFrame(const CKtPnt3D& first, const CKtPnt3D& second) {
  Frame frame;
  frame.first = first;
  frame.second = second;
  frame.viewPoint = 2;
  return frame;
}

std::vector<CKtZantoRepartition> savedRepartitions() {
  CKtFiler filer;
  filer.newFiler(kDrawingName);
  std::vector<CKtZantoRepartition> repartitions;
  CKtZantoRepartition repartition;
  while (repartition.fileIn(&filer) == 1) {
    repartitions.push_back(repartition);
  }
  return repartitions;
}

std::vector<double> topOf(const CKtZantoRepartition& repartition) {
  std::vector<double> values;
  repartition.getAxisDistancesTop(values);
  return values;
}

std::vector<double> bottomOf(const CKtZantoRepartition& repartition) {
  std::vector<double> values;
  repartition.getAxisDistancesBottom(values);
  return values;
}

std::vector<double> positionsOf(const CKtZantoRepartition& repartition) {
  std::vector<double> values;
  repartition.getPositions(values);
  return values;
}

void expectPoint(const CKtPnt3D& point, const CKtPnt3D& expected) {
  EXPECT_NEAR(point.X(), expected.X(), kHalfDigit);
  EXPECT_NEAR(point.Y(), expected.Y(), kHalfDigit);
  EXPECT_NEAR(point.Z(), expected.Z(), kHalfDigit);
}

void expectVector(const CKtVect3D& vector, const CKtVect3D& expected) {
  EXPECT_NEAR(vector.X(), expected.X(), kHalfDigit);
  EXPECT_NEAR(vector.Y(), expected.Y(), kHalfDigit);
  EXPECT_NEAR(vector.Z(), expected.Z(), kHalfDigit);
}

CKtZantoRepartition SeriesFiling::endWithOne() {
  end();
  const auto repartitions = savedRepartitions();
  EXPECT_EQ(repartitions.size(), 1U);
  return repartitions.empty() ? CKtZantoRepartition() : repartitions.front();
}

CKtZantoRepartition SeriesFiling::repartitionOf(const std::vector<Frame>& frames) {
  for (const Frame& frame : frames) {
    push(frame);
  }
  return endWithOne();
}

}  // namespace quorvan::test
