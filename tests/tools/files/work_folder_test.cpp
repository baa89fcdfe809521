#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <tests/support/saved_file.h>
#include <tests/tools/sample.h>
#include <tools/console/console.h>
#include <tools/files/work_folder.h>

namespace {

using quorvan::test::fileBytes;
using quorvan::test::writeFile;
using quorvan::tool::CurrentFolder;
using quorvan::tool::Failure;
using quorvan::tool::refuseSameFile;
using quorvan::tool::WorkFolder;
namespace fs = std::filesystem;

// A folder to write into, with nothing else in it.
class ToolWorkFolder : public testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all("target");
    fs::create_directory("target");
  }
  quorvan::tool::Console& console() { return m_console; }
  void TearDown() override { fs::remove_all("target"); }

  static std::size_t entries() {
    const fs::directory_iterator begin("target");
    return static_cast<std::size_t>(std::distance(begin, fs::directory_iterator()));
  }

 private:
  std::ostringstream m_none;
  quorvan::tool::Console m_console{m_none, m_none};
};

TEST_F(ToolWorkFolder, IsTheCurrentFolderForItsTime) {
  const fs::path before = fs::current_path();
  {
    const WorkFolder folder("target/out.xml", console());
    EXPECT_EQ(fs::current_path(), before);
    const CurrentFolder current(folder.path());
    EXPECT_EQ(fs::current_path().filename(), folder.path().filename());
    EXPECT_NE(fs::current_path(), before);
    EXPECT_TRUE(fs::is_empty(fs::current_path()));
  }
  EXPECT_EQ(fs::current_path(), before);
  EXPECT_EQ(entries(), 0U);
}

TEST_F(ToolWorkFolder, PutsWhatWasWrittenInThePlaceOfTheTarget) {
  writeFile("target/out.xml", "old");
  {
    const WorkFolder folder("target/out.xml", console());
    std::ofstream(folder.file()) << "new";
    EXPECT_EQ(fileBytes(folder.file().parent_path().parent_path() / "out.xml"), "old");
    folder.moveToTarget();
  }
  EXPECT_EQ(fileBytes("target/out.xml"), "new");
  EXPECT_EQ(entries(), 1U);
}

TEST_F(ToolWorkFolder, LeavesTheTargetAloneUntilThen) {
  writeFile("target/out.xml", "old");
  {
    const WorkFolder folder("target/out.xml", console());
    std::ofstream(folder.file()) << "new";
  }
  EXPECT_EQ(fileBytes("target/out.xml"), "old");
  EXPECT_EQ(entries(), 1U);
}

TEST_F(ToolWorkFolder, SaysThatThereWasNothingToPutThere) {
  const WorkFolder folder("target/out.xml", console());
  EXPECT_THROW(folder.moveToTarget(), Failure);
}

TEST_F(ToolWorkFolder, SaysWhereItCannotBeMade) {
  const fs::path before = fs::current_path();
  EXPECT_THROW(WorkFolder("target/missing/out.xml", console()), Failure);
  EXPECT_EQ(fs::current_path(), before);
}

TEST_F(ToolWorkFolder, RefusesTheFileItselfUnderWhateverName) {
  writeFile("target/in.xml", "x");
  fs::create_directory("target/deep");
  for (const char* const name :
       {"target/in.xml", "./target/in.xml", "target/deep/../in.xml", "target//in.xml"}) {
    try {
      refuseSameFile("target/in.xml", name);
      FAIL() << name;
    } catch (const Failure& failure) {
      EXPECT_TRUE(std::string_view(failure.what()).starts_with(name)) << failure.what();
    }
  }
  std::error_code error;
  fs::create_hard_link("target/in.xml", "target/link.xml", error);
  if (!error) {
    EXPECT_THROW(refuseSameFile("target/in.xml", "target/link.xml"), Failure);
  }
}

TEST_F(ToolWorkFolder, TakesAnyOtherName) {
  writeFile("target/in.xml", "x");
  writeFile("target/other.xml", "x");
  EXPECT_NO_THROW(refuseSameFile("target/in.xml", "target/other.xml"));
  EXPECT_NO_THROW(refuseSameFile("target/in.xml", "target/new.xml"));
  EXPECT_NO_THROW(refuseSameFile("target/missing.xml", "target/missing.xml"));
}

}  // namespace
