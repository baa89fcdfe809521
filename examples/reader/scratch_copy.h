// A private copy of a file, deleted again at the end.
//
// Closing a filer saves its file back, also after reading; of a file that another program wrote,
// the form may change by that, and one that cannot be parsed is replaced by an empty document. A
// reader that works on a copy cannot touch the original, whatever happens.
#pragma once

#include <filesystem>

/// Copies the file into the folder for temporary files. Raises std::filesystem::filesystem_error
/// when that fails.
class ScratchCopy {
 public:
  explicit ScratchCopy(const std::filesystem::path& original);
  ~ScratchCopy();

  ScratchCopy(const ScratchCopy&) = delete;
  ScratchCopy& operator=(const ScratchCopy&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};
