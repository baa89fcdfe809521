#include <tools/files/plain_source.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include <quorvan/text/utf8.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kMostAttributes = 8;

enum UnitClass : std::uint8_t { kOtherUnit, kNameStart, kNamePart, kBlankUnit };

constexpr std::array<std::uint8_t, 256> makeUnitClasses() {
  std::array<std::uint8_t, 256> classes = {};
  for (std::size_t unit = 0; unit < 128; ++unit) {
    const auto lower = static_cast<char>(unit | 0x20U);
    if ((lower >= 'a' && lower <= 'z') || unit == '_') {
      classes[unit] = kNameStart;
    } else if ((unit >= '0' && unit <= '9') || unit == '-' || unit == '.') {
      classes[unit] = kNamePart;
    } else if (unit == ' ' || unit == '\t' || unit == '\n' || unit == '\r') {
      classes[unit] = kBlankUnit;
    }
  }
  return classes;
}

constexpr std::array<std::uint8_t, 256> kUnitClasses = makeUnitClasses();

std::uint8_t classOf(char unit) noexcept {
  return kUnitClasses[static_cast<unsigned char>(unit)];
}

// Whether the unit stands in a value for itself in every encoding.
constexpr std::array<bool, 256> makeValueUnits() {
  std::array<bool, 256> units = {};
  for (std::size_t unit = 0x20; unit < 0x7F; ++unit) {
    units[unit] = unit != '"' && unit != '&' && unit != '<';
  }
  return units;
}

constexpr std::array<bool, 256> kValueUnits = makeValueUnits();

const char* endOfValueUnits(const char* at) noexcept {
  while (kValueUnits[static_cast<unsigned char>(*at)]) {
    ++at;
  }
  return at;
}

const char* behindBlanks(const char* at) noexcept {
  while (classOf(*at) == kBlankUnit) {
    ++at;
  }
  return at;
}

// Null where no name begins.
const char* endOfPlainName(const char* at) noexcept {
  if (classOf(*at) != kNameStart) {
    return nullptr;
  }
  while (classOf(*at) == kNameStart || classOf(*at) == kNamePart) {
    ++at;
  }
  return at;
}

std::string_view between(const char* begin, const char* end) noexcept {
  return {begin, static_cast<std::size_t>(end - begin)};
}

// A character that documents hold and that no system reads as another one.
bool isUsual(char32_t character) noexcept {
  return (character >= 0x20 && character < 0x7F) || (character >= 0xA0 && character < 0xD800) ||
         (character >= 0xE000 && character < 0xFFFD) ||
         (character >= 0x10000 && character <= 0x10FFFF);
}

struct NamedCharacter {
  std::string_view reference;
  char character;
};

