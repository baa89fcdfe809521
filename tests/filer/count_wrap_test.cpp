// Class counts that searches drove beyond 32 bits. Needs a document service that counts without
// walking: each of these searches counts the whole document.

#include <tests/filer/seek_fixture.h>

#include <limits>
#include <string>

namespace quorvan::test {
namespace {

class CountWrap : public Seek {
 protected:
  // Elements 1 and up, with their number as the item "N".
  void loadElements(int count) {
    std::string text;
    for (int number = 1; number <= count; ++number) {
      const std::string digits = std::to_string(number);
      text += "<A index=\"" + digits + "\"><N long=\"" + digits + "\"/></A>";
    }
    load(text);
  }

  // Each search for a class that is not there adds the counts of the document to those present.
  void searchInVain(int times) {
    ASSERT_EQ(seekFor("<Z/>"), -1);
    for (int left = times - 1; left > 0; --left) {
      ASSERT_EQ(m_filer.seek(&m_pattern), -1);
    }
  }
};

TEST_F(CountWrap, TheIndexWrittenNextWraps) {
  loadElements(65'536);
  searchInVain(32'767);
  m_filer.beginClass(L"A", 1);
  EXPECT_EQ(m_filer.endClass(), std::numeric_limits<int>::min() + 1);
}

TEST_F(CountWrap, ANegativeCountIsNoEndOfSearchingAndReading) {
  loadElements(65'536);
  searchInVain(32'767);
  EXPECT_EQ(seekFor("<A><N long=\"65536\"/></A>"), 65'536);
  EXPECT_EQ(m_filer.getLastUsedIndex(), std::numeric_limits<int>::min() + 1);
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
  EXPECT_EQ(m_filer.getLastUsedIndex(), std::numeric_limits<int>::min());
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
  EXPECT_EQ(m_filer.getLastUsedIndex(), std::numeric_limits<int>::max());
  EXPECT_EQ(m_filer.endClass(), 0);
}

TEST_F(CountWrap, ACountBelowTheElementsThereAreEndsTheSearch) {
  // 65537 times 65536 is 65536 more than a multiple of 2 to the 32nd.
  loadElements(65'537);
  searchInVain(65'534);
  EXPECT_EQ(seekFor("<A><N long=\"65537\"/></A>"), -1);
  EXPECT_EQ(itemNumber(m_filer), 65'536);
  EXPECT_EQ(m_filer.beginClass(L"A"), 0);
}

}  // namespace
}  // namespace quorvan::test
