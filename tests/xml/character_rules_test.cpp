#include <gtest/gtest.h>

#include <string_view>

#include <quorvan/xml/character_rules.h>

namespace quorvan::dom {
namespace {

using namespace std::string_view_literals;

TEST(XmlText, TextThatXmlCarriesStaysAsItIs) {
  const auto text = L"\u00E9t\u00E9 \u20AC \t\r\n <&> \uD7FF\uE000\uFFFD"sv;
  EXPECT_TRUE(isXmlText(text));
  EXPECT_EQ(toXmlText(text), text);
}

TEST(XmlText, CharactersBeyondTheFirstPlaneStay) {
  EXPECT_TRUE(isXmlText(L"\U0001F600\U0010FFFF"sv));
  EXPECT_EQ(toXmlText(L"\U0001F600"sv), L"\U0001F600"sv);
}

TEST(XmlText, ControlCharactersAreReplaced) {
  for (wchar_t control = 0; control < 0x20; ++control) {
    const wchar_t text[] = {L'a', control, L'b'};
    const bool carried = control == L'\t' || control == L'\n' || control == L'\r';
    EXPECT_EQ(isXmlText({text, 3}), carried) << static_cast<int>(control);
    const wchar_t expected[] = {L'a', carried ? control : L'\uFFFD', L'b'};
    EXPECT_EQ(toXmlText({text, 3}), std::wstring_view(expected, 3)) << static_cast<int>(control);
  }
  EXPECT_TRUE(isXmlText(L"\x7F\x80\x9F"sv));
}

TEST(XmlText, NonCharactersAreReplaced) {
  EXPECT_EQ(toXmlText(L"a\uFFFE\uFFFF"sv), L"a\uFFFD\uFFFD"sv);
}

TEST(XmlText, LoneSurrogatesAreReplaced) {
  const wchar_t high[] = {L'a', wchar_t{0xD800}, L'b'};
  const wchar_t low[] = {wchar_t{0xDC00}};
  const wchar_t last[] = {L'a', wchar_t{0xDBFF}};
  EXPECT_EQ(toXmlText({high, 3}), L"a\uFFFDb"sv);
  EXPECT_EQ(toXmlText({low, 1}), L"\uFFFD"sv);
  EXPECT_EQ(toXmlText({last, 2}), L"a\uFFFD"sv);
  EXPECT_FALSE(isXmlText({last, 2}));
}

TEST(XmlText, EmptyTextStaysEmpty) {
  EXPECT_TRUE(isXmlText({}));
  EXPECT_EQ(toXmlText({}), L""sv);
}

}  // namespace
}  // namespace quorvan::dom
