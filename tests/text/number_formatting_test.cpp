#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include <quorvan/text/numbers.h>

#include <tests/text/number_runs.h>

namespace {

using quorvan::test::randomCount;

using quorvan::kFixed7Capacity;
using quorvan::kShortestCapacity;

std::string fixed7(double value) {
  char buffer[kFixed7Capacity];
  return {buffer, quorvan::formatFixed7(buffer, value)};
}

std::string shortest(double value) {
  char buffer[kShortestCapacity];
  return {buffer, quorvan::formatShortest(buffer, value)};
}

std::string formatted(std::int32_t value) {
  char buffer[kShortestCapacity];
  return {buffer, quorvan::formatLong(buffer, value)};
}

std::string printed(double value) {
  char buffer[kFixed7Capacity];
  const int length = std::snprintf(buffer, sizeof buffer, "%.7f", value);
  return {buffer, static_cast<std::size_t>(length)};
}

// Stops at the first difference: a broken routine has millions.
testing::AssertionResult matchesPrintf(double value) {
  const std::string got = fixed7(value);
  const std::string expected = printed(value);
  if (got == expected && fixed7(-value) == printed(-value)) {
    return testing::AssertionSuccess();
  }
  char exact[64];
  std::snprintf(exact, sizeof exact, "%a", value);
  return testing::AssertionFailure() << exact << ": " << got << ", expected " << expected;
}

TEST(FormatFixed7, HasSevenDecimals) {
  EXPECT_EQ(fixed7(0.0), "0.0000000");
  EXPECT_EQ(fixed7(12.5), "12.5000000");
  EXPECT_EQ(fixed7(-0.25), "-0.2500000");
  EXPECT_EQ(fixed7(123456789.1234568), "123456789.1234568");
  EXPECT_EQ(fixed7(2.00000015), "2.0000001");
  EXPECT_EQ(fixed7(1e20), "100000000000000000000.0000000");
  EXPECT_EQ(fixed7(0.1), "0.1000000");
}

TEST(FormatFixed7, RoundsTiesToEven) {
  EXPECT_EQ(fixed7(1.0 / 256), "0.0039062");
  EXPECT_EQ(fixed7(3.0 / 256), "0.0117188");
  EXPECT_EQ(fixed7(5.0 / 256), "0.0195312");
  EXPECT_EQ(fixed7(-1.0 / 256), "-0.0039062");
}

TEST(FormatFixed7, KeepsTheSignOfWhatRoundsToZero) {
  EXPECT_EQ(fixed7(-0.0), "-0.0000000");
  EXPECT_EQ(fixed7(-1e-8), "-0.0000000");
  EXPECT_EQ(fixed7(1e-8), "0.0000000");
  EXPECT_EQ(fixed7(-std::numeric_limits<double>::denorm_min()), "-0.0000000");
}

TEST(FormatFixed7, CarriesIntoTheWholePart) {
  EXPECT_EQ(fixed7(0.99999999), "1.0000000");
  EXPECT_EQ(fixed7(-9.99999999), "-10.0000000");
  EXPECT_EQ(fixed7(99999999.99999999), "100000000.0000000");
}

TEST(FormatFixed7, ShowsWhatIsNotFiniteWithoutASignOnNan) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(fixed7(infinity), "inf");
  EXPECT_EQ(fixed7(-infinity), "-inf");
  EXPECT_EQ(fixed7(nan), "nan");
  EXPECT_EQ(fixed7(std::copysign(nan, -1.0)), "nan");
}

TEST(FormatFixed7, LongestTextFitsTheCapacity) {
  const std::string text = fixed7(-std::numeric_limits<double>::max());
  EXPECT_EQ(text, printed(-std::numeric_limits<double>::max()));
  EXPECT_EQ(text.size(), 318U);
  EXPECT_LT(text.size(), kFixed7Capacity);
}

TEST(FormatFixed7, MatchesPrintfOnEveryTieUpToTenThousand) {
  for (int odd = 1; odd < 10'000 * 256; odd += 2) {
    ASSERT_TRUE(matchesPrintf(odd / 256.0));
  }
}

TEST(FormatFixed7, MatchesPrintfOnLargeTies) {
  for (int shift = 24; shift <= 45; ++shift) {
    const double whole = std::ldexp(1.0, shift);
    for (int odd = 1; odd < 256; odd += 2) {
      ASSERT_TRUE(matchesPrintf(whole + odd / 256.0));
      ASSERT_TRUE(matchesPrintf(whole + 1.0 + odd / 256.0));
    }
  }
}

TEST(FormatFixed7, MatchesPrintfOnTheNeighboursOfTies) {
  for (int odd = 1; odd < 64 * 256; odd += 2) {
    const double tie = odd / 256.0;
    ASSERT_TRUE(matchesPrintf(std::nextafter(tie, 0.0)));
    ASSERT_TRUE(matchesPrintf(std::nextafter(tie, 1e9)));
  }
}

