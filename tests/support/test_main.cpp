// Runs the tests of one executable in an empty working folder of its own: the library leaves its
// scratch file in the current folder, and test programs run side by side.

#include <gtest/gtest.h>

#include <tests/support/known_differences.h>

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;

int processId() {
#ifdef _WIN32
  return _getpid();
#else
  return getpid();
#endif
}

class WorkingFolder {
 public:
  WorkingFolder()
      : m_outside(fs::current_path()),
        m_folder(m_outside / ("run-" + std::to_string(processId()))) {
    fs::remove_all(m_folder);
    fs::create_directory(m_folder);
    fs::current_path(m_folder);
  }

  ~WorkingFolder() {
    std::error_code ignored;
    fs::current_path(m_outside, ignored);
    fs::remove_all(m_folder, ignored);
  }

  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  fs::path m_outside;
  fs::path m_folder;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) {
    return RUN_ALL_TESTS();
  }
  try {
    const WorkingFolder folder;
    quorvan::test::leaveOutCrashingTests();
    return quorvan::test::judge(RUN_ALL_TESTS());
  } catch (const fs::filesystem_error& error) {
    std::cerr << "cannot prepare the working folder: " << error.what() << '\n';
    return 1;
  }
}
