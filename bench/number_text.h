// Numbers and texts for the peers, all by the same routines of the standard library.
#pragma once

#include <charconv>
#include <cstring>
#include <string>
#include <string_view>

namespace bench {

/// A number with seven decimals, terminated.
class FixedText {
 public:
  explicit FixedText(double value) {
    *std::to_chars(m_text, m_text + sizeof(m_text) - 1, value, std::chars_format::fixed, 7).ptr =
        '\0';
  }
  [[nodiscard]] const char* c_str() const { return m_text; }

 private:
  char m_text[336];
};

/// An integer, terminated.
class IntegerText {
 public:
  explicit IntegerText(long value) {
    *std::to_chars(m_text, m_text + sizeof(m_text) - 1, value).ptr = '\0';
  }
  [[nodiscard]] const char* c_str() const { return m_text; }

 private:
  char m_text[24];
};

inline double toDouble(const char* text) {
  double value = 0;
  if (text != nullptr) {
    std::from_chars(text, text + std::strlen(text), value);
  }
  return value;
}

inline long toLong(const char* text) {
  long value = 0;
  if (text != nullptr) {
    std::from_chars(text, text + std::strlen(text), value);
  }
  return value;
}

inline std::string narrow(const std::wstring& wide) {
  std::string out;
  out.reserve(wide.size() + 8);
  for (const wchar_t unit : wide) {
    const auto c = static_cast<unsigned int>(unit);
    if (c < 0x80) {
      out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (c >> 6)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xE0 | (c >> 12)));
      out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
  }
  return out;
}

inline std::wstring widen(std::string_view utf8) {
  std::wstring out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    const auto tail = [&](std::size_t k) {
      return static_cast<unsigned int>(static_cast<unsigned char>(utf8[i + k]) & 0x3F);
    };
    if (c < 0x80) {
      out.push_back(static_cast<wchar_t>(c));
      i += 1;
    } else if (c < 0xE0) {
      out.push_back(static_cast<wchar_t>(((c & 0x1FU) << 6) | tail(1)));
      i += 2;
    } else {
      out.push_back(static_cast<wchar_t>(((c & 0x0FU) << 12) | (tail(1) << 6) | tail(2)));
      i += 3;
    }
  }
  return out;
}

/// The name of entry `number` of a point list, terminated.
class PointName {
 public:
  explicit PointName(std::size_t number) {
    std::memcpy(m_text, "Point", 5);
    *std::to_chars(m_text + 5, m_text + sizeof(m_text) - 1, number).ptr = '\0';
  }
  [[nodiscard]] const char* c_str() const { return m_text; }

 private:
  char m_text[32];
};

}  // namespace bench
