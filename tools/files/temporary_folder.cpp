#include <tools/files/temporary_folder.h>

#include <random>
#include <string>
#include <system_error>

#include <tools/console/console.h>
#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace fs = std::filesystem;

namespace {

constexpr int kAttempts = 100;

}  // namespace

TemporaryFolder::TemporaryFolder(const fs::path& parent) {
  std::random_device random;
  std::error_code error;
  for (int attempt = 0; attempt < kAttempts && !error; ++attempt) {
    m_path = parent / (".quorvan-" + std::to_string(random()));
    if (fs::create_directory(m_path, error)) {
      return;
    }
  }
  throw Failure(toUtf8(parent) + ": nothing can be written there: " + error.message());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

}  // namespace quorvan::tool
