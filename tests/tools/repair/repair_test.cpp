#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <filesystem>

#include <tests/support/saved_file.h>
#include <tests/tools/check/seeded_faults.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using nlohmann::json;
using quorvan::test::fileBytes;
using quorvan::test::replaced;
using quorvan::test::runTool;
using quorvan::test::sampleBytes;
using quorvan::test::savedBytes;
using quorvan::test::SeededFault;
using quorvan::test::writeFile;

quorvan::test::ToolRun repair(const std::string& bytes) {
  writeFile("broken.xml", bytes);
  std::filesystem::remove("mended.xml");
  return runTool({"check", "--json", "broken.xml", "--repair", "-o", "mended.xml"});
}

class ToolRepairSeeded : public testing::TestWithParam<SeededFault> {};

TEST_P(ToolRepairSeeded, LeavesNothingOfWhatItMendsAndTheOriginalAlone) {
  const SeededFault& fault = GetParam();
  const std::string bytes = quorvan::test::fileWith(fault);
  const auto run = repair(bytes);
  EXPECT_EQ(fileBytes("broken.xml"), bytes);
  if (fault.code == 101) {
    EXPECT_EQ(run.status, 2);
    EXPECT_FALSE(std::filesystem::exists("mended.xml"));
    return;
  }
  bool isLeft = false;
  const json report = json::parse(run.out);
  for (const json& finding : report["files"][0]["findings"]) {
    isLeft = isLeft || finding["code"] == fault.code;
  }
  EXPECT_EQ(isLeft, !fault.isMended && fault.code != 701) << run.out;
}

INSTANTIATE_TEST_SUITE_P(Faults, ToolRepairSeeded, testing::ValuesIn(quorvan::test::seededFaults()),
                         [](const auto& test) {
                           return std::to_string(test.param.code) + '_' +
                                  std::to_string(test.index);
                         });

TEST(ToolRepair, GivesAFileWithoutFindingsBackAsItWas) {
  EXPECT_EQ(repair(sampleBytes()).status, 0);
  EXPECT_EQ(savedBytes("mended.xml"), sampleBytes());
}

TEST(ToolRepair, BringsTheSampleBackFromFaultsWhoseValueIsCertain) {
  std::string bytes = sampleBytes();
  bytes = replaced(bytes, R"(<Radius double="125.5000000"/>)", R"(<Radius string="125.5000000"/>)");
  bytes = replaced(bytes, R"(X="4500.0000000" Y="200)", R"(X="4500,0000000" Y="200)");
  bytes = replaced(bytes, R"(<Hook1Up string="True"/>)", R"(<Hook1Up string="1"/>)");
  bytes = replaced(bytes, R"(<Adherence string="Ha"/>)", R"(<Adherence long="0"/>)");
  bytes = replaced(bytes, R"(<NoPoints long="4"/>)", R"(<NoPoints long="0"/>)");
  bytes = replaced(bytes, R"(<Vector size="8">)", R"(<Vector>)");
  bytes = replaced(bytes, R"(<CKtZantoLine version="1" index="2">)", R"(<CKtZantoLine>)");
  bytes = replaced(bytes, "<Document>", "<!-- by hand --><Dessin>");
  bytes = replaced(bytes, "</Document>", "</Dessin>");
  EXPECT_EQ(repair(bytes).status, 0);
  EXPECT_EQ(savedBytes("mended.xml"), sampleBytes());
}