TEST(FormatFixed7, MatchesPrintfOnEveryPowerOfTwoAndItsNeighbours) {
  for (int exponent = -1074; exponent <= 1023; ++exponent) {
    const double power = std::ldexp(1.0, exponent);
    ASSERT_TRUE(matchesPrintf(power));
    ASSERT_TRUE(matchesPrintf(std::nextafter(power, 0.0)));
    ASSERT_TRUE(matchesPrintf(std::nextafter(power, std::numeric_limits<double>::max())));
  }
}

TEST(FormatFixed7, MatchesPrintfOnEveryPowerOfTenAndItsNeighbours) {
  for (int exponent = -20; exponent <= 308; ++exponent) {
    const double power = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
    ASSERT_TRUE(matchesPrintf(power));
    ASSERT_TRUE(matchesPrintf(std::nextafter(power, 0.0)));
    ASSERT_TRUE(matchesPrintf(std::nextafter(power, std::numeric_limits<double>::max())));
  }
}

TEST(FormatFixed7, MatchesPrintfOnShortDecimals) {
  // Half a unit of the last place, as near as a double comes to it, where a slip would show first.
  for (int i = 0; i < 200'000; ++i) {
    ASSERT_TRUE(matchesPrintf((i + 0.5) / 1e7));
    ASSERT_TRUE(matchesPrintf((i * 1000 + 500) / 1e10));
  }
}

TEST(FormatFixed7, MatchesPrintfOnRandomBits) {
  std::mt19937_64 random(20240229);
  for (std::int64_t i = randomCount() / 4; i > 0; --i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isnan(value)) {
      ASSERT_TRUE(matchesPrintf(value));
    }
  }
}

TEST(FormatFixed7, MatchesPrintfOnRandomMagnitudes) {
  std::mt19937_64 random(77);
  std::uniform_int_distribution<int> exponent(-34, 66);
  for (std::int64_t i = randomCount(); i > 0; --i) {
    const auto mantissa = static_cast<double>(random() >> 11U);
    ASSERT_TRUE(matchesPrintf(std::ldexp(mantissa, exponent(random) - 53)));
  }
}

TEST(FormatShortest, ReadsBackToTheSameDouble) {
  EXPECT_EQ(shortest(0.1), "0.1");
  EXPECT_EQ(shortest(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(shortest(-12.0), "-12");
  EXPECT_EQ(shortest(-0.0), "-0");
  EXPECT_EQ(shortest(std::sqrt(0.5)), "0.7071067811865476");
  std::mt19937_64 random(5);
  for (std::int64_t i = randomCount() / 10; i > 0; --i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) {
      continue;
    }
    const std::string text = shortest(value);
    ASSERT_LT(text.size(), kShortestCapacity);
    ASSERT_EQ(quorvan::parseDouble(text), value) << text;
  }
}

TEST(FormatShortest, ShowsWhatIsNotFiniteWithoutASignOnNan) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(shortest(infinity), "inf");
  EXPECT_EQ(shortest(-infinity), "-inf");
  EXPECT_EQ(shortest(nan), "nan");
  EXPECT_EQ(shortest(std::copysign(nan, -1.0)), "nan");
}

TEST(FormatLong, GivesPlainDecimalDigits) {
  EXPECT_EQ(formatted(0), "0");
  EXPECT_EQ(formatted(7), "7");
  EXPECT_EQ(formatted(-25536), "-25536");
  EXPECT_EQ(formatted(2147483647), "2147483647");
  EXPECT_EQ(formatted(std::numeric_limits<std::int32_t>::min()), "-2147483648");
  std::mt19937 random(9);
  for (int i = 0; i < 100'000; ++i) {
    const auto value = static_cast<std::int32_t>(random() >> (random() % 32));
    ASSERT_EQ(formatted(value), std::to_string(value));
    ASSERT_EQ(quorvan::parseLong(formatted(value)), value);
  }
}

TEST(Numbers, IgnoreALocaleWithAComma) {
  const char* comma = nullptr;
  for (const char* name : {"fr_FR.UTF-8", "de_DE.UTF-8", "French_France"}) {
    comma = comma != nullptr ? comma : std::setlocale(LC_ALL, name);
  }
  if (comma == nullptr) {
    GTEST_SKIP() << "no locale with a decimal comma on this system";
  }
  const std::string fixed = fixed7(12.5);
  const std::string large = fixed7(1e25);
  const std::string brief = shortest(2.5);
  const double parsed = quorvan::parseDouble(std::string_view("1.5"));
  const double parsedSlowly = quorvan::parseDouble(std::string_view("1.5e-300"));
  std::setlocale(LC_ALL, "C");
  EXPECT_EQ(fixed, "12.5000000");
  EXPECT_EQ(large, "10000000000000000905969664.0000000");
  EXPECT_EQ(brief, "2.5");
  EXPECT_EQ(parsed, 1.5);
  EXPECT_EQ(parsedSlowly, 1.5e-300);
}

}  // namespace
