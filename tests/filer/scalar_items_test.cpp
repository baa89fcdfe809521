// Scalar items: numbers and texts, what is written and what is read back.

#include <tests/filer/filer_test.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <quorvan/filer/item_access.h>

namespace quorvan::test {
namespace {

using namespace std::string_literals;

class ScalarItems : public FilerTest {
 protected:
  ScalarItems() {
    m_filer.newFiler(kPath);
    m_filer.beginClass(L"A", 1);
  }

  // The items as saved.
  [[nodiscard]] std::string items() {
    m_filer.closeFiler();
    const std::string start = "<A version=\"1\" index=\"1\">";
    const std::string text = savedText(kPath);
    const std::size_t at = text.find(start) + start.size();
    return text.substr(at, text.find("</A>") - at);
  }

  // Turns to reading a class element with these items.
  void load(const std::string& items) {
    writeText(kPath, documentText("<R>" + items + "</R>"));
    m_filer = CKtFiler();
    m_filer.newFiler(kPath);
    ASSERT_EQ(m_filer.beginClass(L"R"), 1);
  }

  [[nodiscard]] double loadedDouble(const std::string& value) {
    load("<N double=\"" + value + "\"/>");
    double number = 777;
    EXPECT_EQ(m_filer.readItem(L"N", &number), 1) << value;
    return number;
  }

  [[nodiscard]] long loadedLong(const std::string& value) {
    load("<N long=\"" + value + "\"/>");
    long number = 777;
    EXPECT_EQ(m_filer.readItem(L"N", &number), 1) << value;
    return number;
  }

