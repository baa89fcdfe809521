// Memory runs out at every allocation in turn, once and from there on, under every operation: it
// happens or it does not, what is on disk is whole, and the next call works.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <new>
#include <string>
#include <string_view>

#include <tests/faults/scenarios.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/xml/embedded/allocation_faults.h>
#include <quorvan/elements/formwork.h>
#include <quorvan/elements/line.h>
#include <quorvan/export/export.h>
#include <quorvan/filer/pattern_filer.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

enum class End { kDone, kOutOfMemory, kOther };

End outcome(const std::function<bool()>& act) {
  try {
    return act() ? End::kDone : End::kOutOfMemory;
  } catch (const std::bad_alloc&) {
    return End::kOutOfMemory;
  } catch (const _com_error& error) {
    // A scratch file that could not be opened was told in a message. Then there is no document to
    // look in, or one without a root element, which cannot be saved.
    const bool hasNoScratchFile =
        Stage::messages() == 1 && (error.Error() == E_POINTER || error.Error() == E_FAIL);
    return error.Error() == E_OUTOFMEMORY || hasNoScratchFile ? End::kOutOfMemory : End::kOther;
  }
}

// What fails inside a destructor or a deletion is kept there, so that a call may succeed although
// an allocation failed: so many successes in a row mean that there was none to fail.
constexpr int kSuccessesAtTheEnd = 12;

class OutOfMemoryAnywhere {
 public:
  explicit OutOfMemoryAnywhere(bool lasts) : m_lasts(lasts) {}

  // Runs the action with the next allocation in turn failing. `act` says whether it was done.
  End run(const std::function<bool()>& act) {
    ++m_allocation;
    End end = End::kOther;
    {
      const AllocationFault fault(m_allocation, m_lasts);
      end = outcome(act);
    }
    m_successes = end == End::kDone ? m_successes + 1 : 0;
    m_failures += end == End::kDone ? 0 : 1;
    EXPECT_NE(static_cast<int>(end), static_cast<int>(End::kOther));
    return end;
  }

  [[nodiscard]] bool isOver() const {
    return m_successes >= kSuccessesAtTheEnd || testing::Test::HasFailure();
  }
  [[nodiscard]] int failures() const { return m_failures; }
  [[nodiscard]] int allocation() const { return m_allocation; }

 private:
  bool m_lasts;
  int m_allocation = 0;
  int m_successes = 0;
  int m_failures = 0;
};

int failEverywhere(const Scenario& scenario) {
  int failures = 0;
  for (const bool lasts : {false, true}) {
    OutOfMemoryAnywhere memory(lasts);
    while (!memory.isOver()) {
      SCOPED_TRACE(scenario.name + ", allocation " + std::to_string(memory.allocation() + 1) +
                   (lasts ? " and on" : ""));
      Stage stage;
      scenario.prepare(stage);
      const End end = memory.run([&] { return scenario.act(stage) == scenario.result; });
      if (scenario.opensFile && end != End::kDone) {
        EXPECT_EQ(stage.filer.newFiler(kStagePath), 1);
      }
      stage.expectUsable();
    }
    failures += memory.failures();
  }
  return failures;
}

TEST(NoMemory, TheFilerGoesOnAfterEveryOperation) {
  int failures = 0;
  for (const Scenario& scenario : filerScenarios()) {
    failures += failEverywhere(scenario);
  }
  EXPECT_GT(failures, 100);
}

TEST(NoMemory, EveryElementClassCanBeWrittenAgain) {
  for (const ElementScenario& element : elementScenarios()) {
    EXPECT_GT(failEverywhere(element.write), 2) << element.className;
  }
}

TEST(NoMemory, EveryElementClassCanBeReadAgain) {
  for (const ElementScenario& element : elementScenarios()) {
    failEverywhere(element.read);
  }
}

