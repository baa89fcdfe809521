// Searches where the document service keeps no revision, as that of Windows does not: what filers
// remember themselves, and for how long.

#include <tests/filer/filer_test.h>

#include <cstdint>
#include <string>

#include <tests/filer/model/random_script.h>
#include <tests/filer/model/script.h>
#include <tests/support/fault_backend/dom_faults.h>

namespace quorvan::test {
namespace {

class RememberedDocument : public FilerTest {
 protected:
  RememberedDocument() { m_filer.newFiler(kPath); }

  static void expectSame(model::Script (*compose)(std::uint32_t seed), std::uint32_t firstSeed) {
    for (std::uint32_t seed = firstSeed; seed < firstSeed + 800; ++seed) {
      const model::Script script = compose(seed);
      const std::string found = model::difference(script);
      ASSERT_TRUE(found.empty()) << "seed " << seed << ": " << found << "\nshrunk:\n"
                                 << model::shrunk(script);
    }
  }

  static void writeBar(CKtFiler& filer, int number) {
    filer.beginClass(L"Bar", 1);
    filer.writeItem(L"Position", CKtPnt3D(number, 2, 3));
    filer.writeItem(L"Reference", number);
    filer.endClass();
  }

  // What exporting a hidden bar does.
  int seek(int number) {
    m_pattern = CKtPatternFiler();
    m_pattern.newFiler(L"");
    writeBar(m_pattern, number);
    return m_filer.seek(&m_pattern);
  }

  void addBars(int from, int to) {
    for (int number = from; number < to; ++number) {
      ASSERT_EQ(seek(number), -1) << number;
      writeBar(m_filer, number);
    }
  }

  // Whether the search makes at most that many calls.
  bool seeksWithin(int calls, int number, int index) {
    m_pattern = CKtPatternFiler();
    m_pattern.newFiler(L"");
    writeBar(m_pattern, number);
    const DomFaults limit(calls + 1, DomFault::kFail, false);
    try {
      EXPECT_EQ(m_filer.seek(&m_pattern), index);
    } catch (const _com_error&) {
      EXPECT_TRUE(limit.hasFailed());
    }
    return !limit.hasFailed();
  }

  NoRevisions m_noRevisions;  // outlives the documents
  CKtFiler m_filer;
  CKtPatternFiler m_pattern;
};

// Reads the pattern, and compares one element with it or two.
constexpr int kFewCalls = 150;

TEST_F(RememberedDocument, SearchesFindAndLeaveWhatAPlainWalkDoes) {
  expectSame(model::randomSearches, 5'000'000);
}

TEST_F(RememberedDocument, CallsInAnyOrderGiveWhatTheModelGives) {
  expectSame(model::randomCalls, 6'000'000);
}

TEST_F(RememberedDocument, ASearchCostsTheSameHoweverLongTheDocumentIs) {
  addBars(0, 20);
  EXPECT_TRUE(seeksWithin(kFewCalls, 5, 6));
  addBars(20, 500);
  EXPECT_TRUE(seeksWithin(kFewCalls, 499, 500));
  EXPECT_TRUE(seeksWithin(kFewCalls, 500, -1));
}

TEST_F(RememberedDocument, CopiesShareWhatIsRemembered) {
  addBars(0, 300);
  EXPECT_TRUE(seeksWithin(kFewCalls, 299, 300));
  CKtFiler copy(m_filer);
  writeBar(copy, 300);
  EXPECT_TRUE(seeksWithin(kFewCalls, 300, 301));
  copy = CKtFiler();
}

TEST_F(RememberedDocument, WhatIsWrittenIntoAnElementThatWasReadIsFound) {
  addBars(0, 3);
  ASSERT_EQ(seek(1), 2);
  ASSERT_EQ(m_filer.beginClass(L"Other"), 0);
  // The element found is current: it gets an item more, which the next pattern asks for.
  ASSERT_EQ(m_filer.writeItem(L"Extra", 7), 1);
  m_pattern = CKtPatternFiler();
  m_pattern.newFiler(L"");
  m_pattern.beginClass(L"Bar", 1);
  m_pattern.writeItem(L"Extra", 7);
  m_pattern.endClass();
  EXPECT_EQ(m_filer.seek(&m_pattern), 2);
}

// The pattern's own nodes are handed out, not those of the document searched.
TEST_F(RememberedDocument, NodesOfThePatternSayNothingAboutTheDocument) {
  addBars(0, 300);
  ASSERT_EQ(seek(7), 8);
  IXMLDOMNodePtr item;
  ASSERT_EQ(m_pattern.getFirstChildNode(std::addressof(item)), 1);
  EXPECT_TRUE(seeksWithin(kFewCalls, 299, 300));
}

class HandingOut : public CKtFiler {
 public:
  using CKtFiler::GetDocumentRealNode;
};

TEST_F(RememberedDocument, NothingIsRememberedOnceANodeWasHandedOut) {
  HandingOut filer;
  filer.newFiler(L"other.xml");
  for (int number = 0; number < 100; ++number) {
    writeBar(filer, number);
  }
  static_cast<CKtFiler&>(m_filer) = filer;
  EXPECT_TRUE(seeksWithin(100 * 40, 50, 51));
  EXPECT_TRUE(seeksWithin(kFewCalls, 50, 51));
  const IXMLDOMNodePtr root = filer.GetDocumentRealNode();
  EXPECT_FALSE(seeksWithin(kFewCalls, 50, 51));
}

}  // namespace
}  // namespace quorvan::test
