// The kinds of findings, what each says, and how it is told in words and as JSON.
#include <tools/check/finding.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/tools/drawn_elements.h>
#include <tests/tools/loaded_file.h>
#include <tests/tools/sample.h>
#include <tools/bvbs/checking/abs_findings.h>
#include <tools/check/checker.h>
#include <tools/check/report.h>
#include <tools/check/rules.h>

namespace quorvan::tool {

namespace {

using test::BarParts;
using test::replaced;

// "505 Diameter: 13; a standard size", and "[--repair]" where it can be mended.
std::vector<std::string> saidOf(const std::string& elements, bool hasControl = true) {
  const test::LoadedFile loaded(
      test::documentOf(elements + (hasControl ? test::controlOf("D") : "")));
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  std::vector<std::string> said;
  for (const Finding& one : checkFile(loaded.file(), europeanSizes(), console)) {
    said.push_back(std::to_string(one.kind->number) + (one.item.empty() ? "" : ' ' + one.item) +
                   ": " + one.found + "; " + one.expected +
                   (one.isRepairable() ? " [--repair]" : ""));
  }
  return said;
}

std::string barUnder(int index, double length, long mark = 1, double diameter = 10.0) {
  BarParts parts;
  parts.points = {{0, 100.0 * index, 0}, {length, 100.0 * index, 0}};
  parts.index = index;
  parts.mark = mark;
  parts.diameter = diameter;
  return barOf(parts);
}

const std::string kLine = test::lineOf({}, {1, 0, 0});

TEST(ToolFindings, SayWhatWasFoundAndWhatWasExpected) {
  struct Case {
    std::string elements;
    std::string said;
  };
  const std::string bar = barUnder(1, 1000);
  const Case cases[] = {
      {replaced(kLine, "version=\"1\"", "version=\"2\""),
       "105: version=\"2\"; version=\"1\" [--repair]"},
      {replaced(kLine, "version=\"1\" ", ""), "105: no version; version=\"1\" [--repair]"},
      {replaced(kLine, " index=\"1\"", ""), "401: no index; index=\"1\" [--repair]"},
      {replaced(kLine, "index=\"1\"", "index=\"x\""), "401: index=\"x\"; index=\"1\" [--repair]"},
      {replaced(kLine, "index=\"1\"", "index=\"5\""), "403: index=\"5\"; index=\"1\" [--repair]"},
      {kLine + kLine, "402: index=\"1\" a second time; index=\"2\" [--repair]"},
      {"<CKtZantoArc version=\"1\" index=\"1\"/>", "104: \"CKtZantoArc\"; a class of this format"},
      {"stray" + kLine, "106: \"stray\"; elements and comments alone [--repair]"},
      {replaced(bar, "double=\"10\"", "double=\"13\""),
       "505 Diameter: 13; a standard size, the nearest is 12"},
      {replaced(bar, "double=\"10\"", "double=\"15\""),
       "505 Diameter: 15; a standard size, the nearest is 14"},
      {replaced(bar, "double=\"10\"", "double=\"9.75\""),
       "505 Diameter: 9.75; a standard size, the nearest is 9.5"},
      {replaced(bar, "string=\"Ha\"", "string=\"H\uFFFD\""),
       "702 Adherence: \"H\uFFFD\"; a text without U+FFFD"},
      {replaced(bar, "string=\"Ha\"", "string=\"H\u0085\""),
       "703 Adherence: \"H\u0085\"; a text without U+007F to U+009F"},
      {barUnder(1, 1000) + barUnder(2, 2000),
       "502 Reference: straight bar, diameter 10, grade B500B, adherence Ha, length 2000; straight "
       "bar, diameter 10, grade B500B, adherence Ha, length 1000 as in CKtZantoStraightBar 1"},
  };
  for (const Case& one : cases) {
    const std::vector<std::string> said = saidOf(one.elements);
    ASSERT_EQ(said.size(), 1U) << one.said << (said.empty() ? "" : said.front());
    EXPECT_EQ(said.front(), one.said);
  }
}

TEST(ToolFindings, SayWhichSeriesIsWrongAndHow) {
  test::SeriesParts lost = test::uprightBars(0, 0, 1000, 3, 150);
  lost.index = 7;
  EXPECT_EQ(saidOf(barUnder(1, 1000) + seriesOf(lost)),
            (std::vector<std::string>{"503 Index: CKtZantoStraightBar 7, which is not there; the "
                                      "index of a CKtZantoStraightBar in the file"}));
  lost.className = "Line";
  EXPECT_EQ(
      saidOf(kLine + seriesOf(lost)),
      (std::vector<std::string>{"503 DefClassName: \"CKtZantoLine\"; the class of a bar or link"}));
  test::SeriesParts uneven = test::uprightBars(0, 0, 1000, 4, 150);
  uneven.bottom.pop_back();
  EXPECT_EQ(saidOf(barUnder(1, 1000) + seriesOf(uneven)),
            (std::vector<std::string>{"504 Positions: 4 top distances, 3 bottom distances, 3 "
                                      "positions; equal numbers, or one position fewer"}));
  EXPECT_EQ(
      saidOf(barUnder(1, 1000) + seriesOf(test::uprightBars(0, 0, 1000, 5, 0))),
      (std::vector<std::string>{"509 Positions: 5 bars with steps of 0; a step between bars"}));
}

TEST(ToolFindings, SayThatTheRecordIsMissingOrNotLast) {
  EXPECT_EQ(
      saidOf(kLine, false),
      (std::vector<std::string>{"601: none; CKtDrawingControl as the last element [--repair]"}));
  EXPECT_EQ(saidOf(test::controlOf("A") + kLine, false),
            (std::vector<std::string>{"602: 1 elements behind it; none"}));
}

TEST(ToolFindings, SayWhichBarLiesOnWhich) {
  BarParts parts;
  parts.points = {{0, 0, 0}, {1000, 0, 0}};
  const std::string first = barOf(parts);
  parts.index = 2;
  parts.points = {{1000, 0, 0}, {0, 0, 0}};
  EXPECT_EQ(
      saidOf(first + barOf(parts)),
      (std::vector<std::string>{"508: mark 1 at the place of CKtZantoStraightBar 1; one of them"}));
  parts.points = {{0, 0, 0}, {1000, 0, 0}};
  parts.isHidden = true;
  const std::string hidden = barOf(parts);
  EXPECT_EQ(saidOf(replaced(hidden, "index=\"2\"", "index=\"1\"") + hidden),
            (std::vector<std::string>{
                "501: the same items as CKtZantoStraightBar 1; one of them [--repair]"}));
}

// A number that was given once keeps its meaning; these are all of them.
TEST(ToolFindingKinds, HaveTheirNumbersInOrderAndSayHowToMend) {
  int last = 0;
  const auto look = [&last](const FindingKind& kind) {
    EXPECT_GT(kind.number, last);
    last = kind.number;
    EXPECT_FALSE(kind.title.empty());
    EXPECT_FALSE(kind.remedy.empty());
    EXPECT_FALSE(kind.remedy.ends_with('.')) << kind.number;
    EXPECT_FALSE(kind.title.ends_with('.')) << kind.number;
  };
  for (const FindingKind* const kind : findings::kAll) {
    look(*kind);
  }
  EXPECT_EQ(std::size(findings::kAll), 34U);
  EXPECT_LT(last, 800);
  for (const FindingKind* const kind : bvbs::findings::kAll) {
    look(*kind);
  }
  EXPECT_EQ(std::size(bvbs::findings::kAll), 24U);
  EXPECT_EQ(last, 924);
}

// The guide has a row for each kind of bending data, with its severity and its first word.
TEST(ToolFindingKinds, OfBendingDataStandInTheGuide) {
  const std::string guide = test::fileBytes(test::dataPath("../docs/tool.md"));
  for (const FindingKind* const kind : bvbs::findings::kAll) {
    const std::string row = "| " + std::to_string(kind->number) + " | " +
                            std::string(severityName(kind->severity)) + " | " +
                            std::string(kind->title.substr(0, kind->title.find(' ')));
    EXPECT_NE(guide.find(row), std::string::npos) << row;
  }
}

TEST(ToolFindingKinds, AreOfEveryItemProblem) {
  const std::pair<ProblemKind, int> kinds[] = {
      {ProblemKind::kMissing, 201},         {ProblemKind::kMistyped, 202},
      {ProblemKind::kNoNumber, 203},        {ProblemKind::kNoFlag, 204},
      {ProblemKind::kUnknownItem, 205},     {ProblemKind::kRepeatedItem, 206},
      {ProblemKind::kBlanks, 207},          {ProblemKind::kCountDisagrees, 301},
      {ProblemKind::kCountOutOfRange, 302}, {ProblemKind::kOddCount, 303},
      {ProblemKind::kNumericAdherence, 506}};
  for (const auto& [problem, number] : kinds) {
    EXPECT_EQ(findingKindOf(problem).number, number);
    ItemProblem one{};
    one.kind = problem;
    // What is an error is not read, so no rule looks at what it says.
    EXPECT_EQ(areWhole({one}), number > 203 && number != 301 && number != 302) << number;
  }
  EXPECT_TRUE(areWhole({}));
}

Finding findingAt(std::uint32_t line, std::uint32_t column, const FindingKind& kind,
                  const std::string& item = {}) {
  return {&kind, {line, column}, "CKtZantoLine", "3", item, "a", "b"};
}

TEST(ToolFindings, AreSortedByPlaceAndStayInOrderAtOne) {
  std::vector<Finding> all = {
      findingAt(2, 5, findings::kVersion, "first"), findingAt(10, 1, findings::kVersion, "second"),
      findingAt(2, 5, findings::kDiameter, "third"), findingAt(2, 4, findings::kVersion, "fourth"),
      findingAt(0, 0, findings::kVersion, "fifth")};
  sortByPlace(all);
  std::string order;
  for (const Finding& one : all) {
    order += one.item + ' ';
  }
  EXPECT_EQ(order, "fifth fourth first third second ");
}

std::string printedFindings(const FileFindings& result) {
  std::ostringstream out;
  printFindings(result, out);
  return out.str();
}

TEST(ToolFindingText, TellsOneFindingInThreeLinesAndCountsThem) {
  FileFindings result{"a.xml"};
  EXPECT_EQ(printedFindings(result), "a.xml: no findings\n");
  result.findings.push_back(findingAt(7, 2, findings::kDiameter, "Diameter"));
  EXPECT_EQ(printedFindings(result),
            "a.xml:7:2: warning 505: diameter that is no standard size: CKtZantoLine 3, Diameter\n"
            "    found a; expected b\n"
            "    to mend: correct the diameter in the producing program, or name your sizes with "
            "--diameters\n"
            "a.xml: 0 errors, 1 warning, 0 notes\n");
  Finding bare{&findings::kUnreadable, {}, {}, {}, {}, "", "a file"};
  bare.mend.kind = Mend::Kind::kRemove;
  result.findings = {bare, bare};
  EXPECT_EQ(printedFindings(result).substr(0, printedFindings(result).find("    to mend")),
            "a.xml: error 107: file that cannot be read\n    found nothing; expected a file\n");
  EXPECT_NE(printedFindings(result).find("right to read [--repair]\n"), std::string::npos);
  EXPECT_TRUE(printedFindings(result).ends_with("a.xml: 2 errors, 0 warnings, 0 notes\n"));
}

TEST(ToolFindingText, ShowsWhatCouldSteerATerminal) {
  FileFindings result{"a\nb.xml"};
  Finding one = findingAt(1, 1, findings::kDiameter, "D\x1b[2J");
  one.found = "\u202e";
  result.findings.push_back(one);
  const std::string text = printedFindings(result);
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_EQ(text.find("\u202e"), std::string::npos);
  EXPECT_TRUE(text.starts_with("a\\nb.xml:1:1: ")) << text;
}

TEST(ToolFindingText, NamesTheRulesThatWereNotChecked) {
  FileFindings result{"a.xml"};
  result.notChecked = {NotChecked{&findings::kDiameter, "no sizes"}};
  EXPECT_EQ(printedFindings(result),
            "a.xml: not checked 505 (diameter that is no standard size): no sizes\n"
            "a.xml: no findings\n");
}

// A rule of detailing has its own remedy, and numbers in thousandths.
TEST(ToolFindingJson, HasWhatIsKnownOfAFinding) {
  Finding one = findingAt(0, 0, findings::kDiameter, "Diameter");
  FileFindings result{"a.xml", {one}};
  one.position = {4, 9};
  one.breach = Breach{"8.3", 12.34567, 16.0004, "bend wider"};
  result.findings.push_back(one);
  std::ostringstream out;
  writeFindingsJson({result, FileFindings{"b.xml"}}, out);
  const nlohmann::json files = nlohmann::json::parse(out.str())["files"];
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0]["warnings"], 2);
  EXPECT_EQ(files[0]["errors"], 0);
  EXPECT_FALSE(files[0].contains("notChecked"));
  const nlohmann::json& unplaced = files[0]["findings"][0];
  EXPECT_TRUE(unplaced["line"].is_null());
  EXPECT_TRUE(unplaced["column"].is_null());
  EXPECT_FALSE(unplaced.contains("clause"));
  EXPECT_EQ(unplaced["remedy"], findings::kDiameter.remedy);
  const nlohmann::json& breach = files[0]["findings"][1];
  EXPECT_EQ(breach["number"], 2);
  EXPECT_EQ(breach["line"], 4);
  EXPECT_EQ(breach["value"].dump(), "12.346");
  EXPECT_EQ(breach["limit"].dump(), "16");
  EXPECT_EQ(breach["remedy"], "bend wider");
  EXPECT_EQ(files[1]["findings"], nlohmann::json::array());
}

TEST(ToolFindingUri, KeepsWhatAUriMayHaveAndEscapesTheRest) {
  const std::pair<const char*, const char*> cases[] = {
      {"a.xml", "a.xml"},         {"job/a-b_c~1.xml", "job/a-b_c~1.xml"},
      {"a b.xml", "a%20b.xml"},   {"a#1?.xml", "a%231%3F.xml"},
      {"100%.xml", "100%25.xml"}, {"\u00e9.xml", "%C3%A9.xml"},
      {"x:y.xml", "x%3Ay.xml"},   {"", ""}};
  for (const auto& [file, uri] : cases) {
    EXPECT_EQ(uriOf(file), uri);
  }
}

}  // namespace

}  // namespace quorvan::tool
