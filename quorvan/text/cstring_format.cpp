#include <algorithm>
#include <climits>
#include <stdexcept>
#include <string>
#include <string_view>

#include <quorvan/text/cstring.h>
#include <quorvan/text/format_conversion.h>

namespace {

using quorvan::platform::FormatArgument;
using quorvan::text::FormatConversion;
using quorvan::text::integerOf;

// Of conversions that take an argument; what follows "%" otherwise stays as it is.
constexpr std::wstring_view kLetters = L"diuxXofFeEgGpsScC";

bool isDigit(wchar_t unit) {
  return unit >= L'0' && unit <= L'9';
}

class Formatter {
 public:
  Formatter(const wchar_t* format, std::initializer_list<FormatArgument> arguments)
      : m_at(format), m_next(arguments.begin()), m_end(arguments.end()) {}

  std::wstring run() {
    while (*m_at != L'\0') {
      const wchar_t* const plain = m_at;
      while (*m_at != L'\0' && *m_at != L'%') {
        ++m_at;
      }
      m_out.append(plain, m_at);
      if (*m_at == L'%') {
        convert();
      }
    }
    return std::move(m_out);
  }

 private:
  const FormatArgument& nextArgument() {
    if (m_next == m_end) {
      throw std::invalid_argument("CString::Format: too few arguments");
    }
    return *m_next++;
  }

  void convert() {
    const wchar_t* const start = m_at++;
    FormatConversion conversion;
    readFlags(conversion);
    conversion.width = readNumber();
    if (conversion.width < 0) {
      conversion.leftAlign = true;
      conversion.width = conversion.width == INT_MIN ? INT_MAX : -conversion.width;
    }
    if (*m_at == L'.') {
      ++m_at;
      conversion.precision = std::max(readNumber(), -1);
    }
    readSize(conversion);
    conversion.letter = *m_at;
    if (conversion.letter == L'\0') {
      m_out.append(start, m_at);
      return;
    }
    ++m_at;
    if (conversion.letter == L'%') {
      m_out += L'%';
    } else if (kLetters.find(conversion.letter) == std::wstring_view::npos) {
      m_out.append(start, m_at);
    } else {
      m_out += quorvan::text::converted(conversion, nextArgument());
    }
  }

  void readFlags(FormatConversion& conversion) {
    for (;; ++m_at) {
      switch (*m_at) {
        case L'-':
          conversion.leftAlign = true;
          break;
        case L'+':
          conversion.plus = true;
          break;
        case L' ':
          conversion.blank = true;
          break;
        case L'#':
          conversion.alternate = true;
          break;
        case L'0':
          conversion.zeros = true;
          break;
        default:
          return;
      }
    }
  }

  // Digits or "*"; 0 without either.
  int readNumber() {
    if (*m_at == L'*') {
      ++m_at;
      const auto value = static_cast<std::int64_t>(integerOf({}, nextArgument(), true));
      return static_cast<int>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
    }
    std::int64_t value = 0;
    for (; isDigit(*m_at); ++m_at) {
      value = std::min<std::int64_t>(value * 10 + (*m_at - L'0'), INT_MAX);
    }
    return static_cast<int>(value);
  }

  void readSize(FormatConversion& conversion) {
    for (;; ++m_at) {
      switch (*m_at) {
        case L'h':
          conversion.maxBytes = conversion.maxBytes == 2 ? 1 : 2;
          break;
        case L'l':
        case L'L':
        case L'w':
        case L'j':
        case L'z':
        case L't':
          break;
        case L'I': {
          const std::wstring_view bits(m_at + 1);
          if (bits.starts_with(L"32")) {
            conversion.maxBytes = 4;
          }
          if (bits.starts_with(L"32") || bits.starts_with(L"64")) {
            m_at += 2;
          }
          break;
        }
        default:
          return;
      }
    }
  }

  const wchar_t* m_at;
  const FormatArgument* m_next;
  const FormatArgument* m_end;
  std::wstring m_out;
};

}  // namespace

CString CString::formatted(const wchar_t* format, std::initializer_list<FormatArgument> arguments) {
  return CString(Formatter(format == nullptr ? L"" : format, arguments).run());
}
