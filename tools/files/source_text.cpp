#include <tools/files/source_text.h>

#include <fstream>
#include <system_error>

#include <quorvan/text/utf8.h>

#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

// The value of a part of the declaration that the text begins with.
std::string declarationPart(std::string_view text, std::string_view name) {
  if (!text.starts_with("<?xml")) {
    return {};
  }
  const std::string_view declaration = text.substr(0, text.find("?>"));
  const std::size_t at = declaration.find(name);
  if (at == std::string_view::npos) {
    return {};
  }
  const std::size_t quote = declaration.find_first_of("\"'", at);
  if (quote == std::string_view::npos) {
    return {};
  }
  const std::size_t end = declaration.find(declaration[quote], quote + 1);
  return std::string(declaration.substr(quote + 1, end - quote - 1));
}

char lower(char unit) {
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

bool isUtf8Name(std::string_view name) {
  constexpr std::string_view kName = "utf-8";
  if (name.size() != kName.size()) {
    return false;
  }
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (lower(name[i]) != kName[i]) {
      return false;
    }
  }
  return true;
}

std::string fromUtf16(std::string_view bytes, bool isBigEndian) {
  std::string text;
  text.reserve(bytes.size() / 2);
  const auto unitAt = [&](std::size_t at) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char32_t>(isBigEndian ? first * 256U + second : second * 256U + first);
  };
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t character = unitAt(at);
    if (character >= 0xD800 && character < 0xDC00 && at + 3 < bytes.size()) {
      const char32_t low = unitAt(at + 2);
      if (low >= 0xDC00 && low < 0xE000) {
        character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    appendUtf8(text, character);
  }
  return text;
}

// Goes through a well-formed document and notes where its start tags stand.
class TagWalk {
 public:
  TagWalk(std::string_view text, bool isSingleByte) : m_text(text), m_isSingleByte(isSingleByte) {}

  std::vector<Position> positions(Progress& progress) {
    std::vector<Position> found;
    for (std::size_t at = m_text.find('<'); at != std::string_view::npos;
         at = m_text.find('<', at)) {
      progress.report(at, m_text.size());
      if (isStartTag(at)) {
        goTo(at);
        found.push_back(m_position);
      }
      at = endOfMarkup(at);
    }
    return found;
  }

 private:
  [[nodiscard]] bool isStartTag(std::size_t at) const {
    const char next = at + 1 < m_text.size() ? m_text[at + 1] : '/';
    return next != '/' && next != '!' && next != '?';
  }

  [[nodiscard]] std::size_t endOfMarkup(std::size_t at) const {
    const std::string_view rest = m_text.substr(at);
    if (rest.starts_with("<!--")) {
      return behind("-->", at + 4);
    }
    if (rest.starts_with("<![CDATA[")) {
      return behind("]]>", at);
    }
    if (rest.starts_with("<?")) {
      return behind("?>", at);
    }
    if (rest.starts_with("<!DOCTYPE")) {
      return endOfDoctype(at + 1);
    }
    return endOfTag(at + 1);
  }

  [[nodiscard]] std::size_t behind(std::string_view end, std::size_t at) const {
    const std::size_t found = m_text.find(end, at);
    return found == std::string_view::npos ? m_text.size() : found + end.size();
  }

  [[nodiscard]] std::size_t endOfTag(std::size_t at) const {
    while ((at = m_text.find_first_of("\"'>", at)) != std::string_view::npos) {
      if (m_text[at] == '>') {
        return at + 1;
      }
      at = behind(m_text.substr(at, 1), at + 1);
    }
    return m_text.size();
  }

  [[nodiscard]] std::size_t endOfDoctype(std::size_t at) const {
    std::size_t open = 0;
    while ((at = m_text.find_first_of("\"'<>[]", at)) != std::string_view::npos) {
      const char unit = m_text[at];
      if (unit == '"' || unit == '\'') {
        at = behind(m_text.substr(at, 1), at + 1);
      } else if (m_text.substr(at).starts_with("<!--") || m_text.substr(at).starts_with("<?")) {
        at = endOfMarkup(at);
      } else {
        ++at;
        if (unit == '<' || unit == '[') {
          ++open;
        } else if (open == 0) {
          return at;
        } else {
          --open;
        }
      }
    }
    return m_text.size();
  }

  void goTo(std::size_t at) {
    for (; m_at < at; ++m_at) {
      const char unit = m_text[m_at];
      if (unit == '\n' || (unit == '\r' && m_text[m_at + 1] != '\n')) {
        ++m_position.line;
        m_position.column = 1;
      } else if (unit != '\r' &&
                 (m_isSingleByte || (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U)) {
        ++m_position.column;
      }
    }
  }

  std::string_view m_text;
  bool m_isSingleByte;
  std::size_t m_at = 0;
  Position m_position{1, 1};
};

}  // namespace

std::string readBytes(const std::filesystem::path& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) {
    throw Failure(toUtf8(path) + ": is a folder");
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    throw Failure(toUtf8(path) + ": no such file, or no right to read it");
  }
  std::string bytes;
  std::vector<char> block(std::size_t{1024} * 1024);
  while (in) {
    in.read(block.data(), static_cast<std::streamsize>(block.size()));
    bytes.append(block.data(), static_cast<std::size_t>(in.gcount()));
  }
  if (in.bad()) {
    throw Failure(toUtf8(path) + ": reading failed");
  }
  return bytes;
}

std::string SourceEncoding::name() const {
  if (!declared.empty()) {
    return declared;
  }
  return isUtf16 ? "UTF-16" : "UTF-8";
}

SourceEncoding encodingOf(std::string_view bytes) {
  constexpr std::size_t kBeginning = 1024;
  SourceEncoding encoding;
  const bool isLittleEndian = bytes.starts_with(kLittleEndianMark);
  encoding.isBigEndian = bytes.starts_with(kBigEndianMark);
  encoding.isUtf16 = isLittleEndian || encoding.isBigEndian;
  encoding.hasMark = encoding.isUtf16 || bytes.starts_with(kUtf8Mark);
  const std::string beginning = plainText(bytes.substr(0, kBeginning), encoding);
  encoding.declared = declarationPart(beginning, "encoding");
  encoding.isSingleByte =
      !encoding.hasMark && !encoding.declared.empty() && !isUtf8Name(encoding.declared);
  return encoding;
}

std::string plainText(std::string_view bytes, const SourceEncoding& encoding) {
  if (encoding.isUtf16) {
    return fromUtf16(bytes.substr(kLittleEndianMark.size()), encoding.isBigEndian);
  }
  return std::string(bytes.substr(encoding.hasMark ? kUtf8Mark.size() : 0));
}

std::vector<Position> startTagPositions(std::string_view text, bool isSingleByte,
                                        Progress& progress) {
  return TagWalk(text, isSingleByte).positions(progress);
}

}  // namespace quorvan::tool
