// A process is killed at any point of a save on Windows: the file is the old one or the new one,
// whole, and the next save leaves no other file behind. The process is this program run again for
// one test that takes part in no other run.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <windows.h>

#include <tests/faults/stage.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/xml/embedded/file_faults.h>
#include <quorvan/export/export.h>
#include <quorvan/filer/filer.h>

namespace quorvan::test {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kLived = 0;
constexpr DWORD kKilled = 9;
constexpr const char* kFolder = "killed";
constexpr const char* kTarget = "killed/drawing.xml";
constexpr const wchar_t* kTargetPath = L"killed/drawing.xml";

long planned(const char* what) {
  const char* const given = std::getenv(what);
  return given == nullptr ? 0 : std::strtol(given, nullptr, 10);
}

// Ends the process once so many bytes are written.
long bytesToDeath = 0;

embedded::FileCalls callsThatEndAtAByte() {
  embedded::FileCalls calls = embedded::systemFileCalls();
  calls.writeFile = [](HANDLE file, const void* bytes, DWORD size, DWORD* count) -> BOOL {
    if (static_cast<long>(size) >= bytesToDeath) {
      embedded::systemFileCalls().writeFile(file, bytes, static_cast<DWORD>(bytesToDeath), count);
      ::TerminateProcess(::GetCurrentProcess(), kKilled);
    }
    bytesToDeath -= static_cast<long>(size);
    return embedded::systemFileCalls().writeFile(file, bytes, size, count);
  };
  return calls;
}

// Several blocks of the writer's.
void fill(CKtFiler& filer, int version) {
  for (int i = 0; i < 3000; ++i) {
    filer.beginClass(L"CKtZantoLine", 1);
    filer.writeItem(L"Color", i + version);
    filer.endClass();
  }
}

void saveNew() {
  CKtFiler filer;
  filer.newFiler(kTargetPath);
  fill(filer, 1);
  filer.closeFiler();
}

void exportHiddenBar() {
  fs::current_path(kFolder);
  startFiling(L"drawing.xml");
  exportBarStraight(0, 0, 0, 100, 0, 0, 10, 10, true, false, 90, 90, L"B500", L"Ha", 1, 12, true);
  endFiling(L"2025", 1, L"Plan", 42);
}

// What the killed process does, as the environment says. It has the other's folder.
TEST(KilledChild, DISABLED_ActsUntilItIsKilled) {
  fs::current_path(std::getenv("QUORVAN_TEST_FOLDER"));
  const bool isSearch = planned("QUORVAN_TEST_SEARCH") != 0;
  if (const long byte = planned("QUORVAN_TEST_BYTE"); byte != 0) {
    bytesToDeath = byte;
    const embedded::FileCalls calls = callsThatEndAtAByte();
    embedded::setFileCalls(calls);
    saveNew();
    embedded::setFileCalls(embedded::systemFileCalls());
    ::TerminateProcess(::GetCurrentProcess(), kLived);
  }
  FileFaults faults;
  faults.dieAt(static_cast<int>(planned("QUORVAN_TEST_CALL")));
  isSearch ? exportHiddenBar() : saveNew();
  ::TerminateProcess(::GetCurrentProcess(), kLived);
}

// Runs the action in a process of its own that dies as planned. Whether it died.
bool dies(const wchar_t* what, long point, bool isSearch) {
  ::SetEnvironmentVariableW(L"QUORVAN_TEST_FOLDER", fs::current_path().c_str());
  ::SetEnvironmentVariableW(L"QUORVAN_TEST_CALL", nullptr);
  ::SetEnvironmentVariableW(L"QUORVAN_TEST_BYTE", nullptr);
  ::SetEnvironmentVariableW(L"QUORVAN_TEST_SEARCH", isSearch ? L"1" : nullptr);
  // Ended early as planned, it has nothing to say about its tests.
  ::SetEnvironmentVariableW(L"TEST_PREMATURE_EXIT_FILE", nullptr);
  ::SetEnvironmentVariableW(what, std::to_wstring(point).c_str());
  std::wstring program(MAX_PATH, L'\0');
  program.resize(::GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
  std::wstring command = L"\"" + program +
                         L"\" --gtest_filter=KilledChild.* --gtest_also_run_disabled_tests"
                         L" --gtest_brief=1";
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (::CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &startup, &process) == 0) {
    ADD_FAILURE() << "not started: " << ::GetLastError();
    return false;
  }
  ::WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 0;
  ::GetExitCodeProcess(process.hProcess, &code);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  EXPECT_TRUE(code == kLived || code == kKilled) << code;
  return code == kKilled;
}

class KilledProcess : public testing::Test {
 protected:
  KilledProcess() {
    fs::remove_all(kFolder);
    fs::create_directory(kFolder);
    CKtFiler filer;
    filer.newFiler(kTargetPath);
    fill(filer, 0);
    filer.closeFiler();
    m_old = fileBytes(kTarget);
    saveNew();
    m_new = fileBytes(kTarget);
  }
  ~KilledProcess() override { fs::remove_all(kFolder); }

  void putOldFile() const {
    std::FILE* const file = std::fopen(kTarget, "wb");
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(std::fwrite(m_old.data(), 1, m_old.size(), file), m_old.size());
    std::fclose(file);
  }

  [[nodiscard]] bool dies(const wchar_t* what, long point) const {
    putOldFile();
    const bool died = test::dies(what, point, false);
    const std::string left = fileBytes(kTarget);
    EXPECT_TRUE(left == m_old || left == m_new) << point << ": " << left.size();
    putOldFile();
    saveNew();
    EXPECT_TRUE(fileBytes(kTarget) == m_new);
    EXPECT_EQ(std::distance(fs::directory_iterator(kFolder), {}), 1) << point;
    return died;
  }

  std::string m_old;
  std::string m_new;
};

TEST_F(KilledProcess, BeforeAnyFileCallLeavesTheOldFileOrTheNewOne) {
  int points = 0;
  while (dies(L"QUORVAN_TEST_CALL", points + 1) && !HasFailure()) {
    ++points;
  }
  EXPECT_GT(points, 8);
}

TEST_F(KilledProcess, AtAnyByteOfWritingLeavesTheOldFileOrTheNewOne) {
  const auto size = static_cast<long>(m_new.size());
  const long points = wantsLongTests() ? 200 : 8;
  for (long i = 0; i < points && !HasFailure(); ++i) {
    EXPECT_TRUE(dies(L"QUORVAN_TEST_BYTE", 1 + i * (size - 2) / (points - 1))) << i;
  }
}

// The scratch file that a killed search left is gone after the next one.
TEST_F(KilledProcess, InASearchForAHiddenBarLeavesNothingThatStays) {
  int points = 0;
  for (bool died = true; died && !HasFailure(); ++points) {
    putOldFile();
    died = test::dies(L"QUORVAN_TEST_CALL", points + 1, true);
    EXPECT_FALSE(test::dies(L"QUORVAN_TEST_CALL", 0, true));
    EXPECT_EQ(std::distance(fs::directory_iterator(kFolder), {}), 1) << points;
    EXPECT_GE(savedElements(kTarget, "CKtZantoStraightBar").size(), 1U);
  }
  EXPECT_GT(points, 10);
}

}  // namespace
}  // namespace quorvan::test
