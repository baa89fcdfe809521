#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include <quorvan/text/cstring.h>

namespace {

template <class... Arguments>
CString format(const wchar_t* text, const Arguments&... arguments) {
  CString result;
  result.Format(text, arguments...);
  return result;
}

TEST(CStringFormat, ShowsWideAndNarrowTexts) {
  EXPECT_STREQ(format(L"[%s|%ls|%S|%hs]", L"w\u20AC", L"l", "n\xC3\xA9", "h"),
               L"[w\u20AC|l|n\u00E9|h]");
  EXPECT_STREQ(format(L"%s", CString(L"text of a CString")), L"text of a CString");
  EXPECT_STREQ(format(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
  EXPECT_STREQ(format(L"%S", static_cast<const char*>(nullptr)), L"(null)");
  EXPECT_STREQ(format(L"[%6s|%-6s|%.2s|%6.2s]", L"abc", L"abc", L"abc", L"abc"),
               L"[   abc|abc   |ab|    ab]");
  EXPECT_STREQ(format(L"[%.5s|%.5S]", L"abc", "abc"), L"[abc|abc]");
  EXPECT_STREQ(format(L"[%5S|%-5hs|%.1S]", "ab", "ab", "ab"), L"[   ab|ab   |a]");
}

TEST(CStringFormat, ShowsCharacters) {
  EXPECT_STREQ(format(L"%c%c%C%hc%lc", L'\u20AC', 'n', 'N', 'h', L'w'), L"\u20ACnNhw");
  EXPECT_STREQ(format(L"[%3c|%-3c]", L'a', L'b'), L"[  a|b  ]");
}

TEST(CStringFormat, ShowsANarrowCharacterAsTheOneByteThatItIs) {
  EXPECT_STREQ(format(L"%C", L'N'), L"N");
  EXPECT_STREQ(format(L"%c%hc%C", '\xE9', '\xE9', L'\u00E9'), L"\uFFFD\uFFFD\uFFFD");
}

TEST(CStringFormat, ShowsIntegers) {
  EXPECT_STREQ(format(L"%d %i %u %x %X %o", -5, 7, 8U, 255, 255, 8), L"-5 7 8 ff FF 10");
  EXPECT_STREQ(format(L"[%5d|%-5d|%05d|%+d|% d|%.3d|%6.3d]", 42, 42, 42, 42, 42, 42, 42),
               L"[   42|42   |00042|+42| 42|042|   042]");
  EXPECT_STREQ(format(L"[%05d|%+5d|%-05d]", -42, -42, -42), L"[-0042|  -42|-42  ]");
  EXPECT_STREQ(format(L"[%#x|%#X|%#o|%#x|%#010x]", 255, 255, 8, 0, 255),
               L"[0xff|0XFF|010|0|0x000000ff]");
  EXPECT_STREQ(format(L"[%#o|%#.3o|%#.0o]", 0, 8, 0), L"[0|010|0]");
  EXPECT_STREQ(format(L"[%.0d|%05.2d]", 0, 7), L"[|   07]");
}

TEST(CStringFormat, TakesIntegersAtTheirOwnWidth) {
  const auto big = std::int64_t{5'000'000'000};
  EXPECT_STREQ(format(L"%I64d %lld %zd %td %jd", big, big, big, big, big),
               L"5000000000 5000000000 5000000000 5000000000 5000000000");
  EXPECT_STREQ(format(L"%d %ld", -1, -1L), L"-1 -1");
  EXPECT_STREQ(format(L"%Id %Ix", big, big), L"5000000000 12a05f200");
  EXPECT_STREQ(format(L"%x %u", -1, -1), L"ffffffff 4294967295");
  EXPECT_STREQ(format(L"%I64x", std::int64_t{-1}), L"ffffffffffffffff");
  EXPECT_STREQ(format(L"%I64d", std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
  EXPECT_STREQ(format(L"%d", std::numeric_limits<std::uint32_t>::max()), L"-1");
}

TEST(CStringFormat, CutsIntegersWhereThePrefixSaysSo) {
  EXPECT_STREQ(format(L"%hd %hu %hhd %hhx", 65537, -1, 257, -1), L"1 65535 1 ff");
  EXPECT_STREQ(format(L"%I32d %I32u", std::int64_t{0x1'0000'0002}, std::int64_t{-1}),
               L"2 4294967295");
}

TEST(CStringFormat, ShowsEnumeratorsAndTruth) {
  enum Kind { kBar = 3 };
  EXPECT_STREQ(format(L"%d %d", kBar, true), L"3 1");
}

TEST(CStringFormat, ShowsFloatingPoint) {
  EXPECT_STREQ(format(L"%f %.2f %.0f %F", 1.5, 2.345678, 2.5, -1.0), L"1.500000 2.35 2 -1.000000");
  EXPECT_STREQ(format(L"%e %.2E %g %G", 12345.678, 0.00012, 1e-5, 1e20),
               L"1.234568e+04 1.20E-04 1e-05 1E+20");
  EXPECT_STREQ(format(L"%g %g %.3g", 100000.0, 1e6, 1234.5), L"100000 1e+06 1.23e+03");
  EXPECT_STREQ(format(L"[%8.2f|%-8.2f|%08.2f|%+.1f|% .1f]", 3.14159, 3.14159, -3.14159, 2.0, 2.0),
               L"[    3.14|3.14    |-0003.14|+2.0| 2.0]");
  EXPECT_STREQ(format(L"%#.0f %#.0e %#g %#.3g", 3.0, 3.0, 1.5, 1e10),
               L"3. 3.e+00 1.50000 1.00e+10");
  EXPECT_STREQ(format(L"%#g %#g %#.2G", 0.0001, 0.00001, 1e-5), L"0.000100000 1.00000e-05 1.0E-05");
  EXPECT_STREQ(format(L"%.*f", 7, 12.5), L"12.5000000");
  EXPECT_STREQ(format(L"%.1f", 1.25F), L"1.2");
}

TEST(CStringFormat, ShowsWhatIsNotFinite) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_STREQ(format(L"%f %e %G [%06f]", infinity, -infinity, nan, infinity),
               L"inf -inf NAN [   inf]");
  EXPECT_STREQ(format(L"%f", std::copysign(nan, -1.0)), L"nan");
}

TEST(CStringFormat, ShowsTheLargestNumberWhole) {
  const CString text = format(L"%.7f", std::numeric_limits<double>::max());
  EXPECT_EQ(text.GetLength(), 309 + 1 + 7);
  EXPECT_STREQ(text.Left(17), L"17976931348623157");
  EXPECT_EQ(format(L"%.1000f", 1.0).GetLength(), 1002);
}

TEST(CStringFormat, TakesWidthAndPrecisionFromArguments) {
  EXPECT_STREQ(format(L"[%*d|%-*d|%*d]", 5, 42, 5, 42, -5, 42), L"[   42|42   |42   ]");
  EXPECT_STREQ(format(L"[%.*s|%.*f]", 2, L"abc", -1, 1.5), L"[ab|1.500000]");
}

TEST(CStringFormat, ShowsPointersAsAllTheirDigits) {
  const auto* pointer = reinterpret_cast<const void*>(std::uintptr_t{0xBEEF});
  const CString text = format(L"%p", pointer);
  EXPECT_EQ(text.GetLength(), static_cast<int>(2 * sizeof pointer));
  EXPECT_STREQ(text.Right(6), L"00BEEF");
}

TEST(CStringFormat, ShowsWhereATextLies) {
  const auto* wide = reinterpret_cast<const wchar_t*>(std::uintptr_t{0xBEE0});
  const auto* narrow = reinterpret_cast<const char*>(std::uintptr_t{0xBEEF});
  const CString text = format(L"%p %p", wide, narrow);
  EXPECT_EQ(text.GetLength(), static_cast<int>(4 * sizeof wide) + 1);
  EXPECT_STREQ(text.Mid(text.Find(L' ') - 6, 6), L"00BEE0");
  EXPECT_STREQ(text.Right(6), L"00BEEF");
}

TEST(CStringFormat, LeavesPlainTextAndUnknownConversions) {
  EXPECT_STREQ(format(L"100%%"), L"100%");
  EXPECT_STREQ(format(L"%y %-5k"), L"%y %-5k");
  EXPECT_STREQ(format(L"open %"), L"open %");
  EXPECT_STREQ(format(L"open %-5"), L"open %-5");
  EXPECT_STREQ(format(nullptr), L"");
}

TEST(CStringFormat, RaisesForMissingAndUnsuitableArguments) {
  CString text(L"kept");
  EXPECT_THROW(text.Format(L"%d %d", 1), std::invalid_argument);
  EXPECT_THROW(text.Format(L"%*d", 1), std::invalid_argument);
  EXPECT_THROW(text.Format(L"%s", 1), std::invalid_argument);
  EXPECT_THROW(text.Format(L"%d", 1.5), std::invalid_argument);
  EXPECT_THROW(text.Format(L"%f", 1), std::invalid_argument);
  EXPECT_THROW(text.Format(L"%d", L"text"), std::invalid_argument);
  EXPECT_THROW(text.Format(L"%p", 1), std::invalid_argument);
  EXPECT_THROW(text.AppendFormat(L"%c", L"text"), std::invalid_argument);
  EXPECT_STREQ(text, L"kept");
}

TEST(CStringFormat, AppendsAndTakesItselfAsArgument) {
  CString text(L"bar");
  text.AppendFormat(L" %d", 12);
  EXPECT_STREQ(text, L"bar 12");
  text.Format(L"<%s>", text);
  EXPECT_STREQ(text, L"<bar 12>");
}

TEST(CStringFormat, KeepsThePointInALocaleWithAComma) {
  const char* comma = nullptr;
  for (const char* name : {"fr_FR.UTF-8", "de_DE.UTF-8", "French_France"}) {
    comma = comma != nullptr ? comma : std::setlocale(LC_ALL, name);
  }
  if (comma == nullptr) {
    GTEST_SKIP() << "no locale with a decimal comma on this system";
  }
  const CString text = format(L"%.2f %g %e", 1.5, 2.5, 3.5);
  std::setlocale(LC_ALL, "C");
  EXPECT_STREQ(text, L"1.50 2.5 3.500000e+00");
}

}  // namespace
