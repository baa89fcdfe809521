#include <tools/text/number_text.h>

#include <array>
#include <charconv>
#include <cmath>

#include <quorvan/text/numbers.h>

namespace quorvan::tool {

std::string shortest(double value) {
  std::array<char, kShortestCapacity> buffer{};
  return {buffer.data(), formatShortest(buffer.data(), value)};
}

std::string fixed(double value, int decimals) {
  // The longest number has 309 digits before the point.
  std::array<char, 400> buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::fixed, decimals);
  std::string text(buffer.data(), end);
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) {
    text.erase(0, 1);
  }
  return text;
}

std::string rounded(double value, int decimals) {
  constexpr double kLargest =
      1e15;  // beyond it a number has no decimals, and its digits mean little
  if (!(std::abs(value) < kLargest)) {
    return shortest(value);
  }
  std::string text = fixed(value, decimals);
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
      text.pop_back();
    }
  }
  return text;
}

std::string runsOf(const std::vector<std::int64_t>& numbers, std::size_t most) {
  std::string text;
  std::size_t runs = 0;
  for (std::size_t at = 0; at < numbers.size(); ++runs) {
    std::size_t end = at + 1;
    while (end < numbers.size() && numbers[end] == numbers[end - 1] + 1) {
      ++end;
    }
    if (runs == most) {
      return text + (text.empty() ? "..." : ", ...");
    }
    text += (text.empty() ? "" : ", ") + std::to_string(numbers[at]);
    if (end - at > 1) {
      text += (end - at == 2 ? ", " : "-") + std::to_string(numbers[end - 1]);
    }
    at = end;
  }
  return text;
}

}  // namespace quorvan::tool
