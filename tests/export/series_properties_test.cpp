// What a shifted or turned drawing makes of its series, for any series.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <random>
#include <vector>

#include <tests/export/series_filing.h>

namespace quorvan::test {
namespace {

constexpr int kDrawings = 25;

using Move = std::function<CKtPnt3D(const CKtPnt3D&)>;

std::vector<Frame> moved(std::vector<Frame> frames, const Move& move) {
  for (Frame& frame : frames) {
    frame.first = move(frame.first);
    frame.second = move(frame.second);
  }
  return frames;
}

CKtPnt3D quarterTurn(const CKtPnt3D& point) {
  return {-point.Y(), point.X(), point.Z()};
}

CKtPnt3D halfTurn(const CKtPnt3D& point) {
  return {-point.X(), -point.Y(), point.Z()};
}

CKtVect3D turned(const CKtVect3D& vector, const Move& move) {
  return {move(CKtPnt3D(vector.X(), vector.Y(), vector.Z())), 0};
}

void expectNumbers(const std::vector<double>& numbers, const std::vector<double>& expected,
                   double factor = 1) {
  ASSERT_EQ(numbers.size(), expected.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_NEAR(numbers[i], factor * expected[i], 2e-7) << i;
  }
}

class SeriesProperties : public SeriesFiling {
 protected:
  // Coordinates in eighths up to 2000.
  double coordinate() { return static_cast<double>(m_random() % 32000) / 8 - 2000; }

  // Frames of a class, of heights equal at the first points, that lean as they like.
  std::vector<Frame> anyFrames(const wchar_t* className) {
    const double height = coordinate();
    std::vector<Frame> frames(2 + m_random() % 6);
    for (Frame& frame : frames) {
      frame = barFrame({coordinate(), coordinate(), height},
                       {coordinate(), coordinate(), coordinate()});
      frame.className = className;
    }
    return frames;
  }

  // The same, of which each runs along y.
  std::vector<Frame> framesAlongY(const wchar_t* className) {
    auto frames = anyFrames(className);
    for (Frame& frame : frames) {
      frame.second.X(frame.first.X());
    }
    return frames;
  }

  static CKtZantoRepartition filed(const std::vector<Frame>& frames) {
    std::filesystem::remove(kDrawing);
    start();
    return repartitionOf(frames);
  }

