// Which of the pushed frames make one repartition.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <tests/export/series_filing.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/export/series/pending_frame.h>

namespace quorvan::test {
namespace {

// A frame that is held back takes no more memory than its fields.
static_assert(sizeof(PendingFrame) == sizeof(CKtZantoFrameRect) + sizeof(CString) +
                                          6 * sizeof(double) + 4 * sizeof(int) + sizeof(bool));

/// A frame of a series that needs no geometry; `serial` tells it from others in the file.
Frame simple(double serial, double value3 = 0) {
  Frame frame;
  frame.first = CKtPnt3D(serial, -serial, value3);
  return frame;
}

// The serial numbers of the frames, repartition by repartition: "1 2, 3".
std::string groups() {
  std::string text;
  for (const CKtZantoRepartition& repartition : savedRepartitions()) {
    text += text.empty() ? "" : ",";
    for (const double serial : topOf(repartition)) {
      text += ' ' + std::to_string(static_cast<int>(serial));
    }
  }
  return text;
}

class SeriesGrouping : public SeriesFiling {
 protected:
  static std::string grouped(const std::vector<Frame>& frames) {
    for (const Frame& frame : frames) {
      push(frame);
    }
    end();
    return groups();
  }
};

TEST_F(SeriesGrouping, FramesOfOneKeyMakeOneRepartitionInTheOrderOfThePushes) {
  EXPECT_EQ(grouped({simple(3), simple(1), simple(2)}), " 3 1 2");
}

TEST_F(SeriesGrouping, EachPartOfTheKeyTellsSeriesApart) {
  Frame reference = simple(2);
  reference.reference = 2;
  Frame viewPoint = simple(3);
  viewPoint.viewPoint = -1;
  Frame otherOfThatView = simple(4);
  otherOfThatView.viewPoint = -1;
  Frame keyC = simple(5);
  keyC.keyC = 1;
  const Frame value3 = simple(6, 1e-300);
  for (const Frame& frame :
       {simple(1), reference, viewPoint, otherOfThatView, keyC, value3, simple(7)}) {
    push(frame);
  }
  end();
  const auto repartitions = savedRepartitions();
  ASSERT_EQ(repartitions.size(), 5U);
  EXPECT_EQ(topOf(repartitions[0]), (std::vector<double>{1, 7}));
  EXPECT_EQ(topOf(repartitions[1]), (std::vector<double>{2}));
  EXPECT_EQ(repartitions[2].getViewPoint(), -1);
  EXPECT_EQ(topOf(repartitions[3]), (std::vector<double>{5}));
  EXPECT_EQ(topOf(repartitions[4]), (std::vector<double>{6}));
}

// What is not in the key is taken from the first frame.
TEST_F(SeriesGrouping, NothingElseTellsSeriesApart) {
  Frame other = simple(2);
  other.second = CKtPnt3D(9, 9, 9);
  other.className = L"CKtZantoPin";
  other.hookLength1 = 5;
  other.hookAngle1 = 6;
  other.steelGrade = L"Other";
  other.adherence = L"Other";
  other.diameter = 99;
  other.lastInt = 77;
  push(simple(1));
  push(other);
  end();
  const auto repartitions = savedRepartitions();
  ASSERT_EQ(repartitions.size(), 1U);
  EXPECT_EQ(topOf(repartitions[0]), (std::vector<double>{1, 2}));
  EXPECT_EQ(repartitions[0].getDefClassName(), L"CKtZantoStraightBar");
}

TEST_F(SeriesGrouping, TheThirdValueIsComparedExactly) {
  const double next = std::nextafter(100.0, 200.0);
  EXPECT_EQ(grouped({simple(1, 100), simple(2, next), simple(3, 100), simple(4, next)}),
            " 1 3, 2 4");
}

TEST_F(SeriesGrouping, ZeroAndMinusZeroAreEqual) {
  EXPECT_EQ(grouped({simple(1, 0.0), simple(2, -0.0), simple(3, 0.0)}), " 1 2 3");
}

TEST_F(SeriesGrouping, WhatIsNoNumberEqualsNothing) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(grouped({simple(1, none), simple(2, none), simple(3, infinite), simple(4, infinite)}),
            " 1, 2, 3 4");
}

TEST_F(SeriesGrouping, OnlyTheLow32BitsOfReferenceAndKeyCount) {
  if (sizeof(long) > 4) {
    Frame wide = simple(2);
    wide.reference = static_cast<long>(0x300000001LL);
    Frame wideKey = simple(3);
    wideKey.keyC = static_cast<long>(0x300000000LL);
    EXPECT_EQ(grouped({simple(1), wide, wideKey}), " 1 2 3");
  }
}

// --- hidden frames ------------------------------------------------------------------------------

Frame hiddenOf(Frame frame) {
  frame.hidden = true;
  return frame;
}

TEST_F(SeriesGrouping, AWhollyHiddenSeriesIsKept) {
  push(hiddenOf(simple(1)));
  push(hiddenOf(simple(2)));
  const CKtZantoRepartition repartition = endWithOne();
  EXPECT_EQ(topOf(repartition), (std::vector<double>{1, 2}));
  EXPECT_TRUE(repartition.getHidden());
}

TEST_F(SeriesGrouping, OfAMixedSeriesTheVisibleFramesAreKept) {
  for (const Frame& frame :
       {hiddenOf(simple(1)), simple(2), hiddenOf(simple(3)), simple(4), hiddenOf(simple(5))}) {
    push(frame);
  }
  const CKtZantoRepartition repartition = endWithOne();
  EXPECT_EQ(topOf(repartition), (std::vector<double>{2, 4}));
  EXPECT_FALSE(repartition.getHidden());
}

TEST_F(SeriesGrouping, HiddenFramesThatWereLeftOutDoNotComeBack) {
  push(hiddenOf(simple(1)));
  push(simple(2));
  end();
  std::filesystem::remove(kDrawing);
  start();
  push(simple(3));
  end();
  EXPECT_EQ(groups(), " 3");
}

TEST_F(SeriesGrouping, AMixedSeriesStandsWhereItsFirstFrameStoodThoughThatIsHidden) {
  EXPECT_EQ(grouped({hiddenOf(simple(1)), simple(2, 5), simple(3)}), " 3, 2");
}

// --- when ---------------------------------------------------------------------------------------

TEST_F(SeriesGrouping, FramesPushedWhileStoppedAreNoneOfThem) {
  push(simple(1));
  stopFiling();
  push(simple(2));
  restartFiling();
  push(simple(3));
  end();
  EXPECT_EQ(groups(), " 1 3");
}

TEST_F(SeriesGrouping, NothingIsWrittenBeforeTheEnd) {
  push(simple(1));
  exportLine(1, 2, 3, 4, 5, 6, 7);
  push(simple(2));
  exportCircle(1, 2, 3, 4, 5);
  end();
  EXPECT_EQ(indexes(),
            "CKtZantoLine 1, CKtZantoCircle 1, CKtZantoRepartition 1, CKtDrawingControl 1");
}

TEST_F(SeriesGrouping, EveryFilingOfAProcessHasItsOwnSeries) {
  for (int filing = 1; filing <= 4; ++filing) {
    std::filesystem::remove(kDrawing);
    start();
    push(simple(filing));
    push(simple(10 * filing, 7));
    push(simple(-filing));
    end();
    const std::string n = std::to_string(filing);
    EXPECT_EQ(groups(), " " + n + " -" + n + ", " + n + "0");
  }
}

// --- any sequence -------------------------------------------------------------------------------

// The scan as it is stated: take the first, then every other of the same key.
std::vector<std::vector<Frame>> scanned(std::vector<Frame> pending) {
  std::vector<std::vector<Frame>> groups;
  while (!pending.empty()) {
    const Frame key = pending.front();
    std::vector<Frame> group{key};
    pending.erase(pending.begin());
    for (std::size_t i = 0; i < pending.size();) {
      if (pending[i].reference == key.reference && pending[i].viewPoint == key.viewPoint &&
          pending[i].keyC == key.keyC && pending[i].first.Z() == key.first.Z()) {
        group.push_back(pending[i]);
        pending.erase(pending.begin() + static_cast<std::ptrdiff_t>(i));
      } else {
        ++i;
      }
    }
    bool allHidden = true;
    for (const Frame& frame : group) {
      allHidden = allHidden && frame.hidden;
    }
    if (!allHidden) {
      std::erase_if(group, [](const Frame& frame) { return frame.hidden; });
    }
    groups.push_back(group);
  }
  return groups;
}

std::vector<Frame> randomFrames(std::mt19937& random, int count) {
  std::vector<Frame> frames;
  for (int serial = 1; serial <= count; ++serial) {
    Frame frame = simple(serial, static_cast<double>(random() % 3) * 0.5);
    frame.reference = static_cast<long>(random() % 2) + 1;
    frame.keyC = static_cast<long>(random() % 2);
    frame.hidden = random() % 3 == 0;
    frames.push_back(frame);
  }
  return frames;
}

TEST_F(SeriesGrouping, IsThatOfTheScanForAnySequence) {
  std::mt19937 random(3);
  for (int drawing = 0; drawing < 60; ++drawing) {
    std::filesystem::remove(kDrawing);
    start();
    const auto frames = randomFrames(random, 1 + static_cast<int>(random() % 40));
    for (const Frame& frame : frames) {
      push(frame);
    }
    end();
    std::string expected;
    for (const auto& group : scanned(frames)) {
      expected += expected.empty() ? "" : ",";
      for (const Frame& frame : group) {
        expected += ' ' + std::to_string(static_cast<int>(frame.first.X()));
      }
    }
    ASSERT_EQ(groups(), expected) << "drawing " << drawing;
  }
}

TEST_F(SeriesGrouping, TakesManyFrames) {
  std::vector<double> expected;
  for (int i = 0; i < 20000; ++i) {
    push(simple(i, i % 2));
    if (i % 2 == 0) {
      expected.push_back(i);
    }
  }
  end();
  const auto repartitions = savedRepartitions();
  ASSERT_EQ(repartitions.size(), 2U);
  EXPECT_TRUE(topOf(repartitions[0]) == expected);
}

TEST_F(SeriesGrouping, TakesManySeries) {
  for (int i = 0; i < 500; ++i) {
    push(simple(i, i));
  }
  end();
  EXPECT_EQ(savedRepartitions().size(), 500U);
}

}  // namespace
}  // namespace quorvan::test
