// A file that is read from its beginning, once or more.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quorvan::embedded {

class FileSource {
 public:
  /// Opens the file. Nothing when there is none that could be read: it is missing, out of reach, or
  /// no regular file, for a device or a pipe may have no end or none in sight. Raises when that
  /// could not be found out.
  static std::optional<FileSource> open(const std::string& path);

  FileSource(FileSource&& other) noexcept;
  FileSource& operator=(FileSource&&) = delete;
  ~FileSource();

  /// Reads `size` bytes, fewer only at the end. Raises when reading fails.
  std::size_t read(char* to, std::size_t size);

  /// Goes back to the beginning.
  void rewind();

 private:
  explicit FileSource(int file) noexcept : m_file(file) {}

  std::size_t readOnce(char* to, std::size_t size) const;

  int m_file;
};

}  // namespace quorvan::embedded
