// Hosts in several languages: each writes the same drawing, tells what goes wrong, and lives on.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <tests/callers/run_program.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>

namespace quorvan::test {
namespace {

constexpr int kSkipped = 77;

std::string beam() {
  return fileBytes(QUORVAN_TEST_DATA "/callers/beam.xml");
}

// A host and how it is called; the file to write and the number of links follow.
struct Caller {
  const char* language;
  std::vector<std::string> command;
  const char* needs = nullptr;  // without which it is skipped

  friend void PrintTo(const Caller& caller, std::ostream* out) { *out << caller.language; }
};

std::vector<Caller> callers() {
  std::vector<Caller> all;
  all.push_back({"C", {QUORVAN_WRITE_DRAWING, QUORVAN_LIBRARY}});
#ifndef _WIN32
  all.push_back({"Cpp", {QUORVAN_WRITE_DRAWING_CPP}});
  all.push_back({"Python", {QUORVAN_PYTHON, QUORVAN_WRITE_DRAWING_PY, QUORVAN_LIBRARY}});
#endif
#ifdef QUORVAN_DRAWING_CSHARP
  all.push_back({"CSharp",
                 {"/usr/bin/env", QUORVAN_LIBRARY_PATH, QUORVAN_CSHARP_RUNTIME,
                  QUORVAN_DRAWING_CSHARP "WriteDrawing.exe"}});
#endif
#ifdef QUORVAN_DRAWING_PASCAL
  all.push_back({"Pascal", {QUORVAN_DRAWING_PASCAL "write_drawing"}});
#endif
#ifdef QUORVAN_WRITE_DRAWING_NODE
  all.push_back({"Node",
                 {QUORVAN_NODE, QUORVAN_WRITE_DRAWING_NODE "/write_drawing.js", QUORVAN_LIBRARY},
                 QUORVAN_WRITE_DRAWING_NODE "/node_modules/koffi"});
#endif
  return all;
}

class Callers : public testing::TestWithParam<Caller> {
 protected:
  void SetUp() override {
    if (GetParam().needs != nullptr && !std::filesystem::exists(GetParam().needs)) {
      GTEST_SKIP() << GetParam().needs << " could not be installed when the tests were built";
    }
    // Of its own: the tests run side by side.
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    m_folder.emplace("caller-" + test.substr(0, test.find('/')) + GetParam().language);
  }

  static int write(const std::string& file, const std::vector<std::string>& more = {}) {
    std::vector<std::string> command = GetParam().command;
    command.push_back(file);
    command.insert(command.end(), more.begin(), more.end());
    return runProgram(command);
  }

  // What the host said, where it can be looked at.
  static void expectSaid([[maybe_unused]] const std::string& text) {
#ifndef _WIN32
    EXPECT_NE(fileBytes(kErrors).find(text), std::string::npos) << fileBytes(kErrors);
#endif
  }

 private:
  std::optional<OwnFolder> m_folder;
};

TEST_P(Callers, WriteTheDrawing) {
  ASSERT_EQ(write("beam.xml"), 0) << fileBytes(kErrors);
  EXPECT_EQ(savedBytes("beam.xml"), beam());
}

TEST_P(Callers, SurviveAMissingFolder) {
  EXPECT_EQ(write("missing/beam.xml"), 1);
  expectSaid("error 13: the folder of the file is missing");
}

TEST_P(Callers, SurviveASeriesOfOneFrameAndSaveTheRest) {
  EXPECT_EQ(write("beam.xml", {"1"}), 1);
  expectSaid("error 16: a series has one frame only");
  EXPECT_EQ(savedIndexes("beam.xml"),
            "CKtZantoFormwork 1, CKtZantoText 1, CKtZantoStraightBar 1, CKtZantoFrameRect 1");
}

#ifndef _WIN32
// A file system of one page that is full, seen by the host alone.
TEST_P(Callers, SurviveAFullDisk) {
  std::vector<std::string> command = {"/bin/sh", QUORVAN_TEST_DATA "/callers/with_a_full_disk.sh",
                                      "full"};
  command.insert(command.end(), GetParam().command.begin(), GetParam().command.end());
  command.emplace_back("full/beam.xml");
  const int result = runProgram(command);
  if (result == kSkipped) {
    GTEST_SKIP() << "no file system can be mounted here: " << fileBytes(kErrors);
  }
  EXPECT_EQ(result, 1);
  expectSaid("error 15: the disk is full");
}
#endif

INSTANTIATE_TEST_SUITE_P(Languages, Callers, testing::ValuesIn(callers()),
                         [](const auto& run) { return std::string(run.param.language); });

TEST(LibraryLoading, ALibraryThatIsNotThereIsNamed) {
  EXPECT_EQ(runProgram({QUORVAN_WRITE_DRAWING, "./no-such-library", "none.xml"}), 1);
  EXPECT_EQ(fileBytes("none.xml"), "");
}

}  // namespace
}  // namespace quorvan::test
