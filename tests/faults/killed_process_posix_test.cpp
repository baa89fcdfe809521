// A process is killed at any point of a save: the file is the old one or the new one, whole, and
// the next save leaves no other file behind. QUORVAN_LONG_TESTS=1 tries several thousand points.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include <tests/differential/random.h>
#include <tests/faults/stage.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/export/export.h>
#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::test {
namespace {

using embedded::FileCalls;
using embedded::systemFileCalls;

struct Death {
  long call = 0;   // before the file call of this number; 0 for never
  long byte = -1;  // once so many bytes are written; -1 for never
  long calls = 0;
  long bytes = 0;
};

Death death;

void countCall() {
  if (++death.calls == death.call) {
    ::kill(::getpid(), SIGKILL);
  }
}

ssize_t writeUntilDeath(int file, const void* bytes, std::size_t size) {
  countCall();
  if (death.byte >= 0 && death.bytes + static_cast<long>(size) >= death.byte) {
    static_cast<void>(
        systemFileCalls().write(file, bytes, static_cast<std::size_t>(death.byte - death.bytes)));
    ::kill(::getpid(), SIGKILL);
  }
  death.bytes += static_cast<long>(size);
  return systemFileCalls().write(file, bytes, size);
}

FileCalls deadlyCalls() {
  FileCalls calls = systemFileCalls();
  calls.open = [](const char* path, int flags, mode_t mode) {
    countCall();
    return systemFileCalls().open(path, flags, mode);
  };
  calls.write = writeUntilDeath;
  // What is on its way to the disk is seen by the next process all the same.
  calls.fsync = [](int) {
    countCall();
    return 0;
  };
  calls.close = [](int file) {
    countCall();
    return systemFileCalls().close(file);
  };
  calls.rename = [](const char* from, const char* to) {
    countCall();
    return systemFileCalls().rename(from, to);
  };
  calls.unlink = [](const char* path) {
    countCall();
    return systemFileCalls().unlink(path);
  };
  calls.lstat = [](const char* path, struct stat* status) {
    countCall();
    return systemFileCalls().lstat(path, status);
  };
  calls.fstat = [](int file, struct stat* status) {
    countCall();
    return systemFileCalls().fstat(file, status);
  };
  calls.flock = [](int file, int operation) {
    countCall();
    return systemFileCalls().flock(file, operation);
  };
  calls.access = [](const char* path, int mode) {
    countCall();
    return systemFileCalls().access(path, mode);
  };
  return calls;
}

// Runs the action in a process of its own that dies as planned. Whether it died.
bool dies(const Death& planned, const std::function<void()>& action) {
  const pid_t child = ::fork();
  if (child == 0) {
    const FileCalls calls = deadlyCalls();
    death = planned;
    embedded::setFileCalls(calls);
    action();
    ::_exit(0);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  EXPECT_TRUE(isKilled || (WIFEXITED(status) && WEXITSTATUS(status) == 0));
  return isKilled;
}

class KilledProcess : public testing::Test {
 protected:
  static constexpr const char* kFolder = "killed";
  static constexpr const char* kTarget = "killed/drawing.xml";
  static constexpr const wchar_t* kTargetPath = L"killed/drawing.xml";

  KilledProcess() {
    std::filesystem::remove_all(kFolder);
    std::filesystem::create_directory(kFolder);
    m_filer.newFiler(kTargetPath);
    fill(0);
    CKtFiler(m_filer).closeFiler();
    m_old = fileBytes(kTarget);
    fill(1);
    CKtFiler(m_filer).closeFiler();
    m_new = fileBytes(kTarget);
  }
  ~KilledProcess() override {
    m_filer.closeFiler();
    std::filesystem::remove_all(kFolder);
  }

  // Several blocks of the writer's.
  void fill(int version) {
    for (int i = 0; i < 3000; ++i) {
      m_filer.beginClass(L"CKtZantoLine", 1);
      m_filer.writeItem(L"Color", i + version);
      m_filer.endClass();
    }
  }

  [[nodiscard]] bool dies(const Death& planned) {
    putOldFile();
    const bool died = test::dies(planned, [&] { m_filer.closeFiler(); });
    expectOldOrNew();
    return died;
  }

  void putOldFile() const {
    std::FILE* const file = std::fopen(kTarget, "wb");
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(std::fwrite(m_old.data(), 1, m_old.size(), file), m_old.size());
    std::fclose(file);
  }

  void expectOldOrNew() {
    const std::string left = fileBytes(kTarget);
    EXPECT_TRUE(left == m_old || left == m_new) << left.size();
    EXPECT_FALSE(test::dies({}, [&] { m_filer.closeFiler(); }));
    EXPECT_TRUE(fileBytes(kTarget) == m_new);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(kFolder), {}), 1);
  }

