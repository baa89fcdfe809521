#include <quorvan/xml/embedded/tree/declaration.h>

#include <algorithm>

namespace quorvan::embedded {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

constexpr bool isLetter(char unit) noexcept {
  return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z');
}

bool isEncodingName(std::string_view text) noexcept {
  return !text.empty() && isLetter(text.front()) &&
         std::all_of(text.begin(), text.end(), [](char unit) {
           return isLetter(unit) || (unit >= '0' && unit <= '9') || unit == '.' || unit == '_' ||
                  unit == '-';
         });
}

void skipBlanks(std::string_view& data) noexcept {
  data.remove_prefix(std::min(data.find_first_not_of(kBlanks), data.size()));
}

bool skip(std::string_view& data, std::string_view text) noexcept {
  if (data.substr(0, text.size()) != text) {
    return false;
  }
  data.remove_prefix(text.size());
  return true;
}

// Takes `name = "text"` from the front of the data, with either quotes; nothing taken if it is not
// there. False when it begins well and ends badly.
bool takePart(std::string_view& data, std::string_view name, std::string_view& part) noexcept {
  std::string_view rest = data;
  skipBlanks(rest);
  const bool isApart = rest.size() < data.size() || name == "version";
  if (!isApart || !skip(rest, name)) {
    return true;
  }
  skipBlanks(rest);
  if (!skip(rest, "=")) {
    return false;
  }
  skipBlanks(rest);
  if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) {
    return false;
  }
  const std::size_t end = rest.find(rest.front(), 1);
  if (end == std::string_view::npos) {
    return false;
  }
  part = rest.substr(1, end - 1);
  data = rest.substr(end + 1);
  return isDeclarationPart(name, part);
}

}  // namespace

std::optional<Declaration> parseDeclaration(std::string_view data) noexcept {
  Declaration declaration;
  if (!takePart(data, "version", declaration.version) || declaration.version.empty() ||
      !takePart(data, "encoding", declaration.encoding) ||
      !takePart(data, "standalone", declaration.standalone)) {
    return std::nullopt;
  }
  skipBlanks(data);
  if (!data.empty()) {
    return std::nullopt;
  }
  return declaration;
}

bool isDeclarationPart(std::string_view name, std::string_view text) noexcept {
  if (name == "version") {
    return text == "1.0";
  }
  if (name == "encoding") {
    return isEncodingName(text);
  }
  return name == "standalone" && (text == "yes" || text == "no");
}

}  // namespace quorvan::embedded
