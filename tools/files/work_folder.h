// A folder of its own for the time of a filing: the library keeps its scratch file in the current
// folder, and adds to a file that is there already.
#pragma once

#include <filesystem>
#include <string>

#include <tools/files/temporary_folder.h>

namespace quorvan::tool {

/// Raises Failure when the output is the input, under whatever name: what is read is never changed.
void refuseSameFile(const std::string& input, const std::string& output);

/// Made beside the file to be written and made the current folder; both are taken back at the end.
class WorkFolder {
 public:
  /// Raises Failure when it cannot be made.
  explicit WorkFolder(const std::filesystem::path& target);
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder();

  /// Where to write.
  [[nodiscard]] std::filesystem::path file() const;

  /// Puts what was written in the place of the target, in one step. Raises Failure.
  void moveToTarget() const;

 private:
  std::filesystem::path m_target;
  TemporaryFolder m_folder;
  std::filesystem::path m_before;
};

}  // namespace quorvan::tool
