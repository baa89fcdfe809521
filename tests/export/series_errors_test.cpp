// What leaves the end of a filing as an exception, and what a host can still do then.

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <tests/export/series_filing.h>
#include <tests/support/saved_elements.h>
#include <tests/support/transfer_text.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

class SeriesErrors : public SeriesFiling {
 protected:
  static void line() { exportLine(0, 0, 0, 1, 0, 0, 1); }

  // A frame of a simple series.
  static Frame simple(long reference) {
    Frame frame;
    frame.reference = reference;
    return frame;
  }

  // Two frames of a class of whose elements none can be compared with a bar.
  static void pushMeshSeries() {
    Frame first = stirrupFrame({0, 0, 0}, {0, 500, 0});
    Frame second = stirrupFrame({200, 0, 0}, {200, 500, 0});
    first.className = second.className = L"CKtZantoMesh";
    push(first);
    push(second);
  }

  static void mesh() { exportMesh(L"12", L"T", 1, 2, 3, 0, nullptr, nullptr, nullptr); }

  static void endStopped() {
    stopFiling();
    end();
    restartFiling();
  }

  static void expectRaisesNullPointer() {
    try {
      end();
      ADD_FAILURE() << "nothing raised";
    } catch (const _com_error& error) {
      EXPECT_EQ(error.Error(), E_POINTER);
    }
  }
};

// --- a series of one frame ----------------------------------------------------------------------

