// The text of files in the plain form: values, text between tags, comments.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvan::embedded {

/// Decodes text of a file in ISO-8859-1 or UTF-8.
class PlainText {
 public:
  enum class Place : std::uint8_t { kAttribute, kText, kComment };

  /// UTF-8 until told otherwise.
  void setLatin1() noexcept { m_isLatin1 = true; }

  /// The text as UTF-8, with references resolved and line ends normalised; valid until the next
  /// call. Nothing when it holds what may not stand at the place, or what does not belong to the
  /// plain form: a tab or line end in an attribute, an entity that needs a declaration.
  std::optional<std::string_view> decode(std::string_view raw, Place place);

 private:
  bool decodeOther(const char*& at, const char* end);
  bool decodeReference(const char*& at, const char* end);

  bool m_isLatin1 = false;
  std::string m_text;
};

}  // namespace quorvan::embedded
