#include <tools/model/item_text.h>

#include <algorithm>
#include <charconv>
#include <system_error>

namespace quorvan::tool {

namespace {

bool isDigit(char unit) noexcept {
  return unit >= '0' && unit <= '9';
}

void skipDigits(std::string_view& text) noexcept {
  while (!text.empty() && isDigit(text.front())) {
    text.remove_prefix(1);
  }
}

void skipSign(std::string_view& text) noexcept {
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    text.remove_prefix(1);
  }
}

bool equalsLower(std::string_view text, std::string_view lower) noexcept {
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a + ('a' - 'A')) : a) == b;
  });
}

}  // namespace

bool isWholeNumber(std::string_view text) noexcept {
  skipSign(text);
  const std::size_t digits = text.size();
  skipDigits(text);
  return text.empty() && digits != 0;
}

bool isDecimalNumber(std::string_view text) noexcept {
  skipSign(text);
  const std::size_t begin = text.size();
  skipDigits(text);
  std::size_t digits = begin - text.size();
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    const std::size_t behindPoint = text.size();
    skipDigits(text);
    digits += behindPoint - text.size();
  }
  if (digits == 0) {
    return false;
  }
  if (text.empty()) {
    return true;
  }
  return (text.front() == 'e' || text.front() == 'E') && isWholeNumber(text.substr(1));
}

std::optional<std::int32_t> exactLong(std::string_view text) noexcept {
  if (!isWholeNumber(text)) {
    return std::nullopt;
  }
  if (text.front() == '+') {
    text.remove_prefix(1);
  }
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return value;
}

std::optional<bool> flagOf(std::string_view text) noexcept {
  if (equalsLower(text, "true")) {
    return true;
  }
  if (equalsLower(text, "false")) {
    return false;
  }
  return std::nullopt;
}

std::optional<std::uint32_t> entryNumber(std::string_view name, std::string_view stem) noexcept {
  if (!name.starts_with(stem)) {
    return std::nullopt;
  }
  name.remove_prefix(stem.size());
  if (name.empty() || name.front() == '0' || !isDigit(name.front())) {
    return std::nullopt;
  }
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc() || end != name.data() + name.size()) {
    return std::nullopt;
  }
  return number;
}

}  // namespace quorvan::tool
