#include <quorvan/text/format_conversion.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string_view>

#include <quorvan/text/cstring.h>
#include <quorvan/text/utf8.h>

namespace quorvan::text {

namespace {

using platform::FormatArgument;
using Kind = FormatArgument::Kind;

[[noreturn]] void raiseUnsuitable() {
  throw std::invalid_argument("CString::Format: argument does not suit its conversion");
}

bool isUpper(wchar_t letter) {
  return letter >= L'A' && letter <= L'Z';
}

std::wstring widen(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

void toUpperAscii(std::string& text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char unit) {
    return unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - ('a' - 'A')) : unit;
  });
}

// --- numbers ---------------------------------------------------------------------------------

// Sign or base prefix, digits: apart, because padding zeros go between them.
struct Number {
  std::string prefix;
  std::string digits;
  bool zerosAllowed = true;
};

std::wstring padded(const FormatConversion& conversion, const Number& number) {
  const std::size_t length = number.prefix.size() + number.digits.size();
  const auto width = static_cast<std::size_t>(conversion.width);
  const std::size_t padding = width > length ? width - length : 0;
  const std::wstring prefix = widen(number.prefix);
  const std::wstring digits = widen(number.digits);
  if (conversion.leftAlign) {
    return prefix + digits + std::wstring(padding, L' ');
  }
  if (conversion.zeros && number.zerosAllowed) {
    return prefix + std::wstring(padding, L'0') + digits;
  }
  return std::wstring(padding, L' ') + prefix + digits;
}

std::string signPrefix(const FormatConversion& conversion, bool negative) {
  if (negative) {
    return "-";
  }
  if (conversion.plus) {
    return "+";
  }
  return conversion.blank ? " " : "";
}

std::string digitsOf(std::uint64_t value, int base, int precision) {
  char buffer[std::numeric_limits<std::uint64_t>::digits];
  const char* const end = std::to_chars(buffer, buffer + sizeof buffer, value, base).ptr;
  std::string digits(static_cast<const char*>(buffer), end);
  if (value == 0 && precision == 0) {
    digits.clear();
  }
  const auto wanted = static_cast<std::size_t>(std::max(precision, 0));
  if (digits.size() < wanted) {
    digits.insert(0, wanted - digits.size(), '0');
  }
  return digits;
}

Number signedInteger(const FormatConversion& conversion, const FormatArgument& argument) {
  const std::uint64_t value = integerOf(conversion, argument, true);
  const bool negative = static_cast<std::int64_t>(value) < 0;
  return {signPrefix(conversion, negative),
          digitsOf(negative ? 0 - value : value, 10, conversion.precision),
          conversion.precision < 0};
}

Number unsignedInteger(const FormatConversion& conversion, const FormatArgument& argument) {
  const std::uint64_t value = integerOf(conversion, argument, false);
  const bool hexadecimal = conversion.letter == L'x' || conversion.letter == L'X';
  const bool octal = conversion.letter == L'o';
  const int base = hexadecimal ? 16 : octal ? 8 : 10;
  Number number{"", digitsOf(value, base, conversion.precision), conversion.precision < 0};
  if (conversion.alternate && hexadecimal && value != 0) {
    number.prefix = "0x";
  }
  if (conversion.alternate && octal && !number.digits.starts_with('0')) {
    number.digits.insert(0, "0");
  }
  if (conversion.letter == L'X') {
    toUpperAscii(number.prefix);
    toUpperAscii(number.digits);
  }
  return number;
}

std::string toChars(double magnitude, std::chars_format format, int precision) {
  // The longest whole part, point, sign and exponent come on top of the decimals.
  std::string text(static_cast<std::size_t>(precision) + 330, '\0');
  char* const begin = text.data();
  const char* const end =
      std::to_chars(begin, begin + text.size(), magnitude, format, precision).ptr;
  text.resize(static_cast<std::size_t>(end - begin));
  return text;
}

// "%#g" keeps the trailing zeros that "%g" drops.
std::string generalWithZeros(double magnitude, int precision) {
  const int digits = std::max(precision, 1);
  std::string scientific = toChars(magnitude, std::chars_format::scientific, digits - 1);
  const std::size_t mark = scientific.find('e');
  int exponent = 0;
  const std::size_t sign = scientific[mark + 1] == '+' ? 1 : 0;
  std::from_chars(scientific.data() + mark + 1 + sign, scientific.data() + scientific.size(),
                  exponent);
  if (exponent < -4 || exponent >= digits) {
    return scientific;
  }
  return toChars(magnitude, std::chars_format::fixed, digits - 1 - exponent);
}

std::string floatingDigits(const FormatConversion& conversion, double magnitude) {
  const int precision = conversion.precision < 0 ? 6 : conversion.precision;
  switch (conversion.letter) {
    case L'f':
    case L'F':
      return toChars(magnitude, std::chars_format::fixed, precision);
    case L'e':
    case L'E':
      return toChars(magnitude, std::chars_format::scientific, precision);
    default:
      return conversion.alternate ? generalWithZeros(magnitude, precision)
                                  : toChars(magnitude, std::chars_format::general, precision);
  }
}

