#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include <tests/support/saved_file.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>
#include <tools/commands/command_table.h>

namespace {

using quorvan::test::runTool;
using quorvan::tool::Command;

TEST(ToolProgram, AnswersHelpOnItsOutput) {
  const auto run = runTool({"--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  for (const Command* const command : quorvan::tool::allCommands()) {
    EXPECT_NE(run.out.find("  " + std::string(command->name) + " "), std::string::npos)
        << command->name;
  }
}

TEST(ToolProgram, ShowsExamplesInTheHelpOfEveryCommand) {
  for (const Command* const command : quorvan::tool::allCommands()) {
    const auto run = runTool({std::string(command->name), "--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("Examples:\n  quorvan " + std::string(command->name) + ' '),
              std::string::npos)
        << command->name;
  }
}

TEST(ToolProgram, TellsItsVersion) {
  EXPECT_EQ(runTool({"--version"}).out, "quorvan 1.0.0\n");
}

TEST(ToolProgram, ComplainsOfArgumentsThatItDoesNotKnow) {
  for (const auto& arguments : std::vector<std::vector<std::string>>{
           {}, {"paint"}, {"info"}, {"info", "--jason", "x"}, {"list", "x", "--json", "--csv"}}) {
    const auto run = runTool(arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err, "");
  }
}

TEST(ToolProgram, SaysWhatWasTypedAndWhatMayBeMeant) {
  EXPECT_EQ(runTool({"ifno", "x"}).err, "quorvan: no command ifno; did you mean info?\n");
  EXPECT_EQ(runTool({"frobnicate\x1B"}).err,
            "quorvan: no command frobnicate\\u001b; quorvan --help lists them\n");
  for (const char* const scale : {"0", "-1", "x", "1e999"}) {
    const std::string err = runTool({"draw", "x.xml", "-o", "x.svg", "--scale", scale}).err;
    EXPECT_NE(err.find(std::string("a scale is a number above 0, not ") + scale + '\n'),
              std::string::npos)
        << err;
  }
}

TEST(ToolProgram, TakesFoldersAndPatternsForTheFilesInThem) {
  std::filesystem::create_directories("plans/deeper");
  quorvan::test::writeFile("plans/b.XML", quorvan::test::sampleBytes());
  quorvan::test::writeFile("plans/a.xml", quorvan::test::sampleBytes());
  quorvan::test::writeFile("plans/c.txt", "no drawing");
  // As the system writes paths.
  const std::filesystem::path folder = "plans";
  const std::string both = (folder / "a.xml").string() + ": no findings\n" +
                           (folder / "b.XML").string() + ": no findings\n";
  EXPECT_EQ(runTool({"check", "plans"}).out, both);
  EXPECT_EQ(runTool({"check", "plans/?.x*"}).out, both);
  EXPECT_EQ(runTool({"info", "plans/deeper"}).err,
            "quorvan: plans/deeper: there is no .xml file in this folder\n");
}

TEST(ToolProgram, TellsOfTheOthersWhereAFileIsMissing) {
  quorvan::test::writeSample();
  const auto info = runTool({"info", "missing.xml", "sample.xml"});
  EXPECT_EQ(info.status, 2);
  EXPECT_EQ(info.err, "quorvan: missing.xml: no such file\n");
  EXPECT_EQ(info.out.find("sample.xml\n"), 0U);
  const auto check = runTool({"check", "sample.xml", "missing.xml", "sample.xml"});
  EXPECT_EQ(check.status, 2);
  EXPECT_EQ(check.out.substr(0, check.out.find("to mend")),
            "sample.xml: no findings\nmissing.xml: error 107: file that cannot be read\n"
            "    found no such file; expected a file that can be read\n    ");
  EXPECT_TRUE(check.out.ends_with("1 error, 0 warnings, 0 notes\nsample.xml: no findings\n"));
}

TEST(ToolProgram, NamesTheFileThatItCannotRead) {
  for (const char* const command : {"info", "list", "bars"}) {
    const auto run = runTool({command, "missing.xml"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "quorvan: missing.xml: no such file\n");
  }
}

TEST(ToolProgram, NamesThePlaceWhereAFileIsNotWellFormed) {
  quorvan::test::writeFile("broken.xml", "<Document>\n  <CKtZantoLine>\n</Document>");
  const auto run = runTool({"info", "broken.xml"});
  EXPECT_EQ(run.status, 2);
#ifndef _WIN32
  EXPECT_EQ(
      run.err,
      "quorvan: broken.xml:3:3: not well-formed: <CKtZantoLine> of line 2, column 3 is closed by "
      "</Document>\n");
#endif
}

TEST(ToolProgram, TakesNamesInUtf8) {
  quorvan::test::writeFile("plan.xml", quorvan::test::sampleBytes());
  std::filesystem::rename("plan.xml", std::filesystem::path(u8"étage ≤2.xml"));
  const auto run = runTool({"bars", "étage ≤2.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.find("Bar list of étage ≤2.xml, drawing B1 – étage\n"), 0U);
}

// The input is never changed, under whatever name it is given for the output.
TEST(ToolProgram, NeverWritesOverWhatItReads) {
  const std::string drawing = quorvan::test::sampleDrawing();
  quorvan::test::writeFile("drawing.json", drawing);
  quorvan::test::writeFile("sample.svg", quorvan::test::sampleBytes());
  std::filesystem::create_hard_link("sample.svg", "link.svg");
  for (const char* const output : {"sample.svg", "./sample.svg", "link.svg"}) {
    const auto run = runTool({"draw", "sample.svg", "-o", output});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("is the file itself"), std::string::npos) << run.err;
  }
  EXPECT_EQ(runTool({"write", "drawing.json", "-o", "./drawing.json"}).status, 2);
  EXPECT_EQ(quorvan::test::fileBytes("sample.svg"), quorvan::test::sampleBytes());
  EXPECT_EQ(quorvan::test::fileBytes("drawing.json"), drawing);
}

TEST(ToolProgram, NeverWritesOverWhatStandardInputReads) {
  const std::string broken = quorvan::test::sampleBytes() + "<!-- behind the root -->";
  quorvan::test::writeFile("read.xml", broken);
  std::filesystem::create_hard_link("read.xml", "link.xml");
  ASSERT_NE(std::freopen("read.xml", "rb", stdin), nullptr);
  const auto run = runTool({"check", "-", "--repair", "-o", "link.xml"});
  const auto other = runTool({"check", "-", "--repair", "-o", "mended.xml"});
#ifdef _WIN32
  ASSERT_NE(std::freopen("NUL", "rb", stdin), nullptr);
#else
  ASSERT_NE(std::freopen("/dev/null", "rb", stdin), nullptr);
#endif
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "quorvan: link.xml: is the file itself; the output needs a name of its own\n");
  EXPECT_EQ(quorvan::test::fileBytes("read.xml"), broken);
  EXPECT_EQ(other.err, "") << "any other name will do";
  EXPECT_TRUE(std::filesystem::exists("mended.xml"));
}

}  // namespace
