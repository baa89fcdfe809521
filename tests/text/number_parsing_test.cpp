#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include <quorvan/text/numbers.h>
#include <quorvan/text/utf8.h>

#include <tests/text/number_runs.h>

namespace {

using quorvan::test::randomCount;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

// Reads narrow and wide text; both give the same or the test fails.
double parsed(const std::string& utf8) {
  const double narrow = quorvan::parseDouble(std::string_view(utf8));
  const double wide = quorvan::parseDouble(quorvan::fromUtf8(utf8).view());
  EXPECT_EQ(std::bit_cast<std::uint64_t>(narrow), std::bit_cast<std::uint64_t>(wide)) << utf8;
  return narrow;
}

std::int32_t parsedLong(const std::string& utf8) {
  const std::int32_t narrow = quorvan::parseLong(std::string_view(utf8));
  EXPECT_EQ(narrow, quorvan::parseLong(quorvan::fromUtf8(utf8).view())) << utf8;
  return narrow;
}

testing::AssertionResult matchesStrtod(const std::string& text) {
  const double got = quorvan::parseDouble(std::string_view(text));
  const double expected = std::strtod(text.c_str(), nullptr);
  if (std::bit_cast<std::uint64_t>(got) == std::bit_cast<std::uint64_t>(expected)) {
    return testing::AssertionSuccess();
  }
  char exact[96];
  std::snprintf(exact, sizeof exact, "%a, expected %a", got, expected);
  return testing::AssertionFailure() << text << ": " << exact;
}

TEST(ParseDouble, ReadsPlainForms) {
  EXPECT_EQ(parsed("1.5"), 1.5);
  EXPECT_EQ(parsed("1234.5000000"), 1234.5);
  EXPECT_EQ(parsed("+1.5"), 1.5);
  EXPECT_EQ(parsed("-.5"), -0.5);
  EXPECT_EQ(parsed("5."), 5.0);
  EXPECT_EQ(parsed("007"), 7.0);
  EXPECT_EQ(parsed("0.0000000"), 0.0);
  EXPECT_TRUE(std::signbit(parsed("-0.0000000")));
}

TEST(ParseDouble, ReadsExponentsOfFourLetters) {
  EXPECT_EQ(parsed("1e3"), 1000.0);
  EXPECT_EQ(parsed("1E+3"), 1000.0);
  EXPECT_EQ(parsed("1d3"), 1000.0);
  EXPECT_EQ(parsed("1D-2"), 0.01);
  EXPECT_EQ(parsed("123456789012345678901234567890d-10"), 12345678901234567890.123456789);
}

TEST(ParseDouble, TakesAnExponentOnlyWithDigits) {
  EXPECT_EQ(parsed("1e"), 1.0);
  EXPECT_EQ(parsed("1e+"), 1.0);
  EXPECT_EQ(parsed("2.5e-"), 2.5);
  EXPECT_EQ(parsed("1e x3"), 1.0);
  EXPECT_EQ(parsed("e3"), 0.0);
}

TEST(ParseDouble, StopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(parsed("1,5"), 1.0);
  EXPECT_EQ(parsed("12mm"), 12.0);
  EXPECT_EQ(parsed("1.2.3"), 1.2);
  EXPECT_EQ(parsed("1.#INF"), 1.0);
  EXPECT_EQ(parsed("0x10"), 0.0);
  EXPECT_EQ(parsed("1 2"), 1.0);
  EXPECT_EQ(parsed("1e3e3"), 1000.0);
  EXPECT_EQ(parsed("1\xC3\xA9"), 1.0);
}

TEST(ParseDouble, GivesZeroWithoutANumber) {
  for (const char* text : {"", " ", ".", "-", "+", "--5", "- 5", "+-5", "-.", ".e5", "abc", "inf",
                           "infinity", "nan", "-inf", "\xC3\xA9", "\xFF"}) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(parsed(text)), 0U) << text;
  }
}

