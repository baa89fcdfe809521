#include <array>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

#include <quorvan/text/decimal_digits.h>
#include <quorvan/text/floating_point_state.h>
#include <quorvan/text/numbers.h>
#include <quorvan/text/utf8.h>
#include <quorvan/text/white_space.h>

namespace quorvan {

namespace {

static_assert(FLT_EVAL_METHOD == 0, "the fast path needs arithmetic in plain double precision");

template <class Unit>
using Unsigned = std::conditional_t<sizeof(Unit) == 1, unsigned char, char32_t>;

template <class Unit>
char32_t valueOf(Unit unit) noexcept {
  return static_cast<Unsigned<Unit>>(unit);
}

template <class Unit>
bool isDigit(Unit unit) noexcept {
  return valueOf(unit) - U'0' <= 9;
}

char32_t decode(const char*& at, const char* end) noexcept {
  return decodeUtf8(at, end);
}
char32_t decode(const wchar_t*& at, const wchar_t* end) noexcept {
  return decodeWide(at, end);
}

template <class Unit>
const Unit* skipWhiteSpaceSlowly(const Unit* at, const Unit* end) noexcept {
  while (at != end) {
    const Unit* next = at;
    if (!text::isWhiteSpace(decode(next, end))) {
      break;
    }
    at = next;
  }
  return at;
}

template <class Unit>
const Unit* skipWhiteSpace(const Unit* at, const Unit* end) noexcept {
  if (at == end) {
    return at;
  }
  const char32_t first = valueOf(*at);
  return first > U' ' && first < 0x80 ? at : skipWhiteSpaceSlowly(at, end);
}

// Passes a sign; true for "-".
template <class Unit>
bool passSign(const Unit*& at, const Unit* end) noexcept {
  if (at == end) {
    return false;
  }
  const bool negative = valueOf(*at) == U'-';
  if (negative || valueOf(*at) == U'+') {
    ++at;
  }
  return negative;
}

// Reads the exponent at `at`; 0 when there is none, or none with digits. What lies beyond every
// text's length in digits is cut.
template <class Unit>
std::int64_t readExponent(const Unit* at, const Unit* end) noexcept {
  constexpr std::int64_t kLimit = 100'000'000'000'000'000;
  if (at == end) {
    return 0;
  }
  const char32_t letter = valueOf(*at) | 0x20U;
  if (letter != U'e' && letter != U'd') {
    return 0;
  }
  ++at;
  const bool negative = passSign(at, end);
  std::int64_t exponent = 0;
  for (; at != end && isDigit(*at); ++at) {
    if (exponent < kLimit) {
      exponent = exponent * 10 + static_cast<int>(valueOf(*at) - U'0');
    }
  }
  exponent = exponent < kLimit ? exponent : kLimit;
  return negative ? -exponent : exponent;
}

// The digits of a number, with or without a point among them, as far as they can decide which
// double is nearest: a midpoint between two doubles has at most 767.
class LongDecimal {
 public:
  template <class Unit>
  LongDecimal(const Unit* at, const Unit* end) noexcept {
    bool point = false;
    for (; at != end; ++at) {
      if (valueOf(*at) == U'.') {
        point = true;
      } else {
        add(static_cast<char>(valueOf(*at)), point);
      }
    }
  }

