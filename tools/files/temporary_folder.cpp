#include <tools/files/temporary_folder.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

#include <tools/console/console.h>
#include <tools/console/interruption.h>
#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace fs = std::filesystem;

namespace {

constexpr int kFolderAttempts = 100;
constexpr std::chrono::hours kLongestRun{24};
constexpr std::string_view kPrefix = ".quorvan-";

bool isOurs(const fs::path& path) {
  const std::string name = toUtf8(path.filename());
  return name.starts_with(kPrefix) && name.size() > kPrefix.size() &&
         std::all_of(name.begin() + kPrefix.size(), name.end(),
                     [](char unit) { return unit >= '0' && unit <= '9'; });
}

// Removes what runs left there that were killed: no run takes a day.
void removeLeftovers(const fs::path& parent) {
  std::error_code error;
  const auto now = fs::file_time_type::clock::now();
  for (fs::directory_iterator at(parent, error), end; !error && at != end; at.increment(error)) {
    std::error_code ignored;
    if (isOurs(at->path()) && fs::is_directory(at->symlink_status(ignored)) &&
        now - fs::last_write_time(at->path(), ignored) > kLongestRun && !ignored) {
      fs::remove_all(at->path(), ignored);
    }
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder(const fs::path& parent) {
  removeLeftovers(parent);
  std::random_device random;
  std::error_code error;
  for (int attempt = 0; attempt < kFolderAttempts && !error; ++attempt) {
    m_path = parent / (std::string(kPrefix) + std::to_string(random()));
    if (fs::create_directory(m_path, error)) {
      fs::permissions(m_path, fs::perms::owner_all, error);
      removeWhenInterrupted(m_path);
      return;
    }
  }
  throw Failure(toUtf8(parent) + ": nothing can be written there: " + error.message());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
  keepWhenInterrupted(m_path);
}

}  // namespace quorvan::tool
