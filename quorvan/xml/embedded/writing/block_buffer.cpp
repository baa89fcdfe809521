#include <quorvan/xml/embedded/writing/block_buffer.h>

#include <algorithm>
#include <cstring>

#include <quorvan/text/utf8.h>

namespace quorvan::embedded {

namespace {

constexpr bool isUtf16(Encoding encoding) noexcept {
  return encoding == Encoding::kUtf16LittleEndian || encoding == Encoding::kUtf16BigEndian;
}

char* putUnit(char* to, char32_t unit, Encoding encoding) noexcept {
  const auto low = static_cast<char>(unit & 0xFFU);
  const auto high = static_cast<char>(unit >> 8U);
  const bool isLittle = encoding == Encoding::kUtf16LittleEndian;
  to[0] = isLittle ? low : high;
  to[1] = isLittle ? high : low;
  return to + 2;
}

// The beginning of a sequence at the end of the bytes whose rest is still to come, if there is
// one; else the end.
const char* completeEnd(const char* begin, const char* end) noexcept {
  const char* last = end;
  while (last != begin && end - last < 3) {
    --last;
    const auto unit = static_cast<unsigned char>(*last);
    if (unit < 0x80) {
      return end;
    }
    if (unit >= 0xC0) {
      const int length = unit >= 0xF0 ? 4 : unit >= 0xE0 ? 3 : 2;
      return end - last < length ? last : end;
    }
  }
  return end;
}

}  // namespace

BlockBuffer::BlockBuffer(Encoding encoding, BlockTarget& target)
    : m_encoding(encoding),
      m_target(target),
      m_block(std::make_unique_for_overwrite<char[]>(kBlockSize)),
      // No byte of UTF-8 takes more than one unit.
      m_wideBlock(isUtf16(encoding) ? std::make_unique_for_overwrite<char[]>(2 * kBlockSize)
                                    : nullptr) {}

void BlockBuffer::put(std::string_view bytes) {
  while (!bytes.empty()) {
    if (m_size == kBlockSize) {
      flush();
    }
    const std::size_t count = std::min(bytes.size(), kBlockSize - m_size);
    std::memcpy(m_block.get() + m_size, bytes.data(), count);
    m_size += count;
    bytes.remove_prefix(count);
  }
}

void BlockBuffer::finish() {
  flush();
}

void BlockBuffer::flush() {
  if (m_wideBlock != nullptr) {
    const std::size_t used = flushWide();
    std::memmove(m_block.get(), m_block.get() + used, m_size - used);
    m_size -= used;
  } else if (m_size != 0) {
    const std::size_t size = m_size;
    m_size = 0;
    m_target.write({m_block.get(), size});
  }
}

// Writes what is complete; returns how much that was.
std::size_t BlockBuffer::flushWide() {
  const char* at = m_block.get();
  const char* const end = completeEnd(at, at + m_size);
  char* to = m_wideBlock.get();
  while (at != end) {
    const char32_t character = decodeUtf8(at, end);
    if (character < 0x10000) {
      to = putUnit(to, character, m_encoding);
    } else {
      to = putUnit(to, 0xD800 + ((character - 0x10000) >> 10U), m_encoding);
      to = putUnit(to, 0xDC00 + ((character - 0x10000) & 0x3FFU), m_encoding);
    }
  }
  const auto size = static_cast<std::size_t>(to - m_wideBlock.get());
  if (size != 0) {
    m_target.write({m_wideBlock.get(), size});
  }
  return static_cast<std::size_t>(end - m_block.get());
}

}  // namespace quorvan::embedded
