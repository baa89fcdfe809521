#include <gtest/gtest.h>

#include <fstream>

#include <tools/console/terminal.h>

namespace {

using quorvan::tool::toPath;
using quorvan::tool::toUtf8;

TEST(ToolTerminal, NamesFilesInTextOfAnyScript) {
  for (const char* const name : {"plain.xml", "with blank.xml", "\u00E9t\u00E9 \u20AC.xml",
                                 "\u05D0\u05D1.xml", "\U0001F600.xml", ""}) {
    EXPECT_EQ(toUtf8(toPath(name)), name);
  }
}

TEST(ToolTerminal, FindsTheFileThatItNames) {
  const std::string name = "\u00E9t\u00E9 \u4E2D.txt";
  std::ofstream(toPath(name)) << "x";
  EXPECT_TRUE(std::filesystem::exists(toPath(name)));
  EXPECT_EQ(toUtf8(std::filesystem::directory_entry(toPath(name)).path().filename()), name);
  std::filesystem::remove(toPath(name));
}

TEST(ToolTerminal, PartsAPathAtItsSlashes) {
  EXPECT_EQ(toUtf8(toPath("a/b/c.xml").filename()), "c.xml");
  EXPECT_EQ(toUtf8(toPath("a/b/c.xml").parent_path().filename()), "b");
}

#ifndef _WIN32
TEST(ToolTerminal, LeavesOutTheNameOfTheProgram) {
  char program[] = "quorvan";
  char command[] = "info";
  char file[] = "\u00E9.xml";
  char* arguments[] = {program, command, file, nullptr};
  EXPECT_EQ(quorvan::tool::utf8Arguments(3, arguments),
            (std::vector<std::string>{"info", "\u00E9.xml"}));
  EXPECT_TRUE(quorvan::tool::utf8Arguments(1, arguments).empty());
  EXPECT_TRUE(quorvan::tool::utf8Arguments(0, arguments).empty());
}
#endif

}  // namespace
