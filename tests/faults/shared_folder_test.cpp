// Folders and files that several users share, as two of them: what one has put there, the other's
// library must neither follow nor open to a third.
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/export/export.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

constexpr uid_t kOwner = 40001;
constexpr uid_t kMember = 40002;
constexpr gid_t kTeam = 40100;
constexpr gid_t kOthers = 40200;

// Changing users takes the rights of the system's administrator.
class SharedFolder : public testing::Test {
 protected:
  void SetUp() override {
    if (::geteuid() != 0) {
      GTEST_SKIP() << "only the administrator can be two users";
    }
    char name[] = "/tmp/shared-folder-XXXXXX";
    ASSERT_NE(::mkdtemp(name), nullptr);
    m_folder = name;
    ASSERT_EQ(::chmod(name, 01777), 0);
  }
  ~SharedFolder() override { std::filesystem::remove_all(m_folder); }

  [[nodiscard]] std::string path(const char* name) const { return m_folder / name; }

  // Runs the action in the folder as that user, who is in that group and in `others`.
  void as(uid_t user, gid_t group, const std::vector<gid_t>& others,
          const std::function<void()>& action) const {
    const pid_t child = ::fork();
    if (child == 0) {
      const bool isUser = ::chdir(m_folder.c_str()) == 0 &&
                          ::setgroups(others.size(), others.data()) == 0 && ::setgid(group) == 0 &&
                          ::setuid(user) == 0;
      if (isUser) {
        action();
      }
      ::_exit(isUser ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }

  struct stat statusOf(const char* name) const {
    struct stat status = {};
    EXPECT_EQ(::stat(path(name).c_str(), &status), 0);
    return status;
  }

 private:
  std::filesystem::path m_folder;
};

void exportHiddenBar() {
  exportBarStraight(0, 0, 0, 100, 0, 0, 10, 10, true, false, 90, 90, L"B500", L"Ha", 1, 12, true);
}

TEST_F(SharedFolder, AScratchFileThatIsSomebodyElsesLinkDoesNotLeadTheSearchToItsTarget) {
  for (const std::string& content : {transferFile(""), std::string("precious")}) {
    as(kMember, kTeam, {}, [&] { writeBytes("target.xml", content); });
    as(kOwner, kOthers, {},
       [&] { std::filesystem::create_symlink("target.xml", "TempFiler.xml"); });
    as(kMember, kTeam, {}, [] {
      startFiling(L"drawing.xml");
      try {
        exportHiddenBar();
      } catch (const _com_error&) {  // NOLINT(bugprone-empty-catch): the scratch file is not saved
      }
      endFiling(L"2025", 1, L"Plan", 42);
    });
    EXPECT_EQ(fileBytes(path("target.xml")), content);
    EXPECT_TRUE(std::filesystem::is_symlink(path("TempFiler.xml")));
    EXPECT_TRUE(std::filesystem::exists(path("drawing.xml")));
    std::filesystem::remove(path("TempFiler.xml"));
    std::filesystem::remove(path("drawing.xml"));
  }
}

void endAFilingOf(const wchar_t* path) {
  startFiling(path);
  endFiling(L"2025", 1, L"Plan", 42);
}

TEST_F(SharedFolder, AMemberOfTheTeamWhoSavesADrawingLeavesItToTheTeam) {
  writeBytes(path("drawing.xml"), transferFile(""));
  ASSERT_EQ(::chown(path("drawing.xml").c_str(), kOwner, kTeam), 0);
  ASSERT_EQ(::chmod(path("drawing.xml").c_str(), 0660), 0);
  ASSERT_EQ(::chmod(path("").c_str(), 0777), 0);
  as(kMember, kOthers, {kTeam}, [] { endAFilingOf(L"drawing.xml"); });
  const struct stat saved = statusOf("drawing.xml");
  EXPECT_NE(fileBytes(path("drawing.xml")), transferFile(""));
  EXPECT_EQ(saved.st_uid, kMember);
  EXPECT_EQ(saved.st_gid, kTeam);
  EXPECT_EQ(saved.st_mode & 07777, 0660U);
}

TEST_F(SharedFolder, ASaverOutsideTheTeamLetsNobodyIn) {
  writeBytes(path("drawing.xml"), transferFile(""));
  ASSERT_EQ(::chown(path("drawing.xml").c_str(), kOwner, kTeam), 0);
  ASSERT_EQ(::chmod(path("drawing.xml").c_str(), 0606), 0);
  ASSERT_EQ(::chmod(path("").c_str(), 0777), 0);
  as(kMember, kOthers, {}, [] { endAFilingOf(L"drawing.xml"); });
  const struct stat saved = statusOf("drawing.xml");
  EXPECT_NE(fileBytes(path("drawing.xml")), transferFile(""));
  EXPECT_EQ(saved.st_gid, kOthers);
  EXPECT_EQ(saved.st_mode & 07777, 0600U);
}

}  // namespace
}  // namespace quorvan::test
