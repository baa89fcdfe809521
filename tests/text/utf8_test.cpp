#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include <quorvan/text/utf8.h>

namespace {

using quorvan::appendUtf8;
using quorvan::fromUtf8;
using quorvan::toUtf8;

// One code point as wide text, a surrogate pair where a unit is too small for it.
std::wstring wide(char32_t character) {
  if (sizeof(wchar_t) > 2 || character < 0x10000) {
    return {static_cast<wchar_t>(character)};
  }
  const char32_t rest = character - 0x10000;
  return {static_cast<wchar_t>(0xD800 + (rest >> 10U)),
          static_cast<wchar_t>(0xDC00 + (rest & 0x3FFU))};
}

std::wstring units(std::initializer_list<unsigned> values) {
  std::wstring text;
  for (const unsigned value : values) {
    text += static_cast<wchar_t>(value);
  }
  return text;
}

TEST(Utf8, ConvertsEveryLengthBothWays) {
  const struct {
    char32_t character;
    const char* utf8;
  } cases[] = {{0x01, "\x01"},
               {0x7F, "\x7F"},
               {0x80, "\xC2\x80"},
               {0x7FF, "\xDF\xBF"},
               {0x800, "\xE0\xA0\x80"},
               {0xD7FF, "\xED\x9F\xBF"},
               {0xE000, "\xEE\x80\x80"},
               {0xFFFF, "\xEF\xBF\xBF"},
               {0x10000, "\xF0\x90\x80\x80"},
               {0x1F600, "\xF0\x9F\x98\x80"},
               {0x10FFFF, "\xF4\x8F\xBF\xBF"}};
  for (const auto& one : cases) {
    EXPECT_EQ(toUtf8(wide(one.character)), one.utf8);
    EXPECT_EQ(fromUtf8(one.utf8).view(), wide(one.character));
    std::string appended = "x";
    appendUtf8(appended, one.character);
    EXPECT_EQ(appended, std::string("x") + one.utf8);
  }
}

TEST(Utf8, EveryCharacterSurvivesTheRoundTrip) {
  std::wstring text;
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) {
      continue;
    }
    text += wide(character);
  }
  EXPECT_EQ(fromUtf8(toUtf8(text)).view(), text);
}

TEST(Utf8, KeepsTerminators) {
  EXPECT_EQ(toUtf8(std::wstring_view(L"a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(fromUtf8(std::string_view("a\0b", 3)).view(), std::wstring_view(L"a\0b", 3));
}

TEST(Utf8, JoinsASurrogatePair) {
  EXPECT_EQ(toUtf8(units({'a', 0xD83D, 0xDE00, 'b'})),
            "a\xF0\x9F\x98\x80"
            "b");
}

TEST(Utf8, ReplacesLoneSurrogatesAndWhatIsNoCharacter) {
  EXPECT_EQ(toUtf8(units({0xD83D})), "\xEF\xBF\xBD");
  EXPECT_EQ(toUtf8(units({0xD83D, 'x'})), "\xEF\xBF\xBDx");
  EXPECT_EQ(toUtf8(units({0xDE00, 'x'})), "\xEF\xBF\xBDx");
  EXPECT_EQ(toUtf8(units({0xD83D, 0xD83D, 0xDE00})), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
  if (sizeof(wchar_t) > 2) {
    EXPECT_EQ(toUtf8(units({0x110000})), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(units({0xFFFFFFFFU})), "\xEF\xBF\xBD");
  }
}

TEST(Utf8, ReplacesInvalidSequencesByTheirLongestValidPart) {
  const struct {
    const char* utf8;
    const wchar_t* expected;
  } cases[] = {{"\x80", L"\uFFFD"},
               {"\xFF\xFE", L"\uFFFD\uFFFD"},
               {"\xC0\xAF", L"\uFFFD\uFFFD"},
               {"\xC3", L"\uFFFD"},
               {"\xC3x", L"\uFFFDx"},
               {"\xE0\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
               {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
               {"\xE2\x82", L"\uFFFD"},
               {"\xE2\x82z", L"\uFFFDz"},
               {"\xF0\x8F\xBF\xBF", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
               {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
               {"\xF0\x9F\x98!", L"\uFFFD!"},
               {"\xF5\x80", L"\uFFFD\uFFFD"}};
  for (const auto& one : cases) {
    EXPECT_EQ(fromUtf8(one.utf8).view(), one.expected) << one.utf8;
  }
}

TEST(Utf8, RaisesForMoreThanATextCanHold) {
  const std::size_t size = std::size_t{INT_MAX} + 1;
  // Address space alone: it is refused before it is read.
  const std::unique_ptr<char[]> bytes(new (std::nothrow) char[size]);
  if (bytes == nullptr) {
    GTEST_SKIP() << "no room for so many bytes";
  }
  EXPECT_THROW(fromUtf8({bytes.get(), size}), std::length_error);
}

TEST(Utf8, AppendsBehindWhatIsThere) {
  std::string text = "\xC3\xA9";
  appendUtf8(text, std::wstring_view(L"abc\u00E9def"));
  EXPECT_EQ(text,
            "\xC3\xA9"
            "abc\xC3\xA9"
            "def");
  appendUtf8(text, std::wstring_view());
  EXPECT_EQ(text,
            "\xC3\xA9"
            "abc\xC3\xA9"
            "def");
}

}  // namespace
