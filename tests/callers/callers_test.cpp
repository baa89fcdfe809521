// Hosts in several languages: each writes the same drawing, tells what goes wrong, and lives on.

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>

#ifdef _WIN32
#include <process.h>
#else
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace quorvan::test {
namespace {

constexpr int kSkipped = 77;
constexpr const char* kErrors = "errors.txt";

// Runs the command in the current folder; what it says goes to kErrors. -1 for one that did not end
// by itself.
int run(const std::vector<std::string>& command) {
  std::vector<const char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(argument.c_str());
  }
  arguments.push_back(nullptr);
#ifdef _WIN32
  return static_cast<int>(_spawnv(_P_WAIT, arguments.front(), arguments.data()));
#else
  const pid_t child = fork();
  if (child == 0) {
    const int errors = open(kErrors, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(errors, STDERR_FILENO);
    execv(arguments.front(), const_cast<char* const*>(arguments.data()));
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

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
#ifdef QUORVAN_WRITE_DRAWING_CSHARP
  all.push_back({"CSharp",
                 {"/usr/bin/env", QUORVAN_LIBRARY_PATH, QUORVAN_CSHARP_RUNTIME,
                  QUORVAN_WRITE_DRAWING_CSHARP}});
#endif
#ifdef QUORVAN_WRITE_DRAWING_PASCAL
  all.push_back({"Pascal", {QUORVAN_WRITE_DRAWING_PASCAL}});
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
    const std::string folder = "caller-" + test.substr(0, test.find('/')) + GetParam().language;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
  }

  static int write(const std::string& file, const std::vector<std::string>& more = {}) {
    std::vector<std::string> command = GetParam().command;
    command.push_back(file);
    command.insert(command.end(), more.begin(), more.end());
    return run(command);
  }

  // What the host said, where it can be looked at.
  static void expectSaid([[maybe_unused]] const std::string& text) {
#ifndef _WIN32
    EXPECT_NE(fileBytes(kErrors).find(text), std::string::npos) << fileBytes(kErrors);
#endif
  }

 private:
  // Every test begins in the same folder.
  struct Folder {
    std::filesystem::path before = std::filesystem::current_path();
    ~Folder() { std::filesystem::current_path(before); }
  } m_folder;
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
  const int result = run(command);
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
  EXPECT_EQ(run({QUORVAN_WRITE_DRAWING, "./no-such-library", "none.xml"}), 1);
  EXPECT_EQ(fileBytes("none.xml"), "");
}

}  // namespace
}  // namespace quorvan::test
