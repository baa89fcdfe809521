#include <quorvan/xml/embedded/reading/plain_text.h>

#include <cstring>

#include <quorvan/text/utf8.h>
#include <quorvan/xml/character_rules.h>
#include <quorvan/xml/embedded/reading/character_reference.h>

namespace quorvan::embedded {

std::optional<std::string_view> PlainText::decode(std::string_view raw, Place place) {
  m_text.clear();
  const char* at = raw.data();
  const char* const end = at + raw.size();
  while (at != end) {
    const char unit = *at;
    if (static_cast<unsigned char>(unit) >= 0x80) {
      if (!decodeOther(at, end)) {
        return std::nullopt;
      }
    } else if (unit == '&' && place != Place::kComment) {
      if (!decodeReference(at, end)) {
        return std::nullopt;
      }
    } else if (static_cast<unsigned char>(unit) < 0x20) {
      if (place == Place::kAttribute || (unit != '\t' && unit != '\n' && unit != '\r')) {
        return std::nullopt;
      }
      ++at;
      if (unit == '\r' && at != end && *at == '\n') {
        ++at;
      }
      m_text += unit == '\r' ? '\n' : unit;
    } else if (unit == '<' && place == Place::kAttribute) {
      return std::nullopt;
    } else {
      m_text += unit;
      ++at;
    }
  }
  return m_text;
}

// A character beyond ASCII.
bool PlainText::decodeOther(const char*& at, const char* end) {
  if (m_isLatin1) {
    appendUtf8(m_text, static_cast<unsigned char>(*at++));
    return true;
  }
  const char* const start = at;
  const char32_t character = decodeUtf8(at, end);
  const std::string_view sequence(start, static_cast<std::size_t>(at - start));
  const bool isInvalid = character == kReplacementCharacter && sequence != "\xEF\xBF\xBD";
  if (isInvalid || !dom::isXmlCharacter(character)) {
    return false;
  }
  m_text.append(sequence);
  return true;
}

bool PlainText::decodeReference(const char*& at, const char* end) {
  const auto* const stop =
      static_cast<const char*>(std::memchr(at, ';', static_cast<std::size_t>(end - at)));
  if (stop == nullptr) {
    return false;
  }
  const auto character = referredCharacter({at + 1, static_cast<std::size_t>(stop - at - 1)});
  if (!character) {
    return false;
  }
  appendUtf8(m_text, *character);
  at = stop + 1;
  return true;
}

}  // namespace quorvan::embedded
