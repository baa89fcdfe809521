#include <tools/draw/dxf/group_text.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>

namespace quorvan::tool {

namespace {

constexpr double kParts = 1e9;        // of a unit
constexpr double kRatioParts = 1e12;  // of 1
constexpr double kLargestRounded = 1e6;
constexpr double kLargestWhole = 1e15;  // a double holds any of so many parts
constexpr double kLargestWrittenOut = 1e15;

// Collects one group: a code and a value without a line end, in `kLongest` letters at the most.
class Line {
 public:
  explicit Line(int code) {
    // Right-aligned in three columns, as programs write them.
    constexpr int kTwoColumns = 10;
    constexpr int kThreeColumns = 100;
    if (code < kThreeColumns) {
      put(' ');
    }
    if (code < kTwoColumns) {
      put(' ');
    }
    whole(code);
    end();
  }

  void put(char letter) { *m_end++ = letter; }
  void whole(std::int64_t value) { m_end = std::to_chars(m_end, limit(), value).ptr; }
  void end() {
    put('\r');
    put('\n');
  }

  void hexadecimal(std::uint32_t value) {
    constexpr int kHexadecimal = 16;
    char* const begin = m_end;
    m_end = std::to_chars(m_end, limit(), value, kHexadecimal).ptr;
    std::transform(begin, m_end, begin, [](char digit) {
      return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    });
  }

  // To one of `parts` where those can be told.
  void decimal(double value, double parts) {
    const double inParts = std::nearbyint(value * parts);
    if (std::abs(value) < kLargestRounded && std::abs(inParts) < kLargestWhole) {
      return ofParts(static_cast<std::int64_t>(inParts), static_cast<std::int64_t>(parts));
    }
    shortest(std::abs(value) < kLargestRounded ? inParts / parts : value);
  }

  [[nodiscard]] std::string_view bytes() const {
    return {m_bytes, static_cast<std::size_t>(m_end - m_bytes)};
  }

 private:
  static constexpr std::size_t kLongest = 64;

  [[nodiscard]] char* limit() { return m_bytes + kLongest; }

  // Always with a point, never "-0.0".
  void ofParts(std::int64_t count, std::int64_t parts) {
    if (count < 0) {
      put('-');
    }
    const std::int64_t size = std::abs(count);
    whole(size / parts);
    put('.');
    std::int64_t rest = size % parts;
    do {
      rest *= 10;
      put(static_cast<char>('0' + rest / parts));
      rest %= parts;
    } while (rest != 0);
  }

  void shortest(double value) {
    char* const begin = m_end;
    const bool isLarge = std::abs(value) >= kLargestWrittenOut;
    m_end = std::to_chars(m_end, limit(), value,
                          isLarge ? std::chars_format::scientific : std::chars_format::fixed)
                .ptr;
    if (std::none_of(begin, m_end, [](char letter) { return letter == '.' || letter == 'e'; })) {
      put('.');
      put('0');
    }
  }

  char m_bytes[kLongest + 4];
  char* m_end = m_bytes;
};

}  // namespace

void GroupText::text(int code, std::string_view value) {
  m_bytes += Line(code).bytes();
  m_bytes += value;
  m_bytes += "\r\n";
}

void GroupText::integer(int code, std::int64_t value) {
  Line line(code);
  line.whole(value);
  line.end();
  m_bytes += line.bytes();
}

void GroupText::handle(int code, std::uint32_t value) {
  Line line(code);
  line.hexadecimal(value);
  line.end();
  m_bytes += line.bytes();
}

void GroupText::number(int code, double value) {
  decimal(code, value, kParts);
}

void GroupText::ratio(int code, double value) {
  decimal(code, value, kRatioParts);
}

void GroupText::decimal(int code, double value, double parts) {
  Line line(code);
  line.decimal(value, parts);
  line.end();
  m_bytes += line.bytes();
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

void GroupText::beginSection(std::string_view name) {
  text(0, "SECTION");
  text(2, name);
}

void GroupText::identity(std::uint32_t handle, std::uint32_t owner, std::string_view subclass) {
  this->handle(5, handle);
  this->handle(330, owner);
  if (!subclass.empty()) {
    text(100, subclass);
  }
}

}  // namespace quorvan::tool