TEST(ParseDouble, SkipsWhiteSpaceOfEveryKind) {
  EXPECT_EQ(parsed(" 1.5"), 1.5);
  EXPECT_EQ(parsed("\t\n\v\f\r -2"), -2.0);
  EXPECT_EQ(parsed("\xC2\xA0\xE3\x80\x80"
                   "7"),
            7.0);
  EXPECT_EQ(parsed(" \xE2\x80\x83 8"), 8.0);
  EXPECT_EQ(parsed("\xE2\x80\x8B"
                   "8"),
            0.0);  // the zero-width space is none
}

TEST(ParseDouble, KnowsOnlyAsciiDigits) {
  EXPECT_EQ(parsed("1\xD9\xA3.5"), 1.0);
}

TEST(ParseDouble, LeavesTheRangeToInfinityAndZero) {
  EXPECT_EQ(parsed("1e400"), kInfinity);
  EXPECT_EQ(parsed("-1e400"), -kInfinity);
  EXPECT_EQ(parsed("1e-400"), 0.0);
  EXPECT_TRUE(std::signbit(parsed("-1e-400")));
  EXPECT_EQ(parsed("1e99999999999999999999999"), kInfinity);
  EXPECT_EQ(parsed("1e-99999999999999999999999"), 0.0);
  EXPECT_EQ(parsed("0e99999999999999999999999"), 0.0);
  EXPECT_EQ(parsed("1.7976931348623157e308"), std::numeric_limits<double>::max());
  EXPECT_EQ(parsed("1.7976931348623159e308"), kInfinity);
  EXPECT_EQ(parsed("4.9e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(parsed("2e-324"), 0.0);
}

TEST(ParseDouble, ReadsHundredsOfDigits) {
  EXPECT_EQ(parsed(std::string(400, '9')), kInfinity);
  EXPECT_EQ(parsed(std::string(400, '9') + "e-400"), 1.0);
  EXPECT_EQ(parsed("0." + std::string(400, '0') + "1e401"), 1.0);
  EXPECT_EQ(parsed(std::string(5000, '0') + "1.5"), 1.5);
  EXPECT_EQ(parsed("1" + std::string(5000, '0') + "e-5000"), 1.0);
  EXPECT_EQ(parsed("1." + std::string(5000, '0')), 1.0);
  EXPECT_EQ(parsed("0." + std::string(5000, '0')), 0.0);
}

TEST(ParseDouble, DecidesAMidpointByItsLastDigit) {
  // Half-way between 1 and the next double, exactly; then with one digit more, far behind.
  const std::string midpoint = "1.00000000000000011102230246251565404236316680908203125";
  EXPECT_EQ(parsed(midpoint), 1.0);
  EXPECT_EQ(parsed(midpoint + std::string(2000, '0')), 1.0);
  EXPECT_EQ(parsed(midpoint + std::string(2000, '0') + "1"), std::nextafter(1.0, 2.0));
  EXPECT_EQ(parsed(midpoint + std::string(2000, '0') + "10"), std::nextafter(1.0, 2.0));
}

TEST(ParseDouble, MatchesStrtodAtTheBordersOfTheFastPath) {
  for (const char* mantissa :
       {"9007199254740991", "9007199254740992", "9007199254740993", "9007199254740994",
        "9999999999999999999", "18446744073709551615", "18446744073709551616", "1", "7"}) {
    for (int exponent = -30; exponent <= 30; ++exponent) {
      ASSERT_TRUE(matchesStrtod(mantissa + ("e" + std::to_string(exponent))));
    }
  }
}

TEST(ParseDouble, MatchesStrtodOnRandomFixedTexts) {
  std::mt19937_64 random(12);
  char text[quorvan::kFixed7Capacity];
  for (std::int64_t i = randomCount(); i > 0; --i) {
    const double value =
        std::ldexp(static_cast<double>(random() >> 11U), static_cast<int>(random() % 80) - 70);
    char* const end = quorvan::formatFixed7(text, random() % 2 != 0 ? value : -value);
    ASSERT_TRUE(matchesStrtod(std::string(text, end)));
  }
}

TEST(ParseDouble, MatchesStrtodOnRandomDigits) {
  std::mt19937_64 random(13);
  std::string text;
  for (std::int64_t i = randomCount() / 4; i > 0; --i) {
    text.clear();
    for (std::uint64_t n = random() % 25; n > 0; --n) {
      text += static_cast<char>('0' + random() % 10);
    }
    if (random() % 2 != 0) {
      text += '.';
    }
    for (std::uint64_t n = random() % 25; n > 0; --n) {
      text += static_cast<char>('0' + random() % 10);
    }
    if (text.empty() || text == ".") {
      text = "1";
    }
    if (random() % 2 != 0) {
      text += "e" + std::to_string(static_cast<int>(random() % 700) - 350);
    }
    ASSERT_TRUE(matchesStrtod(text));
  }
}

// Narrow text in the form in which numbers are filed is read eight digits at once, wide text is
// not.
TEST(ParseDouble, ReadsTheFiledFormLikeAnyOtherWhateverStandsInIt) {
  const std::string digits = "9012345678.7654321";
  for (std::size_t first = 0; first < digits.size(); ++first) {
    for (const char* sign : {"", "-", "+"}) {
      const std::string filed = sign + digits.substr(first);
      parsed(filed + "0");
      for (std::size_t at = 0; at < filed.size(); ++at) {
        for (const char unit : {'\x01', ' ', '+', '-', '.', '/', '0', '9', ':', '@', 'e', '\x7F'}) {
          std::string changed = filed;
          changed[at] = unit;
          parsed(changed);
        }
      }
    }
  }
}

TEST(ParseDouble, ReadsEveryPowerOfTwoAndItsNeighbour) {
  char text[1200];
  for (int exponent = -1074; exponent <= 1023; ++exponent) {
    const double power = std::ldexp(1.0, exponent);
    std::snprintf(text, sizeof text, "%.1080f", power);
    ASSERT_EQ(quorvan::parseDouble(std::string_view(text)), power);
    const double below = std::nextafter(power, 0.0);
    std::snprintf(text, sizeof text, "%.17g", below);
    ASSERT_EQ(quorvan::parseDouble(std::string_view(text)), below);
  }
}

TEST(ParseLong, ReadsLeadingDigits) {
  EXPECT_EQ(parsedLong("42"), 42);
  EXPECT_EQ(parsedLong("-42"), -42);
  EXPECT_EQ(parsedLong("+42"), 42);
  EXPECT_EQ(parsedLong("3.9"), 3);
  EXPECT_EQ(parsedLong("1e3"), 1);
  EXPECT_EQ(parsedLong("0x10"), 0);
  EXPECT_EQ(parsedLong("010"), 10);
  EXPECT_EQ(parsedLong("12 34"), 12);
  EXPECT_EQ(parsedLong("12\xFF"), 12);
}

TEST(ParseLong, GivesZeroWithoutADigit) {
  for (const char* text : {"", " ", "-", "+", "- 5", "--5", "abc", ".5", "\xC3\xA9", "\xFF"}) {
    EXPECT_EQ(parsedLong(text), 0) << text;
  }
}

TEST(ParseLong, SkipsWhiteSpaceOfEveryKind) {
  EXPECT_EQ(parsedLong(" \t\n\v\f\r9"), 9);
  EXPECT_EQ(parsedLong("\xC2\xA0\xE3\x80\x80-9"), -9);
}

TEST(ParseLong, ReadsDigitsOfOtherScripts) {
  EXPECT_EQ(parsedLong("\xD9\xA3\xD9\xA4"), 34);  // Arabic-Indic
  EXPECT_EQ(parsedLong("-\xEF\xBC\x91"
                       "2\xE0\xA5\xA9"),
            -123);  // full width, ASCII, Devanagari
}

TEST(ParseLong, ClampsTo32Bits) {
  EXPECT_EQ(parsedLong("2147483647"), kLargest);
  EXPECT_EQ(parsedLong("2147483648"), kLargest);
  EXPECT_EQ(parsedLong("-2147483648"), kSmallest);
  EXPECT_EQ(parsedLong("-2147483649"), kSmallest);
  EXPECT_EQ(parsedLong(std::string(400, '9')), kLargest);
  EXPECT_EQ(parsedLong("-" + std::string(400, '9')), kSmallest);
}

}  // namespace
