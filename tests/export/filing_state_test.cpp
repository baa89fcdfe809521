// What the flat functions hold back between two calls: frames, and the groups that become of them.

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include <tests/export/series_filing.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/series/frame_grouping.h>
#include <quorvan/export/series/held_frames.h>

namespace quorvan::test {
namespace {

/// A frame that needs no geometry, told from others by its first value.
Frame frameNumber(double number, double value3 = 0) {
  Frame frame;
  frame.first = CKtPnt3D(number, 0, value3);
  return frame;
}

Frame hiddenFrame(Frame frame) {
  frame.hidden = true;
  return frame;
}

std::vector<double> numbersOf(const FrameGroup& group) {
  std::vector<double> numbers;
  for (const auto& frame : group) {
    numbers.push_back(frame->value1);
  }
  return numbers;
}

std::vector<double> numbersOfGroup(std::size_t fromTheBack) {
  return numbersOf(groupedFrames[groupedFrames.size() - fromTheBack]);
}

class FilingState : public SeriesFiling {
 protected:
  // Groups of other tests stay, emptied.
  const std::size_t m_groupsBefore = groupedFrames.size();
};

TEST_F(FilingState, APushedFrameHoldsWhatItWasPushedWith) {
  pushRepartitionFrameRect(1, 2, 3, 4, 5, 6, L"CKtZantoPin", 7, 8, L"B500B", L"Ha", -12, 16, true,
                           -15, -16, -17);
  ASSERT_EQ(pendingFrames.size(), 1U);
  const PendingFrame& pending = *pendingFrames.front();
  EXPECT_EQ(pending.value1, 1.0);
  EXPECT_EQ(pending.value2, 2.0);
  EXPECT_EQ(pending.value3, 3.0);
  EXPECT_EQ(pending.value4, 4.0);
  EXPECT_EQ(pending.value5, 5.0);
  EXPECT_EQ(pending.value6, 6.0);
  EXPECT_EQ(pending.className, L"CKtZantoPin");
  EXPECT_EQ(int{pending.reference}, -12);
  EXPECT_TRUE(pending.hidden);
  // Copies: a record without padding gives no references to what lies at odd places.
  EXPECT_EQ(int{pending.keyC}, -15);
  EXPECT_EQ(int{pending.viewPoint}, -16);
  EXPECT_EQ(int{pending.lastInt}, -17);
}

// Its points, reference and hidden flag are not those of the series.
TEST_F(FilingState, TheFramePartOfAPushedFrameHoldsHookSteelAndDiameterOnly) {
  pushRepartitionFrameRect(1, 2, 3, 4, 5, 6, L"CKtZantoPin", 7, 8, L"B500B", L"Ha", -12, 16, true,
                           -15, -16, -17);
  ASSERT_EQ(pendingFrames.size(), 1U);
  const CKtZantoFrameRect& frame = pendingFrames.front()->frame;
  EXPECT_EQ(frame.getHookLength1(), 7.0);
  EXPECT_EQ(frame.getHookAngle1(), 8.0);
  EXPECT_EQ(frame.getSteelGrade(), L"B500B");
  EXPECT_EQ(frame.getAdherence(), L"Ha");
  EXPECT_EQ(frame.getDiameter(), 16.0);
  expectPoint(frame.getPoint1(), CKtPnt3D());
  expectPoint(frame.getPoint2(), CKtPnt3D());
  expectPoint(frame.getPoint3(), CKtPnt3D());
  EXPECT_EQ(frame.getReference(), 0);
  EXPECT_FALSE(frame.getHidden());
}

TEST_F(FilingState, FramesWaitInTheOrderOfThePushes) {
  push(frameNumber(1, 5));
  push(hiddenFrame(frameNumber(2)));
  exportLine(0, 0, 0, 1, 0, 0, 1);
  push(frameNumber(3, 5));
  EXPECT_EQ(numbersOf(pendingFrames), (std::vector<double>{1, 2, 3}));
  EXPECT_TRUE(groupInProgress.empty());
  EXPECT_EQ(groupedFrames.size(), m_groupsBefore);
}

TEST_F(FilingState, AFramePushedWhileStoppedIsNotHeld) {
  stopFiling();
  push(frameNumber(1));
  EXPECT_TRUE(pendingFrames.empty());
}

TEST_F(FilingState, GroupingMovesEveryFrameIntoOneGroup) {
  for (const Frame& frame :
       {frameNumber(1, 5), frameNumber(2, 6), frameNumber(3, 5), frameNumber(4, 6)}) {
    push(frame);
  }
  groupPendingFrames();
  EXPECT_TRUE(pendingFrames.empty());
  EXPECT_TRUE(groupInProgress.empty());
  ASSERT_EQ(groupedFrames.size(), m_groupsBefore + 2);
  EXPECT_EQ(numbersOfGroup(2), (std::vector<double>{1, 3}));
  EXPECT_EQ(numbersOfGroup(1), (std::vector<double>{2, 4}));
}

TEST_F(FilingState, AGroupIsHiddenWholeOrNotAtAll) {
  for (const Frame& frame :
       {hiddenFrame(frameNumber(1, 5)), hiddenFrame(frameNumber(2, 6)), frameNumber(3, 6),
        hiddenFrame(frameNumber(4, 5)), hiddenFrame(frameNumber(5, 6))}) {
    push(frame);
  }
  groupPendingFrames();
  ASSERT_EQ(groupedFrames.size(), m_groupsBefore + 2);
  EXPECT_EQ(numbersOfGroup(2), (std::vector<double>{1, 4}));
  EXPECT_EQ(numbersOfGroup(1), (std::vector<double>{3}));
}

// The groups themselves stay, and the next filing passes them over.
TEST_F(FilingState, EndingLeavesItsGroupsEmptied) {
  push(frameNumber(1));
  push(frameNumber(2, 7));
  end();
  EXPECT_TRUE(pendingFrames.empty());
  EXPECT_TRUE(groupInProgress.empty());
  ASSERT_EQ(groupedFrames.size(), m_groupsBefore + 2);
  for (const FrameGroup& group : groupedFrames) {
    EXPECT_TRUE(group.empty());
  }
  std::filesystem::remove(kDrawing);
  start();
  end();
  EXPECT_EQ(groupedFrames.size(), m_groupsBefore + 2);
  EXPECT_EQ(indexes(), "CKtDrawingControl 1");
}

TEST_F(FilingState, EndingStoppedFreesTheFramesToo) {
  push(frameNumber(1));
  stopFiling();
  end();
  EXPECT_TRUE(pendingFrames.empty());
  ASSERT_EQ(groupedFrames.size(), m_groupsBefore + 1);
  EXPECT_TRUE(groupedFrames.back().empty());
  EXPECT_TRUE(filingStopped);
}

TEST_F(FilingState, OnlyStartingAndRestartingSwitchWritingOn) {
  EXPECT_FALSE(filingStopped);
  stopFiling();
  EXPECT_TRUE(filingStopped);
  exportLine(0, 0, 0, 1, 0, 0, 1);
  exportDrawingControl(L"", 0, 0, L"");
  push(frameNumber(1));
  EXPECT_TRUE(filingStopped);
  restartFiling();
  EXPECT_FALSE(filingStopped);
  stopFiling();
  start();
  EXPECT_FALSE(filingStopped);
}

}  // namespace
}  // namespace quorvan::test
