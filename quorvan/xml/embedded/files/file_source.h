// A file that is read from its beginning, once or more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include <quorvan/xml/embedded/files/file_calls.h>
#include <quorvan/xml/load_problem.h>

namespace quorvan::embedded {

class FileSource {
 public:
  /// Opens the file. Nothing when there is none that could be read: it is missing, out of reach, or
  /// no regular file, for a device or a pipe may have no end or none in sight; `problem` then says
  /// which. Raises when that could not be found out.
  static std::optional<FileSource> open(const SystemPath& path, dom::LoadProblem& problem);

  /// The bytes of a file; they must outlive what is made here.
  static FileSource ofBytes(std::string_view bytes) noexcept;

  FileSource(FileSource&& other) noexcept;
  FileSource& operator=(FileSource&&) = delete;
  ~FileSource();

  /// In bytes, when it was opened.
  [[nodiscard]] std::uint64_t size() const noexcept { return m_size; }

  /// Reads `size` bytes, fewer only at the end. Raises when reading fails.
  std::size_t read(char* to, std::size_t size);

  /// Goes back to the beginning.
  void rewind();

 private:
  explicit FileSource(SystemFile file) noexcept : m_file(file) {}
  explicit FileSource(std::string_view bytes) noexcept : m_bytes(bytes), m_size(bytes.size()) {}

  std::size_t readOnce(char* to, std::size_t size) const;

  SystemFile m_file = kNoFile;  // none for bytes in memory
  std::string_view m_bytes;
  std::size_t m_position = 0;
  std::uint64_t m_size = 0;
};

}  // namespace quorvan::embedded
