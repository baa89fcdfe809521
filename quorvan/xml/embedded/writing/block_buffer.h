// Collects the bytes of a file into blocks.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include <quorvan/xml/embedded/tree/encoding.h>

namespace quorvan::embedded {

/// Takes the bytes of a file, block by block.
class BlockTarget {
 public:
  virtual void write(std::string_view bytes) = 0;

 protected:
  ~BlockTarget() = default;
};

/// Collects bytes, given as UTF-8 or one of the 8-bit encodings, into blocks, and gives them to
/// the target in the encoding of the file.
class BlockBuffer {
 public:
  BlockBuffer(Encoding encoding, BlockTarget& target);
  BlockBuffer(const BlockBuffer&) = delete;
  BlockBuffer& operator=(const BlockBuffer&) = delete;
  ~BlockBuffer() = default;

  /// The most that reserve() may be asked for.
  static constexpr std::size_t kMaxReserve = std::size_t{16} * 1024;

  void put(std::string_view bytes);
  void put(char byte) {
    *reserve(1) = byte;
    m_size += 1;
  }

  /// Room for `size` bytes to be filled in, of which advance() takes those that were.
  char* reserve(std::size_t size) {
    if (kBlockSize - m_size < size) {
      flush();
    }
    return m_block.get() + m_size;
  }
  void advance(const char* end) noexcept { m_size = static_cast<std::size_t>(end - m_block.get()); }

  /// Gives the target all that is there.
  void finish();

 private:
  static constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

  void flush();
  std::size_t flushWide();

  Encoding m_encoding;
  BlockTarget& m_target;
  std::unique_ptr<char[]> m_block;
  std::unique_ptr<char[]> m_wideBlock;
  std::size_t m_size = 0;
};

}  // namespace quorvan::embedded
