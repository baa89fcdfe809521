// The last error of a thread: what a caller in any language learns about a call that failed.
#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>

#include <quorvan/errors/last_error.h>

namespace quorvan::test {
namespace {

template <class Error>
int failWith(const Error& raised) {
  try {
    throw raised;
  } catch (...) {
    return failWithCurrentError();
  }
}

TEST(LastError, IsTheFailureWithItsText) {
  EXPECT_EQ(fail(QUORVAN_NO_FILING), 10);
  EXPECT_EQ(quorvanLastError(), QUORVAN_NO_FILING);
  EXPECT_STREQ(quorvanLastErrorText(), "no filing is open");
  EXPECT_STREQ(quorvanLastErrorWideText(), L"no filing is open");
  EXPECT_EQ(quorvanLastErrorLine(), 0);
}

TEST(LastError, HasTheDetailAndThePlaceBehindIt) {
  fail(QUORVAN_NOT_WELL_FORMED, {.text = "mismatched tag", .line = 3, .column = 7});
  EXPECT_STREQ(quorvanLastErrorText(), "the file is no well-formed document: mismatched tag");
  EXPECT_EQ(quorvanLastErrorLine(), 3);
  EXPECT_EQ(quorvanLastErrorColumn(), 7);
  fail(QUORVAN_NO_ITEM);
  EXPECT_EQ(quorvanLastErrorLine(), 0);
  EXPECT_EQ(quorvanLastErrorColumn(), 0);
}

TEST(LastError, NamesTheNumberOfAServiceError) {
  fail(QUORVAN_NO_ACCESS, E_ACCESSDENIED);
  EXPECT_STREQ(quorvanLastErrorText(),
               "the file is out of reach: no permission, or in use: 0x80070005");
}

TEST(LastError, WideTextIsThatOfTheLastFailure) {
  fail(QUORVAN_FAILED, ErrorDetail{.text = "\xC3\xA9\xF0\x9F\x98\x80"});
  const std::wstring found = quorvanLastErrorWideText();
  const std::wstring end = sizeof(wchar_t) == 2 ? L": \u00e9\xD83D\xDE00" : L": \u00e9\U0001F600";
  EXPECT_EQ(found, L"the XML document service has failed" + end);
  fail(QUORVAN_NO_MORE);
  EXPECT_STREQ(quorvanLastErrorWideText(), L"there is no further element");
}

TEST(LastError, ALongDetailIsCutBetweenCharacters) {
  std::string detail;
  for (int i = 0; i < 300; ++i) {
    detail += "\xC3\xA9";
  }
  fail(QUORVAN_FAILED, ErrorDetail{.text = detail});
  const std::string text = quorvanLastErrorText();
  EXPECT_LT(text.size(), 320U);
  EXPECT_GT(text.size(), 300U);
  EXPECT_EQ(text.back(), '\xA9');
}

TEST(LastError, BelongsToItsThread) {
  fail(QUORVAN_NO_FILING);
  int other = -1;
  std::string text = "?";
  std::thread([&] {
    other = quorvanLastError();
    text = quorvanLastErrorText();
    fail(QUORVAN_NO_MORE);
  }).join();
  EXPECT_EQ(other, QUORVAN_DONE);
  EXPECT_EQ(text, "");
  EXPECT_EQ(quorvanLastError(), QUORVAN_NO_FILING);
}

TEST(LastError, ErrorsInFlightBecomeResults) {
  EXPECT_EQ(failWith(std::bad_alloc()), QUORVAN_OUT_OF_MEMORY);
  EXPECT_EQ(failWith(_com_error(E_OUTOFMEMORY)), QUORVAN_OUT_OF_MEMORY);
  EXPECT_EQ(failWith(_com_error(E_FAIL)), QUORVAN_FAILED);
  EXPECT_EQ(failWith(std::runtime_error("why")), QUORVAN_FAILED);
  EXPECT_NE(std::strstr(quorvanLastErrorText(), "why"), nullptr);
  EXPECT_EQ(failWith(7), QUORVAN_FAILED);
}

TEST(LastError, EveryResultHasANumberOfItsOwn) {
  std::set<int> numbers;
  int count = 0;
#define QUORVAN_RESULT(name, number, text) \
  numbers.insert(name);                    \
  ++count;
  QUORVAN_RESULTS(QUORVAN_RESULT)
#undef QUORVAN_RESULT
  EXPECT_EQ(static_cast<int>(numbers.size()), count);
}

}  // namespace
}  // namespace quorvan::test
