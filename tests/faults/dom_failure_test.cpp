// The document service fails at every call in turn, under every operation: what the caller gets is
// the service's error (or the stated result where the service gave nothing), and the filer goes on.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>
#include <span>
#include <string>

#include <tests/faults/scenarios.h>
#include <tests/support/fault_backend/dom_faults.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

constexpr DomFault kRaising[] = {DomFault::kFail, DomFault::kOutOfMemory, DomFault::kBadAlloc};

// All of them in the long form.
std::span<const DomFault> someFaults() {
  return wantsLongTests() ? std::span<const DomFault>(kRaising)
                          : std::span<const DomFault>(kRaising, 1);
}

// What a call came to: its result or what it raised.
std::string outcome(const std::function<int()>& act) {
  try {
    return std::to_string(act());
  } catch (const _com_error& error) {
    return error.Error() == E_FAIL          ? "E_FAIL"
           : error.Error() == E_OUTOFMEMORY ? "E_OUTOFMEMORY"
           : error.Error() == E_POINTER     ? "E_POINTER"
                                            : "_com_error " + std::to_string(error.Error());
  } catch (const std::bad_alloc&) {
    return "bad_alloc";
  }
}

std::string errorOf(DomFault fault) {
  return fault == DomFault::kFail          ? "E_FAIL"
         : fault == DomFault::kOutOfMemory ? "E_OUTOFMEMORY"
                                           : "bad_alloc";
}

// A fault that was met, and what the operation came to.
struct Failure {
  std::string operation;  // of the document service
  std::string outcome;
};

using Judge = std::function<void(const Failure& failure, Stage& stage)>;

// Lets each call of the service fail in turn until the operation needs no more calls; returns how
// many there were.
int failEverywhere(const Scenario& scenario, DomFault fault, bool lasts, const Judge& judge) {
  for (int call = 1;; ++call) {
    SCOPED_TRACE(scenario.name + ", call " + std::to_string(call) + ", fault " +
                 std::to_string(static_cast<int>(fault)));
    Stage stage;
    scenario.prepare(stage);
    Failure failure;
    {
      const DomFaults faults(call, fault, lasts);
      failure.outcome = outcome([&] { return scenario.act(stage); });
      failure.operation = faults.failed();
      if (!faults.hasFailed()) {
        EXPECT_EQ(failure.outcome, std::to_string(scenario.result));
        return call - 1;
      }
    }
    judge(failure, stage);
    if (scenario.opensFile) {
      EXPECT_EQ(stage.filer.newFiler(kStagePath), 1);
    }
    stage.expectUsable();
    if (testing::Test::HasFailure()) {
      return call;
    }
  }
}

TEST(FailingDocumentService, ErrorsReachTheCallerOfTheFilerUnchanged) {
  int failures = 0;
  for (const Scenario& scenario : filerScenarios()) {
    for (const DomFault fault : kRaising) {
      for (const bool lasts : {false, true}) {
        failures += failEverywhere(scenario, fault, lasts, [&](const Failure& failure, Stage&) {
          if (scenario.opensFile) {
            // What fails behind the opening fails in the destructor, which lets nothing out.
            const bool isOpen = failure.operation.starts_with("save");
            EXPECT_EQ(failure.outcome, isOpen ? "1" : "0") << failure.operation;
            EXPECT_EQ(Stage::messages(), isOpen ? 0 : 1);
          } else {
            if (!scenario.endsInDestructor || failure.outcome != "1") {
              EXPECT_EQ(failure.outcome, errorOf(fault)) << failure.operation;
            }
            EXPECT_EQ(Stage::messages(), 0);
          }
        });
      }
    }
  }
  EXPECT_GT(failures, 500);
}

TEST(FailingDocumentService, WhatCannotBeMadeGivesTheResultZero) {
  int failures = 0;
  for (const Scenario& scenario : filerScenarios()) {
    failures +=
        failEverywhere(scenario, DomFault::kNothing, false, [&](const Failure& failure, Stage&) {
          EXPECT_EQ(failure.outcome, "0") << failure.operation;
          // A service that makes no document, and no error either, is passed over in silence.
          const bool isTold = scenario.opensFile && failure.operation != "createDocument ";
          EXPECT_EQ(Stage::messages(), isTold ? 1 : 0) << failure.operation;
        });
  }
  EXPECT_GT(failures, 15);
}

TEST(FailingDocumentService, ErrorsLeaveElementsThatAreWritten) {
  for (const ElementScenario& element : elementScenarios()) {
    for (const DomFault fault : someFaults()) {
      const int failures =
          failEverywhere(element.write, fault, false, [&](const Failure& failure, Stage& stage) {
            EXPECT_EQ(failure.outcome, errorOf(fault)) << failure.operation;
            // The next element is written whole.
            EXPECT_EQ(element.write.act(stage), 1);
          });
      EXPECT_GT(failures, 5) << element.className;
    }
  }
}

