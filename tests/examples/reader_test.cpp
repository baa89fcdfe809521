// The example reader.

#include <examples/reader/drawing_summary.h>
#include <examples/reader/scratch_copy.h>
#include <examples/reader/summary_text.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <tests/examples/drawing_files.h>
#include <tests/support/saved_file.h>

namespace quorvan::test {
namespace {

std::string printed(const DrawingSummary& summary) {
  std::ostringstream out;
  print(out, summary);
  return out.str();
}

class ExampleReader : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Structure, ExampleReader,
                         testing::Values("beam-b12", "column-c3", "slab-d2"),
                         [](const testing::TestParamInfo<std::string>& drawing) {
                           return drawing.param.substr(0, drawing.param.find('-'));
                         });

TEST_P(ExampleReader, PrintsTheWholeSummary) {
  EXPECT_EQ(printed(summarize(writeExample(GetParam()))),
            fileBytes(goldenPath(GetParam() + ".txt")));
}

TEST(ExampleReaders, ReadACopyThatIsGoneAfterwards) {
  std::ofstream("foreign.xml", std::ios::binary)
      << "<Document>\n  <CKtZantoLine index='1'/>\n</Document>";
  const std::string before = fileBytes("foreign.xml");
  std::filesystem::path path;
  {
    const ScratchCopy copy("foreign.xml");
    path = copy.path();
    EXPECT_EQ(fileBytes(path), before);
    EXPECT_EQ(summarize(path).elements.at("CKtZantoLine"), 1);
  }
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(fileBytes("foreign.xml"), before);
}

TEST(ExampleReaders, GoOnBehindAnIncompleteElement) {
  std::ofstream("incomplete.xml", std::ios::binary)
      << R"(<Document><CKtZantoText version="1" index="1"><Contents string="first"/></CKtZantoText>)"
      << R"(<CKtZantoText version="1" index="2"><Contents string="second"/></CKtZantoText></Document>)";
  const DrawingSummary summary = summarize("incomplete.xml");
  EXPECT_EQ(summary.elements.at("CKtZantoText"), 2);
  EXPECT_EQ(summary.incomplete.at("CKtZantoText"), 2);
  EXPECT_EQ(summary.texts, (std::vector<CString>{L"first", L"second"}));
  EXPECT_FALSE(summary.hasControlRecord);
}

TEST(ExampleReaders, FindNothingInAFileThatIsNoTransferFile) {
  std::ofstream("broken.xml", std::ios::binary) << "<Document><CKtZantoLine>";
  EXPECT_TRUE(summarize("broken.xml").elements.empty());
  EXPECT_EQ(fileBytes("broken.xml"), "<Document><CKtZantoLine>");
}

}  // namespace
}  // namespace quorvan::test
