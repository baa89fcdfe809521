// Texts of a drawing in the ASCII of bending data.
#include <tools/bvbs/writing/ascii_text.h>

#include <gtest/gtest.h>

#include <string>

namespace quorvan::tool::bvbs {

namespace {

TEST(BendingText, HoldsPrintableAsciiButTheSign) {
  for (int unit = 0; unit < 256; ++unit) {
    const std::string text = "a" + std::string(1, static_cast<char>(unit)) + "b";
    const bool isHeld = unit >= 32 && unit <= 126 && unit != '@';
    EXPECT_EQ(asciiText(text).has_value(), isHeld) << unit;
    if (isHeld) {
      EXPECT_EQ(*asciiText(text), text);
      EXPECT_EQ(transliterated(text), text);
    } else if (unit < 128) {
      EXPECT_EQ(transliterated(text), unit == '@' ? "a(at)b" : "a b") << unit;
    }
  }
  EXPECT_EQ(asciiText(""), "");
  EXPECT_EQ(transliterated(""), "");
}

TEST(BendingText, IsSpeltAsItsLanguageWould) {
  const std::pair<const char*, const char*> cases[] = {
      {"M\u00fcller & S\u00f6hne", "Mueller & Soehne"},
      {"\u00c4rger, \u00d6l, \u00dcbel", "Aerger, Oel, Uebel"},
      {"Stra\u00dfe", "Strasse"},
      {"b\u00e9ton arm\u00e9", "beton arme"},
      {"\u0152uvre, \u0153il", "Oeuvre, oeil"},
      {"\u017b\u00f3\u0142\u0107 g\u0119\u015bl\u0105 ja\u017a\u0144", "Zolc gesla jazn"},
      {"P\u0159\u00edli\u0161 \u017elu\u0165ou\u010dk\u00fd k\u016f\u0148", "Prilis zlutoucky kun"},
      {"\u00c5ngstr\u00f6m, r\u00f8dgr\u00f8d, \u00c6r\u00f8", "Angstroem, rodgrod, Aero"},
      {"\u015eehir, \u0131\u015f\u0131k, \u0130zmir, da\u011f", "Sehir, isik, Izmir, dag"},
      {"se\u00f1or, S\u00e3o, \u00e7a", "senor, Sao, ca"},
      {"\u0218tefan, \u021bar\u0103", "Stefan, tara"},
      {"\u00fe\u00f3rr, Hall\u0171", "thorr, Hallu"},
      {"5 \u2013 8 \u2014 9 \u2212 1", "5 - 8 - 9 - 1"},
      {"\u201cA\u201d \u201eB\u201c \u00abC\u00bb", "\"A\" \"B\" \"C\""},
      {"l\u2019axe", "l'axe"},
      {"m\u00b2 m\u00b3 90\u00b0 6\u00d74 \u2026 \u20ac", "m2 m3 90 deg 6x4 ... EUR"},
      {"\u23008", "O8"},
      {"\u23088", "?8"},
      {"12\u00a0000\u202fmm", "12 000 mm"},
      {"\u0411\u0435\u0442\u043e\u043d", "?????"},
      {"\u6c34\u6ce5", "??"},
      {"a\U0001f600b", "a?b"},
  };
  for (const auto& [text, ascii] : cases) {
    EXPECT_EQ(transliterated(text), ascii) << text;
  }
}

// Whatever comes in, a record can hold what comes out.
TEST(BendingText, IsAlwaysHeldOnceItIsSpelt) {
  for (unsigned first = 0; first < 256; ++first) {
    for (unsigned second = 0; second < 256; second += 3) {
      const std::string text{static_cast<char>(first), static_cast<char>(second), 'x'};
      EXPECT_TRUE(asciiText(transliterated(text)).has_value()) << first << ' ' << second;
    }
  }
  for (unsigned code = 0x80; code < 0x2500; ++code) {
    std::string letter;
    if (code < 0x800) {
      letter = {static_cast<char>(0xC0U | (code >> 6U)), static_cast<char>(0x80U | (code & 0x3FU))};
    } else {
      letter = {static_cast<char>(0xE0U | (code >> 12U)),
                static_cast<char>(0x80U | ((code >> 6U) & 0x3FU)),
                static_cast<char>(0x80U | (code & 0x3FU))};
    }
    const std::string spelt = transliterated('<' + letter + '>');
    EXPECT_TRUE(asciiText(spelt).has_value()) << code;
    EXPECT_TRUE(spelt.size() > 2 && spelt.front() == '<' && spelt.back() == '>') << code;
  }
}

}  // namespace

}  // namespace quorvan::tool::bvbs
