// What is read and where results go, other than plain files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include <tests/support/saved_file.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

namespace fs = std::filesystem;
using quorvan::test::fileBytes;
using quorvan::test::runTool;
using quorvan::test::sampleBytes;
using quorvan::test::writeFile;

void writeDrawing() {
  writeFile("drawing.json", quorvan::test::sampleDrawing());
}

// Gives the text as the standard input while it lives.
class StandardInput {
 public:
  explicit StandardInput(const std::string& text) : m_text(text), m_before(std::cin.rdbuf()) {
    std::cin.clear();
    std::cin.rdbuf(m_text.rdbuf());
  }
  StandardInput(const StandardInput&) = delete;
  StandardInput& operator=(const StandardInput&) = delete;
  ~StandardInput() { std::cin.rdbuf(m_before); }

 private:
  std::istringstream m_text;
  std::streambuf* m_before;
};

#ifndef _WIN32
TEST(ToolOutput, FollowsALink) {
  writeDrawing();
  fs::create_directory("elsewhere");
  writeFile("elsewhere/target.xml", "old");
  fs::create_symlink("elsewhere/target.xml", "alias.xml");
  fs::create_symlink("elsewhere/new.xml", "dangling.xml");
  for (const char* const name : {"alias.xml", "dangling.xml"}) {
    EXPECT_EQ(runTool({"write", "drawing.json", "-o", name}).err, "");
    EXPECT_TRUE(fs::is_symlink(name));
  }
  EXPECT_EQ(fileBytes("elsewhere/target.xml"), sampleBytes());
  EXPECT_EQ(fileBytes("elsewhere/new.xml"), sampleBytes());
}

TEST(ToolOutput, KeepsPermissions) {
  writeDrawing();
  writeFile("kept.xml", "old");
  fs::permissions("kept.xml", fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(runTool({"write", "drawing.json", "-o", "kept.xml"}).err, "");
  EXPECT_EQ(fs::status("kept.xml").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(ToolOutput, WritesToADevice) {
  writeDrawing();
  EXPECT_EQ(runTool({"write", "drawing.json", "-o", "/dev/null"}).err, "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(runTool({"draw", "/dev/zero", "-o", "x.svg"}).err,
            "quorvan: /dev/zero: is no file, but a device or a pipe\n");
}

TEST(ToolInput, MayHaveANameThatIsNotUtf8) {
  quorvan::test::writeSample();
  fs::rename("sample.xml", "caf\xE9\x01.xml");
  const auto run = runTool({"info", "caf\xE9\x01.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.find("caf\uFFFD\\u0001.xml\n"), 0U) << run.out;
  EXPECT_EQ(runTool({"info", "--json", "caf\xE9\x01.xml"}).status, 0);
  EXPECT_EQ(runTool({"draw", "caf\xE9\x01.xml", "-o", "caf.svg"}).err, "");
  EXPECT_EQ(runTool({"check", "caf.svg"}).out.find("caf.svg:1:1: error 101"), std::string::npos);
}
#endif

TEST(ToolOutput, MayBeTheStandardOne) {
  writeDrawing();
  const auto run = runTool({"write", "drawing.json", "-o", "-"});
  EXPECT_EQ(run.err, "");
  runTool({"write", "drawing.json", "-o", "drawing.xml"});
  EXPECT_EQ(run.out, quorvan::test::fileBytes("drawing.xml"));
  EXPECT_FALSE(fs::exists("-"));
}

TEST(ToolOutput, IsNoFolder) {
  writeDrawing();
  fs::create_directory("folder.xml");
  EXPECT_EQ(runTool({"write", "drawing.json", "-o", "folder.xml"}).err,
            "quorvan: folder.xml: cannot be written: it is a folder\n");
}

TEST(ToolInput, MayBeTheStandardOne) {
  {
    const StandardInput input(sampleBytes());
    EXPECT_EQ(runTool({"info", "-"}).out.find("standard input\n"), 0U);
  }
  {
    const StandardInput input(sampleBytes());
    const auto run = runTool({"check", "-", "--repair", "-o", "-"});
    EXPECT_EQ(run.out, sampleBytes());
    EXPECT_EQ(run.err, "standard input: no findings\nstandard output: no findings\n");
  }
  const StandardInput input(quorvan::test::sampleDrawing());
  const std::string written = runTool({"write", "-", "-o", "-"}).out;
  writeDrawing();
  runTool({"write", "drawing.json", "-o", "drawing.xml"});
  EXPECT_EQ(written, quorvan::test::fileBytes("drawing.xml"));
}

}  // namespace
