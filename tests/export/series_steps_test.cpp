// Series of every kind against a second reckoning, step by step and with other formulas: the base
// line runs along x or y, so that distances and the meeting point need no general geometry.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <tests/export/series_filing.h>

namespace quorvan::test {
namespace {

constexpr int kRounds = 40;
constexpr double kNear = 2e-7;

struct Reckoned {
  std::vector<double> top;
  std::vector<double> bottom;
  std::vector<double> positions;
  CKtPnt3D point1;
  std::optional<CKtPnt3D> point2;  // none where the lines hardly meet
  CKtVect3D axis;
  std::wstring className;
};

double offsetAlong(const Frame& first, const Frame& second, const Frame& frame) {
  return (frame.first.X() - first.first.X()) * (second.first.X() - first.first.X()) +
         (frame.first.Y() - first.first.Y()) * (second.first.Y() - first.first.Y()) +
         (frame.first.Z() - first.first.Z()) * (second.first.Z() - first.first.Z());
}

// Exchanges neighbours until none is out of order.
void exchangeSort(std::vector<Frame>& frames) {
  std::vector<double> offsets;
  for (const Frame& frame : frames) {
    offsets.push_back(offsetAlong(frames[0], frames[1], frame));
  }
  for (bool exchanged = true; exchanged;) {
    exchanged = false;
    for (std::size_t k = 1; k < frames.size(); ++k) {
      if (offsets[k - 1] > offsets[k]) {
        std::swap(offsets[k - 1], offsets[k]);
        std::swap(frames[k - 1], frames[k]);
        exchanged = true;
      }
    }
  }
}

// Where the last frame's line crosses the base line; z is that of the middle.
std::optional<CKtPnt3D> meetingPoint(const Frame& last, const CKtPnt3D& middle, bool alongX) {
  const double dx = last.second.X() - last.first.X();
  const double dy = last.second.Y() - last.first.Y();
  if (std::abs(alongX ? dy : dx) < 1) {
    return std::nullopt;
  }
  if (alongX) {
    const double part = (middle.Y() - last.first.Y()) / dy;
    return CKtPnt3D(last.first.X() + part * dx, middle.Y(), middle.Z());
  }
  const double part = (middle.X() - last.first.X()) / dx;
  return CKtPnt3D(middle.X(), last.first.Y() + part * dy, middle.Z());
}

double distanceFiled(const CKtPnt3D& point, const CKtPnt3D& middle, bool alongX,
                     const CKtVect3D& sign) {
  const double x = point.X() - middle.X();
  const double y = point.Y() - middle.Y();
  const double distance = std::hypot(alongX ? y : x, point.Z() - middle.Z());
  return x * sign.Y() - y * sign.X() < 0 ? distance : -distance;
}

Reckoned reckoned(std::vector<Frame> frames) {
  const bool straight = frames[0].className == L"CKtZantoStraightBar";
  const CKtPnt3D from = frames[0].first;
  const CKtPnt3D to = frames[1].first;
  const double length = std::hypot(to.X() - from.X(), to.Y() - from.Y());
  if (straight) {
    exchangeSort(frames);
  }
  const Frame& first = frames.front();
  Reckoned result;
  result.className = first.className;
  result.point1.XYZ((first.first.X() + first.second.X()) / 2,
                    (first.first.Y() + first.second.Y()) / 2,
                    (first.first.Z() + first.second.Z()) / 2);
  const bool alongX = first.first.X() == first.second.X();
  if (straight) {
    result.axis = alongX ? CKtVect3D(10, 0, 0) : CKtVect3D(0, 10, 0);
  } else {
    result.axis = CKtVect3D((to.X() - from.X()) / length, (to.Y() - from.Y()) / length, 0);
  }
  for (const Frame& frame : frames) {
    result.top.push_back(distanceFiled(frame.first, result.point1, alongX, result.axis));
    result.bottom.push_back(distanceFiled(frame.second, result.point1, alongX, result.axis));
  }
  for (std::size_t k = 1; k < frames.size(); ++k) {
    result.positions.push_back(alongX ? std::abs(frames[k].first.X() - frames[k - 1].first.X())
                                      : std::abs(frames[k].first.Y() - frames[k - 1].first.Y()));
  }
  result.point2 = meetingPoint(frames.back(), result.point1, alongX);
  return result;
}

void expectReckoned(const std::vector<double>& numbers, const std::vector<double>& expected) {
  ASSERT_EQ(numbers.size(), expected.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_NEAR(numbers[i], expected[i], kNear) << i;
  }
}

class SeriesSteps : public SeriesFiling {
 protected:
  int below(unsigned int limit) { return static_cast<int>(m_random() % limit); }

