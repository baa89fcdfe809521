#include <tools/draw/dxf/group_text.h>

#include <charconv>
#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kParts = 1e9;        // of a unit
constexpr double kRatioParts = 1e12;  // of 1
constexpr double kLargestRounded = 1e6;
constexpr double kLargestWrittenOut = 1e15;

double roundedTo(double value, double parts) {
  return std::abs(value) < kLargestRounded ? std::nearbyint(value * parts) / parts : value;
}

}  // namespace

void GroupText::code(int code) {
  // Right-aligned in three columns, as programs write them.
  constexpr int kTwoColumns = 10;
  constexpr int kThreeColumns = 100;
  m_bytes.append(code < kTwoColumns ? 2 : code < kThreeColumns ? 1 : 0, ' ');
  char digits[8];
  m_bytes.append(digits, std::to_chars(digits, digits + sizeof(digits), code).ptr);
  endLine();
}

void GroupText::text(int code, std::string_view value) {
  this->code(code);
  m_bytes += value;
  endLine();
}

void GroupText::integer(int code, std::int64_t value) {
  this->code(code);
  char digits[24];
  m_bytes.append(digits, std::to_chars(digits, digits + sizeof(digits), value).ptr);
  endLine();
}

void GroupText::handle(int code, std::uint32_t value) {
  constexpr int kHexadecimal = 16;
  this->code(code);
  char digits[16];
  char* const end = std::to_chars(digits, digits + sizeof(digits), value, kHexadecimal).ptr;
  for (const char* digit = digits; digit != end; ++digit) {
    m_bytes += *digit >= 'a' ? static_cast<char>(*digit - 'a' + 'A') : *digit;
  }
  endLine();
}

void GroupText::number(int code, double value) {
  this->code(code);
  decimal(roundedTo(value, kParts));
}

void GroupText::ratio(int code, double value) {
  this->code(code);
  decimal(roundedTo(value, kRatioParts));
}

// Always with a point, never "-0.0".
void GroupText::decimal(double value) {
  const double written = value == 0.0 ? 0.0 : value;
  const bool isLarge = std::abs(written) >= kLargestWrittenOut;
  char digits[64];
  char* const end =
      std::to_chars(digits, digits + sizeof(digits), written,
                    isLarge ? std::chars_format::scientific : std::chars_format::fixed)
          .ptr;
  const std::string_view text(digits, static_cast<std::size_t>(end - digits));
  m_bytes += text;
  if (text.find_first_of(".e") == std::string_view::npos) {
    m_bytes += ".0";
  }
  endLine();
}

void GroupText::point(int code, PlanePoint value) {
  constexpr int kToZ = 20;
  planePoint(code, value);
  number(code + kToZ, 0.0);
}

void GroupText::planePoint(int code, PlanePoint value) {
  constexpr int kToY = 10;
  number(code, value.x);
  number(code + kToY, value.y);
}

}  // namespace quorvan::tool