// A list that cannot be opened ends the element with the result of the items before it; anything
// else that cannot be made makes the result 0.
TEST(FailingDocumentService, AnItemThatCannotBeMadeIsLeftOutOfTheElement) {
  for (const ElementScenario& element : elementScenarios()) {
    failEverywhere(
        element.write, DomFault::kNothing, false, [&](const Failure& failure, Stage& stage) {
          const bool isList = failure.operation == "addAttribute size" ||
                              (failure.operation.starts_with("createElement ") &&
                               failure.operation != "createElement " + element.className);
          EXPECT_EQ(failure.outcome, isList ? "1" : "0") << failure.operation;
          EXPECT_EQ(element.write.act(stage), 1);
        });
  }
}

TEST(FailingDocumentService, ErrorsLeaveElementsThatAreReadAndTheFile) {
  for (const ElementScenario& element : elementScenarios()) {
    for (const DomFault fault : someFaults()) {
      const int failures =
          failEverywhere(element.read, fault, false, [&](const Failure& failure, Stage& stage) {
            EXPECT_EQ(failure.outcome, errorOf(fault)) << failure.operation;
            const std::string file = fileBytes(kStageFile);
            CKtFiler reader(stage.filer);
            EXPECT_EQ(reader.closeFiler(), 1);
            EXPECT_EQ(fileBytes(kStageFile), file);
          });
      EXPECT_GT(failures, 5) << element.className;
    }
  }
}

TEST(FailingDocumentService, AFilerThatIsDestroyedLetsNothingOut) {
  for (const DomFault fault : kRaising) {
    for (int call = 1; call < 20; ++call) {
      Stage stage;
      auto filer = std::make_unique<CKtFiler>();
      ASSERT_EQ(filer->newFiler(L"destroyed.xml"), 1);
      filer->beginClass(L"A", 1);
      const DomFaults faults(call, fault, false);
      EXPECT_NO_THROW(filer.reset());
    }
  }
}

// --- flat functions ----------------------------------------------------------------------------

void pushFrames() {
  for (int k = 0; k < 3; ++k) {
    pushRepartitionFrameRect(k * 200.0, 0, 0, k * 200.0, 500, 0, L"CKtZantoStraightBar", 10, 90,
                             L"B500", L"Ha", 1, 12, false, 5, 0, k);
  }
}

void end() {
  endFiling(L"2025", 1, L"Plan", 42);
}

class FailingFiling : public testing::Test {
 protected:
  ~FailingFiling() override { finish(); }

  static void finish() {
    stopFiling();
    end();
  }

  static void start() {
    std::filesystem::remove("filing.xml");
    startFiling(L"filing.xml");
  }

  static std::size_t count(const char* className) {
    return savedElements("filing.xml", className).size();
  }
};

TEST_F(FailingFiling, AHiddenBarThatCouldNotBeLookedForIsExportedLater) {
  for (const DomFault fault : kRaising) {
    for (int call = 1;; ++call) {
      SCOPED_TRACE(call);
      Stage stage;
      start();
      exportLine(0, 0, 0, 1, 1, 1, 7);
      bool failed = false;
      std::string result;
      {
        const DomFaults faults(call, fault, false);
        result = outcome([] {
          exportHiddenBar();
          return 1;
        });
        failed = faults.hasFailed();
      }
      EXPECT_FALSE(std::filesystem::exists("TempFiler.xml"));
      // Opening the scratch file shows its message. Then there is no document to look in, or one
      // without a root element, which cannot be saved.
      if (result != "1") {
        EXPECT_TRUE(Stage::messages() == 0 ? result == errorOf(fault)
                                           : result == "E_POINTER" || result == "E_FAIL")
            << result;
      }
      if (result != "1") {
        exportHiddenBar();
      }
      end();
      EXPECT_EQ(count("CKtZantoLine"), 1U);
      EXPECT_EQ(count("CKtDrawingControl"), 1U);
      EXPECT_GE(count("CKtZantoStraightBar"), 1U);
      if (!failed || HasFailure()) {
        break;
      }
    }
  }
}

TEST_F(FailingFiling, AnEndThatFailedIsEndedAgainWithTheWholeDrawing) {
  for (const DomFault fault : someFaults()) {
    for (int call = 1;; ++call) {
      SCOPED_TRACE(call);
      Stage stage;
      start();
      exportHiddenBar();
      pushFrames();
      bool failed = false;
      std::string result;
      {
        const DomFaults faults(call, fault, false);
        result = outcome([] {
          end();
          return 1;
        });
        failed = faults.hasFailed();
      }
      if (result != "1") {
        end();
      }
      EXPECT_EQ(count("CKtZantoStraightBar"), 1U);
      ASSERT_GE(count("CKtZantoRepartition"), 1U);
      ASSERT_GE(count("CKtDrawingControl"), 1U);
      EXPECT_EQ(savedElements("filing.xml").back().child("CheckSum").attribute("long"), "42");
      if (!failed || HasFailure()) {
        break;
      }
    }
  }
}

}  // namespace
}  // namespace quorvan::test
