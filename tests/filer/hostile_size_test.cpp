// Sizes that a file claims: whatever they are, the result is the stated one and the work does not
// go by them.

#include <tests/filer/filer_test.h>

#include <string>
#include <vector>

namespace quorvan::test {
namespace {

struct Claim {
  std::string size;
  long count;  // as read
};

const std::vector<Claim>& claims() {
  static const std::vector<Claim> all = {
      {"-1", -1},
      {"0", 0},
      {"1", 1},
      {"2", 2},
      {"3", 3},
      {"32767", 32767},
      {"32768", 32768},
      {"40000", 40000},
      {"65535", 65535},
      {"2147483647", 2147483647L},
      {"2147483648", 2147483647L},
      {"-2147483649", -2147483647L - 1},
      {"many", 0},
      {"", 0},
      {" 2 points", 2},
      {"1e9", 1},
      {"0x7fffffff", 0},
      {std::string(400, '9'), 2147483647L},
      {'-' + std::string(400, '9'), -2147483647L - 1},
      {std::string(400, '0') + "2", 2},
  };
  return all;
}

class HostileSize : public FilerTest {
 protected:
  void load(const std::string& size) {
    writeText(kPath, documentText("<A><L size=\"" + size +
                                  "\"><point X=\"1\" Y=\"0\" Z=\"0\"/><point X=\"2\" Y=\"0\" "
                                  "Z=\"0\"/></L></A>"));
    // A filer that was only closed would read on in the file before.
    m_filer = CKtFiler();
    m_filer.newFiler(kPath);
    ASSERT_EQ(m_filer.beginClass(L"A"), 1) << size;
  }

  static std::size_t entriesRead(const Claim& claim) {
    return claim.count <= 0 ? 0U : claim.count == 1 ? 1U : 2U;
  }

  CKtFiler m_filer;
  long m_count = 77;
};

TEST_F(HostileSize, OfAVectorScopeIsHandedOnAsItIs) {
  for (const Claim& claim : claims()) {
    load(claim.size);
    EXPECT_EQ(m_filer.beginVector(L"L", &m_count), 1) << claim.size;
    EXPECT_EQ(m_count, claim.count) << claim.size;
    CKtPnt3D point;
    EXPECT_EQ(m_filer.readItem(L"point", &point), 1);
  }
}

TEST_F(HostileSize, OfAPointListReadsTheEntriesThereAre) {
  for (const Claim& claim : claims()) {
    load(claim.size);
    std::vector<CKtPnt3D> points;
    EXPECT_EQ(m_filer.readItem(L"L", &points, &m_count), 1) << claim.size;
    EXPECT_EQ(m_count, claim.count) << claim.size;
    EXPECT_EQ(points.size(), entriesRead(claim)) << claim.size;
    EXPECT_LE(points.capacity(), 16U) << "made room for the claim: " << claim.size;
  }
}

TEST_F(HostileSize, OfAVectorListReadsTheEntriesThereAre) {
  for (const Claim& claim : claims()) {
    load(claim.size);
    std::vector<CKtVect3D> vectors;
    EXPECT_EQ(m_filer.readItem(L"L", &vectors, &m_count), 1) << claim.size;
    EXPECT_EQ(m_count, claim.count) << claim.size;
    EXPECT_EQ(vectors.size(), entriesRead(claim)) << claim.size;
    EXPECT_LE(vectors.capacity(), 16U) << "made room for the claim: " << claim.size;
  }
}

TEST_F(HostileSize, ThatWrappedWhenWrittenReadsAsTheWrappedNumber) {
  m_filer.newFiler(kPath);
  m_filer.beginClass(L"A", 1);
  m_filer.beginVector(L"V", 40000);
  m_filer.endVector();
  EXPECT_EQ(m_filer.beginVector(L"V", &m_count), 1);
  EXPECT_EQ(m_count, -25536);
}

// The rest of a long list behind the size announced is not looked at, and a list of many entries
// is read in one pass.
TEST_F(HostileSize, DoesNotMakeALongListCostMoreThanItsEntries) {
  std::string entries;
  constexpr std::size_t kEntries = 20'000;
  for (std::size_t i = 0; i < kEntries; ++i) {
    entries += "<point X=\"1\" Y=\"2\" Z=\"3\"/>";
  }
  writeText(kPath, documentText("<A><L size=\"2147483647\">" + entries + "</L></A>"));
  m_filer.newFiler(kPath);
  ASSERT_EQ(m_filer.beginClass(L"A"), 1);
  std::vector<CKtPnt3D> points;
  EXPECT_EQ(m_filer.readItem(L"L", &points, &m_count), 1);
  EXPECT_EQ(points.size(), kEntries);
}

}  // namespace
}  // namespace quorvan::test
