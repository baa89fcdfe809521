// The index that ties a repartition to the bar it repeats.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <tests/export/series_filing.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

class SeriesBarSearch : public SeriesFiling {
 protected:
  // A bar that fits the frames below, apart from what is given.
  static void bar(bool hidden, long reference = 1, const wchar_t* steelGrade = L"S",
                  const wchar_t* adherence = L"A", double diameter = 8) {
    static double place = 0;
    place += 1;  // no two bars alike, hidden or not
    exportBarStraight(place, 0, 0, 0, 0, 0, 0, 0, false, false, 0, 0, steelGrade, adherence,
                      reference, diameter, hidden);
  }

  static int indexOf(const Frame& frame) {
    push(frame);
    return endWithOne().getIndex();
  }
};

TEST_F(SeriesBarSearch, FindsTheBarExportedEarlier) {
  bar(false, 2);
  bar(false, 1);
  bar(false, 3);
  EXPECT_EQ(indexOf({}), 2);
}

TEST_F(SeriesBarSearch, FindsTheFirstOfSeveral) {
  bar(false, 2);
  bar(false);
  bar(false);
  EXPECT_EQ(indexOf({}), 2);
}

TEST_F(SeriesBarSearch, EverythingItLooksForTellsBarsApart) {
  bar(false, 2);
  bar(false, 1, L"s");
  bar(false, 1, L"S", L"");
  bar(false, 1, L"S", L"A", 8.0000001);
  bar(false);
  EXPECT_EQ(indexOf({}), 5);
}

TEST_F(SeriesBarSearch, LooksAtSevenDecimalsOfTheDiameter) {
  bar(false, 1, L"S", L"A", 8.00000004);
  EXPECT_EQ(indexOf({}), 1);
}

TEST_F(SeriesBarSearch, HooksAndPlaceDoNotMatter) {
  exportBarStraight(7, 8, 9, 4, 5, 6, 70, 80, true, true, 90, 45, L"S", L"A", 1, 8, false);
  Frame frame;
  frame.hookLength1 = 3;
  frame.hookAngle1 = 4;
  EXPECT_EQ(indexOf(frame), 1);
}

TEST_F(SeriesBarSearch, FindsAHiddenBarWhenThereIsNoVisibleOne) {
  bar(true, 2);
  bar(true);
  EXPECT_EQ(indexOf({}), 2);
}

TEST_F(SeriesBarSearch, PrefersTheVisibleBar) {
  bar(true);
  bar(false);
  EXPECT_EQ(indexOf({}), 2);
}

// The flag of the frames is that of the repartition; the bar is looked for as visible first.
TEST_F(SeriesBarSearch, PrefersTheVisibleBarForHiddenFramesToo) {
  bar(true);
  bar(false);
  Frame frame;
  frame.hidden = true;
  push(frame);
  const CKtZantoRepartition repartition = endWithOne();
  EXPECT_EQ(repartition.getIndex(), 2);
  EXPECT_TRUE(repartition.getHidden());
}

// As it can be in a large drawing: -1 says that nothing was found.
TEST_F(SeriesBarSearch, AVisibleBarOfIndexMinusOneGivesWayToAHiddenOne) {
  bar(false);
  bar(true);
  const std::string drawing = saveAlone();
  const std::string index = "index=\"1\"";
  for (const auto& [other, expected] :
       {std::pair("index=\"-1\"", 2), std::pair("", 2), std::pair("index=\"0\"", 0),
        std::pair("index=\"-2\"", -2)}) {
    writeBytes(kDrawing, std::string(drawing).replace(drawing.find(index), index.size(), other));
    start();
    EXPECT_EQ(indexOf({}), expected) << other;
  }
}

TEST_F(SeriesBarSearch, WithoutABarTheIndexIsMinusOne) {
  EXPECT_EQ(indexOf({}), -1);
  std::filesystem::remove(kDrawing);
  start();
  bar(false, 2);
  bar(true, 3);
  EXPECT_EQ(indexOf({}), -1);
}

TEST_F(SeriesBarSearch, LooksInTheClassOfTheFirstFrame) {
  bar(false);
  exportPin(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"S", L"A", 2, 8, false);
  exportPin(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"S", L"A", 1, 8, false);
  Frame first = stirrupFrame({0, 0, 0}, {0, 500, 0});
  Frame second = stirrupFrame({200, 0, 0}, {200, 500, 0});
  first.className = L"CKtZantoPin";
  push(first);
  push(second);
  const CKtZantoRepartition repartition = endWithOne();
  EXPECT_EQ(repartition.getDefClassName(), L"CKtZantoPin");
  EXPECT_EQ(repartition.getIndex(), 2);
}

