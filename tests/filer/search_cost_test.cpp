// What searching costs, in calls of the document service: the fault backend would make the first
// call beyond a bound fail.

#include <tests/filer/filer_test.h>

#include <string>

#include <tests/support/fault_backend/dom_faults.h>

namespace quorvan::test {
namespace {

class SearchCost : public FilerTest {
 protected:
  SearchCost() {
    m_filer.newFiler(kPath);
    m_pattern.newFiler(kPatternPath);
  }

  void addOther(int count) {
    for (int i = 0; i < count; ++i) {
      m_filer.beginClass(L"Other", 1);
      m_filer.endClass();
    }
  }

  void addBar(int number) {
    m_filer.beginClass(L"Bar", 1);
    writeItems(m_filer, number);
    m_filer.endClass();
  }

  // A pattern filer whose document holds one bar. It is never saved.
  void setPattern(int number) {
    m_pattern = CKtPatternFiler();
    m_pattern.newFiler(L"");
    m_pattern.beginClass(L"Bar", 1);
    writeItems(m_pattern, number);
    m_pattern.endClass();
  }

  static void writeItems(CKtFiler& filer, int number) {
    filer.writeItem(L"Position", CKtPnt3D(number, 2, 3));
    filer.writeItem(L"Diameter", 12.0);
    filer.writeItem(L"Reference", number);
    filer.writeItem(L"Name", L"same for all");
  }

  // Whether the search makes at most that many calls.
  bool seeksWithin(int calls, int* index) {
    const DomFaults limit(calls + 1, DomFault::kFail, false);
    *index = m_filer.seek(&m_pattern);
    return !limit.hasFailed();
  }

  CKtFiler m_filer;
  CKtPatternFiler m_pattern;
};

// Enough for looking at the pattern and comparing two elements with it; a walk over the documents
// below would need thousands.
constexpr int kCallsOfASearch = 200;

TEST_F(SearchCost, DoesNotGrowWithTheElementsOfTheClass) {
  constexpr int kBars = 3000;
  for (int number = 1; number <= kBars; ++number) {
    addBar(number);
  }
  setPattern(1);
  EXPECT_EQ(m_filer.seek(&m_pattern), 1);
  for (const int number : {1, 2, kBars / 2, kBars - 1, kBars, kBars + 1}) {
    setPattern(number);
    int index = 0;
    EXPECT_TRUE(seeksWithin(kCallsOfASearch, &index)) << number;
    EXPECT_EQ(index, number > kBars ? -1 : number);
  }
}

TEST_F(SearchCost, DoesNotGrowWithTheElementsOfOtherClasses) {
  addOther(5000);
  addBar(1);
  addOther(5000);
  for (const int number : {1, 2}) {
    setPattern(number);
    int index = 0;
    EXPECT_TRUE(seeksWithin(kCallsOfASearch, &index));
    EXPECT_EQ(index, number == 1 ? 1 : -1);
  }
}

// As bars are exported: each is searched for, and written when it is not there yet.
TEST_F(SearchCost, StaysTheSameWhileTheDocumentGrows) {
  addOther(1000);
  setPattern(0);
  constexpr int kBars = 2000;
  for (int number = 1; number <= kBars; ++number) {
    const int bar = number % 2 == 0 ? number / 2 : kBars + number;
    setPattern(bar);
    int index = 0;
    ASSERT_TRUE(seeksWithin(kCallsOfASearch, &index)) << number;
    if (index == -1) {
      addBar(bar);
    }
  }
}

TEST_F(SearchCost, DoesNotGrowWithEqualElements) {
  for (int i = 0; i < 2000; ++i) {
    addBar(7);
  }
  setPattern(7);
  EXPECT_EQ(m_filer.seek(&m_pattern), 1);
  int index = 0;
  EXPECT_TRUE(seeksWithin(kCallsOfASearch, &index));
  EXPECT_EQ(index, 1);
}

TEST_F(SearchCost, DoesNotGrowWithElementsThatLackTheItems) {
  constexpr int kEmpty = 2000;
  for (int i = 0; i < kEmpty; ++i) {
    m_filer.beginClass(L"Bar", 1);
    m_filer.writeItem(L"Position", CKtPnt3D(i, 0, 0));
    m_filer.endClass();
  }
  addBar(5);
  setPattern(5);
  EXPECT_EQ(m_filer.seek(&m_pattern), kEmpty + 1);
  int index = 0;
  EXPECT_TRUE(seeksWithin(kCallsOfASearch, &index));
  EXPECT_EQ(index, kEmpty + 1);
}

// The first search takes all elements in, and no more than once.
TEST_F(SearchCost, TheFirstSearchCostsOnePassOverTheClass) {
  constexpr int kBars = 2000;
  for (int number = 1; number <= kBars; ++number) {
    addBar(number);
  }
  setPattern(kBars);
  int index = 0;
  EXPECT_TRUE(seeksWithin(30 * kBars, &index));
  EXPECT_EQ(index, kBars);
}

}  // namespace
}  // namespace quorvan::test
