// Hosts set the processor's arithmetic to their liking: numbers are the same under every setting,
// and the setting is the host's again afterwards, with the exceptions that it had noted.
#include <gtest/gtest.h>

#if defined(__linux__) && defined(__x86_64__)

#include <fpu_control.h>
#include <xmmintrin.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <quorvan/text/numbers.h>

namespace quorvan {
namespace {

constexpr unsigned kMasks = 0x1F80;

std::vector<double> numbers() {
  std::vector<double> all = {0.0,
                             -0.0,
                             0.1,
                             1.0 / 3,
                             -2.5,
                             12.5,
                             123456789.123456789,
                             1e-7,
                             5e-8,
                             1e20,
                             1e22,
                             1e300,
                             9007199254740993.0,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::denorm_min(),
                             -3e-310,
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
  std::mt19937_64 random(1);
  for (int i = 0; i < 2000; ++i) {
    all.push_back(std::bit_cast<double>(random()));
    all.push_back(static_cast<double>(static_cast<std::int64_t>(random()) >> 20) / 1e7);
  }
  return all;
}

std::vector<std::string> texts() {
  std::vector<std::string> all = {"0.1",
                                  "1e22",
                                  "-1e23",
                                  "1e-22",
                                  "1e-310",
                                  "4.9e-324",
                                  "1e400",
                                  "1e-400",
                                  "2.5e-324",
                                  "9007199254740993",
                                  "0.0000001",
                                  "1.7976931348623159e308",
                                  std::string(900, '7') + "e-600"};
  for (const double number : numbers()) {
    char buffer[kFixed7Capacity];
    all.emplace_back(buffer, formatFixed7(buffer, number));
    all.emplace_back(buffer, formatShortest(buffer, number));
  }
  return all;
}

// All that the routines make of the numbers and texts.
std::string results(const std::vector<double>& values, const std::vector<std::string>& read) {
  std::string all;
  char buffer[kFixed7Capacity];
  for (const double value : values) {
    all.append(buffer, formatFixed7(buffer, value)).append(" ");
    all.append(buffer, formatShortest(buffer, value)).append("\n");
  }
  for (const std::string& text : read) {
    all += std::to_string(std::bit_cast<std::uint64_t>(parseDouble(std::string_view(text)))) + '\n';
  }
  return all;
}

unsigned short x87Control() {
  unsigned short control = 0;
  _FPU_GETCW(control);
  return control;
}

class FloatingPointState : public testing::Test {
 protected:
  ~FloatingPointState() override {
    _mm_setcsr(m_formerSse);
    setX87(m_formerX87);
  }

  static void setX87(unsigned short control) { _FPU_SETCW(control); }

  void expectSame(unsigned state) {
    std::string made;
    _mm_setcsr(state);
    made = results(m_values, m_texts);
    const unsigned after = _mm_getcsr();
    _mm_setcsr(m_formerSse);
    EXPECT_EQ(after, state);
    EXPECT_TRUE(made == m_expected) << std::hex << state;
  }

  const unsigned m_formerSse = _mm_getcsr();
  const unsigned short m_formerX87 = x87Control();
  const std::vector<double> m_values = numbers();
  const std::vector<std::string> m_texts = texts();
  const std::string m_expected = results(m_values, m_texts);
};

TEST_F(FloatingPointState, DoesNotChangeNumbersAndIsLeftAsItWas) {
  for (const unsigned rounding : {unsigned{_MM_ROUND_NEAREST}, unsigned{_MM_ROUND_DOWN},
                                  unsigned{_MM_ROUND_UP}, unsigned{_MM_ROUND_TOWARD_ZERO}}) {
    for (const unsigned tiny : {0U, 0x8000U, 0x0040U, 0x8040U}) {  // flushed, or taken for zero
      for (const unsigned noted : {0U, 0x20U, 0x3FU}) {
        expectSame(kMasks | rounding | tiny | noted);
      }
    }
  }
}

// A host that traps exceptions is not stopped by one.
TEST_F(FloatingPointState, MayTrapEveryException) {
  expectSame(0);
  expectSame(_MM_ROUND_UP | 0x8040U);
  expectSame(0x1000);  // all but that of an inexact result
}

TEST_F(FloatingPointState, MayHaveAnyPrecisionOfTheOldRegisters) {
  for (const int precision : {_FPU_SINGLE, _FPU_DOUBLE, _FPU_EXTENDED}) {
    const auto control =
        static_cast<unsigned short>((m_formerX87 & ~static_cast<unsigned>(_FPU_EXTENDED)) |
                                    static_cast<unsigned>(precision | _FPU_RC_UP));
    setX87(control);
    const std::string made = results(m_values, m_texts);
    const unsigned short after = x87Control();
    setX87(m_formerX87);
    EXPECT_EQ(after, control);
    EXPECT_TRUE(made == m_expected) << control;
  }
}

}  // namespace
}  // namespace quorvan

#endif
