// Class elements, vectors and lists that the document service does not make: the result is 0, and
// what is left behind is what the caller goes on with.

#include <tests/filer/filer_test.h>

#include <string>
#include <vector>

#include <tests/support/fault_backend/dom_faults.h>

namespace quorvan::test {
namespace {

class RefusedNodes : public FilerTest {
 protected:
  RefusedNodes() {
    m_filer.newFiler(kPath);
    m_filer.beginClass(L"A", 1);
    m_filer.writeItem(L"N", 1);
  }

  [[nodiscard]] std::string closed() {
    m_filer.closeFiler();
    return savedText(kPath);
  }

  CKtFiler m_filer;
};

// The element, its version, its index.
TEST_F(RefusedNodes, AClassLeavesReadModeAndIsNotFiled) {
  for (int call = 1; call <= 3; ++call) {
    {
      const DomFaults faults(call, DomFault::kNothing, false);
      EXPECT_EQ(m_filer.beginClass(L"B", 1), 0) << call;
      EXPECT_TRUE(faults.hasFailed()) << call;
    }
    // A half-made element is current, and belongs to no class that is counted.
    EXPECT_EQ(m_filer.getLastUsedIndex(), call == 1 ? -1 : 0) << call;
    EXPECT_EQ(m_filer.endClass(), -1) << call;
    EXPECT_EQ(m_filer.writeItem(L"M", 2), call == 1 ? 0 : 1) << call;
  }
  EXPECT_EQ(closed(), documentText("<A version=\"1\" index=\"1\"><N long=\"1\"/></A>"));
}

TEST_F(RefusedNodes, TheNextClassIsNumberedAsIfNothingHadBeen) {
  for (int call = 1; call <= 3; ++call) {
    {
      const DomFaults faults(call, DomFault::kNothing, false);
      m_filer.beginClass(L"A", 1);
    }
    EXPECT_EQ(m_filer.beginClass(L"A", 1), 1) << call;
    EXPECT_EQ(m_filer.endClass(), 1 + call);
  }
}

// The element and its size.
TEST_F(RefusedNodes, AVectorLeavesNoneOpenAndTheClassInWriting) {
  for (int call = 1; call <= 2; ++call) {
    {
      const DomFaults faults(call, DomFault::kNothing, false);
      EXPECT_EQ(m_filer.beginVector(L"V", 1), 0) << call;
      EXPECT_TRUE(faults.hasFailed()) << call;
    }
    EXPECT_EQ(m_filer.endVector(), 0) << call;
    EXPECT_EQ(m_filer.writeItem(L"M", call), 1) << call;
  }
  EXPECT_EQ(m_filer.endClass(), 1);
  EXPECT_EQ(closed(), documentText("<A version=\"1\" index=\"1\"><N long=\"1\"/><M long=\"1\"/>"
                                   "<M long=\"2\"/></A>"));
}

TEST_F(RefusedNodes, AVectorFilesTheOneBeforeIt) {
  m_filer.beginVector(L"V", 1);
  {
    const DomFaults faults(1, DomFault::kNothing, false);
    EXPECT_EQ(m_filer.beginVector(L"W", 1), 0);
  }
  EXPECT_EQ(closed(),
            documentText("<A version=\"1\" index=\"1\"><N long=\"1\"/><V size=\"1\"/></A>"));
}

// Of a list nothing is filed when any part of it was refused.
template <class Entry>
void expectListDropped(CKtFiler& filer) {
  for (int call = 1;; ++call) {
    const DomFaults faults(call, DomFault::kNothing, false);
    const int result = filer.writeItem(L"L", std::vector<Entry>{{1, 2, 3}, {4, 5, 6}}, 2);
    if (!faults.hasFailed()) {
      EXPECT_GT(call, 4);  // the element, its size, two entries
      EXPECT_EQ(result, 1);
      break;
    }
    EXPECT_EQ(result, 0) << faults.failed();
  }
}

TEST_F(RefusedNodes, AListIsFiledWholeOrNotAtAll) {
  expectListDropped<CKtPnt3D>(m_filer);
  expectListDropped<CKtVect3D>(m_filer);
  const std::string text = closed();
  EXPECT_EQ(text.find("<L "), text.find("<L size=\"2\"><point "));
  EXPECT_EQ(text.rfind("<L "), text.find("<L size=\"2\"><vectorPoints "));
}

}  // namespace
}  // namespace quorvan::test
