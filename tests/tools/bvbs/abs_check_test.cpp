// Faults seeded into bending data, and where `quorvan check` finds them.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>
#include <tools/bvbs/checking/abs_checker.h>
#include <tools/bvbs/checking/abs_findings.h>
#include <tools/bvbs/record_kind.h>

namespace {

using nlohmann::json;
using quorvan::test::Place;
using quorvan::test::replaced;
using quorvan::test::runTool;
using quorvan::test::writeFile;
using quorvan::tool::Finding;
using quorvan::tool::Severity;
using quorvan::tool::bvbs::checkBendingData;
using quorvan::tool::bvbs::checksumOf;

// Bent in the plane, an arc, in space, a mesh. The checksums are put in by `sealed`.
const std::string kData =
    "BF2D@HjB12@r12@i@p4@l1800@n6@e1.598@d12@gB500B@s48@v@Gl600@w90@l1200@w0@C@\r\n"
    "BF2D@HjB12@r12@i@p7@l1657@n10@e1.022@d10@gB500B@s40@v@Gr200@w474.7@w0@C@\r\n"
    "BF3D@HjB12@r12@i@p8@l1200@n2@e1.894@d16@gB500B@s64@v@Gx300@y0@z0@x0@y600@z0@x0@y0@z300@C@\r\n"
    "BFMA@HjB12@r12@i@p9@l6000@n3@e@gB500A@s@mST 25 C@b2400@v@Yd6@x0@y100@l6000@e150,16@C@\r\n";

// The right checksum for every line that ends in an empty one.
std::string sealed(const std::string& data) {
  std::string result;
  std::size_t begin = 0;
  while (begin < data.size()) {
    const std::size_t end = std::min(data.find('\n', begin), data.size() - 1) + 1;
    std::string line = data.substr(begin, end - begin);
    const std::size_t seal = line.find("@C@\r");
    if (seal != std::string::npos) {
      line.insert(seal + 2, std::to_string(checksumOf(line.substr(0, seal + 2))));
    }
    result += line;
    begin = end;
  }
  return result;
}

struct SeededRecordFault {
  int code;
  std::string severity;
  std::string from;
  std::string to;
  std::string mark;  // where the finding is to be; the 1001st column of line 1 where empty
  std::string item = {};
  bool isSealedBefore = false;
};

void PrintTo(const SeededRecordFault& fault, std::ostream* out) {
  *out << fault.code << ": " << fault.to.substr(0, 40);
}

const SeededRecordFault kFaults[] = {
    {901, "error", "BF2D@HjB12@r12@i@p4", "BX2D@HjB12@r12@i@p4", "BX2D"},
    {901, "error", "BF3D@H", "BF3DH", "BF3DH"},
    {902, "error", "@HjB12@r12@i@p8", "@jB12@r12@i@p8", "jB12@r12@i@p8"},
    {903, "error", "p4@l1800", "p4@@l1800", "@l1800"},
    {903, "error", "p8@l1200", "p8@1200", "1200@n2"},
    {904, "error", "C72@\r\n", "C72\r\n", "\r\n", "", true},
    {905, "error", "@Gl600", "@PnX@Gl600", "Gl600", "G"},
    {905, "error", "@v@Gr200", "@v@HjB@Gr200", "HjB@Gr200", "H"},
    {905, "error", "@v@Gx300", "@v@Mx@Gx300", "Gx300", "G"},
    {905, "error", "@v@Yd6", "@v@PnX@Yd6", "Yd6", "Y"},
    {906, "error", "@v@Gx300", "@v@Zx1@Gx300", "Zx1", "Z"},
    {907, "error", "HjB12@r12@i@p8@l1200@n2@e1.894@d16@gB500B@s64@v@G", "G", "BF3D", "H"},
    {907, "error", "@w0@C72@\r\n", "@w0@\r\n", "BF2D", "C", true},
    {908, "error", "p4@l1800", "l1800@p4", "p4", "H p"},
    {908, "error", "n6@", "n6@n6@", "n6@e", "H n"},
    {909, "warning", "s48@v@", "s48@m5@v@", "m5", "H m"},
    {909, "warning", "s64@v@", "s64@v@a1@", "a1", "H a"},
    {910, "note", "s48@v@", "s48@", "HjB12", "H v"},
    {910, "note", "r12@i@p7", "r12@p7", "HjB12@r12@p7", "H i"},
    {911, "error", "l1800", "lxyz", "lxyz", "H l"},
    {911, "error", "n6@", "n6.5@", "n6.5", "H n"},
    {911, "error", "d12@", "d1.2.3@", "d1.2.3", "H d"},
    {911, "error", "C72@", "Cab@", "Cab", "C", true},
    {911, "error", "w474.7", "w4x", "w4x", "G w"},
    {911, "error", "y600", "y6e2", "y6e2", "G y"},
    {911, "error", "x0@y100", "x0@yy", "yy", "Y y"},
    {912, "note", "e1.598", "e1,598", "e1,598", "H e"},
    {912, "note", "w474.7", "w474,7", "w474,7", "G w"},
    {913, "note", "l1657", "l1657.5", "l1657.5", "H l"},
    {914, "error", "n6@", "n0@", "n0", "H n"},
    {914, "error", "d12@", "d-12@", "d-12", "H d"},
    {914, "error", "Gl600", "Gl0", "l0", "G l"},
    {914, "error", "y100", "y-100", "y-100", "Y y"},
    {915, "error", "C72@", "C73@", "C73", "C", true},
    {915, "error", "B500B@s48", "B500C@s48", "C72", "C", true},
    {916, "error", "l600@w90@l1200", "l600@l1200", "l600", "G l"},
    {916, "error", "l1200@w0@", "l1200@w45@", "w45", "G w"},
    {916, "error", "Gl600@w90@", "Gl600@w90@q1@", "q1", "G q"},
    {916, "error", "Gl600", "Gw10@l600", "w10", "G w"},
    {916, "error", "x0@y600", "y600@x0", "y600", "G y"},
    {916, "error", "y0@z300", "y0", "y0@C", "G y"},
    {917, "warning", "r200@w474.7", "r15@w6329.33", "r15", "G r"},
    {918, "warning", "l600@w90@l1200", "l25@w90@l1775", "l25", "G l"},
    {918, "warning", "Gx300", "Gx30", "x30@", "G x"},
    {919, "warning", "l1800", "l1850", "l1850", "H l"},
    {919, "warning", "l1200@n2", "l1300@n2", "l1300", "H l"},
    {919, "warning", "w474.7", "w484.7", "l1657", "H l"},
    {920, "warning", "e1.598", "e15.98", "e15.98", "H e"},
    {920, "warning", "e1.894", "e1.094", "e1.094", "H e"},
    {921, "note", "jB12@r12@i@p4", "j" + std::string(1000, 'x') + "@r12@i@p4", ""},
    {922, "note", "B12@r12@i@p4", "B\xE9@r12@i@p4", "\xE9"},
    {923, "note", "\r\n", "\n", "\n", "", true},
    {924, "error", "", "", ""},
};

std::string dataWith(const SeededRecordFault& fault) {
  if (fault.code == 924) {
    return {};
  }
  return fault.isSealedBefore ? replaced(sealed(kData), fault.from, fault.to)
                              : sealed(replaced(kData, fault.from, fault.to));
}

Place placeIn(const SeededRecordFault& fault, const std::string& data) {
  if (fault.code == 924) {
    return {1, 1};
  }
  return fault.mark.empty() ? Place{1, 1001} : quorvan::test::placeOf(data, fault.mark);
}

class BendingCheckSeeded : public testing::TestWithParam<SeededRecordFault> {};

TEST_P(BendingCheckSeeded, IsFoundWhereItWasSeeded) {
  const SeededRecordFault& fault = GetParam();
  const std::string data = dataWith(fault);
  std::vector<Finding> found;
  for (Finding& one : checkBendingData(data)) {
    if (one.kind->number == fault.code) {
      found.push_back(std::move(one));
    }
  }
  ASSERT_EQ(found.size(), 1U);
  const Place place{found[0].position.line, found[0].position.column};
  EXPECT_EQ(place, placeIn(fault, data));
  EXPECT_EQ(quorvan::tool::severityName(found[0].kind->severity), fault.severity);
  EXPECT_EQ(found[0].item, fault.item);
}

INSTANTIATE_TEST_SUITE_P(EveryFault, BendingCheckSeeded, testing::ValuesIn(kFaults));

TEST(BendingCheck, HasASeededFaultForEachKindOfFinding) {
  std::set<int> seeded;
  for (const SeededRecordFault& fault : kFaults) {
    seeded.insert(fault.code);
  }
  for (const auto* const kind : quorvan::tool::bvbs::findings::kAll) {
    EXPECT_TRUE(seeded.contains(kind->number)) << kind->number;
  }
  EXPECT_GE(std::size(kFaults), 40U);
}

TEST(BendingCheck, FindsNothingInWhatIsRight) {
  const auto found = checkBendingData(sealed(kData));
  EXPECT_TRUE(found.empty()) << found.front().kind->number << found.front().found;
}

// Both readings of the length in a header; between them is neither.
TEST(BendingCheck, TakesALengthByEitherReading) {
  const auto codes = [](const std::string& length, const std::string& mass) {
    std::set<int> numbers;
    for (const Finding& one :
         checkBendingData(sealed(replaced(replaced(kData, "l1800", length), "e1.598", mass)))) {
      numbers.insert(one.kind->number);
    }
    return numbers;
  };
  EXPECT_EQ(codes("l1800", "e1.598"), std::set<int>());
  EXPECT_EQ(codes("l1775", "e1.576"), std::set<int>());
  EXPECT_EQ(codes("l1788", "e1.587"), std::set<int>{919});
  EXPECT_EQ(codes("l1803", "e1.601"), std::set<int>());
  EXPECT_EQ(codes("l1804", "e1.602"), std::set<int>{919});
}

// 12 mm over a roller of 48: a right angle takes 36 of a leg, and a millimetre may be rounded away.
TEST(BendingCheck, KnowsTheShortestLegThatARollerBends) {
  const auto isTooShort = [](const std::string& legs) {
    for (const Finding& one : checkBendingData(sealed(replaced(kData, "l600@w90@l1200", legs)))) {
      if (one.kind->number == 918) {
        return true;
      }
    }
    return false;
  };
  EXPECT_FALSE(isTooShort("l35@w90@l1765"));
  EXPECT_TRUE(isTooShort("l34@w90@l1766"));
}

TEST(BendingCheck, KnowsTheSmallestRadiusOfARoller) {
  const auto numbersOf = [](const std::string& arc) {
    std::set<int> numbers;
    for (const Finding& one : checkBendingData(sealed(replaced(kData, "r200@w474.7", arc)))) {
      numbers.insert(one.kind->number);
    }
    return numbers;
  };
  EXPECT_EQ(numbersOf("r20@w4747"), std::set<int>());
  EXPECT_EQ(numbersOf("r19@w4996.84"), std::set<int>{917});
}

// Turning over any bit of the first record that its checksum can see is an error.
TEST(BendingCheck, FindsEveryBitThatAChecksumSees) {
  const std::string data = sealed(kData);
  const std::string line = data.substr(0, data.find('\r'));
  const std::size_t end = line.rfind('C');
  for (std::size_t at = 0; at < end; ++at) {
    for (int bit = 0; bit < 5; ++bit) {
      std::string turned = line;
      turned[at] = static_cast<char>(turned[at] ^ (1 << bit));
      const auto found = checkBendingData(turned);
      EXPECT_TRUE(std::ranges::any_of(found, [](const Finding& one) {
        return one.kind->severity == Severity::kError;
      })) << turned;
    }
  }
}

TEST(BendingCheck, FindsEveryRecordThatIsCutShort) {
  const std::string data = sealed(kData);
  const std::string line = data.substr(0, data.find('\r'));
  for (std::size_t length = 1; length < line.size(); ++length) {
    EXPECT_FALSE(checkBendingData(line.substr(0, length)).empty()) << length;
  }
}

TEST(BendingCheck, TakesLatinTextAndBarsOfAMeshInAnyOrder) {
  const std::string mesh =
      "BFMA@Hj@r@i@p1@l6000@n1@e@g@s@m@b2400@v@Yd6@x0@y0@l1@e1,1@Xd6@x0@y0@l1@e1,1@Yd6d@x0@y0@l1@e"
      "150,16;100,2@C@\r\n";
  EXPECT_TRUE(checkBendingData(sealed(mesh)).empty());
}

TEST(ToolCheckBendingData, SaysItsFindingsWithTheirPlaces) {
  writeFile("job.abs", replaced(sealed(kData), "e1.598@", "e1.599@"));
  const auto run = runTool({"check", "job.abs"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out,
            "job.abs:1:73: error 915: checksum that does not fit: BF2D 4, C\n"
            "    found 72; expected 71\n"
            "    to mend: look for what was changed, or write the record again: readers refuse it\n"
            "job.abs: 1 error, 0 warnings, 0 notes\n");
}

TEST(ToolCheckBendingData, GivesJsonAndExitCodesAsForDrawings) {
  writeFile("right.abs", sealed(kData));
  EXPECT_EQ(runTool({"check", "right.abs"}).status, 0);
  writeFile("noted.abs", sealed(replaced(kData, "e1.598", "e1,598")));
  EXPECT_EQ(runTool({"check", "noted.abs"}).status, 0);
  writeFile("warned.abs", sealed(replaced(kData, "e1.598", "e2.598")));
  const auto run = runTool({"check", "--json", "warned.abs"});
  EXPECT_EQ(run.status, 1);
  const json finding = json::parse(run.out)["files"][0]["findings"][0];
  EXPECT_EQ(finding["code"], 920);
  EXPECT_EQ(finding["class"], "BF2D");
  EXPECT_EQ(finding["index"], "4");
  EXPECT_EQ(finding["item"], "H e");
  EXPECT_EQ(finding["line"], 1);
}

TEST(ToolCheckBendingData, IsNotRepaired) {
  writeFile("job.abs", sealed(kData));
  EXPECT_EQ(runTool({"check", "job.abs", "--repair", "-o", "mended.abs"}).status, 2);
  EXPECT_EQ(runTool({"check", "missing.abs"}).status, 2);
}

TEST(ToolDrawBendingData, PutsEachShapeOnTheSheet) {
  writeFile("job.abs", sealed(kData));
  const auto run = runTool({"draw", "job.abs", "-o", "job.svg"});
  EXPECT_EQ(run.status, 0) << run.err;
  const std::string svg = quorvan::test::fileBytes("job.svg");
  for (const char* const text : {"mark 4, \u00D8 12, n 6, l 1800", ">600<", ">1200<", "mark 7",
                                 "r 200, 474.7\u00B0", "mark 8", ">300<", "6000 \u00D7 2400"}) {
    EXPECT_NE(svg.find(text), std::string::npos) << text;
  }
}

TEST(ToolDrawBendingData, LeavesOutWhatCannotBeRead) {
  writeFile("job.abs", sealed(replaced(kData, "BF3D", "BX3D")));
  const auto run = runTool({"draw", "job.abs", "-o", "job.svg"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.err.find("job.abs:3:1: warning: "), std::string::npos) << run.err;
  writeFile("none.abs", "nothing\r\n");
  EXPECT_EQ(runTool({"draw", "none.abs", "-o", "none.svg"}).status, 2);
  EXPECT_EQ(runTool({"draw", "job.abs", "-o", "job.html"}).status, 2);
}

}  // namespace
