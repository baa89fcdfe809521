// Numbers as the transfer file carries them: one routine each way, the same on every system,
// independent of the locale and of the state of the host's floating-point arithmetic, which they
// leave as it was.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvan {

/// Room for formatFixed7, whose longest text is a sign, 309 digits, a point and 7 digits.
inline constexpr std::size_t kFixed7Capacity = 320;
/// Room for formatShortest and formatLong.
inline constexpr std::size_t kShortestCapacity = 32;

/// Writes what "%.7f" gives in the "C" locale: every finite value exact, ties to even,
/// "-0.0000000" for negative values that round to zero; "inf", "-inf", "nan" (without sign).
/// No terminator. Returns the end. `buffer` holds kFixed7Capacity characters, any of which may be
/// written.
char* formatFixed7(char* buffer, double value) noexcept;

/// Writes the shortest text that reads back to the same double. Returns the end.
char* formatShortest(char* buffer, double value) noexcept;

/// Writes the decimal digits, "-" first for negatives. Returns the end. `buffer` holds
/// kShortestCapacity characters, any of which may be written.
char* formatLong(char* buffer, std::int32_t value) noexcept;

/// Leading white space, a sign, decimal digits, an optional point and digits, an optional
/// exponent (e, E, d or D, only when digits follow); stops at the first other character.
/// 0 when there is no number; correctly rounded; beyond the range infinity or 0. No
/// hexadecimal, no "inf" or "nan".
double parseDouble(std::string_view utf8) noexcept;
double parseDouble(std::wstring_view text) noexcept;

/// Leading white space (including U+00A0 and U+3000), a sign, decimal digits (of any script),
/// stopping at the first other character. 0 when there is no digit; clamped to 32 bits.
std::int32_t parseLong(std::string_view utf8) noexcept;
std::int32_t parseLong(std::wstring_view text) noexcept;

}  // namespace quorvan
