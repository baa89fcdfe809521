// A hidden bar is written only if the drawing holds no equal element yet.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <tests/export/host_filing.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>

namespace quorvan::test {
namespace {

/// What a bar is exported with. Of the numbers and flags each function takes those it has.
struct Bar {
  std::vector<double> numbers{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
  bool flag1 = true;
  bool flag2 = false;
  std::wstring steelGrade = L"B500B";
  std::wstring adherence = L"Ha";
  long reference = 12;
  double diameter = 16;
  bool hidden = true;
};

/// One of the flat functions.
struct Function {
  const char* name;
  std::size_t numbers;  // how many of the numbers it takes
  int flags;            // ... and of the flags
  void (*exportBar)(const Bar& bar);
};

void straightBar(const Bar& b) {
  const auto& n = b.numbers;
  exportBarStraight(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], b.flag1, b.flag2, n[8], n[9],
                    b.steelGrade.c_str(), b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void polygonBar(const Bar& b) {
  const auto& n = b.numbers;
  double xs[] = {n[0], n[1], n[2]};
  double ys[] = {n[3], n[4], n[5]};
  double zs[] = {n[6], n[7], n[8]};
  exportBarPolygon(3, xs, ys, zs, n[9], n[10], b.flag1, n[11], n[12], b.steelGrade.c_str(),
                   b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void lBar(const Bar& b) {
  const auto& n = b.numbers;
  exportLBar(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11], n[12],
             b.steelGrade.c_str(), b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void uBar(const Bar& b) {
  const auto& n = b.numbers;
  exportUBar(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11], n[12],
             b.steelGrade.c_str(), b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void pin(const Bar& b) {
  const auto& n = b.numbers;
  exportPin(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], b.steelGrade.c_str(),
            b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void stirrup(const Bar& b) {
  const auto& n = b.numbers;
  exportStirrup(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], b.steelGrade.c_str(),
                b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void frameRect(const Bar& b) {
  const auto& n = b.numbers;
  exportFrameRect(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10],
                  b.steelGrade.c_str(), b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void frameCirc(const Bar& b) {
  const auto& n = b.numbers;
  exportFrameCirc(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], b.steelGrade.c_str(),
                  b.adherence.c_str(), b.reference, b.diameter, b.hidden);
}

void pointBar(const Bar& b) {
  const auto& n = b.numbers;
  exportPointBar(n[0], n[1], n[2], b.steelGrade.c_str(), b.adherence.c_str(), b.reference,
                 b.diameter, b.hidden);
}

class HiddenBars : public HostFiling, public testing::WithParamInterface<Function> {
 protected:
  HiddenBars() { start(); }

  void add(const Bar& bar) { GetParam().exportBar(bar); }

  // How many elements the drawing holds in the end.
  static std::size_t saved() {
    saveAlone();
    return savedElements(kDrawing).size();
  }

  // Whether a bar that differs by the change is written beside the plain one.
  void expectWritten(bool written, const std::function<void(Bar&)>& change) {
    std::filesystem::remove(kDrawing);
    start();
    Bar bar;
    add(bar);
    change(bar);
    add(bar);
    EXPECT_EQ(saved(), written ? 2U : 1U);
  }
};

INSTANTIATE_TEST_SUITE_P(All, HiddenBars,
                         testing::Values(Function{"StraightBar", 10, 2, straightBar},
                                         Function{"PolygonBar", 13, 1, polygonBar},
                                         Function{"LBar", 13, 0, lBar},
                                         Function{"UBar", 13, 0, uBar}, Function{"Pin", 10, 0, pin},
                                         Function{"Stirrup", 8, 0, stirrup},
                                         Function{"FrameRect", 11, 0, frameRect},
                                         Function{"FrameCirc", 10, 0, frameCirc}),
                         [](const auto& run) { return run.param.name; });

TEST_P(HiddenBars, AreWrittenOnce) {
  add({});
  add({});
  add({});
  EXPECT_EQ(saved(), 1U);
}

TEST_P(HiddenBars, AreWrittenWithTheirFlag) {
  add({});
  saveAlone();
  EXPECT_EQ(savedElements(kDrawing).at(0).child("Hidden").attribute("string"), "True");
}

TEST_P(HiddenBars, VisibleOnesAreWrittenEachTime) {
  Bar visible;
  visible.hidden = false;
  add(visible);
  add(visible);
  EXPECT_EQ(saved(), 2U);
}

TEST_P(HiddenBars, AVisibleOneIsNotTheSame) {
  Bar visible;
  visible.hidden = false;
  add(visible);
  add({});
  add({});
  add(visible);
  EXPECT_EQ(saved(), 3U);
}

TEST_P(HiddenBars, EveryNumberTellsThemApart) {
  for (std::size_t i = 0; i < GetParam().numbers; ++i) {
    SCOPED_TRACE(i);
    expectWritten(true, [i](Bar& bar) { bar.numbers[i] += 1; });
  }
  expectWritten(true, [](Bar& bar) { bar.diameter += 1; });
}

TEST_P(HiddenBars, TheSeventhDecimalTellsThemApartTheEighthDoesNot) {
  const std::size_t last = GetParam().numbers - 1;
  for (const std::size_t i : {std::size_t{0}, last}) {
    SCOPED_TRACE(i);
    expectWritten(true, [i](Bar& bar) { bar.numbers[i] += 1e-7; });
    expectWritten(false, [i](Bar& bar) { bar.numbers[i] += 4e-8; });
    expectWritten(false, [i](Bar& bar) { bar.numbers[i] -= 4e-8; });
  }
  expectWritten(true, [](Bar& bar) { bar.diameter -= 1e-7; });
  expectWritten(false, [](Bar& bar) { bar.diameter -= 4e-8; });
}

// Zero and minus zero are filed differently.
TEST_P(HiddenBars, TextsAreComparedNotNumbers) {
  Bar zero;
  zero.numbers[0] = 0.0;
  add(zero);
  zero.numbers[0] = -0.0;
  add(zero);
  zero.numbers[0] = -4e-8;
  add(zero);
  EXPECT_EQ(saved(), 2U);
}

TEST_P(HiddenBars, FlagsTellThemApart) {
  if (GetParam().flags > 0) {
    expectWritten(true, [](Bar& bar) { bar.flag1 = !bar.flag1; });
  }
  if (GetParam().flags > 1) {
    expectWritten(true, [](Bar& bar) { bar.flag2 = !bar.flag2; });
  }
  expectWritten(true, [](Bar& bar) { bar.hidden = false; });
}

TEST_P(HiddenBars, TextsAndReferenceTellThemApart) {
  expectWritten(true, [](Bar& bar) { bar.steelGrade = L"b500b"; });
  expectWritten(true, [](Bar& bar) { bar.steelGrade += L' '; });
  expectWritten(true, [](Bar& bar) { bar.adherence = L""; });
  expectWritten(true, [](Bar& bar) { bar.adherence = L"\u20ac"; });
  expectWritten(true, [](Bar& bar) { bar.reference = -12; });
  // Only 32 bits of a reference are filed.
  expectWritten(sizeof(long) == 4, [](Bar& bar) {
    bar.reference = sizeof(long) == 4 ? 13 : bar.reference + static_cast<long>(0x700000000LL);
  });
}

TEST_P(HiddenBars, AreFoundAmongManyOthers) {
  Bar bar;
  for (int i = 0; i < 50; ++i) {
    bar.reference = i;
    add(bar);
    exportLine(i, 0, 0, 0, 0, 0, 0);
  }
  for (int i = 49; i >= 0; --i) {
    bar.reference = i;
    add(bar);
  }
  EXPECT_EQ(saved(), 100U);
}

TEST_P(HiddenBars, AreFoundInADrawingThatIsContinued) {
  Bar bar;
  bar.steelGrade = L"\u00e9 \u20ac \"<&\t";
  add(bar);
  saveAlone();
  start();
  add(bar);
  bar.reference = 99;
  add(bar);
  EXPECT_EQ(saved(), 2U);
}

// What the search gives is the index of the equal bar, and -1 when there is none. In a large
// drawing an index can be -1 itself: that bar is not taken for an equal one.
TEST_P(HiddenBars, AreFoundByAnyIndexButMinusOne) {
  add({});
  const std::string drawing = saveAlone();
  const std::string index = " index=\"1\"";
  const std::size_t place = drawing.find(index);
  for (const auto& [other, found] :
       {std::pair("index=\"0\"", true), std::pair("index=\"-2\"", true),
        std::pair("index=\"-32768\"", true), std::pair("index=\"none\"", true),
        std::pair("index=\"-1\"", false), std::pair("index=\"-01st\"", false),
        std::pair("", false)}) {
    SCOPED_TRACE(other);
    writeBytes(kDrawing, std::string(drawing).replace(place + 1, index.size() - 1, other));
    start();
    add({});
    saveAlone();
    EXPECT_EQ(savedElements(kDrawing).size(), found ? 1U : 2U);
  }
}

TEST_P(HiddenBars, OfADrawingBeforeAreNotFound) {
  add({});
  saveAlone();
  std::filesystem::remove(kDrawing);
  start();
  add({});
  EXPECT_EQ(saved(), 1U);
}

TEST_P(HiddenBars, LeaveNoScratchFile) {
  add({});
  EXPECT_FALSE(std::filesystem::exists(kScratch));
  add({});
  EXPECT_FALSE(std::filesystem::exists(kScratch));
}

// --- bars seen end-on ---------------------------------------------------------------------------

using PointBars = HostFiling;

TEST_F(PointBars, AreWrittenEachTimeHiddenOrNot) {
  start();
  pointBar({});
  pointBar({});
  saveAlone();
  EXPECT_EQ(indexes(), "CKtZantoPointBar 1, CKtZantoPointBar 2");
}

TEST_F(PointBars, DoNotTouchTheScratchFile) {
  writeBytes(kScratch, "mine");
  start();
  pointBar({});
  EXPECT_EQ(fileBytes(kScratch), "mine");
}

// --- the scratch file ---------------------------------------------------------------------------

class ScratchFile : public HostFiling {
 protected:
  ScratchFile() { start(); }
};

TEST_F(ScratchFile, OfSomebodyElseIsLostToAHiddenBarAndNotRead) {
  Bar bar;
  straightBar(bar);
  // Were it read, its element would be looked for, not the bar.
  writeBytes(kScratch, transferFile(classElement("CKtZantoStraightBar", 1, "")));
  bar.reference = 13;
  straightBar(bar);
  EXPECT_FALSE(std::filesystem::exists(kScratch));
  saveAlone();
  EXPECT_EQ(indexes(), "CKtZantoStraightBar 1, CKtZantoStraightBar 2");
}

TEST_F(ScratchFile, IsNotTouchedByVisibleBarsAndOtherElements) {
  writeBytes(kScratch, "mine");
  Bar bar;
  bar.hidden = false;
  straightBar(bar);
  exportLine(1, 2, 3, 4, 5, 6, 7);
  end();
  EXPECT_EQ(fileBytes(kScratch), "mine");
}

TEST_F(ScratchFile, IsNotTouchedWhileStopped) {
  writeBytes(kScratch, "mine");
  stopFiling();
  straightBar({});
  stirrup({});
  EXPECT_EQ(fileBytes(kScratch), "mine");
  std::filesystem::remove(kScratch);
  straightBar({});
  EXPECT_FALSE(std::filesystem::exists(kScratch));
}

TEST_F(ScratchFile, OfAnyContentDoesNotMatter) {
  for (const char* const content : {"", "<Document/>", "not a document", "<!-- --><Document/>"}) {
    writeBytes(kScratch, content);
    straightBar({});
  }
  saveAlone();
  EXPECT_EQ(indexes(), "CKtZantoStraightBar 1");
}

}  // namespace
}  // namespace quorvan::test
