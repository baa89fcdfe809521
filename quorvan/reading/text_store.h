// Where the texts lie that a reader was given: they stay until all are let go at once. Not
// installed.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace quorvan::reading {

class TextStore {
 public:
  /// A terminated copy. Raises std::bad_alloc.
  const char* keep(std::string_view text);
  const wchar_t* keep(std::wstring_view text);

  /// Lets all of them go; the memory of a usual element stays for the next one.
  void clear() noexcept;

 private:
  struct Block {
    std::unique_ptr<std::byte[]> bytes;
    std::size_t size;
  };

  std::byte* take(std::size_t size, std::size_t alignment);

  std::vector<Block> m_blocks;
  std::size_t m_used = 0;  // of the last block
};

}  // namespace quorvan::reading
