// The file that an argument names.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include <tools/files/temporary_folder.h>

namespace quorvan::tool {

/// The name that stands for the standard input or output.
inline constexpr char kStandardStream[] = "-";

class InputFile {
 public:
  /// What comes over the standard input is kept in a file of its own as long as this lives, and a
  /// file whose name is not UTF-8, which the document service could not open, has another name.
  /// Raises Failure.
  explicit InputFile(const std::string& name);

  /// What to call it.
  [[nodiscard]] const std::string& name() const noexcept { return m_name; }
  /// Where to read it.
  [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_path; }

 private:
  std::string m_name;
  std::optional<TemporaryFolder> m_folder;
  std::filesystem::path m_path;
};

}  // namespace quorvan::tool
