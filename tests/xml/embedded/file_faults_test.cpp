// Saving and loading when the system fails, at every call.
#include <tests/xml/embedded/file_errors.h>

#include <cerrno>
#include <utility>

namespace quorvan::test {
namespace {

constexpr HRESULT kPathNotFound = static_cast<HRESULT>(0x80070003U);

TEST_F(FileErrors, ASaveThatFailsAtAnyCallLeavesTheOldFileOrTheNewOne) {
  for (const bool lasts : {false, true}) {
    int failed = 0;
    for (int call = 1;; ++call) {
      writeFile("drawing.xml", m_old);
      FileFaults faults;
      faults.failAt(call, EIO, lasts);
      const HRESULT result = save();
      if (faults.calls() < call) {
        break;
      }
      faults.failAt(0, 0, false);
      EXPECT_EQ(content(), result < 0 ? m_old : m_new) << call;
      failed += result < 0 ? 1 : 0;
      // What a failing removal left behind is gone after the next save.
      ASSERT_EQ(save(), S_OK) << call;
      EXPECT_EQ(content(), m_new);
      EXPECT_EQ(filesInFolder(), 1) << call;
    }
    EXPECT_GT(failed, 5);
  }
}

TEST_F(FileErrors, AFailedSaveLeavesNothingBehind) {
  for (const char* call : {"write", "fsync", "rename", "lstat", "open"}) {
    FileFaults faults;
    faults.failAll(call, EIO);
    EXPECT_EQ(save(), E_FAIL) << call;
    EXPECT_EQ(content(), m_old) << call;
    EXPECT_EQ(filesInFolder(), 1) << call;
  }
}

TEST_F(FileErrors, ShortAndInterruptedCallsAreCarriedOn) {
  FileFaults faults;
  faults.moveAtMost(1000);
  faults.interrupt();
  ASSERT_EQ(save(), S_OK);
  EXPECT_EQ(content(), m_new);
  IXMLDOMDocumentPtr loaded;
  ASSERT_EQ(dom::createDocument(loaded), S_OK);
  ASSERT_TRUE(dom::load(loaded, target()));
  EXPECT_EQ(outline(loaded), outline(m_document));
  faults.moveAtMost(1);
  writeFile("small.xml", std::string("\xFF\xFE<\0a\0/\0>\0", 10));
  ASSERT_TRUE(dom::load(loaded, wide(file("small.xml"))));
  EXPECT_EQ(outline(loaded), "a");
}

TEST_F(FileErrors, AWriteThatTakesNothingIsAFailure) {
  FileFaults faults;
  faults.moveAtMost(0);
  EXPECT_EQ(save(), E_FAIL);
  EXPECT_EQ(content(), m_old);
  EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(FileErrors, TheErrorSaysWhatFailed) {
  const std::pair<int, HRESULT> results[] = {
      {ENOSPC, kDiskFull},     {EACCES, E_ACCESSDENIED},   {EROFS, E_ACCESSDENIED},
      {ENOENT, kPathNotFound}, {EBUSY, kSharingViolation}, {EIO, E_FAIL},
      {ENOMEM, E_OUTOFMEMORY},
  };
  for (const auto& [error, result] : results) {
    FileFaults faults;
    faults.failAll("write", error);
    EXPECT_EQ(save(), result) << error;
    EXPECT_EQ(content(), m_old);
  }
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, wide(file("no") / "x.xml")); }), kPathNotFound);
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, wide(file("drawing.xml") / "x.xml")); }),
            kPathNotFound);
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, wide(file(""))); }), E_ACCESSDENIED);
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, CString()); }), E_INVALIDARG);
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, CString(L"a\0b", 3)); }), E_INVALIDARG);
}

TEST_F(FileErrors, AnUnreadableFileIsNoDocumentAndAReadErrorIsNone) {
  IXMLDOMDocumentPtr loaded;
  ASSERT_EQ(dom::createDocument(loaded), S_OK);
  for (const int error : {ENOENT, EACCES}) {
    FileFaults faults;
    faults.failAll("open", error);
    EXPECT_FALSE(dom::load(loaded, target()));
  }
  for (const int error : {EMFILE, ENFILE, ENOMEM, EIO}) {
    FileFaults faults;
    faults.failAll("open", error);
    EXPECT_LT(raisedBy([&] { dom::load(loaded, target()); }), 0);
  }
}

TEST_F(FileErrors, ALoadThatFailsAtAnyCallRaisesAndLeavesAnEmptyDocument) {
  writeFile("general.xml", "<!DOCTYPE a>" + m_new.substr(m_new.find('\n') + 1));
  for (const char* name : {"drawing.xml", "general.xml"}) {
    for (int call = 1;; ++call) {
      IXMLDOMDocumentPtr loaded = newDocument();
      FileFaults faults;
      faults.failAt(call, EIO, false);
      const HRESULT result = raisedBy([&] { dom::load(loaded, wide(file(name))); });
      if (result == S_OK) {
        break;
      }
      EXPECT_EQ(result, E_FAIL);
      EXPECT_TRUE(dom::firstChild(loaded) == nullptr);
      dom::append(loaded, dom::createElement(loaded, "a"));
      EXPECT_EQ(outline(loaded), "a");
      EXPECT_LT(call, 20);
    }
  }
}

}  // namespace
}  // namespace quorvan::test
