#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include <quorvan/text/floating_point_state.h>
#include <quorvan/text/numbers.h>

namespace quorvan {

namespace {

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);

constexpr unsigned kMantissaBits = 52;
constexpr std::uint64_t kHiddenBit = std::uint64_t{1} << kMantissaBits;
constexpr unsigned kExponentMask = 0x7FF;
// A double is its 53-bit mantissa times two to the power of its stored exponent less this.
constexpr int kExponentBias = 1075;

constexpr std::uint32_t kFractionScale = 10'000'000;  // 7 decimals
constexpr std::uint32_t kFiveToThe7th = 78'125;

constexpr std::uint32_t kEightDigits = 100'000'000;  // the numbers below it

// The eight decimal digits of a number below 10^8, one a byte, the first in the lowest. All at
// once: halves of four, then of two, then single ones, divided by multiplying.
std::uint64_t eightDigits(std::uint32_t value) noexcept {
  const std::uint64_t fours = value / 10'000 | (std::uint64_t{value % 10'000} << 32U);
  const std::uint64_t hundreds = ((fours * 10'486) >> 20U) & 0x7F'0000'007F;
  const std::uint64_t pairs = ((fours - 100 * hundreds) << 16U) | hundreds;
  const std::uint64_t tens = ((pairs * 103) >> 10U) & 0x000F'000F'000F'000F;
  return ((pairs - 10 * tens) << 8U) | tens;
}

// Writes the bytes, the lowest first.
void putBytes(char* out, std::uint64_t bytes) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(out, &bytes, sizeof bytes);
  } else {
    for (unsigned i = 0; i < sizeof bytes; ++i) {
      out[i] = static_cast<char>(bytes >> (8 * i));
    }
  }
}

constexpr std::uint64_t kZeros = 0x3030'3030'3030'3030;  // "00000000"

// A number below 10^8. Writes past the end that it returns: eight bytes in all.
char* putShortInteger(char* out, std::uint32_t value) noexcept {
  const std::uint64_t digits = eightDigits(value);
  const std::uint64_t lastDigit = std::uint64_t{1} << 56U;  // is written even when it is 0
  const auto leadingZeros = static_cast<unsigned>(std::countr_zero(digits | lastDigit)) / 8;
  putBytes(out, (kZeros | digits) >> (8 * leadingZeros));
  return out + (8 - leadingZeros);
}

// Writes past the end that it returns, too.
char* putInteger(char* out, std::uint64_t value) noexcept {
  if (value < kEightDigits) {
    return putShortInteger(out, static_cast<std::uint32_t>(value));
  }
  out = putInteger(out, value / kEightDigits);
  putBytes(out, kZeros | eightDigits(static_cast<std::uint32_t>(value % kEightDigits)));
  return out + 8;
}

// The point and seven decimals, most often of a whole number.
char* putFraction(char* out, std::uint32_t value) noexcept {
  constexpr std::uint64_t kPoint = std::uint64_t{'.'} ^ std::uint64_t{'0'};
  putBytes(out, (value == 0 ? kZeros : kZeros | eightDigits(value)) ^ kPoint);
  return out + 8;
}

char* putText(char* out, const char* text) noexcept {
  const std::size_t length = std::strlen(text);
  std::memcpy(out, text, length);
  return out + length;
}

// A value in units of 10^-7, rounded, ties to even; the whole part apart.
struct Fixed7 {
  std::uint64_t whole;
  std::uint32_t fraction;
};

