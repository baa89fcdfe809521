// Readers in several languages: each lists the same elements, tells what is wrong, and files again
// what it has read.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <tests/callers/run_program.h>
#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/support/transfer_text.h>

namespace quorvan::test {
namespace {

// A reader and how it is called; the file to read and the copy to write follow.
struct ReaderProgram {
  const char* language;
  std::vector<std::string> command;

  friend void PrintTo(const ReaderProgram& reader, std::ostream* out) { *out << reader.language; }
};

std::vector<ReaderProgram> readers() {
  std::vector<ReaderProgram> all;
#ifdef QUORVAN_DRAWING_CSHARP
  all.push_back({"CSharp",
                 {"/usr/bin/env", QUORVAN_LIBRARY_PATH, QUORVAN_CSHARP_RUNTIME,
                  QUORVAN_DRAWING_CSHARP "ReadDrawing.exe"}});
#endif
#ifdef QUORVAN_DRAWING_PASCAL
  all.push_back({"Pascal", {QUORVAN_DRAWING_PASCAL "read_drawing"}});
#endif
  return all;
}

class Readers : public testing::TestWithParam<ReaderProgram> {
 protected:
  void SetUp() override {
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    m_folder.emplace("reader-" + test.substr(0, test.find('/')) + GetParam().language);
  }

  static int read(const std::vector<std::string>& files) {
    std::vector<std::string> command = GetParam().command;
    command.insert(command.end(), files.begin(), files.end());
    return runProgram(command);
  }

 private:
  std::optional<OwnFolder> m_folder;
};

// The listing without the series, which are not filed again, and without the counts behind it.
std::string withoutSeries(const std::string& listing) {
  std::istringstream lines(listing);
  std::string left;
  for (std::string line; std::getline(lines, line) && line.starts_with("CKt");) {
    left += line.starts_with("CKtZantoRepartition") ? "" : line + "\n";
  }
  return left;
}

TEST_P(Readers, ListEveryItemOfEveryClass) {
  ASSERT_EQ(read({dataPath("export/golden/small_drawing.xml")}), 0) << fileBytes(kErrors);
  EXPECT_EQ(fileBytes(kOutput), fileBytes(dataPath("callers/small_drawing.txt")));
}

TEST_P(Readers, TellWhatIsMissingAndOfAnotherKindAndLeaveTheFileAsItIs) {
  const std::string odd = fileBytes(dataPath("callers/odd_drawing.xml"));
  writeBytes("odd.xml", odd);
  ASSERT_EQ(read({"odd.xml"}), 0) << fileBytes(kErrors);
  EXPECT_EQ(fileBytes(kOutput), fileBytes(dataPath("callers/odd_drawing.txt")));
  EXPECT_EQ(fileBytes("odd.xml"), odd);
}

TEST_P(Readers, FileAgainWhatTheyHaveRead) {
  ASSERT_EQ(read({dataPath("export/golden/small_drawing.xml"), "copy.xml"}), 0)
      << fileBytes(kErrors);
  const std::string first = withoutSeries(fileBytes(kOutput));
  EXPECT_NE(first.find("CKtDrawingControl"), std::string::npos);
  ASSERT_EQ(read({"copy.xml"}), 0) << fileBytes(kErrors);
  EXPECT_EQ(withoutSeries(fileBytes(kOutput)), first);
}

TEST_P(Readers, TellWhyAFileCannotBeRead) {
  EXPECT_EQ(read({"missing.xml"}), 1);
  EXPECT_NE(fileBytes(kErrors).find("error 30: there is no such file"), std::string::npos);
  writeBytes("broken.xml", "<Document>");
  EXPECT_EQ(read({"broken.xml"}), 1);
  EXPECT_NE(fileBytes(kErrors).find("error 32: the file is no well-formed document"),
            std::string::npos);
  EXPECT_EQ(fileBytes("broken.xml"), "<Document>");
}

INSTANTIATE_TEST_SUITE_P(Languages, Readers, testing::ValuesIn(readers()),
                         [](const auto& run) { return std::string(run.param.language); });

}  // namespace
}  // namespace quorvan::test
