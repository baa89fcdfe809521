// Saving when the system fails, where it is POSIX: processes that die, devices, links.
#include <tests/xml/embedded/file_errors.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

namespace quorvan::test {
namespace {

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

TEST_F(FileErrors, WhatCannotBeLookedAtIsNotReplaced) {
  for (const char* call : {"fstat", "access"}) {
    FileFaults faults;
    faults.failAll(call, EIO);
    EXPECT_EQ(save(), E_FAIL) << call;
    EXPECT_EQ(content(), m_old) << call;
    EXPECT_EQ(filesInFolder(), 1) << call;
  }
}

TEST_F(FileErrors, AUsersShareOfTheDiskAndAPathThroughAFileAreReported) {
  const std::pair<int, HRESULT> results[] = {
      {EDQUOT, kDiskFull},
      {ENOTDIR, static_cast<HRESULT>(0x80070003U)},
  };
  for (const auto& [error, result] : results) {
    FileFaults faults;
    faults.failAll("write", error);
    EXPECT_EQ(save(), result) << error;
    EXPECT_EQ(content(), m_old);
  }
}

TEST_F(FileErrors, APathThatLeadsNowhereIsNoDocument) {
  IXMLDOMDocumentPtr loaded;
  ASSERT_EQ(dom::createDocument(loaded), S_OK);
  for (const int error : {EISDIR, ELOOP, ENAMETOOLONG}) {
    FileFaults faults;
    faults.failAll("open", error);
    EXPECT_FALSE(dom::load(loaded, target()));
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

TEST_F(FileErrors, TellAFileThatMayNotBeRead) {
  if (geteuid() == 0) {
    GTEST_SKIP() << "the administrator may read any file";
  }
  writeFile("secret.xml", "<a/>");
  ASSERT_EQ(chmod(path("secret.xml").c_str(), 0), 0);
  dom::LoadProblem problem;
  EXPECT_FALSE(dom::load(m_document, wide(file("secret.xml")), problem));
  EXPECT_EQ(problem.failure, dom::LoadFailure::kNoAccess);
}

}  // namespace
}  // namespace quorvan::test
