// What writing, reading and searching ask of the document service, call by call: more calls than
// these would be felt, for each costs as much as the library itself does with the answer.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include <bench/service_calls.h>
#include <quorvan/export/export.h>
#include <quorvan/quorvan.h>

namespace quorvan::test {
namespace {

using Counts = std::map<std::string, int>;

constexpr const wchar_t* kPath = L"drawing.xml";

class ServiceCost : public testing::Test {
 protected:
  ServiceCost() {
    std::filesystem::remove(kPath);
    m_filer.newFiler(kPath);
  }

  // What `action` asks of the service.
  static Counts calls(const std::function<void()>& action) {
    const bench::ServiceCalls calls;
    action();
    return calls.counts();
  }
  static int total(const std::function<void()>& action) {
    const bench::ServiceCalls calls;
    action();
    return calls.total();
  }

  // A class element with two items.
  static void write(CKtFiler& filer, int number) {
    filer.beginClass(L"Bar", 1);
    filer.writeItem(L"Position", CKtPnt3D(number, 2, 3));
    filer.writeItem(L"Reference", number);
    filer.endClass();
  }

  void read() {
    CKtPnt3D position;
    long reference = 0;
    ASSERT_EQ(m_filer.beginClass(L"Bar"), 1);
    EXPECT_EQ(m_filer.readItem(L"Position", &position), 1);
    EXPECT_EQ(m_filer.readItem(L"Reference", &reference), 1);
  }

  // Without a file.
  int search(int number) {
    CKtPatternFiler pattern;
    pattern.newFiler(L"");
    write(pattern, number);
    return total([&] { m_filer.seek(&pattern); });
  }

  CKtFiler m_filer;
};

TEST_F(ServiceCost, OfAnItemIsItsElementAndItsAttributes) {
  m_filer.beginClass(L"Bar", 1);
  EXPECT_EQ(
      calls([&] { m_filer.writeItem(L"Diameter", 12.0); }),
      (Counts{{"createElement", 1}, {"setAttribute", 1}, {"get_nodeType", 1}, {"appendChild", 1}}));
  EXPECT_EQ(
      calls([&] { m_filer.writeItem(L"Position", CKtPnt3D(1, 2, 3)); }),
      (Counts{{"createElement", 1}, {"setAttribute", 3}, {"get_nodeType", 1}, {"appendChild", 1}}));
}

TEST_F(ServiceCost, OfAClassElementIsTheSameHoweverLongTheDocumentIs) {
  write(m_filer, 0);
  const Counts expected = {{"createElement", 3},  {"setAttribute", 6}, {"appendChild", 3},
                           {"QueryInterface", 2}, {"get_nodeName", 1}, {"get_nodeType", 4}};
  EXPECT_EQ(calls([&] { write(m_filer, 1); }), expected);
  for (int i = 0; i < 100; ++i) {
    write(m_filer, i);
  }
  EXPECT_EQ(calls([&] { write(m_filer, 1); }), expected);
}

TEST_F(ServiceCost, OfAnElementThatIsReadIsOneLookAtEachChildAndAttribute) {
  for (int i = 0; i < 3; ++i) {
    write(m_filer, i);
  }
  m_filer.closeFiler();
  m_filer.newFiler(kPath);
  read();
  EXPECT_EQ(calls([&] { read(); }), (Counts{{"get_nextSibling", 2},
                                            {"get_firstChild", 1},
                                            {"get_nodeType", 1},
                                            {"get_nodeName", 4},
                                            {"QueryInterface", 4},
                                            {"getAttribute", 4}}));
  // In another order than that of the file: no child is looked at again.
  ASSERT_EQ(m_filer.beginClass(L"Bar"), 1);
  long reference = 0;
  m_filer.readItem(L"Reference", &reference);
  CKtPnt3D position;
  EXPECT_EQ(calls([&] { m_filer.readItem(L"Position", &position); }),
            (Counts{{"QueryInterface", 3}, {"getAttribute", 3}}));
}

// A reference that is taken costs two calls: one for the list of the children, one for who asks.
TEST_F(ServiceCost, OfAnElementThatIsReadIsTwoReferencesToEachChild) {
  constexpr int kItems = 15;
  constexpr int kOfTheElement = 6;
  for (int i = 0; i < 2; ++i) {
    m_filer.beginClass(L"Bar", 1);
    for (int item = 0; item < kItems; ++item) {
      m_filer.writeItem((L"Item" + std::to_wstring(item)).c_str(), item);
    }
    m_filer.endClass();
  }
  m_filer.closeFiler();
  m_filer.newFiler(kPath);
  m_filer.beginClass(L"Bar");
  const bench::ServiceCalls calls;
  m_filer.beginClass(L"Bar");
  for (int item = 0; item < kItems; ++item) {
    long value = 0;
    EXPECT_EQ(m_filer.readItem((L"Item" + std::to_wstring(item)).c_str(), &value), 1);
  }
  EXPECT_LE(calls.costs(0)["AddRef"].calls, 2 * kItems + kOfTheElement);
}

TEST_F(ServiceCost, OfASearchIsTheSameHoweverLongTheDocumentIs) {
  constexpr int kMost = 83;
  write(m_filer, 0);
  write(m_filer, 1);
  search(0);
  EXPECT_LE(search(1), kMost);
  EXPECT_LE(search(-1), kMost);
  for (int i = 2; i < 200; ++i) {
    write(m_filer, i);
  }
  search(0);
  EXPECT_LE(search(150), kMost);
  EXPECT_LE(search(-1), kMost);
}

// The pattern, its scratch file, the search, and the bar itself.
TEST_F(ServiceCost, OfAHiddenBarIsTheSameHoweverManyThereAre) {
  const auto exportBar = [](int number) {
    exportBarStraight(number, 0, 0, number, 9, 0, 1, 1, true, false, 9, 9, L"B500", L"Ha", number,
                      12, true);
  };
  startFiling(kPath);
  exportBar(0);
  exportBar(1);
  const int atFirst = total([&] { exportBar(2); });
  EXPECT_LE(atFirst, 417);
  for (int i = 3; i < 60; ++i) {
    exportBar(i);
  }
  EXPECT_EQ(total([&] { exportBar(60); }), atFirst);
  EXPECT_LE(total([&] { exportBar(30); }), 571);
  endFiling(L"25.1", 0, L"drawing", 0);
}

}  // namespace
}  // namespace quorvan::test
