#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using nlohmann::json;
using quorvan::test::runTool;

class ToolList : public testing::Test {
 protected:
  ToolList() { quorvan::test::writeSample(); }
};

TEST_F(ToolList, ShowsTheSampleInTablesAsPinned) {
  const auto run = runTool({"list", "sample.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  quorvan::test::expectGolden("list.txt", run.out);
}

TEST_F(ToolList, GivesALineAnItemAsCsv) {
  quorvan::test::expectGolden("list.csv", runTool({"list", "sample.xml", "--csv"}).out);
}

TEST_F(ToolList, GivesALineAnElementAsCsvForOneClass) {
  EXPECT_EQ(runTool({"list", "sample.xml", "CKtZantoCircle", "--csv"}).out,
            "index,Center.X,Center.Y,Center.Z,Radius,Color\n"
            "1,4500,200,0,125.5,3\n");
}

TEST_F(ToolList, QuotesTextsInCsv) {
  const auto run = runTool({"list", "sample.xml", "text", "--csv"});
  EXPECT_NE(run.out.find("1,\"Poutre \"\"B1\"\" – élévation <ø>, 15 €\",0,700,0,0,0,0,7,80\n"),
            std::string::npos)
      << run.out;
}

TEST_F(ToolList, ShowsOneClassByItsShortName) {
  EXPECT_EQ(runTool({"list", "sample.xml", "circle"}).out,
            "CKtZantoCircle\n"
            "  index  Center        Radius  Color\n"
            "      1  4500, 200, 0   125.5      3\n");
}

TEST_F(ToolList, RefusesAClassThatThereIsNot) {
  const auto run = runTool({"list", "sample.xml", "Spiral"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err.find("quorvan: \"Spiral\" is not an element class; there are Line, Circle, "),
            0U)
      << run.err;
}

TEST_F(ToolList, GivesTheDrawingJsonAsPinned) {
  quorvan::test::expectGolden("list.json", runTool({"list", "--json", "sample.xml"}).out);
}

TEST_F(ToolList, LeavesMissingItemsOutOfTheJson) {
  quorvan::test::writeFile("short.xml",
                           R"(<Document><CKtZantoLine index="1"><Color long="5"/></CKtZantoLine>)"
                           R"(</Document>)");
  EXPECT_EQ(runTool({"list", "--json", "short.xml"}).out,
            "{\"drawing\": null,\n"
            "\"elements\": [\n"
            "{\"class\": \"CKtZantoLine\", \"Color\": 5}\n"
            "]}\n");
}

TEST_F(ToolList, ShowsMissingItemsAsDashes) {
  quorvan::test::writeFile("short.xml",
                           R"(<Document><CKtZantoLine index="1"><Color long="5"/></CKtZantoLine>)"
                           R"(</Document>)");
  EXPECT_EQ(runTool({"list", "short.xml"}).out,
            "CKtZantoLine\n"
            "  index  Point1  Point2  Color\n"
            "      1  -       -           5\n");
}

TEST_F(ToolList, ShowsColorsWithoutSign) {
  quorvan::test::writeFile("color.xml",
                           R"(<Document><CKtZantoLine index="1"><Color long="-1"/></CKtZantoLine>)"
                           R"(</Document>)");
  const json elements = json::parse(runTool({"list", "--json", "color.xml"}).out)["elements"];
  EXPECT_EQ(elements[0]["Color"], 4294967295U);
}

TEST_F(ToolList, ReadsTheAdherenceOfOlderFiles) {
  quorvan::test::writeFile("old.xml", R"(<Document><CKtZantoPointBar index="1">)"
                                      R"(<Adherence long="1"/></CKtZantoPointBar></Document>)");
  const json elements = json::parse(runTool({"list", "--json", "old.xml"}).out)["elements"];
  EXPECT_EQ(elements[0]["Adherence"], "Dx");
}

TEST_F(ToolList, KeepsTerminalsFromBeingSteered) {
  quorvan::test::writeFile("escape.xml",
                           "<Document><CKtZantoText index=\"1\"><Contents "
                           "string=\"a&#155;31mb&#10;c\"/></CKtZantoText></Document>");
  const auto run = runTool({"list", "escape.xml"});
  EXPECT_NE(run.out.find("a\\u009b31mb\\nc"), std::string::npos) << run.out;
}

}  // namespace
