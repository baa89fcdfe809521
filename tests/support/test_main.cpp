// Runs the tests of one executable in an empty working folder of its own: the library leaves its
// scratch file in the current folder, and test programs run side by side. It is made in the current
// folder, or in one as deep below that which QUORVAN_RUN_FOLDER in the environment names.

#include <gtest/gtest.h>

#include <tests/support/known_differences.h>

#include <cstdlib>
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
        m_folder(parent(m_outside) / ("run-" + std::to_string(processId()))) {
    fs::remove_all(m_folder);
    fs::create_directories(m_folder);
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
  static fs::path parent(const fs::path& outside) {
    const char* const named = std::getenv("QUORVAN_RUN_FOLDER");
    return named == nullptr ? outside : fs::path(named) / outside.relative_path();
  }

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
