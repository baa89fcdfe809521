// Saving and loading when the system fails, at every call.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include <tests/support/saved_file.h>
#include <tests/xml/embedded/embedded_dom.h>
#include <tests/xml/embedded/file_faults.h>
#include <quorvan/xml/embedded/files/file_replacement.h>

namespace quorvan::test {
namespace {

constexpr HRESULT kPathNotFound = static_cast<HRESULT>(0x80070003U);
constexpr HRESULT kDiskFull = static_cast<HRESULT>(0x80070070U);

class FileErrors : public EmbeddedDom {
 protected:
  // A document of several blocks, saved once.
  FileErrors() {
    for (int i = 0; i < 4000; ++i) {
      dom::addAttribute(m_document, appended(m_root, "CKtZantoLine"), "long", std::int32_t{i});
    }
    dom::save(m_document, target(), dom::Durability::kScratch);
    m_old = fileBytes(file("drawing.xml"));
    appended(m_root, "New");
    dom::save(m_document, wide(file("expected.xml")), dom::Durability::kScratch);
    m_new = fileBytes(file("expected.xml"));
    std::filesystem::remove(file("expected.xml"));
  }

  [[nodiscard]] CString target() const { return wide(file("drawing.xml")); }
  [[nodiscard]] std::string content() const { return fileBytes(file("drawing.xml")); }
  [[nodiscard]] long filesInFolder() const {
    return std::distance(std::filesystem::directory_iterator(file("")), {});
  }
  [[nodiscard]] HRESULT save() const {
    return raisedBy([&] { dom::save(m_document, target()); });
  }

  std::string m_old;
  std::string m_new;
};

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
    EXPECT_GT(failed, 6);
  }
}

TEST_F(FileErrors, AFailedSaveLeavesNothingBehind) {
  for (const char* call : {"write", "fsync", "rename", "fstat", "lstat", "access", "open"}) {
    FileFaults faults;
    faults.failAll(call, EIO);
    EXPECT_EQ(save(), E_FAIL) << call;
    EXPECT_EQ(content(), m_old) << call;
    EXPECT_EQ(filesInFolder(), 1) << call;
  }
}

TEST_F(FileErrors, AProcessThatDiesAtAnyCallLeavesTheOldFileOrTheNewOne) {
  FileFaults faults;
  ASSERT_EQ(save(), S_OK);
  const int calls = faults.calls();
  for (int call = 1; call <= calls; ++call) {
    writeFile("drawing.xml", m_old);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      faults.dieAt(call);
      static_cast<void>(save());
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << call;
    const std::string left = content();
    EXPECT_TRUE(left == m_old || left == m_new) << call;
    ASSERT_EQ(save(), S_OK) << call;
    EXPECT_EQ(content(), m_new);
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
      {ENOSPC, kDiskFull},        {EDQUOT, kDiskFull},     {EACCES, E_ACCESSDENIED},
      {EROFS, E_ACCESSDENIED},    {ENOENT, kPathNotFound}, {ENOTDIR, kPathNotFound},
      {EBUSY, kSharingViolation}, {EIO, E_FAIL},           {ENOMEM, E_OUTOFMEMORY},
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

TEST_F(FileErrors, AFullDiskIsReported) {
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, L"/dev/full"); }), kDiskFull);
}

TEST_F(FileErrors, ADeviceThatCannotBeOpenedOrClosedIsReported) {
  const auto saveToDevice = [&] { return raisedBy([&] { dom::save(m_document, L"/dev/null"); }); };
  FileFaults faults;
  faults.failAll("open", EACCES);
  EXPECT_EQ(saveToDevice(), E_ACCESSDENIED);
  faults.failAll("close", ENOSPC);
  EXPECT_EQ(saveToDevice(), kDiskFull);
  // Interrupted or not, the file is closed.
  faults.failAll("close", EINTR);
  EXPECT_EQ(saveToDevice(), S_OK);
}

TEST_F(FileErrors, ALinkThatCannotBeReadIsNotFollowed) {
  std::filesystem::create_symlink("drawing.xml", file("link.xml"));
  const auto saveToLink = [&] {
    return raisedBy([&] { dom::save(m_document, wide(file("link.xml"))); });
  };
  {
    FileFaults faults;
    faults.failAll("readlink", EACCES);
    EXPECT_EQ(saveToLink(), E_ACCESSDENIED);
    EXPECT_EQ(content(), m_old);
    EXPECT_TRUE(std::filesystem::is_symlink(file("link.xml")));
  }
  EXPECT_EQ(saveToLink(), S_OK);
  EXPECT_EQ(content(), m_new);
}

TEST_F(FileErrors, AFileWithoutWritePermissionIsNotReplaced) {
  FileFaults faults;
  faults.failAll("access", EACCES);
  EXPECT_EQ(save(), E_ACCESSDENIED);
  EXPECT_EQ(content(), m_old);
}

TEST_F(FileErrors, AnUnreadableFileIsNoDocumentAndAReadErrorIsNone) {
  IXMLDOMDocumentPtr loaded;
  ASSERT_EQ(dom::createDocument(loaded), S_OK);
  for (const int error : {ENOENT, EACCES, EISDIR, ELOOP, ENAMETOOLONG}) {
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

TEST_F(FileErrors, WhatIsNoRegularFileIsNoDocument) {
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  std::filesystem::create_directory(file("folder"));
  std::filesystem::create_symlink("/dev/zero", file("zeros.xml"));
  IXMLDOMDocumentPtr loaded;
  ASSERT_EQ(dom::createDocument(loaded), S_OK);
  for (const char* name : {"pipe", "folder", "zeros.xml", "/dev/zero", "/dev/null", "/dev/tty"}) {
    EXPECT_FALSE(dom::load(loaded, wide(file(name)))) << name;
  }
  // One that somebody writes is not read either.
  const int both = ::open(path("pipe").c_str(), O_RDWR);
  ASSERT_EQ(::write(both, m_old.data(), 10), 10);
  EXPECT_FALSE(dom::load(loaded, wide(file("pipe"))));
  ::close(both);
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
