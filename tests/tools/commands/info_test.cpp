#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using nlohmann::json;
using quorvan::test::runTool;

TEST(ToolInfo, ShowsTheSampleAsPinned) {
  quorvan::test::writeSample();
  const auto run = runTool({"info", "sample.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  quorvan::test::expectGolden("info.txt", run.out);
}

TEST(ToolInfo, ShowsTheSampleAsJsonAsPinned) {
  quorvan::test::writeSample();
  quorvan::test::expectGolden("info.json", runTool({"info", "--json", "sample.xml"}).out);
}

TEST(ToolInfo, TakesMoreThanOneFile) {
  quorvan::test::writeSample();
  quorvan::test::writeFile("empty.xml", "<Document/>");
  const json files =
      json::parse(runTool({"info", "--json", "sample.xml", "empty.xml"}).out)["files"];
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0]["elements"], 20);
  EXPECT_EQ(files[1]["elements"], 0);
  EXPECT_EQ(files[1]["drawing"], nullptr);
  EXPECT_EQ(files[1]["extents"], nullptr);
  EXPECT_EQ(files[1]["encoding"], "UTF-8");
}

TEST(ToolInfo, CountsClassesThatItDoesNotKnow) {
  quorvan::test::writeFile("foreign.xml",
                           "<Document><CKtZantoSpiral/><CKtZantoSpiral/></Document>");
  const json file = json::parse(runTool({"info", "--json", "foreign.xml"}).out)["files"][0];
  EXPECT_EQ(file["classes"],
            json::parse(R"([{"class": "CKtZantoSpiral", "known": false, "count": 2}])"));
}

TEST(ToolInfo, TakesNoInstructionForAnElement) {
  quorvan::test::writeFile("instruction.xml",
                           "<Document><?CKtZantoLine x?><!-- c -->text<CKtZantoText/></Document>");
  const json file = json::parse(runTool({"info", "--json", "instruction.xml"}).out)["files"][0];
  EXPECT_EQ(file["elements"], 1);
  ASSERT_EQ(file["classes"].size(), 1U);
  EXPECT_EQ(file["classes"][0]["class"], "CKtZantoText");
}

TEST(ToolInfo, ShowsTheFirstRepartitionsAndWithAllTheRest) {
  const std::string sample = quorvan::test::sampleBytes();
  const std::size_t begin = sample.find("<CKtZantoRepartition ");
  const std::string end = "</CKtZantoRepartition>";
  const std::string one = sample.substr(begin, sample.find(end, begin) + end.size() - begin);
  std::string all;
  for (int i = 0; i < 25; ++i) {
    all += one;
  }
  quorvan::test::writeFile("series.xml", "<Document>" + all + "</Document>");
  const auto rows = [](const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find("(not there)", at)) != std::string::npos; ++at) {
      ++count;
    }
    return count;
  };
  const std::string first = runTool({"info", "series.xml"}).out;
  EXPECT_EQ(rows(first), 20U) << first;
  EXPECT_TRUE(first.ends_with("  and 5 more: --all shows them\n")) << first;
  const std::string whole = runTool({"info", "--all", "series.xml"}).out;
  EXPECT_EQ(rows(whole), 25U);
  EXPECT_EQ(whole.find("more: --all"), std::string::npos);
}

TEST(ToolInfo, NamesTheBarThatARepartitionDoesNotFind) {
  quorvan::test::writeFile(
      "lost.xml", quorvan::test::replaced(quorvan::test::sampleBytes(), R"(<Index long="1"/>)",
                                          R"(<Index long="-1"/>)"));
  const auto run = runTool({"info", "lost.xml"});
  EXPECT_NE(run.out.find("CKtZantoFrameRect -1 (not there)"), std::string::npos) << run.out;
}

TEST(ToolInfo, WarnsOfAFileInWhichReadersFindNothing) {
  quorvan::test::writeFile("comment.xml", "<!-- by hand --><Document><CKtZantoLine/></Document>");
  const auto run = runTool({"info", "comment.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "comment.xml: warning: \"#comment\" stands before the root element: programs that "
            "read this file find no element in it\n");
}

}  // namespace
