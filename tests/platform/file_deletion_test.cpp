#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <quorvan/platform/file_deletion.h>
#include <quorvan/text/cstring.h>
#include <quorvan/text/utf8.h>

namespace {

using quorvan::platform::deleteFile;

// Not path::wstring(), which takes the locale's encoding.
CString wide(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return quorvan::fromUtf8({reinterpret_cast<const char*>(utf8.data()), utf8.size()});
}

TEST(DeleteFile, DeletesTheFile) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "to delete.xml";
  std::ofstream(path) << "x";
  ASSERT_TRUE(std::filesystem::exists(path));
  deleteFile(wide(path));
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(DeleteFile, DeletesAFileWithALetterOutsideAscii) {
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / std::filesystem::path(u8"supprim\u00E9.xml");
  std::ofstream(path) << "x";
  if (!std::filesystem::exists(path)) {
    GTEST_SKIP() << "no such names in this environment";
  }
  deleteFile(wide(path));
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(DeleteFile, IgnoresWhatIsNotThere) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  deleteFile(wide(folder / "no such file.xml"));
  deleteFile(L"");
  deleteFile(nullptr);
  deleteFile(wide(folder));
  EXPECT_TRUE(std::filesystem::is_directory(folder));
}

}  // namespace
