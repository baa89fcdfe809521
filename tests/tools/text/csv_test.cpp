#include <gtest/gtest.h>

#include <tools/text/csv.h>

namespace {

using quorvan::tool::CsvFields;
using quorvan::tool::csvLine;

TEST(ToolCsv, PutsQuotesAroundWhatNeedsThem) {
  EXPECT_EQ(csvLine({"a", "b,c", "d\"e", ""}), "a,\"b,c\",\"d\"\"e\",\n");
}

TEST(ToolCsv, GuardsWhatASpreadsheetTakesForAFormula) {
  EXPECT_EQ(csvLine({"=1+1", "+x", "-x", "@x", "\tx", "=a,b"}),
            "'=1+1,'+x,'-x,'@x,'\tx,\"'=a,b\"\n");
  EXPECT_EQ(csvLine({"-1.5", "-1e9", "x=1", "(1, 2)"}), "-1.5,-1e9,x=1,\"(1, 2)\"\n");
}

TEST(ToolCsv, LeavesRawFieldsAlone) {
  EXPECT_EQ(csvLine({"=1+1", "\"@\""}, CsvFields::kRaw), "=1+1,\"\"\"@\"\"\"\n");
}

}  // namespace
