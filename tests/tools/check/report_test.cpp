// Findings as SARIF, and what a run of rules says.
#include <tools/check/report.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <set>

#include <tests/support/saved_file.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using nlohmann::json;
using quorvan::test::replaced;
using quorvan::test::runTool;
using quorvan::test::sampleBytes;
using quorvan::test::ToolRun;
using quorvan::test::writeFile;

// The sample with a diameter that is not made and a newer mesh.
std::string faultySample() {
  return replaced(replaced(sampleBytes(), R"(<Diameter double="12.0000000"/>)",
                           R"(<Diameter double="13.0000000"/>)"),
                  R"(<CKtZantoMesh version="1")", R"(<CKtZantoMesh version="2")");
}

json sarifOf(const std::vector<std::string>& arguments) {
  std::vector<std::string> all{"check", "--sarif"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return json::parse(runTool(all).out);
}

TEST(ToolCheckSarif, IsALogOfOneRunOfThisProgram) {
  writeFile("faulty.xml", faultySample());
  const json log = sarifOf({"faulty.xml"});
  EXPECT_EQ(log["version"], "2.1.0");
  EXPECT_EQ(log["$schema"], "https://json.schemastore.org/sarif-2.1.0.json");
  ASSERT_EQ(log["runs"].size(), 1U);
  const json& run = log["runs"][0];
  EXPECT_EQ(run["tool"]["driver"]["name"], "quorvan check");
  EXPECT_EQ(run["tool"]["driver"]["version"], QUORVAN_VERSION);
  EXPECT_EQ(run["columnKind"], "unicodeCodePoints");
  EXPECT_EQ(run["invocations"][0]["executionSuccessful"], true);
}

TEST(ToolCheckSarif, HasEachFindingWithItsRuleLevelAndPlace) {
  writeFile("faulty.xml", faultySample());
  const json run = sarifOf({"faulty.xml"})["runs"][0];
  ASSERT_EQ(run["results"].size(), 2U);
  const json& result = run["results"][1];
  EXPECT_EQ(result["ruleId"], "505");
  EXPECT_EQ(result["level"], "warning");
  EXPECT_EQ(result["message"]["text"],
            "diameter that is no standard size: found 13; expected a standard size, the nearest is "
            "12. To mend: correct the diameter in the producing program, or name your sizes with "
            "--diameters.");
  const json& place = result["locations"][0];
  EXPECT_EQ(place["physicalLocation"]["artifactLocation"]["uri"], "faulty.xml");
  const auto expected = quorvan::test::placeOf(faultySample(), "<Diameter double=\"13");
  EXPECT_EQ(place["physicalLocation"]["region"],
            (json{{"startLine", expected.line}, {"startColumn", expected.column}}));
  EXPECT_EQ(place["logicalLocations"][0]["fullyQualifiedName"], "CKtZantoLBar 1, Diameter");
  EXPECT_EQ(run["results"][0]["level"], "note");
}

TEST(ToolCheckSarif, HasTheRulesOfItsResultsAtTheirPlaces) {
  writeFile("faulty.xml", faultySample());
  writeFile("broken.xml", "<Document>");
  const json run = sarifOf({"broken.xml", "faulty.xml", "missing.xml"})["runs"][0];
  const json& rules = run["tool"]["driver"]["rules"];
  std::set<std::string> ids;
  for (const json& rule : rules) {
    EXPECT_TRUE(ids.insert(rule["id"]).second);
    EXPECT_NE(rule["shortDescription"]["text"], "");
    EXPECT_NE(rule["help"]["text"], "");
  }
  EXPECT_EQ(ids, (std::set<std::string>{"101", "105", "107", "505"}));
  for (const json& result : run["results"]) {
    const json& rule = rules.at(result["ruleIndex"].get<std::size_t>());
    EXPECT_EQ(rule["id"], result["ruleId"]);
    EXPECT_EQ(rule["defaultConfiguration"]["level"], result["level"]);
  }
}

TEST(ToolCheckSarif, HasNoRegionWhereThereIsNoPlace) {
  const json run = sarifOf({"missing.xml"})["runs"][0];
  ASSERT_EQ(run["results"].size(), 1U);
  EXPECT_FALSE(run["results"][0]["locations"][0]["physicalLocation"].contains("region"));
  EXPECT_FALSE(run["results"][0]["locations"][0].contains("logicalLocations"));
}

TEST(ToolCheckSarif, OfACleanFileHasNoResults) {
  quorvan::test::writeSample();
  const ToolRun run = runTool({"check", "--sarif", "sample.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(json::parse(run.out)["runs"][0]["results"], json::array());
}

TEST(ToolCheckSarif, HasRulesThatWereNotCheckedAsNotifications) {
  quorvan::test::writeSample();
  const json run = sarifOf({"sample.xml", "--rules", "ec2"})["runs"][0];
  const json& notes = run["invocations"][0]["toolExecutionNotifications"];
  const auto roller = std::ranges::find_if(
      notes, [](const json& note) { return note["associatedRule"]["id"] == "805"; });
  ASSERT_NE(roller, notes.end());
  EXPECT_EQ((*roller)["message"]["text"],
            "not checked: roller that is too small: the roller is not in the file: --mandrel says "
            "it");
  EXPECT_EQ((*roller)["level"], "note");
}

TEST(ToolCheckSarif, GoesToAFile) {
  writeFile("faulty.xml", faultySample());
  const ToolRun run = runTool({"check", "--sarif", "-o", "out.sarif", "faulty.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(quorvan::test::fileBytes("out.sarif"), runTool({"check", "--sarif", "faulty.xml"}).out);
  EXPECT_EQ(runTool({"check", "--sarif", "-o", "faulty.xml", "faulty.xml"}).status, 2);
  EXPECT_EQ(runTool({"check", "-o", "out.txt", "faulty.xml"}).status, 2);
}

TEST(ToolCheckSarif, NamesFilesAsReferences) {
  using quorvan::tool::uriOf;
  EXPECT_EQ(uriOf("job/beam-1.xml"), "job/beam-1.xml");
  EXPECT_EQ(uriOf("a b#1%.xml"), "a%20b%231%25.xml");
  EXPECT_EQ(uriOf("c:d.xml"), "c%3Ad.xml");
  EXPECT_EQ(uriOf("\u00E9.xml"), "%C3%A9.xml");
#ifdef _WIN32
  EXPECT_EQ(uriOf("C:\\job\\a.xml"), "file:///C:/job/a.xml");
#else
  EXPECT_EQ(uriOf("/job/a.xml"), "file:///job/a.xml");
#endif
}

TEST(ToolCheckRules, AreListedWhereTheyAreNotChecked) {
  quorvan::test::writeSample();
  const ToolRun run = runTool({"check", "--rules", "bs8666", "sample.xml"});
  EXPECT_NE(run.out.find("sample.xml: not checked 801 (end of a link that is too short behind its "
                         "bend): a rule of Eurocode 2: --rules ec2\n"),
            std::string::npos)
      << run.out;
  EXPECT_EQ(runTool({"check", "sample.xml"}).out, "sample.xml: no findings\n");
}

TEST(ToolCheckRules, CountAsWarnings) {
  quorvan::test::writeSample();
  const ToolRun run =
      runTool({"check", "--rules", "ec2", "--stock", "0.2", "--json", "sample.xml"});
  EXPECT_EQ(run.status, 1);
  const json file = json::parse(run.out)["files"][0];
  EXPECT_GT(file["warnings"], 0);
  const json& finding = file["findings"][0];
  EXPECT_EQ(finding["code"], 804);
  EXPECT_EQ(finding["limit"], 200);
  EXPECT_EQ(finding["clause"], "length of the stock");
  EXPECT_EQ(runTool({"check", "--stock", "0.2", "sample.xml"}).status, 2) << "without rules";
  EXPECT_EQ(runTool({"check", "--rules", "ec3", "sample.xml"}).status, 2);
  EXPECT_EQ(runTool({"check", "--rules", "ec2", "--stock", "12000", "sample.xml"}).status, 2);
  EXPECT_EQ(runTool({"check", "--rules", "ec2", "--mandrel", "4x", "sample.xml"}).status, 2);
}

// Options of one value leave the names behind them to be files.
TEST(ToolCheckRules, LeaveTheFilesBehindThem) {
  quorvan::test::writeSample();
  for (const char* const option : {"--rules=ec2,bs8666", "--diameters=8,10,12,14,16,20"}) {
    const ToolRun run = runTool({"check", "--json", option, "sample.xml", "sample.xml"});
    EXPECT_EQ(json::parse(run.out)["files"].size(), 2U) << option;
  }
  const ToolRun run = runTool({"check", "--json", "--rules", "ec2", "sample.xml", "sample.xml"});
  EXPECT_EQ(json::parse(run.out)["files"].size(), 2U);
}

}  // namespace
