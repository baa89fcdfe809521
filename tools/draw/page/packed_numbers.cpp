#include <tools/draw/page/packed_numbers.h>

#include <algorithm>

namespace quorvan::tool {

void PackedNumbers::add(std::uint64_t number) {
  constexpr std::uint64_t kMore = 0x80;
  while (number >= kMore) {
    m_bytes += static_cast<char>(static_cast<unsigned char>(number | kMore));
    number >>= 7U;
  }
  m_bytes += static_cast<char>(static_cast<unsigned char>(number));
}

void PackedNumbers::addSigned(std::int64_t number) {
  const auto bits = static_cast<std::uint64_t>(number);
  add(number < 0 ? ~(bits << 1U) : bits << 1U);
}

std::string base64(std::string_view bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t kGroup = 3;
  std::string text;
  text.reserve((bytes.size() + kGroup - 1) / kGroup * 4);
  for (std::size_t i = 0; i < bytes.size(); i += kGroup) {
    const std::size_t count = std::min(kGroup, bytes.size() - i);
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < kGroup; ++k) {
      bits = bits << 8U | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= count ? kDigits[bits >> (6 * (3 - k)) & 0x3FU] : '=';
    }
  }
  return text;
}

}  // namespace quorvan::tool
