// The system fails at every file call in turn, under every operation of the filer and of a filing
// that touches the disk: the target is whole, and the drawing stays and saves again.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>

#include <tests/faults/stage.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/xml/embedded/file_faults.h>
#include <quorvan/export/export.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

// Calls are interrupted where the system has signals.
#ifdef _WIN32
constexpr int kErrors[] = {EIO, ENOSPC, EMFILE, EACCES};
#else
constexpr int kErrors[] = {EIO, ENOSPC, EINTR, EMFILE, EACCES};
#endif

bool succeeds(const std::function<void()>& act) {
  try {
    act();
  } catch (const _com_error&) {
    return false;
  }
  return true;
}

// Calls `trial` for each failing file call, until none is left to fail: `act` is to be run under
// the faults that it is given.
using Act = std::function<bool(const std::function<void()>& action)>;

int failEverywhere(const std::function<void(const Act& act)>& trial) {
  int failures = 0;
  for (const int error : kErrors) {
    for (const bool lasts : {false, true}) {
      // A call that is interrupted for ever is repeated for ever.
      if (error == EINTR && lasts) {
        continue;
      }
      bool isOver = false;
      for (int call = 1; !isOver && !testing::Test::HasFailure(); ++call) {
        SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(error) +
                     (lasts ? " and on" : ""));
        trial([&](const std::function<void()>& action) {
          FileFaults faults;
          faults.failAt(call, error, lasts);
          const bool result = succeeds(action);
          isOver = faults.calls() < call;
          failures += result ? 0 : 1;
          return result;
        });
      }
    }
  }
  return failures;
}

TEST(FailingFileCall, ASaveLeavesTheOldFileOrTheNewOneAndTheDocument) {
  const int failures = failEverywhere([](const Act& act) {
    Stage stage;
    stage.filer.beginClass(L"New", 1);
    stage.filer.endClass();
    const bool isSaved = act([&] { stage.filer.closeFiler(); });
    const std::string left = fileBytes(kStageFile);
    if (isSaved) {
      EXPECT_NE(left.find("<New version=\"1\" index=\"1\"/></Document>"), std::string::npos);
    } else {
      EXPECT_EQ(left, Stage::formerFile());
    }
    EXPECT_EQ(stage.filer.closeFiler(), isSaved ? 0 : 1);
    EXPECT_EQ(savedIndexes(kStageFile), "Former 1, Former 2, New 1");
    stage.expectUsable();
  });
  EXPECT_GT(failures, 20);
}

TEST(FailingFileCall, ADestroyedFilerLeavesTheOldFileOrTheNewOne) {
  failEverywhere([](const Act& act) {
    Stage stage;
    auto filer = std::make_unique<CKtFiler>(stage.filer);
    act([&] { filer.reset(); });
    EXPECT_EQ(fileBytes(kStageFile), Stage::formerFile());
    stage.expectUsable();
  });
}

// A file that could not be read says nothing about its content: it is not taken for a new drawing.
TEST(FailingFileCall, AFileThatCouldNotBeReadIsNotReplaced) {
  int unread = 0;
  failEverywhere([&](const Act& act) {
    Stage stage;
    CKtFiler filer;
    int result = 0;
    act([&] { result = filer.newFiler(kStagePath); });
    if (result == 1 && filer.beginClass(L"Former") == 0) {
      // The system said that the file may not be opened, which is no different from none.
      EXPECT_EQ(Stage::messages(), 0);
      filer = CKtFiler();
      return;
    }
    unread += result == 0 ? 1 : 0;
    EXPECT_EQ(Stage::messages(), result == 0 ? 1 : 0);
    if (result == 0) {
      succeeds([&] { filer.closeFiler(); });
      EXPECT_EQ(fileBytes(kStageFile), Stage::formerFile());
      EXPECT_EQ(filer.newFiler(kStagePath), 1);
    }
    EXPECT_EQ(filer.closeFiler(), 1);
    EXPECT_EQ(fileBytes(kStageFile), Stage::formerFile());
  });
  EXPECT_GT(unread, 5);
}