TEST(ToolRepair, KeepsRepartitionsOnTheirBars) {
  // The frame was given the index of another, which is left out.
  std::string bytes = sampleBytes();
  const std::string end = "</CKtZantoFrameRect>";
  const std::size_t begin = bytes.find("<CKtZantoFrameRect");
  std::string frame = bytes.substr(begin, bytes.find(end) + end.size() - begin);
  frame = replaced(frame, R"("False")", R"("True")");
  bytes.insert(begin, replaced(frame, R"(index="1")", R"(index="7")") +
                          replaced(frame, R"(index="1")", R"(index="8")"));
  bytes = replaced(bytes, R"(<Index long="1"/>)", R"(<Index long="8"/>)");
  EXPECT_EQ(repair(bytes).status, 0);
  const std::string mended = savedBytes("mended.xml");
  EXPECT_NE(mended.find(R"(<Index long="1"/>)"), std::string::npos);
  const json info = json::parse(runTool({"info", "--json", "mended.xml"}).out)["files"][0];
  EXPECT_EQ(info["repartitions"][0]["reference"], 6);
}

TEST(ToolRepair, AddsAnEmptyControlRecord) {
  EXPECT_EQ(repair("<Document/>").status, 0);
  EXPECT_EQ(savedBytes("mended.xml"),
            "<Document><CKtDrawingControl version=\"1\" index=\"1\"><ZantoVersion string=\"\"/>"
            "<ServicePack long=\"0\"/><CheckSum long=\"0\"/><DrawingName string=\"\"/>"
            "</CKtDrawingControl></Document>");
}

TEST(ToolRepair, KeepsClassesAndItemsThatItDoesNotKnow) {
  const std::string spiral =
      R"(<CKtZantoSpiral version="1" index="1"><Turns size="1"><Turn1 double="2,5"/></Turns>)"
      R"(</CKtZantoSpiral>)";
  repair("<Document>" + spiral + "</Document>");
  EXPECT_NE(savedBytes("mended.xml").find(spiral), std::string::npos);
}

TEST(ToolRepair, CopiesWhatItDoesNotMendAsItStands) {
  const std::string before =
      "\xEF\xBB\xBF<?xml version='1.0'?>\n<Document xmlns:x='urn:x'>\n  <!-- kept -->\n"
      "  <CKtZantoCircle  index='1' x:id='7' version=\"1\">\n"
      "    <Center X='0' Y='0' Z='0'><x:below><deeper>text &amp; <![CDATA[data]]></deeper>"
      "</x:below></Center>\n    <Radius x:unit='mm' double='";
  const std::string behind =
      "'/><Color long='1'/></CKtZantoCircle>\n"
      "  <x:Foreign version='1' index='1'>text<?pi x?></x:Foreign>\n"
      "  <CKtDrawingControl version='1' index='1'><ZantoVersion string='\xC3\xA9'/>"
      "<ServicePack long='0'/><CheckSum long='0'/><DrawingName string=''/></CKtDrawingControl>\n"
      "</Document>\n<!-- the end -->\n";
  repair(before + "1,5" + behind);
  EXPECT_EQ(fileBytes("mended.xml"),
            before.substr(0, before.size() - 1) + "\"1.5\"" + behind.substr(1));
}

TEST(ToolRepair, GivesAFileOfMoreElementsThanIndexesBackAsItWas) {
  std::string bytes = "<Document>";
  for (int i = 1; i <= 33000; ++i) {
    const int index = i <= 32767 ? i : i - 65536;
    bytes += R"(<CKtZantoCircle version="1" index=")" + std::to_string(index) +
             R"("><Center X="0" Y="0" Z="0"/><Radius double="1"/><Color long="1"/>)"
             "</CKtZantoCircle>";
  }
  const std::string end =
      R"(<CKtDrawingControl version="1" index="1"><ZantoVersion string=""/>)"
      R"(<ServicePack long="0"/><CheckSum long="0"/><DrawingName string=""/></CKtDrawingControl>)"
      "</Document>";
  EXPECT_EQ(repair(bytes + end).status, 0);
  EXPECT_EQ(savedBytes("mended.xml"), bytes + end);
  // Numbered again, they have the indexes that the library would give them.
  EXPECT_EQ(repair(replaced(bytes, R"(index="5")", R"(index="50")") + end).status, 0);
  EXPECT_EQ(savedBytes("mended.xml"), bytes + end);
}

