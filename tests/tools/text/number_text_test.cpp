#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include <tools/text/number_text.h>

namespace {

using quorvan::tool::fixed;
using quorvan::tool::rounded;
using quorvan::tool::runsOf;
using quorvan::tool::shortest;

constexpr double kLargest = std::numeric_limits<double>::max();

double numberFrom(const std::string& text) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  EXPECT_TRUE(error == std::errc() && end == text.data() + text.size()) << text;
  return value;
}

// Any finite number, those of every size alike often.
double anyFinite(std::mt19937_64& random) {
  double value = std::numeric_limits<double>::infinity();
  while (!std::isfinite(value)) {
    value = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
  }
  return value;
}

TEST(ToolNumbers, AreRoundedWithoutLocaleAndWithoutNegativeZero) {
  EXPECT_EQ(fixed(12.345, 2), "12.35");
  EXPECT_EQ(fixed(-0.001, 2), "0.00");
  EXPECT_EQ(rounded(1250.0, 3), "1250");
  EXPECT_EQ(rounded(12.5, 3), "12.5");
  EXPECT_EQ(rounded(-0.0001, 3), "0");
  EXPECT_EQ(rounded(100.0, 0), "100");
  EXPECT_EQ(fixed(kLargest, 7).size(), 317U);
}

TEST(ToolNumbers, AreAsShortAsTheyGo) {
  EXPECT_EQ(shortest(12.5), "12.5");
  EXPECT_EQ(shortest(1250.0), "1250");
  EXPECT_EQ(shortest(-0.0), "-0");
  EXPECT_EQ(shortest(0.0), "0");
  EXPECT_EQ(shortest(0.1), "0.1");
  EXPECT_EQ(shortest(1.0 / 3.0), "0.3333333333333333");
}

TEST(ToolNumbers, ReadBackAsTheSameNumberWhereTheyAreShortest) {
  std::mt19937_64 random(4);
  for (int round = 0; round < 5000; ++round) {
    const double value = anyFinite(random);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(numberFrom(shortest(value))),
              std::bit_cast<std::uint64_t>(value));
  }
  for (const double value : {kLargest, -kLargest, std::numeric_limits<double>::denorm_min(),
                             std::numeric_limits<double>::min()}) {
    EXPECT_EQ(numberFrom(shortest(value)), value);
  }
}

TEST(ToolNumbers, HaveAllTheirDecimalsWhereTheyAreFixed) {
  EXPECT_EQ(fixed(1.0, 0), "1");
  EXPECT_EQ(fixed(1.0, 1), "1.0");
  EXPECT_EQ(fixed(-1234.5, 3), "-1234.500");
  EXPECT_EQ(fixed(0.0, 3), "0.000");
  EXPECT_EQ(fixed(999.999, 2), "1000.00");
}

TEST(ToolNumbers, AreNeverWrittenAsMinusZero) {
  for (int decimals = 0; decimals <= 7; ++decimals) {
    for (const double value : {-0.0, -1e-12, -1e-300}) {
      EXPECT_EQ(fixed(value, decimals).front(), '0') << decimals;
      EXPECT_EQ(rounded(value, decimals), "0") << decimals;
    }
  }
  EXPECT_EQ(fixed(-0.6, 0), "-1");
  EXPECT_EQ(rounded(-0.05, 2), "-0.05");
}

TEST(ToolNumbers, KeepZerosBeforeThePointWhereTheyAreRounded) {
  EXPECT_EQ(rounded(1000.0, 2), "1000");
  EXPECT_EQ(rounded(0.0, 2), "0");
  EXPECT_EQ(rounded(10.10, 2), "10.1");
  EXPECT_EQ(rounded(99.999, 2), "100");
  EXPECT_EQ(rounded(20.0, 0), "20");
}

