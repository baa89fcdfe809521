// Whole numbers in as few bytes as they need, for the arrays of the page.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quorvan::tool {

/// Seven bits of a number stand in a byte, the lowest first; all bytes of it but the last have the
/// highest bit set.
class PackedNumbers {
 public:
  void add(std::uint64_t number);
  /// 0, -1, 1, -2 and so on as 0, 1, 2, 3.
  void addSigned(std::int64_t number);

  void append(const std::string& bytes) { m_bytes += bytes; }
  [[nodiscard]] const std::string& bytes() const noexcept { return m_bytes; }
  [[nodiscard]] std::string take() noexcept { return std::move(m_bytes); }

 private:
  std::string m_bytes;
};

/// The bytes in base64, with padding.
std::string base64(std::string_view bytes);

}  // namespace quorvan::tool