TEST_F(SeriesBarSearch, FindsBarsOfADrawingThatIsContinued) {
  bar(false, 2);
  bar(false, 1);
  saveAlone();
  start();
  EXPECT_EQ(indexOf({}), 2);
}

// Elements of a class without the items looked for never match.
TEST_F(SeriesBarSearch, ElementsWithoutReferenceAreNoBars) {
  exportLine(1, 2, 3, 4, 5, 6, 7);
  Frame first = stirrupFrame({0, 0, 0}, {0, 500, 0});
  Frame second = stirrupFrame({200, 0, 0}, {200, 500, 0});
  first.className = second.className = L"CKtZantoLine";
  push(first);
  push(second);
  EXPECT_EQ(endWithOne().getIndex(), -1);
}

TEST_F(SeriesBarSearch, TheWholeRepartitionAsItIsFiled) {
  bar(false);
  Frame frame;
  frame.first = CKtPnt3D(1, 2, 3);
  frame.second = CKtPnt3D(4, 5, 6);
  frame.hookLength1 = 10;
  frame.hookAngle1 = 11;
  frame.keyC = 12;
  frame.lastInt = 13;
  frame.hidden = true;
  push(frame);
  end();
  const std::string saved = savedBytes(kDrawing);
  EXPECT_EQ(saved.substr(saved.find("<CKtZantoRepartition ")),
            "<CKtZantoRepartition version=\"1\" index=\"1\">"
            "<Point1 X=\"0.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
            "<Point2 X=\"0.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
            "<Bulge X=\"0\" Y=\"0\" Z=\"0\"/><ViewPoint long=\"1\"/>"
            "<Axis X=\"0\" Y=\"0\" Z=\"0\"/>"
            "<AxisDistancesTop size=\"1\"><DistanceTop1 double=\"1.0000000\"/></AxisDistancesTop>"
            "<AxisDistancesBottom size=\"1\"><DistanceBottom1 double=\"2.0000000\"/>"
            "</AxisDistancesBottom>"
            "<Positions size=\"1\"><Positions1 double=\"3.0000000\"/></Positions>"
            "<DefClassName string=\"CKtZantoStraightBar\"/><Index long=\"1\"/>"
            "<Hidden string=\"True\"/></CKtZantoRepartition>" +
                controlRecord() + "</Document>\r\n");
}

// --- scratch file and counts --------------------------------------------------------------------

TEST_F(SeriesBarSearch, LeavesNoScratchFile) {
  writeBytes(kScratch, "somebody else's");
  push({});
  EXPECT_TRUE(std::filesystem::exists(kScratch));
  end();
  EXPECT_FALSE(std::filesystem::exists(kScratch));
}

TEST_F(SeriesBarSearch, DoesNotTouchTheScratchFileWhenItEndsStopped) {
  writeBytes(kScratch, "mine");
  push({});
  stopFiling();
  end();
  EXPECT_EQ(fileBytes(kScratch), "mine");
}

// Each of two searches for a class that is not there adds the elements there are: lines 2, 4, 6,
// then 8 and 10 with repartitions 1, 2 and 3.
TEST_F(SeriesBarSearch, SearchesForAClassThatIsNotThereShowInTheIndexes) {
  exportLine(0, 0, 0, 1, 1, 1, 1);
  exportLine(0, 0, 0, 1, 1, 1, 1);
  push({});
  Frame other;
  other.reference = 2;
  push(other);
  end();
  EXPECT_EQ(indexes(),
            "CKtZantoLine 1, CKtZantoLine 2, CKtZantoRepartition 1, CKtZantoRepartition 4, "
            "CKtDrawingControl 1");
}

TEST_F(SeriesBarSearch, SearchesThatReadABarMakeTheRepartitionsCountAfresh) {
  bar(false, 1);
  for (long reference = 1; reference <= 4; ++reference) {
    Frame frame;
    frame.reference = reference;
    push(frame);
  }
  end();
  EXPECT_EQ(indexes(),
            "CKtZantoStraightBar 1, CKtZantoRepartition 1, CKtZantoRepartition 2, "
            "CKtZantoRepartition 3, CKtZantoRepartition 4, CKtDrawingControl 1");
}

}  // namespace
}  // namespace quorvan::test