  CKtFiler m_filer;
};

// --- writing ---------------------------------------------------------------------------------

TEST_F(ScalarItems, DoublesAreWrittenWithSevenDecimals) {
  for (const double value : {12.5, -0.25, 1e-8, 123456789.123456789, 0.0, -1e-8}) {
    EXPECT_EQ(m_filer.writeItem(L"D", value), 1);
  }
  EXPECT_EQ(items(),
            "<D double=\"12.5000000\"/><D double=\"-0.2500000\"/>"
            "<D double=\"0.0000000\"/><D double=\"123456789.1234568\"/>"
            "<D double=\"0.0000000\"/><D double=\"-0.0000000\"/>");
}

TEST_F(ScalarItems, LargeDoublesAreWrittenWithoutExponent) {
  m_filer.writeItem(L"D", 1e20);
  EXPECT_EQ(items(), "<D double=\"1" + std::string(20, '0') + ".0000000\"/>");
}

TEST_F(ScalarItems, TheLargestDoubleIsWrittenInFull) {
  m_filer.writeItem(L"D", -std::numeric_limits<double>::max());
  const std::string text = items();
  const std::string start = "<D double=\"-17976931348623157";
  EXPECT_EQ(text.substr(0, start.size()), start);
  EXPECT_EQ(text.size(), "<D double=\"-"s.size() + 309 + ".0000000\"/>"s.size());
}

TEST_F(ScalarItems, NumbersThatAreNotFiniteAreWrittenAsWords) {
  m_filer.writeItem(L"D", std::numeric_limits<double>::infinity());
  m_filer.writeItem(L"D", -std::numeric_limits<double>::infinity());
  m_filer.writeItem(L"D", std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(items(), "<D double=\"inf\"/><D double=\"-inf\"/><D double=\"nan\"/>");
}

TEST_F(ScalarItems, LongsAreWrittenInDecimals) {
  m_filer.writeItem(L"Color", 3L);
  m_filer.writeItem(L"Color", 0L);
  m_filer.writeItem(L"Color", 2147483647L);
  m_filer.writeItem(L"Color", -2147483647L - 1);
  EXPECT_EQ(items(),
            "<Color long=\"3\"/><Color long=\"0\"/><Color long=\"2147483647\"/>"
            "<Color long=\"-2147483648\"/>");
}

TEST_F(ScalarItems, LongsAreCutToThirtyTwoBits) {
  if constexpr (sizeof(long) > 4) {
    m_filer.writeItem(L"L", static_cast<long>(0x100000005LL));
    m_filer.writeItem(L"L", static_cast<long>(0x80000000LL));
    EXPECT_EQ(items(), "<L long=\"5\"/><L long=\"-2147483648\"/>");
  }
}

// A size, a colour, an enumerator: whatever whole number a caller has at hand.
TEST_F(ScalarItems, WholeNumbersOfEveryTypeAreWrittenAsLongs) {
  enum Plain { kTwo = 2 };
  enum Wide : std::int32_t { kThree = 3 };
  const std::vector<int> four(4);
  m_filer.writeItem(L"N", 0);
  m_filer.writeItem(L"N", true);
  m_filer.writeItem(L"N", kTwo);
  m_filer.writeItem(L"N", kThree);
  m_filer.writeItem(L"N", four.size());
  m_filer.writeItem(L"N", 0xFFFFFFFFUL);
  m_filer.writeItem(L"N", static_cast<std::int16_t>(-6));
  m_filer.writeItem(L"N", static_cast<std::uint8_t>(7));
  m_filer.writeItem(L"N", 8LL);
  m_filer.writeItem(L"N", 9.0F);
  m_filer.beginVector(L"V", 0);
  m_filer.beginVector(L"V", four.size());
  m_filer.beginVector(L"V", 5U);
  m_filer.endVector();
  EXPECT_EQ(items(),
            "<N long=\"0\"/><N long=\"1\"/><N long=\"2\"/><N long=\"3\"/><N long=\"4\"/>"
            "<N long=\"-1\"/><N long=\"-6\"/><N long=\"7\"/><N long=\"8\"/>"
            "<N double=\"9.0000000\"/><V size=\"0\"/><V size=\"4\"/><V size=\"5\"/>");
}

TEST_F(ScalarItems, TextsAreWrittenAsTheyAre) {
  m_filer.writeItem(L"T", L"");
  m_filer.writeItem(L"T", L" \u00D8 12 <a> & \"b\" 'c' ");
  m_filer.writeItem(L"T", CString(L"\u20AC \u5F62"));
  m_filer.writeItem(L"T", L"&lt;");
  EXPECT_EQ(items(),
            "<T string=\"\"/>"
            "<T string=\" \xD8 12 &lt;a&gt; &amp; &quot;b&quot; 'c' \"/>"
            "<T string=\"&#8364; &#24418;\"/><T string=\"&amp;lt;\"/>");
}

TEST_F(ScalarItems, AnItemHoldsOneAttributeAndNothingElse) {
  EXPECT_EQ(m_filer.writeItem(L"Radius", 12.5), 1);
  EXPECT_EQ(m_filer.writeItem(L"Color", 3), 1);
  EXPECT_EQ(m_filer.writeItem(L"Name", L"x"), 1);
  EXPECT_EQ(items(), "<Radius double=\"12.5000000\"/><Color long=\"3\"/><Name string=\"x\"/>");
}

// --- where items go --------------------------------------------------------------------------

TEST_F(ScalarItems, WithNothingOpenAnItemIsDropped) {
  m_filer.endClass();
  EXPECT_EQ(m_filer.writeItem(L"N", 1), 0);
  EXPECT_EQ(m_filer.writeItem(L"N", 1.0), 0);
  EXPECT_EQ(m_filer.writeItem(L"N", L"1"), 0);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(ScalarItems, WithNothingOpenNothingIsRead) {
  m_filer.endClass();
  double number = 1;
  long integer = 2;
  CString text = L"3";
  EXPECT_EQ(m_filer.readItem(L"N", &number), 0);
  EXPECT_EQ(m_filer.readItem(L"N", &integer), 0);
  EXPECT_EQ(m_filer.readItem(L"N", &text), 0);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(integer, 2);
  EXPECT_EQ(text, L"3");
}

TEST_F(ScalarItems, AnOpenVectorTakesTheItems) {
  m_filer.beginVector(L"V", 1);
  m_filer.writeItem(L"N", 1);
  m_filer.endVector();
  m_filer.writeItem(L"N", 2);
  EXPECT_EQ(items(), "<V size=\"1\"><N long=\"1\"/></V><N long=\"2\"/>");
}

TEST_F(ScalarItems, AnOpenVectorHidesTheItemsOfTheClass) {
  load("<N long=\"1\"/><V size=\"1\"><M long=\"2\"/></V>");
  long count = 0;
  ASSERT_EQ(m_filer.beginVector(L"V", &count), 1);
  EXPECT_EQ(itemNumber(m_filer, L"N"), -1);
  EXPECT_EQ(itemNumber(m_filer, L"M"), 2);
  m_filer.endVector();
  EXPECT_EQ(itemNumber(m_filer, L"N"), 1);
  EXPECT_EQ(itemNumber(m_filer, L"M"), -1);
}

TEST_F(ScalarItems, WhatWasJustWrittenCanBeRead) {
  m_filer.writeItem(L"D", 2.5);
  m_filer.writeItem(L"L", 4);
  m_filer.writeItem(L"T", L"six");
  double number = 0;
  long integer = 0;
  CString text;
  EXPECT_EQ(m_filer.readItem(L"D", &number), 1);
  EXPECT_EQ(m_filer.readItem(L"L", &integer), 1);
  EXPECT_EQ(m_filer.readItem(L"T", &text), 1);
  EXPECT_EQ(number, 2.5);
  EXPECT_EQ(integer, 4);
  EXPECT_EQ(text, L"six");
}

// --- errors ----------------------------------------------------------------------------------

TEST_F(ScalarItems, ANameThatXmlCannotCarryIsRefused) {
  for (const wchar_t* name : {L"", L"1N", L"a b", L"<", L"N\x01", L"-"}) {
    EXPECT_EQ(raised([&] { m_filer.writeItem(name, 1.0); }), E_FAIL);
    EXPECT_EQ(raised([&] { m_filer.writeItem(name, 1L); }), E_FAIL);
    EXPECT_EQ(raised([&] { m_filer.writeItem(name, L"1"); }), E_FAIL);
    double number = 0;
    EXPECT_EQ(m_filer.readItem(name, &number), 0);
  }
  m_filer.writeItem(L"N", 1);
  EXPECT_EQ(items(), "<N long=\"1\"/>");
}

TEST_F(ScalarItems, ARefusedNameIsNoticedWithNothingOpenToo) {
  m_filer.endClass();
  EXPECT_EQ(raised([&] { m_filer.writeItem(L"a b", 1.0); }), E_FAIL);
}

TEST_F(ScalarItems, WritingWithoutADocumentRaises) {
  CKtFiler closed;
  EXPECT_EQ(raised([&] { closed.writeItem(L"N", 1.0); }), E_POINTER);
  EXPECT_EQ(raised([&] { closed.writeItem(L"N", 1L); }), E_POINTER);
  EXPECT_EQ(raised([&] { closed.writeItem(L"N", L"1"); }), E_POINTER);
  long value = 5;
  EXPECT_EQ(raised([&] { EXPECT_EQ(closed.readItem(L"N", &value), 0); }), S_OK);
}

// --- reading ---------------------------------------------------------------------------------

TEST_F(ScalarItems, AMissingItemLeavesTheValue) {
  load("<M long=\"1\"/>");
  double number = 1.5;
  long integer = 2;
  CString text = L"three";
  EXPECT_EQ(m_filer.readItem(L"N", &number), 0);
  EXPECT_EQ(m_filer.readItem(L"N", &integer), 0);
  EXPECT_EQ(m_filer.readItem(L"N", &text), 0);
  EXPECT_EQ(number, 1.5);
  EXPECT_EQ(integer, 2);
  EXPECT_EQ(text, L"three");
}

TEST_F(ScalarItems, AnItemOfAnotherKindReadsAsMissing) {
  load("<D double=\"1\"/><L long=\"2\"/><T string=\"3\"/><P X=\"1\" Y=\"2\" Z=\"3\"/><E/>");
  double number = 1.5;
  long integer = 2;
  CString text = L"three";
  for (const wchar_t* name : {L"L", L"T", L"P", L"E"}) {
    EXPECT_EQ(m_filer.readItem(name, &number), 0);
  }
  for (const wchar_t* name : {L"D", L"T", L"P", L"E"}) {
    EXPECT_EQ(m_filer.readItem(name, &integer), 0);
  }
  for (const wchar_t* name : {L"D", L"L", L"P", L"E"}) {
    EXPECT_EQ(m_filer.readItem(name, &text), 0);
  }
  EXPECT_EQ(number, 1.5);
  EXPECT_EQ(integer, 2);
  EXPECT_EQ(text, L"three");
}

TEST_F(ScalarItems, KindAndNameAreCaseSensitive) {
  load("<N Long=\"1\"/><n long=\"2\"/>");
  EXPECT_EQ(itemNumber(m_filer, L"N"), -1);
  EXPECT_EQ(itemNumber(m_filer, L"n"), 2);
}

TEST_F(ScalarItems, OfTwoItemsOfANameTheFirstIsRead) {
  m_filer.writeItem(L"N", 1);
  m_filer.writeItem(L"N", 2);
  EXPECT_EQ(itemNumber(m_filer), 1);
}

TEST_F(ScalarItems, AnItemOfAnotherKindHidesALaterOneOfItsName) {
  load("<N double=\"1\"/><N long=\"2\"/>");
  EXPECT_EQ(itemNumber(m_filer), -1);
}

TEST_F(ScalarItems, ANodeWithoutAttributesHidesALaterItemOfItsName) {
  load("<?N data?><N long=\"2\"/>");
  EXPECT_EQ(itemNumber(m_filer), -1);
}

TEST_F(ScalarItems, ItemsBelowItemsAreNotFound) {
  load("<M long=\"1\"><N long=\"2\"/></M>");
  EXPECT_EQ(itemNumber(m_filer), -1);
}

TEST_F(ScalarItems, OtherAttributesAndContentDoNotDisturb) {
  load("<N unit=\"mm\" long=\"3\" string=\"x\">text<!--c--><M/></N>");
  CString text;
  EXPECT_EQ(itemNumber(m_filer), 3);
  EXPECT_EQ(m_filer.readItem(L"N", &text), 1);
  EXPECT_EQ(text, L"x");
}

TEST_F(ScalarItems, DoublesAreReadAsFarAsTheyGo) {
  EXPECT_EQ(loadedDouble("12.5000000"), 12.5);
  EXPECT_EQ(loadedDouble("  -.5mm"), -0.5);
  EXPECT_EQ(loadedDouble("+1e3"), 1000);
  EXPECT_EQ(loadedDouble("1e"), 1);
  EXPECT_EQ(loadedDouble("1,5"), 1);
  EXPECT_EQ(loadedDouble("- 5"), 0);
  EXPECT_EQ(loadedDouble("wide"), 0);
  EXPECT_EQ(loadedDouble(""), 0);
  EXPECT_EQ(loadedDouble("0.0000000"), 0);
  EXPECT_TRUE(std::signbit(loadedDouble("-0.0000000")));
}

TEST_F(ScalarItems, LongsAreReadAsFarAsTheyGo) {
  EXPECT_EQ(loadedLong("-2147483648"), -2147483647L - 1);
  EXPECT_EQ(loadedLong(" 42 mm"), 42);
  EXPECT_EQ(loadedLong("+7"), 7);
  EXPECT_EQ(loadedLong("3.9"), 3);
  EXPECT_EQ(loadedLong("010"), 10);
  EXPECT_EQ(loadedLong("0x10"), 0);
  EXPECT_EQ(loadedLong("--5"), 0);
  EXPECT_EQ(loadedLong("red"), 0);
  EXPECT_EQ(loadedLong(""), 0);
}

TEST_F(ScalarItems, LongsBeyondThirtyTwoBitsAreClamped) {
  EXPECT_EQ(loadedLong("2147483648"), 2147483647L);
  EXPECT_EQ(loadedLong(std::string(400, '9')), 2147483647L);
  EXPECT_EQ(loadedLong('-' + std::string(400, '9')), -2147483647L - 1);
}

TEST_F(ScalarItems, AnEmptyTextIsRead) {
  load("<T string=\"\"/>");
  CString text = L"before";
  EXPECT_EQ(m_filer.readItem(L"T", &text), 1);
  EXPECT_TRUE(text.IsEmpty());
}

TEST_F(ScalarItems, BlanksAroundATextAreRead) {
  load("<T string=\"  a  \"/><U string=\"   \"/>");
  CString text;
  EXPECT_EQ(m_filer.readItem(L"T", &text), 1);
  EXPECT_EQ(text, L"  a  ");
  EXPECT_EQ(m_filer.readItem(L"U", &text), 1);
  EXPECT_EQ(text, L"   ");
}

// --- through a file and back -----------------------------------------------------------------

class TextRoundTrip : public ScalarItems {
 protected:
  [[nodiscard]] CString reread(const CString& text) {
    EXPECT_EQ(m_filer.writeItem(L"T", text), 1);
    EXPECT_EQ(m_filer.closeFiler(), 1);
    CKtFiler reader;
    EXPECT_EQ(reader.newFiler(kPath), 1);
    EXPECT_EQ(reader.beginClass(L"A"), 1) << "the file is not readable any more";
    CString result = L"not read";
    EXPECT_EQ(reader.readItem(L"T", &result), 1);
    return result;
  }
};

TEST_F(TextRoundTrip, TextsComeBackAsTheyWere) {
  const CString text(L"\u00C9l\u00E9vation \u00D8 12 \u2014 \u20AC <&>\"' \U0001F600 \u007F\u0085");
  EXPECT_EQ(reread(text), text);
}

TEST_F(TextRoundTrip, LineBreaksAndTabsComeBack) {
  EXPECT_EQ(reread(L"a\tb\nc\rd\r\n"), L"a\tb\nc\rd\r\n");
}

TEST_F(TextRoundTrip, ControlCharactersBecomeReplacementCharacters) {
  EXPECT_EQ(reread(CString(L"a\x01z\0\x08\x0B\x0C\x1F", 8)),
            L"a\uFFFDz\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST_F(TextRoundTrip, NonCharactersBecomeReplacementCharacters) {
  EXPECT_EQ(reread(L"a\uFFFE\uFFFFz"), L"a\uFFFD\uFFFDz");
}

TEST_F(TextRoundTrip, LoneSurrogatesBecomeReplacementCharacters) {
  const wchar_t text[] = {L'a', wchar_t{0xD800}, L'z', wchar_t{0xDC00}};
  EXPECT_EQ(reread(CString(text, 4)), L"a\uFFFDz\uFFFD");
}

TEST_F(TextRoundTrip, LongTextsComeBack) {
  const CString text(std::wstring(100'000, L'\u00E9'));
  EXPECT_EQ(reread(text), text);
}

TEST_F(ScalarItems, ATinyDoubleReadsBackAsZero) {
  m_filer.writeItem(L"D", 1e-8);
  m_filer.closeFiler();
  m_filer.newFiler(kPath);
  m_filer.beginClass(L"A");
  double value = 1;
  EXPECT_EQ(m_filer.readItem(L"D", &value), 1);
  EXPECT_EQ(value, 0);
}

// What an element class files as a flag.
TEST_F(ScalarItems, AFlagWithNowhereToGoIsDropped) {
  m_filer.endClass();
  EXPECT_EQ(ItemAccess::write(m_filer, "F", dom::AsciiText{"True"}), 0);
  m_filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

}  // namespace
}  // namespace quorvan::test
