// A part of a file in memory, which moves on as the file is read.
#pragma once

#include <cstddef>
#include <memory>

#include <quorvan/xml/embedded/files/file_source.h>

namespace quorvan::embedded {

class FileWindow {
 public:
  explicit FileWindow(FileSource& file);
  FileWindow(const FileWindow&) = delete;
  FileWindow& operator=(const FileWindow&) = delete;
  ~FileWindow() = default;

  /// The bytes of the part. kSlack zero bytes follow its end.
  [[nodiscard]] const char* begin() const noexcept { return m_bytes.get(); }
  [[nodiscard]] const char* end() const noexcept { return m_bytes.get() + m_size; }

  /// Moves on to the part that begins at `from`, which lies in this one, and is longer than what
  /// was left of it. False at the end of the file. What pointed into the part points nowhere.
  bool moveOn(const char* from);

 private:
  static constexpr std::size_t kFirstCapacity = std::size_t{256} * 1024;
  static constexpr std::size_t kSlack = 32;

  FileSource& m_file;
  std::size_t m_capacity = kFirstCapacity;
  std::unique_ptr<char[]> m_bytes;
  std::size_t m_size = 0;
};

}  // namespace quorvan::embedded