TEST(NoMemory, ASaveLeavesTheOldFileOrTheNewOne) {
  for (const bool lasts : {false, true}) {
    OutOfMemoryAnywhere memory(lasts);
    while (!memory.isOver()) {
      SCOPED_TRACE(memory.allocation());
      Stage stage;
      stage.filer.beginClass(L"New", 1);
      const End end = memory.run([&] { return stage.filer.closeFiler() == 1; });
      const std::string left = fileBytes(kStageFile);
      if (end == End::kDone) {
        EXPECT_NE(left.find("<New version=\"1\" index=\"1\"/>"), std::string::npos);
      } else {
        EXPECT_EQ(left, Stage::formerFile());
      }
      EXPECT_EQ(stage.filer.closeFiler(), end == End::kDone ? 0 : 1);
      EXPECT_NE(fileBytes(kStageFile).find("<New version=\"1\" index=\"1\"/>"), std::string::npos);
    }
    EXPECT_GT(memory.failures(), 3);
  }
}

// --- flat functions ----------------------------------------------------------------------------

void end() {
  endFiling(L"2025", 1, L"Plan", 42);
}

void start() {
  std::filesystem::remove("filing.xml");
  startFiling(L"filing.xml");
}

std::size_t count(const char* className) {
  return savedElements("filing.xml", className).size();
}

TEST(NoMemory, AHiddenBarIsExportedLater) {
  for (const bool lasts : {false, true}) {
    OutOfMemoryAnywhere memory(lasts);
    while (!memory.isOver()) {
      SCOPED_TRACE(memory.allocation());
      const Stage stage;
      start();
      exportLine(0, 0, 0, 1, 1, 1, 7);
      memory.run([] {
        exportHiddenBar();
        return true;
      });
      EXPECT_FALSE(std::filesystem::exists("TempFiler.xml") && !lasts);
      exportHiddenBar();
      end();
      EXPECT_EQ(count("CKtZantoLine"), 1U);
      EXPECT_GE(count("CKtZantoStraightBar"), 1U);
      EXPECT_EQ(count("CKtDrawingControl"), 1U);
      EXPECT_FALSE(std::filesystem::exists("TempFiler.xml"));
    }
    EXPECT_GT(memory.failures(), 10);
  }
}

// What a search has taken in of the document when memory runs out is not relied on by the next.
TEST(NoMemory, ASearchFindsNextTimeWhatItWouldHaveFound) {
  constexpr int kLines = 40;
  const auto writeLine = [](CKtFiler& filer, int number) {
    CKtZantoLine line;
    line.SetColor(static_cast<unsigned long>(number));
    line.fileOut(&filer);
  };
  for (const bool lasts : {false, true}) {
    OutOfMemoryAnywhere memory(lasts);
    while (!memory.isOver()) {
      SCOPED_TRACE(memory.allocation());
      const Stage stage;
      std::filesystem::remove("searched.xml");
      std::filesystem::remove("searching.xml");
      CKtFiler filer;
      filer.newFiler(L"searched.xml");
      for (int number = 1; number <= kLines; ++number) {
        writeLine(filer, number);
      }
      CKtPatternFiler pattern;
      pattern.newFiler(L"searching.xml");
      writeLine(pattern, kLines / 2);
      memory.run([&] { return filer.seek(&pattern) == kLines / 2; });
      EXPECT_EQ(filer.seek(&pattern), kLines / 2);
    }
    EXPECT_GT(memory.failures(), 5);
  }
}

