#include <gtest/gtest.h>

#include <sstream>

#include <tools/console/progress.h>

namespace {

using quorvan::tool::Console;
using quorvan::tool::Progress;
using std::chrono::milliseconds;

class ToolProgress : public testing::Test {
 protected:
  // Reports often enough for the clock to be looked at.
  static void report(Progress& progress, std::uint64_t done, std::uint64_t total) {
    for (int i = 0; i < 256; ++i) {
      progress.report(done, total);
    }
  }

  Progress::Clock clock() {
    return [this] { return m_now; };
  }

  std::ostringstream m_out;
  std::ostringstream m_err;
  std::chrono::steady_clock::time_point m_now;
};

TEST_F(ToolProgress, IsSilentForTheFirstSecond) {
  Console console{m_out, m_err, true};
  Progress progress(console, "reading x.xml", clock());
  m_now += milliseconds(999);
  report(progress, 50, 100);
  EXPECT_EQ(m_err.str(), "");
}

TEST_F(ToolProgress, DrawsABarAfterOneSecondAndWipesItAway) {
  Console console{m_out, m_err, true};
  {
    Progress progress(console, "reading x.xml", clock());
    m_now += milliseconds(1001);
    report(progress, 50, 100);
    EXPECT_EQ(m_err.str(), "\rreading x.xml [###############               ] 50 %");
  }
  const std::string line(51, ' ');
  EXPECT_TRUE(m_err.str().ends_with('\r' + line + '\r')) << m_err.str();
  EXPECT_EQ(m_out.str(), "");
}

TEST_F(ToolProgress, DrawsTenTimesASecondAtMost) {
  Console console{m_out, m_err, true};
  Progress progress(console, "reading", clock());
  m_now += milliseconds(1001);
  report(progress, 10, 100);
  const std::string drawn = m_err.str();
  m_now += milliseconds(99);
  report(progress, 20, 100);
  EXPECT_EQ(m_err.str(), drawn);
  m_now += milliseconds(2);
  report(progress, 20, 100);
  EXPECT_NE(m_err.str(), drawn);
}

TEST_F(ToolProgress, IsSilentWhereThereIsNoTerminal) {
  Console console{m_out, m_err, false};
  Progress progress(console, "reading", clock());
  m_now += milliseconds(5000);
  report(progress, 50, 100);
  EXPECT_EQ(m_err.str(), "");
}

TEST_F(ToolProgress, StaysWithinItsBarWhateverIsReported) {
  Console console{m_out, m_err, true};
  Progress progress(console, "reading", clock());
  m_now += milliseconds(1001);
  report(progress, 5, 0);
  EXPECT_EQ(m_err.str(), "") << "a share of nothing";
  report(progress, 500, 100);
  EXPECT_TRUE(m_err.str().ends_with("[##############################] 100 %")) << m_err.str();
  m_now += milliseconds(1001);
  report(progress, 0, 100);
  EXPECT_TRUE(m_err.str().ends_with("[                              ] 0 %")) << m_err.str();
}

TEST_F(ToolProgress, LooksAtTheClockOnlyNowAndThen) {
  Console console{m_out, m_err, true};
  int looks = 0;
  Progress progress(console, "reading", [&] {
    ++looks;
    return m_now;
  });
  for (int i = 0; i < 100000; ++i) {
    progress.report(1, 2);
  }
  EXPECT_LT(looks, 1000);
}

TEST_F(ToolProgress, WipesAsMuchAsItDrewAtItsLongest) {
  Console console{m_out, m_err, true};
  {
    Progress progress(console, "x", clock());
    for (const std::uint64_t done : {std::uint64_t{100}, std::uint64_t{1}}) {
      m_now += milliseconds(2000);
      report(progress, done, 100);
    }
  }
  const std::string longest = "x [##############################] 100 %";
  EXPECT_TRUE(m_err.str().ends_with("1 %\r" + std::string(longest.size(), ' ') + '\r'));
}

TEST_F(ToolProgress, WipesNoMoreColumnsThanItDrew) {
  Console console{m_out, m_err, true};
  {
    Progress progress(console, "\u00E9\u20AC", clock());
    m_now += milliseconds(2000);
    report(progress, 50, 100);
  }
  const std::string drawn = "ee [###############               ] 50 %";
  EXPECT_TRUE(m_err.str().ends_with("50 %\r" + std::string(drawn.size(), ' ') + '\r'))
      << m_err.str();
}

TEST_F(ToolProgress, WipesNothingWhereNothingWasDrawn) {
  Console console{m_out, m_err, true};
  { Progress progress(console, "reading", clock()); }
  EXPECT_EQ(m_err.str(), "");
}

// A cell is three percent and a third; the number and the bar never say more than is done.
TEST_F(ToolProgress, RoundsDownWhatIsDone) {
  struct Share {
    std::uint64_t done;
    std::uint64_t total;
    std::size_t cells;
    int percent;
  };
  const Share shares[] = {{0, 7, 0, 0},      {1, 100, 0, 1},       {33, 1000, 0, 3},
                          {34, 1000, 0, 3},  {4, 100, 1, 4},       {1, 3, 9, 33},
                          {1, 2, 15, 50},    {2, 3, 19, 66},       {999, 1000, 29, 99},
                          {97, 100, 29, 97}, {1000, 1000, 30, 100}};
  for (const Share& share : shares) {
    std::ostringstream err;
    Console console{m_out, err, true};
    Progress progress(console, "x", clock());
    m_now += milliseconds(2000);
    report(progress, share.done, share.total);
    EXPECT_EQ(err.str(), "\rx [" + std::string(share.cells, '#') +
                             std::string(30 - share.cells, ' ') + "] " +
                             std::to_string(share.percent) + " %");
  }
}

TEST_F(ToolProgress, LeavesNothingBehindWhereNothingWasDrawn) {
  Console console{m_out, m_err, true};
  {
    Progress progress(console, "reading", clock());
    m_now += milliseconds(999);
    report(progress, 50, 100);
  }
  EXPECT_EQ(m_err.str(), "");
}

}  // namespace
