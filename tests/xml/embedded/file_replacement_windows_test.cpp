// What becomes of the file that is saved over on Windows, and what other processes left or are
// doing beside it.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include <windows.h>

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
  [[nodiscard]] bool exists(const char* name) const { return std::filesystem::exists(file(name)); }
  [[nodiscard]] embedded::SystemPath target() const {
    return embedded::systemPath(wide(file("drawing.xml")));
  }
  [[nodiscard]] std::ptrdiff_t filesInFolder() const {
    return std::distance(std::filesystem::directory_iterator(file("")), {});
  }
};

TEST_F(SavedOver, AFileInTheCurrentFolderIsSavedByItsNameAlone) {
  const std::filesystem::path former = std::filesystem::current_path();
  std::filesystem::current_path(file(""));
  dom::save(m_document, L"drawing.xml");
  std::filesystem::current_path(former);
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, AFileThatMayOnlyBeReadIsNotReplaced) {
  writeFile("drawing.xml", "old");
  ASSERT_NE(::SetFileAttributesW(target().c_str(), FILE_ATTRIBUTE_READONLY), 0);
  EXPECT_EQ(raisedBy([&] { save(); }), E_ACCESSDENIED);
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
  ::SetFileAttributesW(target().c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(SavedOver, ADeviceIsWrittenAsItIsAndNotRead) {
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, L"NUL"); }), S_OK);
  EXPECT_EQ(raisedBy([&] { dom::save(m_document, L"\\\\.\\NUL"); }), S_OK);
  EXPECT_FALSE(dom::load(m_document, L"NUL"));
}

TEST_F(SavedOver, WhatAKilledProcessLeftIsTakenAway) {
  writeFile(kBeside, "half a docum");
  save();
  EXPECT_TRUE(isSaved());
  EXPECT_FALSE(exists(kBeside));
}

TEST_F(SavedOver, AFolderPutInTheWayMakesTheSaveFail) {
  writeFile("drawing.xml", "old");
  std::filesystem::create_directory(file(kBeside));
  EXPECT_LT(raisedBy([&] { save(); }), 0);
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
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
    embedded::FileReplacement other(target(), dom::Durability::kDisk);
    other.write("other");
    EXPECT_EQ(raisedBy([&] { save(); }), kSharingViolation);
    EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
    other.commit();
  }
  EXPECT_EQ(fileBytes(file("drawing.xml")), "other");
  save();
  EXPECT_TRUE(isSaved());
}

TEST_F(SavedOver, AFileSystemThatCannotBeAskedToReachTheDiskIsGoodEnough) {
  for (const int error : {EINVAL, ENOSYS}) {
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
  EXPECT_EQ(filesInFolder(), 1);
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