// A repartition that has no bar gets none because bars get other indexes.
TEST(ToolRepair, LeavesARepartitionWithoutBarWithoutBar) {
  std::string bytes = replaced(sampleBytes(), R"(<CKtZantoFrameRect version="1" index="1">)",
                               R"(<CKtZantoFrameRect version="1" index="7">)");
  EXPECT_EQ(repair(bytes).status, 2);
  EXPECT_NE(savedBytes("mended.xml").find(R"(<Index long="-1"/>)"), std::string::npos);
}

TEST(ToolRepair, MendsFilesOfEveryEncoding) {
  const std::string ascii =
      "<?xml version=\"1.0\" encoding=\"UTF-16\"?><Document><CKtZantoCircle version=\"1\" "
      "index=\"1\"><Center X=\"0\" Y=\"0\" Z=\"0\"/><Radius double=\"1,5\"/>"
      "<Color long=\"\x01\"/></CKtZantoCircle></Document>";
  std::string bytes = "\xFF\xFE";
  for (const char unit : ascii) {
    bytes.append({unit, '\0'});
  }
  const json report = json::parse(repair(bytes).out)["files"][0];
  const std::string mended = savedBytes("mended.xml");
  EXPECT_EQ(mended.substr(0, 4), std::string("\xFF\xFE<\0", 4));
  std::string text;
  for (std::size_t at = 2; at < mended.size(); at += 2) {
    text += mended[at];
  }
  EXPECT_NE(text.find("<Radius double=\"1.5\"/><Color long=\"&#65533;\"/>"), std::string::npos)
      << text;
}

TEST(ToolRepair, MendsWhatOnlyAMendBringsToLight) {
  const std::string bytes = replaced(replaced(sampleBytes(), R"(<Vector size="4"><Point1 X="-200)",
                                              R"(<Vector size="1"><Point1 X="-200)"),
                                     R"(<NoPoints long="4"/>)", R"(<NoPoints long="0"/>)");
  EXPECT_EQ(repair(bytes).status, 0);
  EXPECT_EQ(savedBytes("mended.xml"), sampleBytes());
}

TEST(ToolRepair, MendsNothingInAFileWhoseElementsComeOutOfEntities) {
  const std::string bytes =
      "<!DOCTYPE Document [<!ENTITY e '<CKtZantoLine/>'>]><Document>&e;</Document>";
  const json said = json::parse(repair(bytes).out);
  for (const json& finding : said["files"][0]["findings"]) {
    EXPECT_FALSE(finding["repairable"]) << finding;
  }
  EXPECT_EQ(savedBytes("mended.xml"), bytes);
}

TEST(ToolRepair, NeverWritesOverTheFileItself) {
  quorvan::test::writeSample();
  std::filesystem::create_directory("folder");
  for (const char* const output : {"sample.xml", "./sample.xml", "folder/../sample.xml"}) {
    const auto run = runTool({"check", "sample.xml", "--repair", "-o", output});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("is the file itself"), std::string::npos) << run.err;
  }
  std::filesystem::create_hard_link("sample.xml", "same.xml");
  EXPECT_EQ(runTool({"check", "sample.xml", "--repair", "-o", "same.xml"}).status, 2);
  EXPECT_EQ(fileBytes("sample.xml"), sampleBytes());
}

TEST(ToolRepair, AsksForOneFileAndAName) {
  quorvan::test::writeSample();
  EXPECT_EQ(runTool({"check", "sample.xml", "--repair"}).status, 2);
  EXPECT_EQ(runTool({"check", "sample.xml", "sample.xml", "--repair", "-o", "x.xml"}).status, 2);
  EXPECT_EQ(runTool({"check", "sample.xml", "-o", "x.xml"}).status, 2);
  EXPECT_FALSE(std::filesystem::exists("x.xml"));
}

}  // namespace
