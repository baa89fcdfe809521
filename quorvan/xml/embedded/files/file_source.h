// A file that is read from its beginning, once or more.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quorvan::embedded {

class FileSource {
 public:
  /// Opens the file. Nothing when there is none that could be read: it is missing, a folder, out
  /// of reach. Raises when that could not be found out.
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

  std::size_t readFile(char* to, std::size_t size) const;
  void keepContent();

  int m_file;
  // What came out of a source that cannot go back, a pipe for example.
  std::optional<std::string> m_content;
  std::size_t m_position = 0;
};

}  // namespace quorvan::embedded
