#include <gtest/gtest.h>

#include <climits>
#include <compare>
#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <quorvan/text/cstring.h>

namespace {

bool livesInside(const CString& text) {
  const auto object = reinterpret_cast<std::uintptr_t>(&text);
  const auto data = reinterpret_cast<std::uintptr_t>(text.GetString());
  return data >= object && data < object + sizeof text;
}

const std::wstring kLong(100, L'q');

TEST(CString, IsEmptyByDefaultAndFromNull) {
  EXPECT_STREQ(CString().GetString(), L"");
  EXPECT_STREQ(CString(nullptr).GetString(), L"");
  EXPECT_STREQ(CString(static_cast<const wchar_t*>(nullptr)).GetString(), L"");
  EXPECT_STREQ(CString(static_cast<const char*>(nullptr)).GetString(), L"");
  EXPECT_STREQ(CString(static_cast<const wchar_t*>(nullptr), 3).GetString(), L"");
  EXPECT_STREQ(CString(static_cast<const char*>(nullptr), 3).GetString(), L"");
  EXPECT_TRUE(CString().IsEmpty());
  EXPECT_EQ(CString().GetLength(), 0);
}

TEST(CString, CopiesWideTextToTheTerminator) {
  const CString text(L"Beam 12");
  EXPECT_STREQ(text.GetString(), L"Beam 12");
  EXPECT_EQ(text.GetLength(), 7);
  EXPECT_FALSE(text.IsEmpty());
}

TEST(CString, ReadsNarrowTextAsUtf8) {
  EXPECT_STREQ(CString("\xC3\xA9t\xC3\xA9 \xE2\x82\xAC").GetString(), L"\u00E9t\u00E9 \u20AC");
  EXPECT_STREQ(CString("\xC3\xA9t\xC3\xA9", 3).GetString(), L"\u00E9t");
  EXPECT_STREQ(CString("a\xFFz").GetString(), L"a\uFFFDz");
}

TEST(CString, RepeatsACharacter) {
  EXPECT_STREQ(CString(L'-', 4).GetString(), L"----");
  EXPECT_STREQ(CString(L'-').GetString(), L"-");
  EXPECT_TRUE(CString(L'-', 0).IsEmpty());
  EXPECT_TRUE(CString(L'-', -5).IsEmpty());
  EXPECT_EQ(CString(L'-', 1000).GetLength(), 1000);
}

TEST(CString, KeepsTerminatorsWithinAnExplicitLength) {
  const CString text(L"a\0b", 3);
  EXPECT_EQ(text.GetLength(), 3);
  EXPECT_EQ(text[1], L'\0');
  EXPECT_EQ(text.view(), std::wstring_view(L"a\0b", 3));
  EXPECT_FALSE(text == CString(L"a"));
  EXPECT_EQ((text + text).GetLength(), 6);
  EXPECT_TRUE(CString(L"abc", -1).IsEmpty());
  EXPECT_TRUE(CString("abc", -1).IsEmpty());
  EXPECT_EQ(CString("a\0b", 3).view(), std::wstring_view(L"a\0b", 3));
}

TEST(CString, KeepsTwentyThreeCharactersInsideTheObject) {
  EXPECT_TRUE(livesInside(CString()));
  EXPECT_TRUE(livesInside(CString(L'x', 23)));
  EXPECT_FALSE(livesInside(CString(L'x', 24)));
  CString grown(L'x', 22);
  grown += L'y';
  EXPECT_TRUE(livesInside(grown));
  const CString copy(grown);
  EXPECT_TRUE(livesInside(copy));
}

TEST(CString, SharesALongTextUntilOneCopyChanges) {
  CString text(kLong.c_str());
  CString copy(text);
  EXPECT_EQ(copy.GetString(), text.GetString());
  copy.SetAt(0, L'Q');
  EXPECT_NE(copy.GetString(), text.GetString());
  EXPECT_EQ(text.view(), kLong);
  EXPECT_EQ(copy.view(), L"Q" + kLong.substr(1));
}

TEST(CString, ChangingOneCopyLeavesTheOthers) {
  for (const std::wstring& original : {std::wstring(L"short"), kLong}) {
    const CString text(original.c_str());
    CString a(text), b(text), c(text), d(text), e(text);
    a += L"!";
    b.MakeUpper();
    c.Replace(original[0], L'_');
    d.GetBuffer(1)[0] = L'G';
    d.ReleaseBuffer();
    e.Empty();
    EXPECT_EQ(text.view(), original);
    EXPECT_EQ(a.view(), original + L"!");
    EXPECT_EQ(b[0], original[0] - (L'a' - L'A'));
    EXPECT_EQ(c[0], L'_');
    EXPECT_EQ(d.view(), L"G" + original.substr(1));
    EXPECT_TRUE(e.IsEmpty());
  }
}

TEST(CString, MovingLeavesTheSourceEmpty) {
  for (const std::wstring& original : {std::wstring(L"short"), kLong}) {
    CString source(original.c_str());
    CString moved(std::move(source));
    EXPECT_EQ(moved.view(), original);
    EXPECT_STREQ(source.GetString(), L"");  // NOLINT(bugprone-use-after-move)
    CString assigned(L"before");
    assigned = std::move(moved);
    EXPECT_EQ(assigned.view(), original);
    EXPECT_STREQ(moved.GetString(), L"");  // NOLINT(bugprone-use-after-move)
    CString& same = assigned;
    assigned = std::move(same);
    EXPECT_EQ(assigned.view(), original);
  }
  static_assert(std::is_nothrow_move_constructible_v<CString>);
  static_assert(std::is_nothrow_move_assignable_v<CString>);
}

TEST(CString, MovedFromTextIsUsable) {
  CString source(kLong.c_str());
  const CString moved(std::move(source));
  source += L"again";  // NOLINT(bugprone-use-after-move)
  EXPECT_STREQ(source.GetString(), L"again");
  EXPECT_EQ(moved.view(), kLong);
}

TEST(CString, AssignsFromEverything) {
  CString text(kLong.c_str());
  text = L"wide";
  EXPECT_STREQ(text.GetString(), L"wide");
  text = "narrow \xC3\xA9";
  EXPECT_STREQ(text.GetString(), L"narrow \u00E9");
  text = L'c';
  EXPECT_STREQ(text.GetString(), L"c");
  text = CString(kLong.c_str());
  EXPECT_EQ(text.view(), kLong);
  const CString another(L"another");
  text = another;
  EXPECT_STREQ(text.GetString(), L"another");
  const CString shared(kLong.c_str());
  text = shared;
  EXPECT_EQ(text.GetString(), shared.GetString());
  text = static_cast<const wchar_t*>(nullptr);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, AssignsItselfAndPartsOfItself) {
  for (const std::wstring& original : {std::wstring(L"short"), kLong + L"tail"}) {
    CString text(original.c_str());
    const CString& same = text;
    text = same;
    EXPECT_EQ(text.view(), original);
    text = text.GetString() + 2;
    EXPECT_EQ(text.view(), original.substr(2));
    const CString shared(text);
    text = text.GetString() + 1;
    EXPECT_EQ(text.view(), original.substr(3));
    EXPECT_EQ(shared.view(), original.substr(2));
  }
}

TEST(CString, ShortPartOfASharedLongTextIsTakenOver) {
  CString text((kLong + L"tail").c_str());
  const CString shared(text);
  text = text.GetString() + kLong.size();
  EXPECT_STREQ(text.GetString(), L"tail");
  EXPECT_EQ(shared.view(), kLong + L"tail");
}

TEST(CString, Concatenates) {
  const CString a(L"a");
  const CString b(L"b");
  EXPECT_STREQ((a + b).GetString(), L"ab");
  EXPECT_STREQ((a + L"x").GetString(), L"ax");
  EXPECT_STREQ((L"x" + a).GetString(), L"xa");
  EXPECT_STREQ((a + L'y').GetString(), L"ay");
  EXPECT_STREQ((L'y' + a).GetString(), L"ya");
  EXPECT_STREQ((a + static_cast<const wchar_t*>(nullptr)).GetString(), L"a");
  CString sum;
  sum += a;
  sum += L"bc";
  sum += "d\xC3\xA9";
  sum += L'e';
  EXPECT_STREQ(sum.GetString(), L"abcd\u00E9e");
}

TEST(CString, AppendsItselfAndPartsOfItself) {
  for (const std::wstring& original : {std::wstring(L"abc"), std::wstring(20, L'm'), kLong}) {
    CString text(original.c_str());
    text += text;
    EXPECT_EQ(text.view(), original + original);
    text += text.GetString() + original.size();
    EXPECT_EQ(text.view(), original + original + original);
  }
}

TEST(CString, GrowsPieceByPiece) {
  CString text;
  std::wstring expected;
  for (int i = 0; i < 5000; ++i) {
    const auto unit = static_cast<wchar_t>('a' + i % 26);
    text += unit;
    expected += unit;
  }
  EXPECT_EQ(text.view(), expected);
}

TEST(CString, GivesUnitsByIndexUpToTheTerminator) {
  const CString text(L"ab");
  EXPECT_EQ(text.GetAt(1), L'b');
  EXPECT_EQ(text[0], L'a');
  EXPECT_EQ(text[1L], L'b');
  EXPECT_EQ(text[std::size_t{2}], L'\0');
  EXPECT_EQ(text.GetAt(2), L'\0');
  EXPECT_THROW(static_cast<void>(text.GetAt(3)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(text.GetAt(-1)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(text[-1]), std::out_of_range);
}

TEST(CString, SetsUnitsBelowTheLength) {
  CString text(L"abc");
  text.SetAt(2, L'C');
  EXPECT_STREQ(text.GetString(), L"abC");
  EXPECT_THROW(text.SetAt(3, L'x'), std::out_of_range);
  EXPECT_THROW(text.SetAt(-1, L'x'), std::out_of_range);
  EXPECT_STREQ(text.GetString(), L"abC");
}

TEST(CString, TooLongIsRaisedAndChangesNothing) {
  CString text(L"kept");
  EXPECT_THROW(static_cast<void>(text.GetBuffer(INT_MAX)), std::length_error);
  EXPECT_THROW(CString(L'x', INT_MAX), std::length_error);
  EXPECT_STREQ(text.GetString(), L"kept");
}

TEST(CString, TwoTextsThatAreTooLongTogetherAreNotJoined) {
  const auto half = static_cast<int>(INT_MAX / sizeof(wchar_t) / 2);
  CString text;
  try {
    // Address space alone: nothing is written between the two ends.
    text.GetBuffer(half);
  } catch (const std::bad_alloc&) {
    GTEST_SKIP() << "no room for half of the longest text";
  }
  text.ReleaseBuffer(half);
  EXPECT_THROW(text += text, std::length_error);
  EXPECT_EQ(text.GetLength(), half);
}

TEST(CString, EqualsByTheWholeText) {
  const CString a(L"Aa");
  const CString same(L"Aa");
  const CString other(L"AA");
  EXPECT_TRUE(a == same);
  EXPECT_TRUE(a != other);
  EXPECT_TRUE(a == L"Aa");
  EXPECT_TRUE(L"Aa" == a);
  EXPECT_TRUE(a != L"A");
  EXPECT_TRUE(L"A" != a);
  EXPECT_TRUE(CString() == static_cast<const wchar_t*>(nullptr));
  EXPECT_TRUE(CString(L"\u00E9") == "\xC3\xA9");
}

TEST(CString, OrdersByUnits) {
  const CString a(L"B");
  const CString b(L"a");
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b > a);
  EXPECT_TRUE(a <= b);
  EXPECT_TRUE(b >= a);
  EXPECT_TRUE(a < L"a");
  EXPECT_TRUE(L"A" < a);
  EXPECT_TRUE(a >= L"B");
  EXPECT_TRUE(L"B" <= a);
  EXPECT_LT(a.Compare(L"BA"), 0);
  EXPECT_GT(CString(L"\u00E9").Compare(L"z"), 0);
  EXPECT_TRUE((a <=> CString(L"B")) == std::strong_ordering::equal);
  EXPECT_TRUE((a <=> L"B") == std::strong_ordering::equal);
  EXPECT_EQ(a.Compare(CString(L"B")), 0);
}

TEST(CString, ComparesWithoutCaseForTheLettersAToZAlone) {
  EXPECT_EQ(CString(L"TRUE").CompareNoCase(L"True"), 0);
  EXPECT_EQ(CString(L"az@[`{").CompareNoCase(L"AZ@[`{"), 0);
  EXPECT_NE(CString(L"@").CompareNoCase(L"`"), 0);
  EXPECT_NE(CString(L"[").CompareNoCase(L"{"), 0);
  EXPECT_NE(CString(L"\u00C9").CompareNoCase(L"\u00E9"), 0);
  EXPECT_NE(CString(L"\u0130").CompareNoCase(L"i"), 0);
  EXPECT_LT(CString(L"A").CompareNoCase(L"b"), 0);
  EXPECT_LT(CString(L"True").CompareNoCase(L"trues"), 0);
  EXPECT_GT(CString(L"trues").CompareNoCase(L"True"), 0);
  EXPECT_GT(CString(L"x").CompareNoCase(nullptr), 0);
}

TEST(CString, TakesParts) {
  const CString text(L"stirrup");
  EXPECT_STREQ(text.Left(3).GetString(), L"sti");
  EXPECT_STREQ(text.Left(0).GetString(), L"");
  EXPECT_STREQ(text.Left(-1).GetString(), L"");
  EXPECT_STREQ(text.Left(99).GetString(), L"stirrup");
  EXPECT_STREQ(text.Right(2).GetString(), L"up");
  EXPECT_STREQ(text.Right(0).GetString(), L"");
  EXPECT_STREQ(text.Right(-1).GetString(), L"");
  EXPECT_STREQ(text.Right(99).GetString(), L"stirrup");
  EXPECT_STREQ(text.Mid(4).GetString(), L"rup");
  EXPECT_STREQ(text.Mid(2, 3).GetString(), L"irr");
  EXPECT_STREQ(text.Mid(-2, 3).GetString(), L"sti");
  EXPECT_STREQ(text.Mid(5, 99).GetString(), L"up");
  EXPECT_STREQ(text.Mid(99, 2).GetString(), L"");
  EXPECT_STREQ(text.Mid(2, INT_MAX).GetString(), L"irrup");
}

TEST(CString, FindsCharactersAndTexts) {
  const CString text(L"L-bar, U-bar");
  EXPECT_EQ(text.Find(L'-'), 1);
  EXPECT_EQ(text.Find(L'-', 2), 8);
  EXPECT_EQ(text.Find(L'-', 9), -1);
  EXPECT_EQ(text.Find(L'-', -1), -1);
  EXPECT_EQ(text.Find(L"bar"), 2);
  EXPECT_EQ(text.Find(L"bar", 3), 9);
  EXPECT_EQ(text.Find(L"bars"), -1);
  EXPECT_EQ(text.Find(L"", 4), 4);
  EXPECT_EQ(text.Find(L"", 99), -1);
  EXPECT_EQ(text.Find(L"bar", -1), -1);
  EXPECT_EQ(text.ReverseFind(L'b'), 9);
  EXPECT_EQ(text.ReverseFind(L'z'), -1);
}

TEST(CString, ReplacesAndCounts) {
  CString text(L"a,b,c");
  EXPECT_EQ(text.Replace(L',', L';'), 2);
  EXPECT_STREQ(text.GetString(), L"a;b;c");
  EXPECT_EQ(text.Replace(L";", L" and "), 2);
  EXPECT_STREQ(text.GetString(), L"a and b and c");
  EXPECT_EQ(text.Replace(L" and ", L""), 2);
  EXPECT_STREQ(text.GetString(), L"abc");
  EXPECT_EQ(text.Replace(L"x", L"y"), 0);
  EXPECT_EQ(text.Replace(L"", L"y"), 0);
  EXPECT_EQ(text.Replace(L"b", nullptr), 1);
  EXPECT_STREQ(text.GetString(), L"ac");
}

TEST(CString, WhatChangesNothingLeavesALongTextShared) {
  const CString text(kLong.c_str());
  CString copy(text);
  EXPECT_EQ(copy.Replace(L'x', L'y'), 0);
  EXPECT_EQ(copy.Replace(L'q', L'q'), 100);
  copy.Trim();
  EXPECT_EQ(copy.GetString(), text.GetString());
  EXPECT_EQ(copy.view(), kLong);
}

TEST(CString, ReplacesWithoutRescanningTheReplacement) {
  CString text(L"aaa");
  EXPECT_EQ(text.Replace(L"a", L"aa"), 3);
  EXPECT_STREQ(text.GetString(), L"aaaaaa");
  EXPECT_EQ(text.Replace(L"aa", L"a"), 3);
  EXPECT_STREQ(text.GetString(), L"aaa");
}

TEST(CString, Trims) {
  EXPECT_STREQ(CString(L" \t\r\nx y\u00A0\u3000 ").Trim().GetString(), L"x y");
  EXPECT_STREQ(CString(L"  x  ").TrimLeft().GetString(), L"x  ");
  EXPECT_STREQ(CString(L"  x  ").TrimRight().GetString(), L"  x");
  EXPECT_STREQ(CString(L"--x--").Trim(L'-').GetString(), L"x");
  EXPECT_STREQ(CString(L"--x--").TrimLeft(L'-').GetString(), L"x--");
  EXPECT_STREQ(CString(L"--x--").TrimRight(L'-').GetString(), L"--x");
  EXPECT_STREQ(CString(L"<(x)>").Trim(L"<>()").GetString(), L"x");
  EXPECT_STREQ(CString(L"<(x)>").TrimLeft(L"<(").GetString(), L"x)>");
  EXPECT_STREQ(CString(L"<(x)>").TrimRight(L")>").GetString(), L"<(x");
  EXPECT_STREQ(CString(L"   ").Trim().GetString(), L"");
}

TEST(CString, ChangesTheCaseOfTheLettersAToZAlone) {
  EXPECT_STREQ(CString(L"AbZ \u00C9\u00E9 @[`{").MakeLower().GetString(), L"abz \u00C9\u00E9 @[`{");
  EXPECT_STREQ(CString(L"AbZ \u00C9\u00E9 @[`{").MakeUpper().GetString(), L"ABZ \u00C9\u00E9 @[`{");
}

TEST(CString, BufferBeginsWithTheTextAndIsMeasuredOnRelease) {
  CString text(L"abc");
  wchar_t* buffer = text.GetBuffer(60);
  EXPECT_STREQ(buffer, L"abc");
  for (int i = 0; i < 60; ++i) {
    buffer[i] = L'x';
  }
  buffer[60] = L'\0';
  text.ReleaseBuffer();
  EXPECT_EQ(text.GetLength(), 60);
  text.GetBuffer()[5] = L'\0';
  text.ReleaseBuffer();
  EXPECT_STREQ(text.GetString(), L"xxxxx");
  text.ReleaseBuffer(2);
  EXPECT_STREQ(text.GetString(), L"xx");
  EXPECT_THROW(text.ReleaseBuffer(INT_MAX), std::out_of_range);
  EXPECT_STREQ(text.GetString(), L"xx");
}

TEST(CString, ReleasingWithoutATerminatorStopsAtTheRoom) {
  CString text;
  wchar_t* buffer = text.GetBuffer(23);
  for (int i = 0; i <= 23; ++i) {
    buffer[i] = L'x';
  }
  text.ReleaseBuffer();
  EXPECT_EQ(text.GetLength(), 23);
  EXPECT_EQ(text.GetString()[23], L'\0');
}

TEST(CString, ConvertsToAPointerAndAView) {
  const CString text(L"abc");
  const wchar_t* pointer = text;
  EXPECT_STREQ(pointer, L"abc");
  EXPECT_EQ(text.view().size(), 3U);
  const std::wstring copy(text);
  EXPECT_EQ(copy, L"abc");
}

TEST(CString, Swaps) {
  CString a(L"short");
  CString b(kLong.c_str());
  a.swap(b);
  EXPECT_EQ(a.view(), kLong);
  EXPECT_STREQ(b.GetString(), L"short");
}

}  // namespace