  // Odd numbers at odd places keep points off the lines through others, where rounding would
  // decide the sign.
  std::vector<Frame> frames(const std::wstring& className, int view) {
    const double height = below(3);
    std::vector<Frame> frames(2 + static_cast<std::size_t>(below(7)));
    for (Frame& frame : frames) {
      frame.first = CKtPnt3D(below(40) * 6, below(40) * 6 + 1, height);
      frame.second = CKtPnt3D(below(40) * 6 + 3, below(40) * 6 + 2.25, below(3));
      if (below(2) == 0) {
        frame.second.X(frame.first.X());
      }
      frame.className = className;
      frame.viewPoint = view;
    }
    // One place twice is no direction.
    frames[1].first.X(frames[0].first.X() + 6);
    return frames;
  }

  static void expectFiled(const std::vector<Frame>& pushed, const Reckoned& expected) {
    std::filesystem::remove(kDrawing);
    start();
    const CKtZantoRepartition filed = repartitionOf(pushed);
    expectReckoned(topOf(filed), expected.top);
    expectReckoned(bottomOf(filed), expected.bottom);
    expectReckoned(positionsOf(filed), expected.positions);
    expectPoint(filed.getPoint1(), expected.point1);
    if (expected.point2) {
      EXPECT_NEAR(filed.getPoint2().X(), expected.point2->X(), kNear);
      EXPECT_NEAR(filed.getPoint2().Y(), expected.point2->Y(), kNear);
      EXPECT_NEAR(filed.getPoint2().Z(), expected.point2->Z(), kNear);
    }
    expectVector(filed.getAxis(), expected.axis);
    expectVector(filed.getBulge(), {0, 0, 0});
    EXPECT_EQ(filed.getDefClassName(), expected.className.c_str());
  }

  std::mt19937 m_random{29};
};

TEST_F(SeriesSteps, OfStraightBars) {
  for (int drawing = 0; drawing < kRounds && !HasFailure(); ++drawing) {
    const auto pushed = frames(L"CKtZantoStraightBar", 2);
    expectFiled(pushed, reckoned(pushed));
  }
}

TEST_F(SeriesSteps, OfAnyOtherClass) {
  for (int drawing = 0; drawing < kRounds && !HasFailure(); ++drawing) {
    const auto pushed = frames(L"CKtZantoStirrup", below(3));
    expectFiled(pushed, reckoned(pushed));
  }
}

// Which steps are taken is decided before sorting, by the frame pushed first; what the series is
// called after it, by the frame that then comes first.
TEST_F(SeriesSteps, OfSeveralClasses) {
  for (int drawing = 0; drawing < kRounds && !HasFailure(); ++drawing) {
    auto pushed = frames(L"CKtZantoStraightBar", 2);
    for (Frame& frame : pushed) {
      frame.className = below(2) == 0 ? L"CKtZantoStraightBar" : L"CKtZantoPin";
    }
    expectFiled(pushed, reckoned(pushed));
  }
}

// Hidden frames of a series with a visible one take no part in its direction or order.
TEST_F(SeriesSteps, WithoutTheHiddenFrames) {
  for (int drawing = 0; drawing < kRounds && !HasFailure(); ++drawing) {
    const auto visible = frames(drawing % 2 == 0 ? L"CKtZantoStraightBar" : L"CKtZantoStirrup", 2);
    std::vector<Frame> pushed;
    for (const Frame& frame : visible) {
      Frame hidden = frame;
      hidden.hidden = true;
      hidden.first.X(hidden.first.X() - 999);
      pushed.insert(pushed.end(), static_cast<std::size_t>(below(3)), hidden);
      pushed.push_back(frame);
    }
    expectFiled(pushed, reckoned(visible));
  }
}

}  // namespace
}  // namespace quorvan::test
