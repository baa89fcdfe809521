#include <tools/text/number_text.h>

#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

#include <quorvan/text/numbers.h>

namespace quorvan::tool {

namespace {

constexpr double kTens[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5};

// Whole numbers below a thousand million with few decimals are told by one product, unless that
// lies so near the middle between two that only all digits can tell.
bool appendQuickly(std::string& out, double value, int decimals) {
  constexpr double kMostScaled = 1e9;  // its product is known to a ten-millionth
  constexpr double kUncertain = 1e-6;
  if (decimals < 0 || decimals >= static_cast<int>(std::size(kTens))) {
    return false;
  }
  const double scaled = std::abs(value) * kTens[decimals];
  if (!(scaled < kMostScaled)) {
    return false;
  }
  auto whole = static_cast<std::uint32_t>(scaled);
  const double beyond = scaled - whole;
  if (std::abs(beyond - 0.5) < kUncertain) {
    return false;
  }
  whole += beyond > 0.5 ? 1U : 0U;
  while (decimals > 0 && whole % 10 == 0) {
    whole /= 10;
    --decimals;
  }
  if (value < 0.0 && whole != 0) {
    out += '-';
  }
  std::array<char, 16> digits{};
  char* const end = digits.data() + digits.size();
  char* at = end;
  for (int i = 0; i <= decimals || whole != 0; ++i) {
    if (i == decimals && i > 0) {
      *--at = '.';
    }
    *--at = static_cast<char>('0' + whole % 10);
    whole /= 10;
  }
  out.append(at, end);
  return true;
}

}  // namespace

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

void appendRounded(std::string& out, double value, int decimals) {
  constexpr double kLargest =
      1e15;  // beyond it a number has no decimals, and its digits mean little
  if (appendQuickly(out, value, decimals)) {
    return;
  }
  if (!(std::abs(value) < kLargest)) {
    out += shortest(value);
    return;
  }
  std::string text = fixed(value, decimals);
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
      text.pop_back();
    }
  }
  out += text;
}

std::string rounded(double value, int decimals) {
  std::string text;
  appendRounded(text, value, decimals);
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
