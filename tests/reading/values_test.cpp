// Single values that are not as the library files them, and how long texts live.
#include <gtest/gtest.h>

#include <string>

#include <tests/reading/reading_file.h>

namespace quorvan::test {
namespace {

constexpr const char* kBar = "CKtZantoStraightBar";

TEST(ReadingValues, AMissingItemIsSaidForEveryKind) {
  double number = 3;
  std::int32_t whole = 3;
  std::uint32_t color = 3;
  int flag = 3;
  const char* text = nullptr;
  const wchar_t* wide = nullptr;
  EXPECT_EQ(quorvanReadDouble(nullptr, &number), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanReadLong(nullptr, &whole), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanReadColor(nullptr, &color), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanReadFlag(nullptr, &flag), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanReadText(nullptr, &text, nullptr), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanReadWideText(nullptr, &wide, nullptr), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanReadPoint(nullptr, &number), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanReadSize(nullptr, &whole), QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanLastError(), QUORVAN_NO_ITEM);
  EXPECT_EQ(number + whole + color + flag, 12);
}

TEST(ReadingValues, ANullResultIsRefused) {
  const ReadingElement element(doubleItem("Angle", 1) + textItem("Type", L"T"));
  EXPECT_EQ(quorvanReadDouble(element.item("Angle"), nullptr), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanReadText(element.item("Type"), nullptr, nullptr), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanReadPoint(element.item("Angle"), nullptr), QUORVAN_BAD_ARGUMENT);
}

TEST(ReadingValues, FlagsAreTrueInAnyCaseAndFalseOtherwise) {
  for (const auto& [text, expected] : {std::pair{"True", 1},
                                       {"TRUE", 1},
                                       {"true", 1},
                                       {"False", 0},
                                       {"1", 0},
                                       {"yes", 0},
                                       {"", 0},
                                       {"True ", 0}}) {
    const ReadingElement element(rawItem("Hidden", "string=\"" + std::string(text) + "\""), kBar);
    int flag = 9;
    EXPECT_EQ(quorvanReadFlag(element.item("Hidden"), &flag), QUORVAN_DONE);
    EXPECT_EQ(flag, expected) << text;
  }
}

TEST(ReadingValues, ANumericFlagIsSetByAnyNumberBut0) {
  for (const auto& [number, expected] : {std::pair{0L, 0}, {1L, 1}, {255L, 1}, {-1L, 1}}) {
    const ReadingElement element(longItem("Side", number), "CKtZantoPolygonBar");
    int flag = 9;
    EXPECT_EQ(quorvanReadFlag(element.item("Side"), &flag), QUORVAN_DONE);
    EXPECT_EQ(flag, expected) << number;
  }
}

TEST(ReadingValues, AnOlderBondClassIsItsText) {
  for (const auto& [number, expected] : {std::pair{0L, "Ha"}, {1L, "Dx"}, {7L, ""}}) {
    const ReadingElement element(longItem("Adherence", number), kBar);
    const QuorvanItem* const item = element.item("Adherence");
    EXPECT_EQ(quorvanItemKind(item), QUORVAN_KIND_TEXT);
    EXPECT_EQ(textOf(item), expected);
    const wchar_t* wide = nullptr;
    std::size_t length = 0;
    EXPECT_EQ(quorvanReadWideText(item, &wide, &length), QUORVAN_DONE);
    EXPECT_EQ(length, std::string(expected).size());
  }
}

TEST(ReadingValues, ANumberWhereTextIsFiledIsANumber) {
  const ReadingElement element(longItem("SteelGrade", 500) + doubleItem("Reference", 2.5), kBar);
  EXPECT_EQ(quorvanItemKind(element.item("SteelGrade")), QUORVAN_KIND_LONG);
  EXPECT_EQ(quorvanItemKind(element.item("Reference")), QUORVAN_KIND_DOUBLE);
  EXPECT_EQ(textOf(element.item("SteelGrade")), "(none)");
  std::int32_t number = 0;
  EXPECT_EQ(quorvanReadLong(element.item("Reference"), &number), QUORVAN_OTHER_KIND);
}

TEST(ReadingValues, APointWithoutACoordinateIsLeftAlone) {
  const ReadingElement element(rawItem("Point1", "X=\"1\" Y=\"2\""), kBar);
  double xyz[3] = {7, 8, 9};
  EXPECT_EQ(quorvanReadPoint(element.item("Point1"), xyz), QUORVAN_OTHER_KIND);
  EXPECT_EQ(xyz[0], 7);
  EXPECT_EQ(quorvanItemKind(element.item("Point1")), QUORVAN_KIND_NONE);
}

TEST(ReadingValues, TheFirstItemOfANameCounts) {
  const ReadingElement element(
      longItem("Reference", 1) + doubleItem("Diameter", 8) + longItem("Reference", 2), kBar);
  double diameter = 0;
  std::int32_t number = 0;
  EXPECT_EQ(quorvanReadDouble(element.item("Diameter"), &diameter), QUORVAN_DONE);
  EXPECT_EQ(quorvanReadLong(element.item("Reference"), &number), QUORVAN_DONE);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(quorvanItemCount(element.get()), 3U);
}

TEST(ReadingValues, TextsAreUtf8AndWide) {
  const std::wstring wideText = L"\u00e9 \u20ac \u4e2d" + std::wstring(200, L'x');
  const ReadingElement element(textItem("Type", wideText));
  EXPECT_EQ(textOf(element.item("Type")),
            "\xC3\xA9 \xE2\x82\xAC \xE4\xB8\xAD" + std::string(200, 'x'));
  const wchar_t* wide = nullptr;
  std::size_t length = 0;
  EXPECT_EQ(quorvanReadWideText(element.item("Type"), &wide, &length), QUORVAN_DONE);
  EXPECT_EQ(wide, wideText);
  EXPECT_EQ(length, wideText.size());
}

TEST(ReadingValues, TextsLiveAsLongAsTheirElementStays) {
  const ReadingElement element(textItem("Type", L"first") + textItem("Reference", L"second"));
  const char* first = nullptr;
  const char* second = nullptr;
  ASSERT_EQ(quorvanReadText(element.item("Type"), &first, nullptr), QUORVAN_DONE);
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(quorvanReadText(element.item("Reference"), &second, nullptr), QUORVAN_DONE);
  }
  EXPECT_STREQ(first, "first");
  EXPECT_STREQ(second, "second");
}

TEST(ReadingValues, NamesOfItemsThatNoClassHasAreTerminated) {
  const ReadingElement element(longItem("Strange", 1) + longItem("Stranger", 2));
  EXPECT_STREQ(quorvanItemName(quorvanItemAt(element.get(), 0)), "Strange");
  EXPECT_STREQ(quorvanItemName(quorvanItemAt(element.get(), 1)), "Stranger");
}

}  // namespace
}  // namespace quorvan::test
