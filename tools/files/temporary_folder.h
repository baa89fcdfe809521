// A new folder that goes away again with all that is in it.
#pragma once

#include <filesystem>

namespace quorvan::tool {

class TemporaryFolder {
 public:
  /// Makes it in `parent`, under a name that nobody else has. Raises Failure.
  explicit TemporaryFolder(const std::filesystem::path& parent);
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_path; }

 private:
  std::filesystem::path m_path;
};

}  // namespace quorvan::tool