  CKtFiler m_filer;
  std::string m_old;
  std::string m_new;
};

TEST_F(KilledProcess, BeforeAnyFileCallLeavesTheOldFileOrTheNewOne) {
  int points = 0;
  while (dies({.call = points + 1}) && !HasFailure()) {
    ++points;
  }
  EXPECT_GT(points, 12);
}

TEST_F(KilledProcess, AtAnyByteOfWritingLeavesTheOldFileOrTheNewOne) {
  Random random(1);
  const int points = wantsLongTests() ? 1500 : 60;
  for (int i = 0; i < points && !HasFailure(); ++i) {
    const int byte = i == 0 ? 0 : random.below(static_cast<int>(m_new.size()));
    EXPECT_TRUE(dies({.byte = byte})) << byte;
  }
}

// From outside, without regard to what the process is doing: it saves over and over.
TEST_F(KilledProcess, AtAnyMomentLeavesTheOldFileOrTheNewOne) {
  Random random(2);
  const int points = wantsLongTests() ? 1500 : 40;
  putOldFile();
  for (int i = 0; i < points && !HasFailure(); ++i) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (;;) {
        CKtFiler(m_filer).closeFiler();
      }
    }
    std::this_thread::sleep_for(std::chrono::microseconds(random.below(8000)));
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    expectOldOrNew();
    putOldFile();
  }
}

// The scratch file that a killed search left is gone after the next one.
TEST_F(KilledProcess, InASearchForAHiddenBarLeavesNothingThatStays) {
  const auto exportBar = [] {
    exportBarStraight(0, 0, 0, 100, 0, 0, 10, 10, true, false, 90, 90, L"B500", L"Ha", 1, 12, true);
  };
  const auto file = [&] {
    std::filesystem::current_path(kFolder);
    startFiling(L"drawing.xml");
    exportBar();
    endFiling(L"2025", 1, L"Plan", 42);
  };
  int points = 0;
  for (bool died = true; died && !HasFailure(); ++points) {
    putOldFile();
    died = test::dies({.call = points + 1}, file);
    EXPECT_FALSE(test::dies({}, file));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(kFolder), {}), 1) << points;
    EXPECT_GE(savedElements(kTarget, "CKtZantoStraightBar").size(), 1U);
  }
  EXPECT_GT(points, 15);
}

void fileOneBar(bool isHidden) {
  std::filesystem::current_path("killed");
  startFiling(L"drawing.xml");
  exportBarStraight(0, 0, 0, 9, 0, 0, 1, 1, true, false, 9, 9, L"B500", L"Ha", 1, 12, isHidden);
  endFiling(L"2025", 1, L"Plan", 42);
}

// The scratch file is written in its place: part of it may be left, and the drawing is the old one.
TEST_F(KilledProcess, InASearchForAHiddenBarLeavesNothingBesideTheScratchFile) {
  const std::filesystem::path scratch = std::filesystem::path(kFolder) / "TempFiler.xml";
  int left = 0;
  bool died = true;
  for (int point = 1; died && !HasFailure(); ++point) {
    putOldFile();
    died = test::dies({.call = point}, [] { fileOneBar(true); });
    if (std::filesystem::exists(scratch)) {
      ++left;
      EXPECT_EQ(fileBytes(kTarget), m_old) << point;
      EXPECT_EQ(std::distance(std::filesystem::directory_iterator(kFolder), {}), 2) << point;
    }
    EXPECT_FALSE(test::dies({}, [] { fileOneBar(false); }));
    std::filesystem::remove(scratch);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(kFolder), {}), 1) << point;
  }
  EXPECT_EQ(left, 2);  // empty, and before it is closed
}

// A search that met a scratch file which it could not delete wrote beside it. The next filing
// clears that when it saves, even one that searches for nothing.
TEST_F(KilledProcess, InASearchPastSomebodysScratchFileLeavesNothingThatStays) {
  const std::filesystem::path beside =
      std::filesystem::path(kFolder) / ".TempFiler.xml.quorvan-new";
  writeBytes(beside.string(), "half a docum");
  EXPECT_FALSE(test::dies({}, [] { fileOneBar(false); }));
  EXPECT_FALSE(std::filesystem::exists(beside));
}

}  // namespace
}  // namespace quorvan::test