constexpr NamedCharacter kNamedCharacters[] = {
    {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};

// The character of a reference, without the marks around it; 0 for one of another form.
char32_t referredCharacter(std::string_view reference) noexcept {
  for (const NamedCharacter& named : kNamedCharacters) {
    if (named.reference == reference) {
      return static_cast<unsigned char>(named.character);
    }
  }
  if (!reference.starts_with('#')) {
    return 0;
  }
  std::uint32_t number = 0;
  const char* const textEnd = reference.data() + reference.size();
  const auto [end, error] = std::from_chars(reference.data() + 1, textEnd, number);
  return error == std::errc() && end == textEnd && isUsual(number) ? number : 0;
}

// The value as UTF-8 with its references resolved. False where it holds something unusual.
bool decodeValue(std::string_view raw, bool isSingleByte, std::string& value) {
  constexpr std::size_t kLongestReference = 12;
  value.clear();
  const char* at = raw.data();
  const char* const end = at + raw.size();
  while (at != end) {
    char32_t character = 0;
    if (*at == '&') {
      const std::size_t length = between(at, end).substr(0, kLongestReference).find(';');
      if (length == std::string_view::npos) {
        return false;
      }
      character = referredCharacter(between(at + 1, at + length));
      at += length + 1;
    } else if (*at != '<') {
      character = isSingleByte ? static_cast<unsigned char>(*at++) : decodeUtf8(at, end);
    }
    if (!isUsual(character)) {
      return false;
    }
    appendUtf8(value, character);
  }
  return true;
}

class PlainReader {
 public:
  PlainReader(const std::shared_ptr<const std::string>& source, const SourceEncoding& encoding)
      : m_source(*source),
        m_isSingleByte(encoding.isSingleByte),
        m_tree(source, m_isSingleByte),
        m_at(m_source.data()) {}

  bool read(Progress& progress) {
    if (!passDeclaration()) {
      return false;
    }
    do {
      m_at = behindBlanks(m_at);
      if (*m_at != '<' || !(m_at[1] == '/' ? passEndTag() : passStartTag())) {
        return false;
      }
      progress.report(static_cast<std::size_t>(m_at - m_source.data()), m_source.size());
    } while (!m_open.empty());
    m_at = behindBlanks(m_at);
    m_tree.close();
    return m_at == m_source.data() + m_source.size();
  }

  DocumentTree take() { return std::move(m_tree); }

 private:
  bool passDeclaration() {
    constexpr std::string_view kVersion = "<?xml version=\"1.0\"";
    constexpr std::string_view kEncoding = " encoding=\"";
    std::string_view rest = m_source;
    if (!rest.starts_with("<?")) {
      return true;
    }
    if (!rest.starts_with(kVersion)) {
      return false;
    }
    rest.remove_prefix(kVersion.size());
    if (rest.starts_with(kEncoding)) {
      rest.remove_prefix(kEncoding.size());
      const std::size_t end = rest.find('"');
      const std::string_view encoding = rest.substr(0, end);
      if (encoding != (m_isSingleByte ? "ISO-8859-1" : "UTF-8")) {
        return false;
      }
      rest.remove_prefix(end + 1);
    }
    m_at = rest.data() + 2;
    return rest.starts_with("?>");
  }

  bool passStartTag() {
    const char* const begin = m_at + 1;
    const char* const end = endOfPlainName(begin);
    if (end == nullptr || m_open.size() > kDeepestNode) {
      return false;
    }
    const std::string_view name = between(begin, end);
    if (name.starts_with("xml")) {
      return false;
    }
    m_at = end;
    m_count = 0;
    m_isDecoded = false;
    if (!passAttributes()) {
      return false;
    }
    if (!m_isDecoded) {
      m_tree.begin(name, end);
    } else if (!copyTag(end)) {
      return false;
    } else {
      m_tree.begin(name, m_copy, static_cast<std::size_t>(begin - 1 - m_source.data()));
    }
    if (*m_at == '/') {
      m_tree.end();
      m_at += 2;
    } else {
      m_open.push_back(name);
      m_at += 1;
    }
    return true;
  }

  // Up to the end of the tag, which is not passed.
  bool passAttributes() {
    for (;;) {
      const char* const begin = behindBlanks(m_at);
      if (*begin == '>' || (*begin == '/' && begin[1] == '>')) {
        m_at = begin;
        return true;
      }
      const char* const end = endOfPlainName(begin);
      if (begin == m_at || end == nullptr || end[0] != '=' || end[1] != '"' ||
          !isNewName(between(begin, end))) {
        return false;
      }
      m_at = endOfValueUnits(end + 2);
      if (*m_at != '"') {
        m_isDecoded = true;
        m_at = m_source.data() +
               std::min(m_source.find('"', static_cast<std::size_t>(m_at - m_source.data())),
                        m_source.size() - 1);
      }
      ++m_at;
    }
  }

  // Whether the tag has it for the first time. Names that begin so are no plain attributes.
  bool isNewName(std::string_view name) {
    if (m_count == kMostAttributes || name.starts_with("xml")) {
      return false;
    }
    for (std::size_t i = 0; i < m_count; ++i) {
      if (m_names[i] == name) {
        return false;
      }
    }
    m_names[m_count++] = name;
    return true;
  }

  bool copyTag(const char* behindName) {
    m_copy.clear();
    for (const Attribute& attribute : AttributeList(behindName)) {
      if (!decodeValue(attribute.value, m_isSingleByte, m_value)) {
        return false;
      }
      m_copy.add(attribute.name, m_value);
    }
    return true;
  }

  bool passEndTag() {
    const char* const begin = m_at + 2;
    const char* const end = endOfPlainName(begin);
    if (end == nullptr || m_open.empty() || between(begin, end) != m_open.back()) {
      return false;
    }
    m_at = behindBlanks(end);
    if (*m_at != '>') {
      return false;
    }
    ++m_at;
    m_open.pop_back();
    m_tree.end();
    return true;
  }

  std::string_view m_source;  // a zero stands behind it
  bool m_isSingleByte;
  DocumentTree m_tree;
  const char* m_at;
  std::vector<std::string_view> m_open;
  // Of the tag that is passed.
  std::array<std::string_view, kMostAttributes> m_names;
  std::size_t m_count = 0;
  bool m_isDecoded = false;  // a value is not what stands in the source
  TagCopy m_copy;
  std::string m_value;
};

}  // namespace

std::optional<DocumentTree> readPlainSource(const std::shared_ptr<const std::string>& source,
                                            const SourceEncoding& encoding, Progress& progress) {
  if (encoding.isUtf16 || encoding.hasMark) {
    return std::nullopt;
  }
  PlainReader reader(source, encoding);
  return reader.read(progress) ? std::optional(reader.take()) : std::nullopt;
}

}  // namespace quorvan::tool