// mantissa * 2^exponent, exponent -63 to -1. The fraction as a binary fraction of 64 bits is exact;
// times 10^7, by halves, the high word holds the decimals and the low one the rest.
Fixed7 roundOrdinary(std::uint64_t mantissa, int exponent) noexcept {
  const std::uint64_t binary = mantissa << static_cast<unsigned>(64 + exponent);
  const std::uint64_t low = (binary & 0xFFFF'FFFFU) * kFractionScale;
  const std::uint64_t high = (binary >> 32U) * kFractionScale + (low >> 32U);
  const std::uint64_t rest = (high << 32U) | (low & 0xFFFF'FFFFU);
  const std::uint64_t decimals = high >> 32U;
  // Up when adding this overflows, found without a branch, which nobody could foresee.
  const std::uint64_t upTo = (std::uint64_t{1} << 63U) - 1 + (decimals & 1U);
  const std::uint64_t up = ((rest & upTo) | ((rest | upTo) & ~(rest + upTo))) >> 63U;
  const std::uint64_t rounded = decimals + up;
  const std::uint64_t carry = rounded == kFractionScale ? 1 : 0;
  return {(mantissa >> static_cast<unsigned>(-exponent)) + carry,
          static_cast<std::uint32_t>(carry != 0 ? 0 : rounded)};
}

// The same for exponents below -63, where the value is below 2^-11: 10^7 is 5^7 times 2^7, and the
// product with 5^7 has at most 70 bits.
Fixed7 roundSmall(std::uint64_t mantissa, int exponent) noexcept {
  const std::uint64_t low = (mantissa & 0xFFFF'FFFFU) * kFiveToThe7th;
  const std::uint64_t high = (mantissa >> 32U) * kFiveToThe7th + (low >> 32U);  // below 2^38
  const int shift = -exponent - 7 - 32;
  if (shift >= 40) {
    return {0, 0};
  }
  const std::uint64_t half = std::uint64_t{1} << static_cast<unsigned>(shift - 1);
  const std::uint64_t decimals = high >> static_cast<unsigned>(shift);
  const std::uint64_t rest = high & (2 * half - 1);
  const bool restOdd = (low & 0xFFFF'FFFFU) != 0 || (decimals & 1U) != 0;
  const bool up = rest > half || (rest == half && restOdd);
  return {0, static_cast<std::uint32_t>(decimals + (up ? 1 : 0))};
}

char* putFixed7(char* out, Fixed7 value) noexcept {
  return putFraction(putInteger(out, value.whole), value.fraction);
}

}  // namespace

char* formatFixed7(char* buffer, double value) noexcept {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto field = static_cast<unsigned>(bits >> kMantissaBits) & kExponentMask;
  std::uint64_t mantissa = bits & (kHiddenBit - 1);
  if (field == kExponentMask && mantissa != 0) {
    return putText(buffer, "nan");
  }
  if ((bits >> 63U) != 0) {
    *buffer++ = '-';
  }
  if (field == kExponentMask) {
    return putText(buffer, "inf");
  }
  mantissa |= field != 0 ? kHiddenBit : 0;
  const int exponent = static_cast<int>(field != 0 ? field : 1) - kExponentBias;
  if (exponent < -63) {
    return putFixed7(buffer, roundSmall(mantissa, exponent));
  }
  if (exponent < 0) {
    return putFixed7(buffer, roundOrdinary(mantissa, exponent));
  }
  if (exponent <= 10) {
    return putFixed7(buffer, {mantissa << static_cast<unsigned>(exponent), 0});
  }
  return std::to_chars(buffer, buffer + kFixed7Capacity - 1, std::abs(value),
                       std::chars_format::fixed, 7)
      .ptr;
}

char* formatShortest(char* buffer, double value) noexcept {
  // By its bits: a comparison of the smallest numbers leaves a trace in the state.
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto field = static_cast<unsigned>(bits >> kMantissaBits) & kExponentMask;
  const std::uint64_t mantissa = bits & (kHiddenBit - 1);
  if (field == kExponentMask && mantissa != 0) {
    return putText(buffer, "nan");
  }
  if (field == 0 && mantissa != 0) {
    // So small that the processor may take it for zero.
    const InitialFloatingPointState state;
    return std::to_chars(buffer, buffer + kShortestCapacity, value).ptr;
  }
  return std::to_chars(buffer, buffer + kShortestCapacity, value).ptr;
}

char* formatLong(char* buffer, std::int32_t value) noexcept {
  auto magnitude = static_cast<std::uint32_t>(value);
  if (value < 0) {
    *buffer++ = '-';
    magnitude = 0U - magnitude;
  }
  if (magnitude < 10) {
    *buffer = static_cast<char>('0' + magnitude);
    return buffer + 1;
  }
  return putInteger(buffer, magnitude);
}

}  // namespace quorvan
