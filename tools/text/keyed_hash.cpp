#include <tools/text/keyed_hash.h>

#include <array>
#include <bit>
#include <cstring>
#include <random>

namespace quorvan::tool {

namespace {

using Key = std::array<std::uint64_t, 2>;

Key randomKey() {
  std::random_device random;
  const auto word = [&random] { return (std::uint64_t{random()} << 32U) | random(); };
  return {word(), word()};
}

const Key kKey = randomKey();

// SipHash with one round a word and three at the end.
class SipHash {
 public:
  void add(std::uint64_t word) {
    m_state[3] ^= word;
    mix();
    m_state[0] ^= word;
  }

  std::uint64_t finish() {
    constexpr int kRounds = 3;
    m_state[2] ^= 0xFF;
    for (int i = 0; i < kRounds; ++i) {
      mix();
    }
    return m_state[0] ^ m_state[1] ^ m_state[2] ^ m_state[3];
  }

 private:
  void mix() {
    auto& [a, b, c, d] = m_state;
    a += b;
    b = std::rotl(b, 13) ^ a;
    a = std::rotl(a, 32);
    c += d;
    d = std::rotl(d, 16) ^ c;
    a += d;
    d = std::rotl(d, 21) ^ a;
    c += b;
    b = std::rotl(b, 17) ^ c;
    c = std::rotl(c, 32);
  }

  std::array<std::uint64_t, 4> m_state = {
      kKey[0] ^ 0x736F6D6570736575ULL, kKey[1] ^ 0x646F72616E646F6DULL,
      kKey[0] ^ 0x6C7967656E657261ULL, kKey[1] ^ 0x7465646279746573ULL};
};

}  // namespace

std::size_t KeyedHash::operator()(std::string_view text) const noexcept {
  SipHash hash;
  const std::uint64_t size = text.size();
  std::uint64_t word = 0;
  while (text.size() >= sizeof word) {
    std::memcpy(&word, text.data(), sizeof word);
    hash.add(word);
    text.remove_prefix(sizeof word);
  }
  word = 0;
  if (!text.empty()) {
    std::memcpy(&word, text.data(), text.size());
  }
  hash.add(word | (size << 56U));
  return static_cast<std::size_t>(hash.finish());
}

std::size_t KeyedHash::operator()(std::int64_t number) const noexcept {
  SipHash hash;
  hash.add(static_cast<std::uint64_t>(number));
  return static_cast<std::size_t>(hash.finish());
}

}  // namespace quorvan::tool
