// Files in memory in place of those of the system, so that a fuzz target opens and saves documents
// without a disk, and touches nothing else.
#pragma once

#include <string>

namespace quorvan::fuzz {

/// While it lives, the library's file calls see the files put here and no others. One at a time.
/// Ends the program at the end if the library left a file open or a file of its own behind.
class MemoryFiles {
 public:
  MemoryFiles();
  MemoryFiles(const MemoryFiles&) = delete;
  MemoryFiles& operator=(const MemoryFiles&) = delete;
  ~MemoryFiles();

  /// Replaces the file's content.
  void put(const std::string& path, std::string bytes);

  /// The content of the file; ends the program when there is none.
  [[nodiscard]] std::string content(const std::string& path) const;

  /// A file of that name is gone as soon as it is saved: its deletion goes past the file calls.
  void losesWhatIsSavedAs(const std::string& path);
};

/// Ends the program when the condition does not hold.
void require(bool condition, const char* what);

}  // namespace quorvan::fuzz
