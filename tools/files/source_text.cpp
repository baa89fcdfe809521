#include <tools/files/source_text.h>

#include <cerrno>
#include <fstream>
#include <system_error>
#include <vector>

#include <quorvan/text/utf8.h>

#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";
constexpr std::uintmax_t kLargestReserved = std::uintmax_t{1} << 31U;  // a size may be no size

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

// What begins a UTF-16 file without a mark.
bool beginsWithoutMark(std::string_view bytes, bool isBigEndian) {
  constexpr std::string_view kLittle("<\0?\0x\0", 6);
  constexpr std::string_view kBig("\0<\0?\0x", 6);
  return bytes.starts_with(isBigEndian ? kBig : kLittle);
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

std::string toUtf16(std::string_view text, const SourceEncoding& encoding) {
  std::string bytes;
  bytes.reserve(2 * text.size() + 2);
  const auto append = [&](char32_t unit) {
    const char high = static_cast<char>((unit >> 8U) & 0xFFU);
    const char low = static_cast<char>(unit & 0xFFU);
    bytes += encoding.isBigEndian ? high : low;
    bytes += encoding.isBigEndian ? low : high;
  };
  if (encoding.hasMark) {
    append(0xFEFF);
  }
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const char32_t character = decodeUtf8(at, end);
    if (character > 0xFFFF) {
      append(0xD800 + ((character - 0x10000) >> 10U));
      append(0xDC00 + ((character - 0x10000) & 0x3FFU));
    } else {
      append(character);
    }
  }
  return bytes;
}

}  // namespace

std::string readBytes(const std::filesystem::path& path, const std::string& name) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    throw Unreadable(name, "no such file");
  }
  if (std::filesystem::is_directory(status)) {
    throw Unreadable(name, "is a folder");
  }
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw Unreadable(name, "is no file, but a device or a pipe");
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    throw Unreadable(name, "no right to read it");
  }
  std::string bytes;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (!error && size <= kLargestReserved) {
    bytes.reserve(static_cast<std::size_t>(size));
  }
  std::vector<char> block(std::size_t{1024} * 1024);
  while (in) {
    in.read(block.data(), static_cast<std::streamsize>(block.size()));
    bytes.append(block.data(), static_cast<std::size_t>(in.gcount()));
  }
  if (in.bad()) {
    throw Unreadable(name, "reading failed");
  }
  return bytes;
}

void writeBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream out(path, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) {
    throw Failure(toUtf8(path) + ": cannot be written: " +
                  std::error_code(errno, std::generic_category()).message());
  }
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
  const bool hasBigMark = bytes.starts_with(kBigEndianMark);
  const bool hasMark16 = hasBigMark || bytes.starts_with(kLittleEndianMark);
  encoding.isBigEndian = hasBigMark || beginsWithoutMark(bytes, true);
  encoding.isUtf16 = hasMark16 || encoding.isBigEndian || beginsWithoutMark(bytes, false);
  encoding.hasMark = hasMark16 || bytes.starts_with(kUtf8Mark);
  const std::string beginning = plainText(bytes.substr(0, kBeginning), encoding);
  encoding.declared = declarationPart(beginning, "encoding");
  encoding.isSingleByte = !encoding.hasMark && !encoding.isUtf16 && !encoding.declared.empty() &&
                          !isUtf8Name(encoding.declared);
  return encoding;
}

std::string plainText(std::string_view bytes, const SourceEncoding& encoding) {
  if (encoding.isUtf16) {
    return fromUtf16(bytes.substr(encoding.hasMark ? kLittleEndianMark.size() : 0),
                     encoding.isBigEndian);
  }
  return std::string(bytes.substr(encoding.hasMark ? kUtf8Mark.size() : 0));
}

std::string sourceBytes(std::string_view text, const SourceEncoding& encoding) {
  if (encoding.isUtf16) {
    return toUtf16(text, encoding);
  }
  return std::string(encoding.hasMark ? kUtf8Mark : std::string_view()) + std::string(text);
}

}  // namespace quorvan::tool
