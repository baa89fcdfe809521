// Opening when the document service fails: the two messages, and the state after them.

#include <tests/filer/filer_test.h>

#include <string>

#include <quorvan/filer/pattern_filer.h>

#include <tests/support/fault_backend/dom_faults.h>

namespace quorvan::test {
namespace {

class MissingService : public FilerTest {
 protected:
  // The operations of opening in their order.
  static constexpr int kCreating = 1;
  static constexpr int kAskingForRevision = 2;
  static constexpr int kLoading = 3;

  static int openFailing(CKtFiler& filer, const wchar_t* path, int call, DomFault fault) {
    const DomFaults faults(call, fault, false);
    const int result = filer.newFiler(path);
    EXPECT_TRUE(faults.hasFailed());
    return result;
  }
};

TEST_F(MissingService, IsReportedByTheLocalisedMessage) {
  CKtFiler filer;
  EXPECT_EQ(openFailing(filer, kPath, kCreating, DomFault::kFail), 0);
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            L"Un probl\u00E8me syst\u00E8me est survenu ! Il semble que vous n'ayez pas une "
            L"version r\u00E9cente de MSXML. Il est conseill\u00E9 de r\u00E9installer Meridal qui "
            L"fera alors une mise \u00E0 jour automatique.");
  EXPECT_EQ(messages()[0].type, 0U);
  EXPECT_EQ(messages()[0].helpContext, 0U);
}

TEST_F(MissingService, LeavesNothingToCloseAndThePathSet) {
  writeText(kPath, documentText("<A/>"));
  CKtFiler filer;
  EXPECT_EQ(openFailing(filer, kPath, kCreating, DomFault::kFail), 0);
  EXPECT_EQ(filer.beginClass(L"A", 1), 0);
  EXPECT_EQ(filer.closeFiler(), 0);
  EXPECT_EQ(savedText(kPath), documentText("<A/>"));
  EXPECT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
}

TEST_F(MissingService, ADocumentThatIsNotThereIsNoMessageWorth) {
  CKtFiler filer;
  EXPECT_EQ(openFailing(filer, kPath, kCreating, DomFault::kNothing), 0);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(filer.beginClass(L"A", 1), 0);
  EXPECT_EQ(filer.closeFiler(), 0);
  EXPECT_FALSE(fileExists(kPath));
}

// The counts of the former document stay, and there may be no root element.
TEST_F(MissingService, AfterAnErrorWhileOpeningNothingIsThereToRead) {
  writeText(kPath, documentText("<A/><A/>"));
  for (int call = kLoading; call <= kLoading + 4; ++call) {
    CKtFiler filer;
    ASSERT_EQ(filer.newFiler(kPath), 1);
    EXPECT_EQ(openFailing(filer, kOtherPath, call, DomFault::kFail), 0);
    EXPECT_EQ(filer.beginClass(L"A"), 0) << call;
    EXPECT_EQ(filer.endClass(), -1) << call;
  }
}

TEST_F(MissingService, DropsTheDocumentThatWasOpen) {
  CKtFiler filer;
  filer.newFiler(kPath);
  EXPECT_EQ(openFailing(filer, kOtherPath, kCreating, DomFault::kFail), 0);
  EXPECT_EQ(filer.beginClass(L"A", 1), 0);
  EXPECT_EQ(filer.closeFiler(), 0);
  EXPECT_FALSE(fileExists(kPath));
}

// The counts of the document that was open stay, and lead to one that is not there.
TEST_F(MissingService, ReadingWhatTheFormerDocumentHeldRaisesAndCountsIt) {
  writeText(kPath, documentText("<A/><A/>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(openFailing(filer, kOtherPath, kCreating, DomFault::kFail), 0);
  EXPECT_EQ(filer.beginClass(L"B"), 0);
  EXPECT_EQ(raised([&] { filer.beginClass(L"A"); }), E_POINTER);
  EXPECT_EQ(raised([&] { filer.beginClass(L"A"); }), E_POINTER);
  EXPECT_EQ(filer.beginClass(L"A"), 0);
}

TEST_F(MissingService, AnElementLastReadStaysAndLeadsToItsSiblings) {
  writeText(kPath, documentText("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(openFailing(filer, kOtherPath, kCreating, DomFault::kFail), 0);
  EXPECT_EQ(itemNumber(filer), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(filer), 2);
  EXPECT_EQ(filer.closeFiler(), 0);
}

// Closing files the scope first, and there is no document that could take it.
TEST_F(MissingService, AScopeThatIsOpenForWritingMakesClosingRaise) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  ASSERT_EQ(filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(openFailing(filer, kOtherPath, kCreating, DomFault::kFail), 0);
  EXPECT_EQ(raised([&] { filer.closeFiler(); }), E_POINTER);
  EXPECT_EQ(filer.getLastUsedIndex(), 2) << "still open";
  // It is filed in the document that is opened next.
  ASSERT_EQ(filer.newFiler(kOtherPath), 1);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kOtherPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(MissingService, ThePathIsThatOfTheOpeningThatFailed) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(L""), 1);
  ASSERT_EQ(filer.beginClass(L"A", 1), 1);
  EXPECT_EQ(openFailing(filer, kPath, kCreating, DomFault::kFail), 0);
  // With an empty path there would be nothing to close.
  EXPECT_EQ(raised([&] { filer.closeFiler(); }), E_POINTER);
}

// Path and document are what they were when the error came; without a root that is no file.
TEST_F(MissingService, AfterAnErrorInFrontOfTheRootNothingCanBeSaved) {
  for (int call = kLoading; call <= kLoading + 4; ++call) {
    CKtFiler filer;
    ASSERT_EQ(openFailing(filer, kPath, call, DomFault::kFail), 0);
    EXPECT_LT(raised([&] { filer.closeFiler(); }), 0) << call;
    EXPECT_FALSE(fileExists(kPath)) << call;
  }
}

TEST_F(MissingService, AFileThatCouldNotBeCountedIsSavedAsItWas) {
  const std::string text = documentText("<A/><A/>");
  writeText(kPath, text);
  int saved = 0;
  for (int call = kLoading + 1;; ++call) {
    CKtFiler filer;
    {
      const DomFaults faults(call, DomFault::kFail, false);
      if (filer.newFiler(kPath) == 1) {
        break;
      }
    }
    // Uncounted: what there is to read is not known, and writing counts.
    EXPECT_EQ(filer.beginClass(L"A"), 0) << call;
    EXPECT_EQ(filer.closeFiler(), 1) << call;
    ++saved;
  }
  EXPECT_GT(saved, 2);
  EXPECT_EQ(savedText(kPath), text);
}

TEST_F(MissingService, SearchingMakesTheNextOpeningCount) {
  writeText(kPath, documentText("<A/>"));
  writeText(kOtherPath, documentText("<B/>"));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(openFailing(filer, kOtherPath, kCreating, DomFault::kFail), 0);
  CKtPatternFiler pattern;
  EXPECT_EQ(raised([&] { filer.seek(&pattern); }), E_POINTER);
  ASSERT_EQ(filer.newFiler(kOtherPath), 1);
  EXPECT_EQ(filer.beginClass(L"B"), 1);
}

TEST_F(MissingService, AnErrorWhileOpeningIsReportedAndDoesNotLeave) {
  for (const DomFault fault : {DomFault::kFail, DomFault::kOutOfMemory, DomFault::kBadAlloc}) {
    CKtFiler filer;
    const std::size_t before = messages().size();
    EXPECT_EQ(openFailing(filer, kPath, kLoading, fault), 0);
    ASSERT_EQ(messages().size(), before + 1);
    EXPECT_EQ(messages().back().text, L"Exception caught on CKtFiler::newFiler()!");
    EXPECT_EQ(messages().back().type, 0U);
    EXPECT_EQ(messages().back().helpContext, 0U);
  }
}

TEST_F(MissingService, EveryErrorWhileOpeningIsReportedAndDoesNotLeave) {
  writeText(kOtherPath, documentText("<A/><B/>"));
  for (const wchar_t* path : {kPath, kOtherPath}) {
    for (int call = kLoading;; ++call) {
      const std::size_t before = messages().size();
      CKtFiler filer;
      bool failed = false;
      {
        const DomFaults faults(call, DomFault::kFail, false);
        const int result = filer.newFiler(path);
        failed = faults.hasFailed();
        EXPECT_EQ(result, failed ? 0 : 1) << call << ' ' << faults.failed();
      }
      if (!failed) {
        break;
      }
      EXPECT_EQ(messages().size(), before + 1) << call;
    }
  }
  EXPECT_EQ(savedText(kOtherPath), documentText("<A/><B/>"));
}

TEST_F(MissingService, AFilerIsUsableAfterAnErrorWhileOpening) {
  writeText(kPath, documentText("<A/>"));
  CKtFiler filer;
  EXPECT_EQ(openFailing(filer, kPath, kLoading, DomFault::kBadAlloc), 0);
  EXPECT_EQ(filer.newFiler(kPath), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), documentText("<A/>"));
}

}  // namespace
}  // namespace quorvan::test
