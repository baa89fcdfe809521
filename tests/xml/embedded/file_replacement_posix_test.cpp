// What becomes of the file that is saved over: links, permissions, devices, and what other
// processes left or are doing beside it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/xml/embedded/embedded_dom.h>
#include <tests/xml/embedded/file_faults.h>
#include <quorvan/xml/embedded/files/file_replacement.h>

namespace quorvan::test {
namespace {

constexpr char kBeside[] = ".drawing.xml.quorvan-new";

class SavedOver : public EmbeddedDom {
 protected:
  void save(const char* name = "drawing.xml") const { dom::save(m_document, wide(file(name))); }
  [[nodiscard]] bool isSaved(const char* name = "drawing.xml") const {
    return fileBytes(file(name)) ==
           "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document/>\r\n";
  }
  [[nodiscard]] mode_t modeOf(const char* name) const {
    struct stat status = {};
    EXPECT_EQ(::lstat(path(name).c_str(), &status), 0);
    return status.st_mode & 07777;
  }
  [[nodiscard]] bool exists(const char* name) const {
    return std::filesystem::symlink_status(file(name)).type() !=
           std::filesystem::file_type::not_found;
  }
};

TEST_F(SavedOver, PermissionsStay) {
  for (const mode_t mode : {0600U, 0640U, 0666U, 0755U}) {
    writeFile("drawing.xml", "old");
    ASSERT_EQ(::chmod(path("drawing.xml").c_str(), mode), 0);
    save();
    EXPECT_TRUE(isSaved());
    EXPECT_EQ(modeOf("drawing.xml"), mode);
  }
}

TEST_F(SavedOver, ANewFileHasThePermissionsOfNewFiles) {
  const mode_t former = ::umask(027);
  save();
  ::umask(former);
  EXPECT_EQ(modeOf("drawing.xml"), 0640U);
}

TEST_F(SavedOver, APermissionThatCannotBeGivenIsNoFailure) {
  writeFile("drawing.xml", "old");
  FileFaults faults;
  faults.failAll("fchmod", EPERM);
  save();
  EXPECT_TRUE(isSaved());
  EXPECT_EQ(modeOf("drawing.xml"), 0600U);
}

// What giving the new file owner, group and mode of the old one came to, where only what
// `isAllowed` says works.
struct Given {
  std::vector<std::pair<uid_t, gid_t>> asked;
  mode_t mode = 0;
};
Given given;
bool (*isAllowed)(uid_t owner) = nullptr;

Given givenWhere(bool (*allowed)(uid_t owner), const std::function<void()>& save) {
  given = {};
  isAllowed = allowed;
  embedded::FileCalls calls = embedded::systemFileCalls();
  calls.fchown = [](int, uid_t owner, gid_t group) {
    given.asked.emplace_back(owner, group);
    errno = EPERM;
    return isAllowed(owner) ? 0 : -1;
  };
  calls.fchmod = [](int, mode_t mode) {
    given.mode = mode;
    return 0;
  };
  embedded::setFileCalls(calls);
  save();
  embedded::setFileCalls(embedded::systemFileCalls());
  return given;
}

TEST_F(SavedOver, TheGroupIsKeptWhereTheOwnerCannotBe) {
  writeFile("drawing.xml", "old");
  ASSERT_EQ(::chmod(path("drawing.xml").c_str(), 06664), 0);
  constexpr auto kSame = static_cast<uid_t>(-1);
  const Given result = givenWhere([](uid_t owner) { return owner == kSame; }, [this] { save(); });
  ASSERT_EQ(result.asked.size(), 2U);
  EXPECT_EQ(result.asked[0], std::make_pair(::getuid(), ::getgid()));
  EXPECT_EQ(result.asked[1], std::make_pair(kSame, ::getgid()));
  // All but what would let others act as the new owner.
  EXPECT_EQ(result.mode, 02664U);
}

TEST_F(SavedOver, WhereTheGroupCannotBeKeptNobodyIsLetIn) {
  const std::pair<mode_t, mode_t> modes[] = {{0660, 0600},   {0664, 0644}, {0606, 0600},
                                             {0647, 0644},   {0640, 0600}, {0666, 0666},
                                             {07777, 01777}, {0755, 0755}};
  for (const auto& [former, expected] : modes) {
    writeFile("drawing.xml", "old");
    ASSERT_EQ(::chmod(path("drawing.xml").c_str(), former), 0);
    const Given result = givenWhere([](uid_t) { return false; }, [this] { save(); });
    EXPECT_EQ(result.mode, expected) << std::oct << former;
  }
}

TEST_F(SavedOver, ASymbolicLinkIsFollowedAndStays) {
  std::filesystem::create_directory(file("folder"));
  writeFile("folder/target.xml", "old");
  std::filesystem::create_symlink("folder/target.xml", file("middle.xml"));
  std::filesystem::create_symlink(file("middle.xml"), file("drawing.xml"));
  save();
  EXPECT_TRUE(isSaved("folder/target.xml"));
  EXPECT_TRUE(std::filesystem::is_symlink(file("drawing.xml")));
  EXPECT_TRUE(std::filesystem::is_symlink(file("middle.xml")));
}

TEST_F(SavedOver, ALinkToNothingGetsItsFile) {
  std::filesystem::create_symlink("target.xml", file("drawing.xml"));
  save();
  EXPECT_TRUE(isSaved("target.xml"));
  EXPECT_TRUE(std::filesystem::is_symlink(file("drawing.xml")));
}

TEST_F(SavedOver, LinksInACircleAreRefused) {
  std::filesystem::create_symlink("b.xml", file("drawing.xml"));
  std::filesystem::create_symlink("drawing.xml", file("b.xml"));
  EXPECT_LT(raisedBy([&] { save(); }), 0);
}

TEST_F(SavedOver, AFileInTheCurrentFolderIsSavedByItsNameAlone) {
  const std::filesystem::path former = std::filesystem::current_path();
  std::filesystem::current_path(file(""));
  dom::save(m_document, L"drawing.xml");
  std::filesystem::current_path(former);
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, APipeIsWrittenAsItIs) {
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  // Open at both ends, so that opening either waits for nothing.
  const int both = ::open(path("pipe").c_str(), O_RDWR);
  ASSERT_GE(both, 0);
  save("pipe");
  std::string received(200, '\0');
  const ssize_t count = ::read(both, received.data(), received.size());
  ::close(both);
  ASSERT_GT(count, 0);
  received.resize(static_cast<std::size_t>(count));
  EXPECT_EQ(received, "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document/>\r\n");
  EXPECT_TRUE(std::filesystem::is_fifo(file("pipe")));
}

TEST_F(SavedOver, APipeThatNobodyReadsMakesTheSaveFail) {
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  EXPECT_LT(raisedBy([&] { save("pipe"); }), 0);
}

TEST_F(SavedOver, APipeWhoseReaderIsSlowGetsAll) {
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  const std::string text(1'000'000, 'x');
  const IXMLDOMNodePtr root = dom::nextSibling(dom::firstChild(m_document));
  dom::addAttribute(m_document, root, "a", dom::AsciiText{text});
  const int reading = ::open(path("pipe").c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_EQ(::fcntl(reading, F_SETFL, 0), 0);
  std::size_t received = 0;
  std::thread reader([&] {
    char bytes[4096];
    for (ssize_t count = 1; count > 0; received += static_cast<std::size_t>(count)) {
      pollfd ready = {reading, POLLIN, 0};
      ::poll(&ready, 1, -1);
      count = ::read(reading, bytes, sizeof bytes);
    }
  });
  save("pipe");
  reader.join();
  ::close(reading);
  EXPECT_GT(received, text.size());
}

TEST_F(SavedOver, AScratchFileTakesThePlaceOfALinkAndLeavesItsTarget) {
  writeFile("other.txt", "other");
  std::filesystem::create_symlink("other.txt", file("drawing.xml"));
  dom::save(m_document, wide(file("drawing.xml")), dom::Durability::kScratch);
  EXPECT_EQ(fileBytes(file("other.txt")), "other");
  EXPECT_FALSE(std::filesystem::is_symlink(file("drawing.xml")));
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, AScratchFileThatCannotTakeThePlaceOfALinkIsNotSaved) {
  writeFile("other.txt", "other");
  std::filesystem::create_symlink("other.txt", file("drawing.xml"));
  FileFaults faults;
  faults.failAll("rename", EPERM);
  const auto saveScratch = [&] {
    dom::save(m_document, wide(file("drawing.xml")), dom::Durability::kScratch);
  };
  EXPECT_EQ(raisedBy(saveScratch), E_ACCESSDENIED);
  EXPECT_EQ(fileBytes(file("other.txt")), "other");
  EXPECT_TRUE(std::filesystem::is_symlink(file("drawing.xml")));
  EXPECT_FALSE(exists(kBeside));
}

TEST_F(SavedOver, AScratchFileTakesThePlaceOfAPipe) {
  ASSERT_EQ(::mkfifo(path("drawing.xml").c_str(), 0600), 0);
  dom::save(m_document, wide(file("drawing.xml")), dom::Durability::kScratch);
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, WhatAKilledProcessLeftIsClearedWithoutASave) {
  writeFile(kBeside, "half a docum");
  dom::clearLeftOver(wide(file("drawing.xml")));
  EXPECT_FALSE(exists(kBeside));
  dom::clearLeftOver(wide(file("drawing.xml")));  // nothing there
  dom::clearLeftOver(CString());
}

TEST_F(SavedOver, WhatIsJustBeingSavedIsNotCleared) {
  embedded::FileReplacement other(path("drawing.xml"), dom::Durability::kDisk);
  dom::clearLeftOver(wide(file("drawing.xml")));
  EXPECT_TRUE(exists(kBeside));
  other.write("whole");
  other.commit();
  EXPECT_EQ(fileBytes(file("drawing.xml")), "whole");
}

TEST_F(SavedOver, WhatAKilledProcessLeftIsTakenAway) {
  writeFile(kBeside, "half a docum");
  save();
  EXPECT_TRUE(isSaved());
  EXPECT_FALSE(exists(kBeside));
}

TEST_F(SavedOver, ALinkPutInTheWayIsNotFollowed) {
  writeFile("other.txt", "other");
  std::filesystem::create_symlink("other.txt", file(kBeside));
  save();
  EXPECT_TRUE(isSaved());
  EXPECT_EQ(fileBytes(file("other.txt")), "other");
  EXPECT_FALSE(exists(kBeside));
}

TEST_F(SavedOver, AFolderPutInTheWayMakesTheSaveFail) {
  writeFile("drawing.xml", "old");
  std::filesystem::create_directory(file(kBeside));
  EXPECT_LT(raisedBy([&] { save(); }), 0);
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
}

TEST_F(SavedOver, ALinkInTheWayThatCannotBeRemovedMakesTheSaveFail) {
  writeFile("drawing.xml", "old");
  std::filesystem::create_symlink("other.txt", file(kBeside));
  FileFaults faults;
  faults.failAll("unlink", EPERM);
  EXPECT_EQ(raisedBy([&] { save(); }), E_ACCESSDENIED);
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
}

// Another process may take the new file for left behind before it is locked.
TEST_F(SavedOver, ANewFileThatWasTakenAwayIsMadeAgain) {
  writeFile("drawing.xml", "old");
  FileFaults faults;
  int locks = 0;
  faults.before("flock", [&] {
    if (++locks == 1) {
      std::filesystem::remove(file(kBeside));
    }
  });
  save();
  EXPECT_TRUE(isSaved());
  EXPECT_EQ(locks, 2);
  EXPECT_FALSE(exists(kBeside));
}

TEST_F(SavedOver, WhatIsLeftBehindMayGoWhileItIsLookedAt) {
  writeFile("drawing.xml", "old");
  writeFile(kBeside, "half a docum");
  FileFaults faults;
  bool isFirst = true;
  faults.before("flock", [&] {
    if (std::exchange(isFirst, false)) {
      std::filesystem::remove(file(kBeside));
    }
  });
  save();
  EXPECT_FALSE(isFirst);
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, ANewFileThatAnotherProcessHasLockedIsInUse) {
  writeFile("drawing.xml", "old");
  int other = -1;
  {
    FileFaults faults;
    faults.before("flock", [&] {
      if (other >= 0) {
        return;
      }
      other = ::open(path(kBeside).c_str(), O_RDONLY);
      EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    });
    EXPECT_EQ(raisedBy([&] { save(); }), kSharingViolation);
  }
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
  ::close(other);
  save();
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, AFileThatComesBackAgainAndAgainMakesTheSaveFail) {
  writeFile("drawing.xml", "old");
  FileFaults faults;
  faults.before("open", [&] { writeFile(kBeside, "theirs"); });
  EXPECT_EQ(raisedBy([&] { save(); }), kSharingViolation);
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
  EXPECT_LT(faults.calls(), 200);
}

TEST_F(SavedOver, AFileThatIsJustBeingSavedIsInUse) {
  writeFile("drawing.xml", "old");
  {
    embedded::FileReplacement other(path("drawing.xml"), dom::Durability::kDisk);
    other.write("other");
    EXPECT_EQ(raisedBy([&] { save(); }), kSharingViolation);
    EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
    other.commit();
  }
  EXPECT_EQ(fileBytes(file("drawing.xml")), "other");
  save();
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, ANewFileThatSomebodyReplacedIsNotPutInPlace) {
  writeFile("drawing.xml", "old");
  embedded::FileReplacement mine(path("drawing.xml"), dom::Durability::kDisk);
  mine.write("mine");
  std::filesystem::remove(file(kBeside));
  writeFile(kBeside, "theirs");
  EXPECT_EQ(raisedBy([&] { mine.commit(); }), kSharingViolation);
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
  EXPECT_EQ(fileBytes(file(kBeside)), "theirs");
}

TEST_F(SavedOver, AFileSystemWithoutLocksIsGoodEnough) {
  FileFaults faults;
  faults.failAll("flock", ENOLCK);
  save();
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, AFileSystemThatCannotBeAskedToReachTheDiskIsGoodEnough) {
  for (const int error : {EINVAL, ENOSYS, ENOTSUP}) {
    writeFile("drawing.xml", "old");
    FileFaults faults;
    faults.failAll("fsync", error);
    save();
    EXPECT_TRUE(isSaved());
  }
}

TEST_F(SavedOver, TheLongestNamesAreSaved) {
  const std::string name = std::string(251, 'n') + ".xml";
  save(name.c_str());
  EXPECT_TRUE(isSaved(name.c_str()));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file("")), {}), 1);
  EXPECT_LT(raisedBy([&] { save((name + "x").c_str()); }), 0);
}

TEST_F(SavedOver, TheOldFileIsNotTouchedBeforeTheNewOneIsComplete) {
  writeFile("drawing.xml", "old");
  std::filesystem::create_hard_link(file("drawing.xml"), file("same.xml"));
  save();
  EXPECT_TRUE(isSaved());
  EXPECT_EQ(fileBytes(file("same.xml")), "old");
}

}  // namespace
}  // namespace quorvan::test