TEST(FailingFileCall, ShortAndInterruptedCallsAreCarriedOnInEveryOperation) {
  for (const std::size_t most : {std::size_t{1}, std::size_t{7}, std::size_t{100}}) {
    Stage stage;
    {
      FileFaults faults;
      faults.moveAtMost(most);
      faults.interrupt();
      ASSERT_EQ(stage.filer.newFiler(kStagePath), 1);
      ASSERT_EQ(stage.filer.beginClass(L"Former", 1), 1);
      ASSERT_EQ(stage.filer.closeFiler(), 1);
    }
    EXPECT_EQ(savedIndexes(kStageFile), "Former 1, Former 2, Former 3");
  }
}

TEST(FailingFileCall, AHiddenBarIsExportedLaterAndTheDrawingIsWhole) {
  const int failures = failEverywhere([](const Act& act) {
    const Stage stage;
    std::filesystem::remove("filing.xml");
    startFiling(L"filing.xml");
    exportLine(0, 0, 0, 1, 1, 1, 7);
    if (!act(exportHiddenBar)) {
      exportHiddenBar();
    }
    EXPECT_FALSE(std::filesystem::exists("TempFiler.xml"));
    endFiling(L"2025", 1, L"Plan", 42);
    EXPECT_EQ(savedIndexes("filing.xml"),
              "CKtZantoLine 1, CKtZantoStraightBar 1, CKtDrawingControl 1");
  });
  EXPECT_GT(failures, 5);
}

// It is not looked for first, nor put in the place of anything. Deleting it is not among these.
TEST(FailingFileCall, AHiddenBarsScratchFileIsOpenedWrittenAndClosed) {
  const Stage stage;
  startFiling(L"filing.xml");
  {
    const FileFaults faults;
    exportHiddenBar();
    EXPECT_EQ(faults.calls(), 3);
  }
  endFiling(L"2025", 1, L"Plan", 42);
}

TEST(FailingFileCall, AnEndOfFilingIsEndedAgain) {
  const int failures = failEverywhere([](const Act& act) {
    const Stage stage;
    const auto end = [] { endFiling(L"2025", 1, L"Plan", 42); };
    startFiling(kStagePath);
    exportLine(0, 0, 0, 1, 1, 1, 7);
    if (act(end)) {
      EXPECT_EQ(savedIndexes(kStageFile),
                "Former 1, Former 2, CKtZantoLine 1, CKtDrawingControl 1");
      return;
    }
    EXPECT_EQ(fileBytes(kStageFile), Stage::formerFile());
    end();
    // The record of the end that failed is in the drawing already.
    EXPECT_EQ(savedIndexes(kStageFile),
              "Former 1, Former 2, CKtZantoLine 1, CKtDrawingControl 1, CKtDrawingControl 2");
  });
  EXPECT_GT(failures, 20);
}

// What is exported in between has no drawing to go into. The element exported last stays current
// and is closed into the next drawing, as a class scope left open is.
TEST(FailingFileCall, AStartThatCouldNotReadTheDrawingLeavesItAndIsStartedAgain) {
  int unread = 0;
  failEverywhere([&unread](const Act& act) {
    const Stage stage;
    const auto end = [] { endFiling(L"2025", 1, L"Plan", 42); };
    stopFiling();
    act([] { startFiling(kStagePath); });
    exportLine(0, 0, 0, 1, 1, 1, 7);
    if (Stage::messages() == 0) {
      // The drawing is there, or the system said that it may not be opened.
      end();
      const std::string indexes = savedIndexes(kStageFile);
      EXPECT_TRUE(indexes == "Former 1, Former 2, CKtZantoLine 1, CKtDrawingControl 1" ||
                  indexes == "CKtZantoLine 1, CKtDrawingControl 1")
          << indexes;
      return;
    }
    ++unread;
    EXPECT_FALSE(succeeds(end));
    EXPECT_EQ(fileBytes(kStageFile), Stage::formerFile());
    startFiling(kStagePath);
    exportCircle(1, 2, 3, 4, 5);
    end();
    EXPECT_EQ(savedIndexes(kStageFile),
              "Former 1, Former 2, CKtDrawingControl 1, CKtZantoCircle 1, CKtDrawingControl 2");
  });
  EXPECT_GT(unread, 5);
}

}  // namespace
}  // namespace quorvan::test