TEST(NoMemory, AnEndOfFilingIsEndedAgainWithTheWholeDrawing) {
  for (const bool lasts : {false, true}) {
    OutOfMemoryAnywhere memory(lasts);
    while (!memory.isOver()) {
      SCOPED_TRACE(memory.allocation());
      const Stage stage;
      start();
      exportHiddenBar();
      for (int k = 0; k < 3; ++k) {
        pushRepartitionFrameRect(k * 200.0, 0, 0, k * 200.0, 500, 0, L"CKtZantoStraightBar", 10, 90,
                                 L"B500", L"Ha", 1, 12, false, 5, 0, k);
      }
      const End ended = memory.run([] {
        end();
        return true;
      });
      if (ended != End::kDone) {
        end();
      }
      EXPECT_EQ(count("CKtZantoStraightBar"), 1U);
      ASSERT_GE(count("CKtZantoRepartition"), 1U);
      const SavedElement series = savedElements("filing.xml", "CKtZantoRepartition").back();
      EXPECT_EQ(series.child("Index").attribute("long"), "1");
      EXPECT_EQ(savedElements("filing.xml").back().child("CheckSum").attribute("long"), "42");
    }
    EXPECT_GT(memory.failures(), 20);
  }
}

// Counts that were half taken in by the attempt that failed must not count twice.
TEST(NoMemory, AFileThatIsOpenedAgainGoesOnWithItsIndexes) {
  for (const bool lasts : {false, true}) {
    OutOfMemoryAnywhere memory(lasts);
    while (!memory.isOver()) {
      SCOPED_TRACE(memory.allocation());
      const Stage stage;
      std::string file = Stage::formerFile();
      const std::string more = "<AClassWithALongName/><AnotherClassWithALongName/>";
      file.insert(file.find("</Document>"), more);
      std::filesystem::remove("indexes.xml");
      std::ofstream("indexes.xml", std::ios::binary) << file;
      CKtFiler filer;
      const End opened = memory.run([&] { return filer.newFiler(L"indexes.xml") == 1; });
      if (opened != End::kDone) {
        ASSERT_EQ(filer.newFiler(L"indexes.xml"), 1);
      }
      for (const wchar_t* name :
           {L"Former", L"AClassWithALongName", L"AnotherClassWithALongName"}) {
        ASSERT_EQ(filer.beginClass(name, 1), 1);
        EXPECT_EQ(filer.endClass(), name == std::wstring_view(L"Former") ? 3 : 2);
      }
      filer.closeFiler();
    }
    EXPECT_GT(memory.failures(), 5);
  }
}

TEST(NoMemory, AFormworkSegmentIsAddedWholeOrNotAtAll) {
  const auto act = [](CKtZantoFormwork& formwork) {
    formwork.addElement(CKtPnt3D(1, 2, 3), CKtPnt3D(4, 5, 6), CKtVect3D(7, 8, 9));
    return true;
  };
  OutOfMemoryAnywhere memory(false);
  while (!memory.isOver()) {
    CKtZantoFormwork formwork;
    const bool isAdded = memory.run([&] { return act(formwork); }) == End::kDone;
    EXPECT_EQ(formwork.getNbPoints(), isAdded ? 2U : 0U) << memory.allocation();
    act(formwork);
    std::vector<CKtPnt3D> points;
    std::vector<CKtVect3D> bulges;
    formwork.getPoints(points);
    formwork.getBulges(bulges);
    EXPECT_EQ(formwork.getNbPoints(), isAdded ? 4U : 2U);
    EXPECT_EQ(points.size(), isAdded ? 4U : 2U);
    EXPECT_EQ(bulges.size(), isAdded ? 2U : 1U);
  }
  EXPECT_GE(memory.failures(), 2);
}

TEST(NoMemory, AStartOfFilingIsStartedAgain) {
  for (const bool lasts : {false, true}) {
    OutOfMemoryAnywhere memory(lasts);
    while (!memory.isOver()) {
      SCOPED_TRACE(memory.allocation());
      const Stage stage;
      std::filesystem::remove("filing.xml");
      std::filesystem::copy_file(kStageFile, "filing.xml");
      memory.run([] {
        startFiling(L"filing.xml");
        return Stage::messages() == 0;
      });
      startFiling(L"filing.xml");
      end();
      EXPECT_EQ(savedIndexes("filing.xml"), "Former 1, Former 2, CKtDrawingControl 1");
    }
  }
}

}  // namespace
}  // namespace quorvan::test