// The usual ones are rounded without their digits being made; at the middle between two that alone
// would guess.
TEST(ToolNumbers, AreRoundedAsAllTheirDigitsSay) {
  const auto byDigits = [](double value, int decimals) {
    std::string text = fixed(value, decimals);
    if (decimals > 0) {
      text.erase(text.find_last_not_of('0') + 1);
      text.erase(text.find_last_not_of('.') + 1);
    }
    return text;
  };
  std::mt19937_64 random(11);
  for (int round = 0; round < 20000; ++round) {
    const auto whole = static_cast<std::int64_t>(random()) >> (round % 50 + 14);
    for (int decimals = 0; decimals <= 6; ++decimals) {
      const double middle = (static_cast<double>(whole) + 0.5) / std::pow(10.0, decimals);
      for (const double value :
           {static_cast<double>(whole) * 1e-7, middle, std::nextafter(middle, kLargest),
            std::nextafter(middle, -kLargest), middle + 1e-10}) {
        ASSERT_EQ(rounded(value, decimals), byDigits(value, decimals))
            << shortest(value) << ' ' << decimals;
      }
    }
  }
}

TEST(ToolNumbers, AreWithinHalfALastPlace) {
  std::mt19937_64 random(5);
  for (int round = 0; round < 2000; ++round) {
    const double value = static_cast<double>(static_cast<std::int64_t>(random())) / 1e12;
    for (int decimals = 0; decimals <= 6; ++decimals) {
      const double half = 0.5 * std::pow(10.0, -decimals);
      EXPECT_NEAR(numberFrom(fixed(value, decimals)), value, half + 1e-9);
      EXPECT_EQ(numberFrom(rounded(value, decimals)), numberFrom(fixed(value, decimals)));
    }
  }
}

TEST(ToolNumbers, SayWhatIsNoFiniteNumber) {
  EXPECT_EQ(fixed(std::numeric_limits<double>::infinity(), 2), "inf");
  EXPECT_EQ(rounded(-std::numeric_limits<double>::infinity(), 2), "-inf");
}

TEST(ToolRuns, PutNeighboursTogether) {
  EXPECT_EQ(runsOf({1, 2, 3, 4}), "1-4");
  EXPECT_EQ(runsOf({1, 2, 3, 7, 9, 10, 11}), "1-3, 7, 9-11");
  EXPECT_EQ(runsOf({5}), "5");
  EXPECT_EQ(runsOf({}), "");
}

TEST(ToolRuns, LeaveTwoNeighboursApart) {
  EXPECT_EQ(runsOf({1, 2}), "1, 2");
  EXPECT_EQ(runsOf({1, 2, 4, 5}), "1, 2, 4, 5");
}

TEST(ToolRuns, GoOverZeroAndToTheEndsOfTheNumbers) {
  EXPECT_EQ(runsOf({-2, -1, 0, 1}), "-2-1");
  EXPECT_EQ(runsOf({std::numeric_limits<std::int64_t>::min(), 0,
                    std::numeric_limits<std::int64_t>::max()}),
            "-9223372036854775808, 0, 9223372036854775807");
}

TEST(ToolRuns, AreCutAfterSoMany) {
  EXPECT_EQ(runsOf({1, 2, 3, 5, 7}, 2), "1-3, 5, ...");
  EXPECT_EQ(runsOf({1, 2, 3, 5}, 2), "1-3, 5");
  EXPECT_EQ(runsOf({1, 3}, 1), "1, ...");
  EXPECT_EQ(runsOf({}, 1), "");
  EXPECT_EQ(runsOf({1, 2}, 0), "...");
}

TEST(ToolRuns, NameEveryNumberOnce) {
  std::mt19937 random(6);
  for (int round = 0; round < 300; ++round) {
    std::vector<std::int64_t> numbers;
    std::int64_t next = 0;
    for (auto count = random() % 12; count > 0; --count) {
      next += 1 + static_cast<std::int64_t>(random() % 3 == 0 ? random() % 5 : 0);
      numbers.push_back(next);
    }
    // Read back: all numbers are above 0, so that a dash is always one of a run.
    std::vector<std::int64_t> named;
    const std::string text = runsOf(numbers);
    for (std::size_t at = 0; at < text.size();) {
      std::size_t end = std::min(text.find(", ", at), text.size());
      const std::string run = text.substr(at, end - at);
      const std::size_t dash = run.find('-');
      const std::int64_t first = std::stoll(run);
      const std::int64_t last =
          dash == std::string::npos ? first : std::stoll(run.substr(dash + 1));
      for (std::int64_t number = first; number <= last; ++number) {
        named.push_back(number);
      }
      at = end + 2;
    }
    ASSERT_EQ(named, numbers) << text;
  }
}

}  // namespace