TEST_F(SeriesErrors, AMeasuredSeriesOfOneFrameIsOutOfRange) {
  line();
  push(stirrupFrame({0, 0, 0}, {0, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
  EXPECT_FALSE(std::filesystem::exists(kDrawing));
  EXPECT_FALSE(std::filesystem::exists(kScratch));
}

TEST_F(SeriesErrors, ABarSeriesOfOneFrameIsOutOfRangeUnlessSeenInView1) {
  push(barFrame({0, 0, 0}, {0, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
  endStopped();
  start();
  push(simple(1));
  EXPECT_NO_THROW(end());
}

TEST_F(SeriesErrors, SoIsAMixedSeriesOfWhichOneFrameIsVisible) {
  Frame hidden = stirrupFrame({0, 0, 0}, {0, 500, 0});
  hidden.hidden = true;
  push(hidden);
  push(stirrupFrame({200, 0, 0}, {200, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
}

TEST_F(SeriesErrors, EndingStoppedSavesEverythingAfterIt) {
  line();
  push(simple(1));
  push(stirrupFrame({0, 0, 5}, {0, 500, 0}));
  push(simple(2));
  EXPECT_THROW(end(), std::out_of_range);
  line();
  endStopped();
  // The series before it was written, the one behind it was not.
  const auto elements = savedElements(kDrawing);
  ASSERT_EQ(elements.size(), 3U);
  EXPECT_EQ(elements[0].name, "CKtZantoLine");
  EXPECT_EQ(elements[1].name, "CKtZantoRepartition");
  EXPECT_EQ(elements[2].name, "CKtZantoLine");
}

TEST_F(SeriesErrors, EndingAgainRaisesAgainAndWritesNothingTwice) {
  push(simple(1));
  push(stirrupFrame({0, 0, 5}, {0, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
  EXPECT_THROW(end(), std::out_of_range);
  endStopped();
  EXPECT_EQ(savedElements(kDrawing).size(), 1U);
}

TEST_F(SeriesErrors, AFrameThatIsPushedLaterMakesASeriesOfItsOwn) {
  push(stirrupFrame({0, 0, 5}, {0, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
  push(stirrupFrame({200, 0, 5}, {200, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
  endStopped();
  EXPECT_TRUE(savedElements(kDrawing).empty());
}

TEST_F(SeriesErrors, TheNextFilingIsFreeOfItOnceEndedStopped) {
  push(stirrupFrame({0, 0, 5}, {0, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
  endStopped();
  std::filesystem::remove(kDrawing);
  start();
  push(simple(1));
  end();
  EXPECT_EQ(indexes(), "CKtZantoRepartition 1, CKtDrawingControl 1");
}

TEST_F(SeriesErrors, AnotherStartKeepsIt) {
  push(stirrupFrame({0, 0, 5}, {0, 500, 0}));
  EXPECT_THROW(end(), std::out_of_range);
  start();
  EXPECT_THROW(end(), std::out_of_range);
}

// --- a search that raises -----------------------------------------------------------------------

// The reference of a mesh is a text, that of a bar a number.
TEST_F(SeriesErrors, ASeriesOfMeshesRaisesWhenTheDrawingHoldsOne) {
  line();
  mesh();
  pushMeshSeries();
  expectRaisesNullPointer();
  EXPECT_FALSE(std::filesystem::exists(kDrawing));
  EXPECT_FALSE(std::filesystem::exists(kScratch));
}

TEST_F(SeriesErrors, ASeriesOfMeshesWithoutAMeshIsWritten) {
  pushMeshSeries();
  const CKtZantoRepartition repartition = endWithOne();
  EXPECT_EQ(repartition.getDefClassName(), L"CKtZantoMesh");
  EXPECT_EQ(repartition.getIndex(), -1);
}

TEST_F(SeriesErrors, ASearchThatRaisesLosesNothing) {
  line();
  mesh();
  push(simple(11));
  pushMeshSeries();
  push(simple(12));
  expectRaisesNullPointer();
  exportCircle(1, 2, 3, 4, 5);
  expectRaisesNullPointer();
  endStopped();
  std::string names;
  for (const SavedElement& element : savedElements(kDrawing)) {
    names += element.name + ' ' + std::to_string(element.children.size()) + ' ';
  }
  EXPECT_EQ(names, "CKtZantoLine 3 CKtZantoMesh 6 CKtZantoRepartition 11 CKtZantoCircle 3 ");
}

TEST_F(SeriesErrors, TheSeriesOfASearchThatRaisedIsWrittenWithTheNextDrawing) {
  mesh();
  pushMeshSeries();
  expectRaisesNullPointer();
  startFiling(L"second.xml");
  end();
  EXPECT_EQ(savedIndexes("second.xml"), "CKtZantoRepartition 1, CKtDrawingControl 1");
  std::filesystem::remove("second.xml");
}

// Bars are compared by reference, steel grade, bond class, diameter and hidden flag in this order:
// the first one that differs ends the comparison, one of another kind raises.
TEST_F(SeriesErrors, ASearchRaisesAtAnItemOfAnotherKindUnlessOneBeforeItDiffers) {
  const std::vector<std::string> names{"Reference", "SteelGrade", "Adherence", "Diameter",
                                       "Hidden"};
  const std::vector<std::string> equal{longItem("Reference", 1), textItem("SteelGrade", L"S"),
                                       textItem("Adherence", L"A"), doubleItem("Diameter", 8),
                                       flagItem("Hidden", false)};
  const std::vector<std::string> other{longItem("Reference", 2), textItem("SteelGrade", L"T"),
                                       textItem("Adherence", L"B"), doubleItem("Diameter", 9),
                                       flagItem("Hidden", true)};
  for (std::size_t strange = 0; strange < names.size(); ++strange) {
    for (std::size_t differs = 0; differs < names.size(); ++differs) {
      SCOPED_TRACE(names[strange] + " of another kind, another " + names[differs]);
      auto items = equal;
      items[differs] = other[differs];
      items[strange] = rawItem(names[strange], "kind=\"other\"");
      std::string bar;
      for (const std::string& item : items) {
        bar += item;
      }
      writeBytes(kDrawing, transferFile(classElement("CKtZantoStraightBar", 1, bar)));
      start();
      push(simple(1));
      if (differs < strange) {
        end();
        EXPECT_EQ(savedRepartitions().at(0).getIndex(), -1);
      } else {
        expectRaisesNullPointer();
        endStopped();
      }
    }
  }
}

// A class name that XML cannot carry as the name of an element.
TEST_F(SeriesErrors, ASeriesOfAClassNameThatIsNoneRaises) {
  for (const wchar_t* const className : {L"", L"no name", L"<"}) {
    Frame first = stirrupFrame({0, 0, 0}, {0, 500, 0});
    Frame second = stirrupFrame({200, 0, 0}, {200, 500, 0});
    first.className = second.className = className;
    start();
    line();
    push(first);
    push(second);
    EXPECT_THROW(end(), _com_error);
    EXPECT_FALSE(std::filesystem::exists(kScratch));
    endStopped();
    EXPECT_EQ(savedElements(kDrawing).back().name, "CKtZantoLine");
  }
}

// --- a folder in which no scratch file can be written --------------------------------------------

TEST_F(SeriesErrors, WithoutAScratchFileTheSeriesWaitsForTheNextEnd) {
  const MessageLog log;
  line();
  push(simple(1));
  std::filesystem::create_directories(std::filesystem::path(kScratch) / "occupied");
  EXPECT_THROW(end(), _com_error);
  EXPECT_FALSE(std::filesystem::exists(kDrawing));
  std::filesystem::remove_all(kScratch);
  end();
  const auto elements = savedElements(kDrawing);
  ASSERT_EQ(elements.size(), 3U);
  EXPECT_EQ(elements[1].name, "CKtZantoRepartition");
  EXPECT_EQ(elements[2].name, "CKtDrawingControl");
}

}  // namespace
}  // namespace quorvan::test