  // The nearest double to the digits times 10^exponent.
  double toDouble(std::int64_t exponent) noexcept {
    if (m_count == 0) {
      return 0.0;
    }
    const std::int64_t magnitude = m_wholeDigits + exponent;  // value < 10^magnitude
    if (magnitude > 400) {
      return std::numeric_limits<double>::infinity();
    }
    if (magnitude < -400) {
      return 0.0;
    }
    char* end = m_text.data() + m_count;
    if (m_cutOff) {
      *end++ = '1';
    }
    const std::int64_t digits = end - m_text.data();
    *end++ = 'e';
    end = std::to_chars(end, m_text.data() + m_text.size(), magnitude - digits).ptr;
    double value = 0.0;
    const InitialFloatingPointState state;
    if (std::from_chars(m_text.data(), end, value).ec == std::errc::result_out_of_range) {
      return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
  }

 private:
  static constexpr std::size_t kDigits = 800;

  void add(char digit, bool afterPoint) noexcept {
    if (m_count == 0 && digit == '0') {
      m_wholeDigits -= afterPoint ? 1 : 0;
      return;
    }
    m_wholeDigits += afterPoint ? 0 : 1;
    if (m_count < kDigits) {
      m_text[m_count++] = digit;
    } else {
      m_cutOff = m_cutOff || digit != '0';
    }
  }

  std::array<char, kDigits + 32> m_text;
  std::size_t m_count = 0;
  std::int64_t m_wholeDigits = 0;  // from the first digit kept to the point
  bool m_cutOff = false;
};

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::int64_t kLargestExactPower = 22;
constexpr std::uint64_t kExactIntegers = std::uint64_t{1} << 53U;
constexpr std::ptrdiff_t kDigitsOf64Bits = 19;

template <class Unit>
const Unit* readDigits(const Unit* at, const Unit* end, std::uint64_t& value) noexcept {
  for (; at != end && isDigit(*at); ++at) {
    value = value * 10 + (valueOf(*at) - U'0');
  }
  return at;
}

// The same as below in whatever state. Volatile, so that the operation stays where the state is the
// one it needs.
double scaledQuietly(std::int64_t number, std::int64_t exponent) noexcept {
  const InitialFloatingPointState state;
  const volatile auto factor = static_cast<double>(number);
  const volatile double power = kPowersOfTen[exponent < 0 ? -exponent : exponent];
  const volatile double value = exponent < 0 ? factor / power : factor * power;
  return value;
}

// The number times a power of ten: both exact, one operation, whose rounding is the only one.
inline double scaled(std::int64_t number, std::int64_t exponent) noexcept {
  if (exponent == 0) {
    return static_cast<double>(number);
  }
  if (roundsQuietly()) [[likely]] {
    return exponent < 0 ? static_cast<double>(number) / kPowersOfTen[-exponent]
                        : static_cast<double>(number) * kPowersOfTen[exponent];
  }
  return scaledQuietly(number, exponent);
}

// Eight digits at once, one a byte and the first in the lowest, given without their '0'.
std::uint64_t valueOfDigits(std::uint64_t digits) noexcept {
  constexpr std::uint64_t kPairs = 0x0000'00FF'0000'00FF;
  const std::uint64_t pairs = digits * 10 + (digits >> 8U);
  return ((pairs & kPairs) * (100 + (std::uint64_t{1'000'000} << 32U)) +
          ((pairs >> 16U) & kPairs) * (1 + (std::uint64_t{10'000} << 32U))) >>
         32U;
}

constexpr bool areDigits(std::uint64_t digits) noexcept {
  return (((digits + 0x0606'0606'0606'0606) | digits) & 0xF0F0'F0F0'F0F0'F0F0) == 0;
}

// The form in which numbers are filed: up to eight digits, the point, seven decimals. False, with
// nothing done, for any other.
[[maybe_unused]] bool parseFixed7(std::string_view text, double& value) noexcept {
  constexpr std::uint64_t kZeros = 0x3030'3030'3030'3030;  // "00000000"
  constexpr std::size_t kPart = sizeof kZeros;
  const bool isNegative = !text.empty() && text.front() == '-';
  text.remove_prefix(isNegative ? 1 : 0);
  if (text.size() <= kPart || text.size() > 2 * kPart || text[text.size() - kPart] != '.') {
    return false;
  }
  std::uint64_t whole = 0;
  std::uint64_t decimals = 0;
  std::memcpy(&whole, text.data(), kPart);
  std::memcpy(&decimals, text.data() + text.size() - kPart, kPart);
  whole = (whole ^ kZeros) << (8 * (2 * kPart - text.size()));
  decimals = (decimals ^ kZeros) & ~std::uint64_t{0xFF};
  if (!areDigits(whole) || !areDigits(decimals)) {
    return false;
  }
  const std::uint64_t mantissa = valueOfDigits(whole) * 10'000'000 + valueOfDigits(decimals);
  const double magnitude = scaled(static_cast<std::int64_t>(mantissa), -7);
  value = isNegative ? -magnitude : magnitude;
  return true;
}

template <class Unit>
double parse(const Unit* at, const Unit* end) noexcept {
  at = skipWhiteSpace(at, end);
  const bool negative = passSign(at, end);
  const Unit* const first = at;
  std::uint64_t mantissa = 0;
  at = readDigits(at, end, mantissa);
  std::ptrdiff_t digits = at - first;
  std::int64_t exponent = 0;
  if (at != end && valueOf(*at) == U'.') {
    const Unit* const fraction = ++at;
    at = readDigits(at, end, mantissa);
    exponent = fraction - at;
    digits += at - fraction;
  }
  if (digits == 0) {
    return 0.0;
  }
  const Unit* const last = at;
  exponent += readExponent(at, end);
  double value = 0.0;
  if (digits <= kDigitsOf64Bits && mantissa <= kExactIntegers && exponent <= kLargestExactPower &&
      exponent >= -kLargestExactPower) {
    value = scaled(static_cast<std::int64_t>(mantissa), exponent);
  } else {
    value = LongDecimal(first, last).toDouble(readExponent(last, end));
  }
  return negative ? -value : value;
}

template <class Unit>
std::int32_t parseInteger(const Unit* at, const Unit* end) noexcept {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
  at = skipWhiteSpace(at, end);
  const bool negative = passSign(at, end);
  const std::int64_t limit = negative ? kLargest + 1 : kLargest;
  std::int64_t value = 0;
  while (at != end) {
    const int digit = text::decimalDigit(decode(at, end));
    if (digit < 0) {
      break;
    }
    value = value * 10 + digit;
    if (value > limit) {
      value = limit;
    }
  }
  return static_cast<std::int32_t>(negative ? -value : value);
}

}  // namespace

double parseDouble(std::string_view utf8) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    if (double value = 0.0; parseFixed7(utf8, value)) {
      return value;
    }
  }
  return parse(utf8.data(), utf8.data() + utf8.size());
}

double parseDouble(std::wstring_view text) noexcept {
  return parse(text.data(), text.data() + text.size());
}

std::int32_t parseLong(std::string_view utf8) noexcept {
  return parseInteger(utf8.data(), utf8.data() + utf8.size());
}

std::int32_t parseLong(std::wstring_view text) noexcept {
  return parseInteger(text.data(), text.data() + text.size());
}

}  // namespace quorvan
