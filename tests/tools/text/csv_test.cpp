#include <gtest/gtest.h>

#include <random>

#include <tools/text/csv.h>

namespace {

using quorvan::tool::CsvFields;
using quorvan::tool::csvLine;

// Takes a line apart after the rules of the format, independently of the writer.
std::vector<std::string> csvFields(const std::string& line) {
  std::vector<std::string> fields(1);
  bool isQuoted = false;
  for (std::size_t at = 0; at + 1 < line.size(); ++at) {
    const char unit = line[at];
    if (unit == '"' && isQuoted && line[at + 1] == '"') {
      fields.back() += line[++at];
    } else if (unit == '"') {
      isQuoted = !isQuoted;
    } else if (unit == ',' && !isQuoted) {
      fields.emplace_back();
    } else {
      fields.back() += unit;
    }
  }
  return fields;
}

TEST(ToolCsv, PartsFieldsByCommasAndEndsTheLine) {
  EXPECT_EQ(csvLine({"a", "b", "c"}), "a,b,c\n");
  EXPECT_EQ(csvLine({"a"}), "a\n");
}

TEST(ToolCsv, KeepsEmptyFields) {
  EXPECT_EQ(csvLine({"", "", ""}), ",,\n");
  EXPECT_EQ(csvLine({"", "x"}), ",x\n");
  EXPECT_EQ(csvLine({}), "\n");
}

TEST(ToolCsv, QuotesOnlyWhatWouldBeMisread) {
  EXPECT_EQ(csvLine({"a,b"}), "\"a,b\"\n");
  EXPECT_EQ(csvLine({"a\nb"}), "\"a\nb\"\n");
  EXPECT_EQ(csvLine({"a\rb"}), "\"a\rb\"\n");
  EXPECT_EQ(csvLine({"12\" bar"}), "\"12\"\" bar\"\n");
  EXPECT_EQ(csvLine({"\""}), "\"\"\"\"\n");
  EXPECT_EQ(csvLine({"a b;c\td'e"}), "a b;c\td'e\n");
}

TEST(ToolCsv, PartsFieldsByTheSeparatorThatIsAskedFor) {
  EXPECT_EQ(csvLine({"a,b", "c;d"}, {.separator = ';'}), "a,b;\"c;d\"\n");
}

TEST(ToolCsv, GuardsWhatASpreadsheetTakesForAFormula) {
  EXPECT_EQ(csvLine({"=1+1", "+x", "-x", "@x", "\tx", "=a,b"}),
            "'=1+1,'+x,'-x,'@x,'\tx,\"'=a,b\"\n");
  EXPECT_EQ(csvLine({"-1.5", "-1e9", "x=1", "(1, 2)"}), "-1.5,-1e9,x=1,\"(1, 2)\"\n");
  EXPECT_EQ(csvLine({"  =1+1", " \n@x", " -1", " x", " "}), "'  =1+1,\"' \n@x\", -1, x, \n");
  EXPECT_EQ(csvLine({"-inf", "-nan(x)", "+infinity"}), "'-inf,'-nan(x),'+infinity\n");
  EXPECT_EQ(csvLine({"-1,5", "-1.5"}, {.separator = ';', .decimalMark = ','}), "-1,5;-1.5\n");
}

TEST(ToolCsv, WritesOutWhatSteersATerminalWhereItIsShownOnOne) {
  EXPECT_EQ(csvLine({"\x1B[2J", "\u202E\u00E9", "a\nb"}, {.isShown = true}),
            "\\u001b[2J,\\u202e\u00E9,a\\nb\n");
  EXPECT_EQ(csvLine({"\x1B[2J"}), "\x1B[2J\n");
}

TEST(ToolCsv, LeavesRawFieldsAlone) {
  EXPECT_EQ(csvLine({"=1+1", "\"@\""}, {.fields = CsvFields::kRaw}), "=1+1,\"\"\"@\"\"\"\n");
}

TEST(ToolCsv, LeavesTextOfAnyScriptAsItIs) {
  EXPECT_EQ(csvLine({"\u00E9\u20AC", "\u05D0\u05D1,\u05D2"}),
            "\u00E9\u20AC,\"\u05D0\u05D1,\u05D2\"\n");
}

TEST(ToolCsv, ReadsBackAsTheFieldsThatWereWritten) {
  constexpr std::string_view kUnits = "ab,,\"\"\n\r ;\xC3\xA9";
  std::mt19937 random(1);
  const auto upTo = [&random](std::size_t most) { return random() % (most + 1); };
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::string> fields(1 + upTo(4));
    for (std::string& field : fields) {
      for (std::size_t length = upTo(6); length > 0; --length) {
        field += kUnits[upTo(kUnits.size() - 1)];
      }
    }
    const std::string line = csvLine(fields, {.fields = CsvFields::kRaw});
    ASSERT_EQ(csvFields(line), fields) << line;
  }
}

}  // namespace