  std::mt19937 m_random{11};
};

class BothKinds : public SeriesProperties, public testing::WithParamInterface<const wchar_t*> {};

INSTANTIATE_TEST_SUITE_P(Series, BothKinds,
                         testing::Values(L"CKtZantoStraightBar", L"CKtZantoStirrup"),
                         [](const auto& run) { return run.index == 0 ? "Bars" : "Stirrups"; });

TEST_P(BothKinds, AShiftedDrawingGivesAShiftedRepartition) {
  for (int drawing = 0; drawing < kDrawings; ++drawing) {
    const auto frames = anyFrames(GetParam());
    const CKtPnt3D shift(coordinate(), coordinate(), coordinate());
    const CKtZantoRepartition plain = filed(frames);
    const CKtZantoRepartition shifted = filed(moved(frames, [&](const CKtPnt3D& p) {
      return CKtPnt3D(p.X() + shift.X(), p.Y() + shift.Y(), p.Z() + shift.Z());
    }));
    expectNumbers(topOf(shifted), topOf(plain));
    expectNumbers(bottomOf(shifted), bottomOf(plain));
    expectNumbers(positionsOf(shifted), positionsOf(plain));
    expectVector(shifted.getAxis(), plain.getAxis());
    const CKtPnt3D first = plain.getPoint1();
    const CKtPnt3D second = plain.getPoint2();
    expectPoint(shifted.getPoint1(),
                {first.X() + shift.X(), first.Y() + shift.Y(), first.Z() + shift.Z()});
    EXPECT_NEAR(shifted.getPoint2().X(), second.X() + shift.X(), 2e-7);
    EXPECT_NEAR(shifted.getPoint2().Y(), second.Y() + shift.Y(), 2e-7);
    EXPECT_NEAR(shifted.getPoint2().Z(), second.Z() + shift.Z(), 2e-7);
  }
}

TEST_P(BothKinds, ThereAreAsManyDistancesAsFramesAndOnePositionLess) {
  for (int drawing = 0; drawing < kDrawings; ++drawing) {
    const auto frames = anyFrames(GetParam());
    const CKtZantoRepartition repartition = filed(frames);
    EXPECT_EQ(topOf(repartition).size(), frames.size());
    EXPECT_EQ(bottomOf(repartition).size(), frames.size());
    EXPECT_EQ(positionsOf(repartition).size(), frames.size() - 1);
    for (const double position : positionsOf(repartition)) {
      EXPECT_GE(position, 0.0);
    }
  }
}

// Frames along y are measured along x; turned by a quarter they run along x and are measured along
// y. The base line is turned with them.
TEST_P(BothKinds, FramesAlongYTurnedByAQuarterGiveATurnedRepartition) {
  for (int drawing = 0; drawing < kDrawings; ++drawing) {
    const auto frames = framesAlongY(GetParam());
    const CKtZantoRepartition plain = filed(frames);
    const CKtZantoRepartition turnedOne = filed(moved(frames, quarterTurn));
    expectNumbers(topOf(turnedOne), topOf(plain));
    expectNumbers(bottomOf(turnedOne), bottomOf(plain));
    expectNumbers(positionsOf(turnedOne), positionsOf(plain));
    expectVector(turnedOne.getAxis(), turned(plain.getAxis(), quarterTurn));
    expectPoint(turnedOne.getPoint1(), quarterTurn(plain.getPoint1()));
    expectPoint(turnedOne.getPoint2(), quarterTurn(plain.getPoint2()));
  }
}

// The sign vector of a stirrup series turns with the drawing.
TEST_F(SeriesProperties, StirrupsTurnedByAHalfGiveATurnedRepartition) {
  for (int drawing = 0; drawing < kDrawings; ++drawing) {
    const auto frames = anyFrames(L"CKtZantoStirrup");
    const CKtZantoRepartition plain = filed(frames);
    const CKtZantoRepartition turnedOne = filed(moved(frames, halfTurn));
    expectNumbers(topOf(turnedOne), topOf(plain));
    expectNumbers(bottomOf(turnedOne), bottomOf(plain));
    expectNumbers(positionsOf(turnedOne), positionsOf(plain));
    expectVector(turnedOne.getAxis(), turned(plain.getAxis(), halfTurn));
    expectPoint(turnedOne.getPoint1(), halfTurn(plain.getPoint1()));
    EXPECT_NEAR(turnedOne.getPoint2().X(), -plain.getPoint2().X(), 2e-7);
    EXPECT_NEAR(turnedOne.getPoint2().Y(), -plain.getPoint2().Y(), 2e-7);
  }
}

// That of a bar series always points along x or y, so that the sides change.
TEST_F(SeriesProperties, BarsTurnedByAHalfChangeTheSidesOfTheirDistances) {
  for (int drawing = 0; drawing < kDrawings; ++drawing) {
    const auto frames = framesAlongY(L"CKtZantoStraightBar");
    const CKtZantoRepartition plain = filed(frames);
    const CKtZantoRepartition turnedOne = filed(moved(frames, halfTurn));
    expectNumbers(topOf(turnedOne), topOf(plain), -1);
    expectNumbers(bottomOf(turnedOne), bottomOf(plain), -1);
    expectNumbers(positionsOf(turnedOne), positionsOf(plain));
    expectVector(turnedOne.getAxis(), plain.getAxis());
    expectPoint(turnedOne.getPoint1(), halfTurn(plain.getPoint1()));
    expectPoint(turnedOne.getPoint2(), halfTurn(plain.getPoint2()));
  }
}

// Whatever the order of the pushes behind the first two, bars come out in the same order.
TEST_F(SeriesProperties, BarsPushedInAnotherOrderGiveTheSameRepartition) {
  for (int drawing = 0; drawing < kDrawings; ++drawing) {
    auto frames = framesAlongY(L"CKtZantoStraightBar");
    for (std::size_t i = 0; i < frames.size(); ++i) {
      const double x = static_cast<double>(i * i) + 1;  // no two alike
      frames[i].first.X(x);
      frames[i].second.X(x);
    }
    const CKtZantoRepartition plain = filed(frames);
    std::shuffle(frames.begin() + 2, frames.end(), m_random);
    const CKtZantoRepartition shuffled = filed(frames);
    EXPECT_EQ(topOf(shuffled), topOf(plain));
    EXPECT_EQ(bottomOf(shuffled), bottomOf(plain));
    EXPECT_EQ(positionsOf(shuffled), positionsOf(plain));
    expectPoint(shuffled.getPoint2(), plain.getPoint2());
  }
}

}  // namespace
}  // namespace quorvan::test
