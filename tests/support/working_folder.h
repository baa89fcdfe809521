// An empty folder that a test program works in, so that programs that run side by side, and leave
// the library's scratch file in the current folder, have each their own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace quorvan::test {

/// The current folder while it lives. It is made in the folder that was current, or in one as deep
/// below that which QUORVAN_RUN_FOLDER in the environment names. Raises
/// std::filesystem::filesystem_error.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& kind)
      : m_outside(std::filesystem::current_path()),
        m_folder(parent(m_outside) / (kind + '-' + std::to_string(processId()))) {
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
    std::filesystem::current_path(m_folder);
  }

  ~WorkingFolder() {
    std::error_code ignored;
    std::filesystem::current_path(m_outside, ignored);
    std::filesystem::remove_all(m_folder, ignored);
  }

  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  static int processId() {
#ifdef _WIN32
    return _getpid();
#else
    return getpid();
#endif
  }

  static std::filesystem::path parent(const std::filesystem::path& outside) {
    const char* const named = std::getenv("QUORVAN_RUN_FOLDER");
    return named == nullptr ? outside : std::filesystem::path(named) / outside.relative_path();
  }

  std::filesystem::path m_outside;
  std::filesystem::path m_folder;
};

}  // namespace quorvan::test
