// The number routines against the C library's.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include <fuzz/input.h>
#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <quorvan/text/numbers.h>

using quorvan::fuzz::require;

namespace {

void checkFormatting(double value) {
  if (!std::isfinite(value)) {
    return;
  }
  char ours[quorvan::kFixed7Capacity];
  char theirs[quorvan::kFixed7Capacity + 1];
  const std::string fixed(ours, quorvan::formatFixed7(ours, value));
  const int length = std::snprintf(theirs, sizeof theirs, "%.7f", value);
  require(fixed == std::string(theirs, static_cast<std::size_t>(length)), "seven decimals");
  const std::string shortest(ours, quorvan::formatShortest(ours, value));
  require(std::bit_cast<std::uint64_t>(std::strtod(shortest.c_str(), nullptr)) ==
              std::bit_cast<std::uint64_t>(value),
          "the shortest text reads back");
  require(std::bit_cast<std::uint64_t>(quorvan::parseDouble(shortest)) ==
              std::bit_cast<std::uint64_t>(value),
          "the shortest text reads back by us");
}

bool isSame(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// The bytes turned into characters of which numbers are made.
std::string numberText(const std::uint8_t* data, std::size_t size) {
  constexpr char kCharacters[] = "0123456789.+-eE 0123456789012345";
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    text += kCharacters[data[i] % 32U];
  }
  return text;
}

void checkParsing(const std::string& text) {
  const std::wstring wide(text.begin(), text.end());
  require(isSame(quorvan::parseDouble(text), std::strtod(text.c_str(), nullptr)) ||
              (quorvan::parseDouble(text) == 0 && std::strtod(text.c_str(), nullptr) == 0),
          "doubles");
  require(isSame(quorvan::parseDouble(text), quorvan::parseDouble(std::wstring_view(wide))),
          "wide doubles");
  const long long number = std::clamp<long long>(std::strtoll(text.c_str(), nullptr, 10),
                                                 std::numeric_limits<std::int32_t>::min(),
                                                 std::numeric_limits<std::int32_t>::max());
  require(quorvan::parseLong(text) == number, "longs");
  require(quorvan::parseLong(std::wstring_view(wide)) == number, "wide longs");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quorvan::fuzz::Input input(data, size);
  checkFormatting(std::bit_cast<double>(input.bits(8)));
  checkParsing(numberText(data, size));
  // Any bytes at all: nothing to compare with, but no fault either.
  const std::string any(data, data + size);
  static_cast<void>(quorvan::parseDouble(any));
  static_cast<void>(quorvan::parseLong(any));
  return 0;
}
