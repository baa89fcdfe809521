#include <gtest/gtest.h>

#include <fstream>

#include <tools/console/console.h>
#include <tools/files/temporary_folder.h>

namespace {

using quorvan::tool::Failure;
using quorvan::tool::TemporaryFolder;
namespace fs = std::filesystem;

TEST(ToolTemporaryFolder, IsNewAndEmptyInItsParent) {
  const fs::path parent = fs::current_path();
  const TemporaryFolder folder(parent);
  EXPECT_TRUE(fs::is_directory(folder.path()));
  EXPECT_TRUE(fs::is_empty(folder.path()));
  EXPECT_EQ(folder.path().parent_path(), parent);
}

TEST(ToolTemporaryFolder, GoesAwayWithAllThatIsInIt) {
  fs::path path;
  {
    const TemporaryFolder folder(fs::current_path());
    path = folder.path();
    fs::create_directories(path / "deep" / "deeper");
    std::ofstream(path / "deep" / "deeper" / "file.txt") << "x";
  }
  EXPECT_FALSE(fs::exists(path));
}

TEST(ToolTemporaryFolder, HasANameThatNobodyElseHas) {
  const TemporaryFolder first(fs::current_path());
  const TemporaryFolder second(fs::current_path());
  EXPECT_NE(first.path(), second.path());
}

TEST(ToolTemporaryFolder, LeavesWhatIsBesideItAlone) {
  std::ofstream("beside.txt") << "x";
  { const TemporaryFolder folder(fs::current_path()); }
  EXPECT_TRUE(fs::exists("beside.txt"));
  fs::remove("beside.txt");
}

TEST(ToolTemporaryFolder, SaysWhereItCannotBeMade) {
  try {
    const TemporaryFolder folder("no such parent");
    FAIL() << folder.path();
  } catch (const Failure& failure) {
    EXPECT_TRUE(std::string_view(failure.what()).starts_with("no such parent: nothing can be "))
        << failure.what();
  }
}

}  // namespace