Number floating(const FormatConversion& conversion, const FormatArgument& argument) {
  if (argument.kind() != Kind::Floating) {
    raiseUnsuitable();
  }
  const double value = argument.floating();
  Number number{signPrefix(conversion, std::signbit(value) && !std::isnan(value)), "", true};
  if (!std::isfinite(value)) {
    number.digits = std::isnan(value) ? "nan" : "inf";
    number.zerosAllowed = false;
  } else {
    number.digits = floatingDigits(conversion, std::abs(value));
    if (conversion.alternate && number.digits.find('.') == std::string::npos) {
      number.digits.insert(std::min(number.digits.find('e'), number.digits.size()), ".");
    }
  }
  if (isUpper(conversion.letter)) {
    toUpperAscii(number.digits);
  }
  return number;
}

Number pointer(const FormatArgument& argument) {
  constexpr int kDigits = 2 * static_cast<int>(sizeof(void*));
  std::uintptr_t address = 0;
  switch (argument.kind()) {
    case Kind::Pointer:
      address = reinterpret_cast<std::uintptr_t>(argument.pointer());
      break;
    case Kind::NarrowText:
      address = reinterpret_cast<std::uintptr_t>(argument.narrow());
      break;
    case Kind::WideText:
      address = reinterpret_cast<std::uintptr_t>(argument.wide());
      break;
    default:
      raiseUnsuitable();
  }
  Number number{"", digitsOf(address, 16, kDigits), false};
  toUpperAscii(number.digits);
  return number;
}

// --- texts -----------------------------------------------------------------------------------

template <class Unit>
std::size_t lengthUpTo(const Unit* text, int limit) {
  if (limit < 0) {
    return std::char_traits<Unit>::length(text);
  }
  const auto most = static_cast<std::size_t>(limit);
  std::size_t length = 0;
  while (length < most && text[length] != Unit{}) {
    ++length;
  }
  return length;
}

std::wstring padded(const FormatConversion& conversion, std::wstring_view text) {
  const auto width = static_cast<std::size_t>(conversion.width);
  const std::wstring padding(width > text.size() ? width - text.size() : 0, L' ');
  return conversion.leftAlign ? std::wstring(text) + padding : padding + std::wstring(text);
}

// A text is taken for what its type says; the letter only repeats it.
std::wstring text(const FormatConversion& conversion, const FormatArgument& argument) {
  if (argument.kind() == Kind::WideText) {
    const wchar_t* const wide = argument.wide() == nullptr ? L"(null)" : argument.wide();
    return padded(conversion, {wide, lengthUpTo(wide, conversion.precision)});
  }
  if (argument.kind() != Kind::NarrowText) {
    raiseUnsuitable();
  }
  const char* const narrow = argument.narrow() == nullptr ? "(null)" : argument.narrow();
  const CString wide = fromUtf8({narrow, lengthUpTo(narrow, conversion.precision)});
  return padded(conversion, wide.view());
}

std::wstring character(const FormatConversion& conversion, const FormatArgument& argument) {
  const std::uint64_t value = integerOf(conversion, argument, false);
  const bool narrow = argument.bytes() == 1 || conversion.letter == L'C';
  const std::uint64_t byte = value & 0xFFU;
  const auto shown = narrow ? static_cast<wchar_t>(byte < 0x80 ? byte : kReplacementCharacter)
                            : static_cast<wchar_t>(value);
  return padded(conversion, std::wstring_view(&shown, 1));
}

}  // namespace

std::uint64_t integerOf(const FormatConversion& conversion, const FormatArgument& argument,
                        bool isSigned) {
  if (argument.kind() != Kind::Signed && argument.kind() != Kind::Unsigned) {
    raiseUnsuitable();
  }
  const unsigned bytes = std::min(conversion.maxBytes, argument.bytes());
  const unsigned unused = 64 - 8 * bytes;
  const std::uint64_t shifted = argument.integer() << unused;
  return isSigned ? static_cast<std::uint64_t>(static_cast<std::int64_t>(shifted) >> unused)
                  : shifted >> unused;
}

std::wstring converted(const FormatConversion& conversion, const FormatArgument& argument) {
  switch (conversion.letter) {
    case L'd':
    case L'i':
      return padded(conversion, signedInteger(conversion, argument));
    case L'u':
    case L'x':
    case L'X':
    case L'o':
      return padded(conversion, unsignedInteger(conversion, argument));
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
      return padded(conversion, floating(conversion, argument));
    case L'p':
      return padded(conversion, pointer(argument));
    case L's':
    case L'S':
      return text(conversion, argument);
    default:
      return character(conversion, argument);
  }
}

}  // namespace quorvan::text
