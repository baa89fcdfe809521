// Names of elements and attributes as they cross the seam to the XML document service.
//
// A name is UTF-8 text with its hash, so that a backend can find it in its own
// table without hashing it again: the item tables hash their names at compile time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class CString;

namespace quorvan::dom {

/// Hash of a name's UTF-8 bytes (FNV-1a, 32 bits).
constexpr std::uint32_t hashName(std::string_view text) noexcept {
  std::uint32_t hash = 2166136261U;
  for (const char unit : text) {
    hash ^= static_cast<unsigned char>(unit);
    hash *= 16777619U;
  }
  return hash;
}

/// A view of an element or attribute name. The bytes belong to somebody else and must outlive
/// the view; names built from literals live for ever.
class Name {
 public:
  constexpr explicit Name(std::string_view utf8) noexcept : m_text(utf8), m_hash(hashName(utf8)) {}

  template <std::size_t N>
  consteval Name(const char (&literal)[N]) noexcept  // NOLINT(google-explicit-constructor)
      : m_text(literal, N - 1), m_hash(hashName(m_text)), m_isLiteral(true) {}

  constexpr Name(std::string_view utf8, std::uint32_t hash) noexcept : m_text(utf8), m_hash(hash) {}

  [[nodiscard]] constexpr std::string_view text() const noexcept { return m_text; }
  [[nodiscard]] constexpr std::uint32_t hash() const noexcept { return m_hash; }
  /// Whether the bytes live for ever, so that their address alone tells the name.
  [[nodiscard]] constexpr bool isLiteral() const noexcept { return m_isLiteral; }

  friend constexpr bool operator==(const Name& a, const Name& b) noexcept {
    return a.m_hash == b.m_hash && a.m_text == b.m_text;
  }

 private:
  std::string_view m_text;
  std::uint32_t m_hash;
  bool m_isLiteral = false;
};

/// A name that owns its bytes: made from the wide text of a public call, or from "Point" and a
/// number. Short names stay inside the object.
class NameText {
 public:
  explicit NameText(const CString& wide);
  NameText(std::string_view stem, std::int64_t number);

  [[nodiscard]] Name name() const noexcept { return Name(m_text); }
  operator Name() const noexcept { return name(); }  // NOLINT(google-explicit-constructor)

 private:
  std::string m_text;
};

}  // namespace quorvan::dom
