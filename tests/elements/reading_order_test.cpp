// In which order items are read is seen when the document service fails between two of them.

#include <gtest/gtest.h>

#include <filesystem>

#include <tests/elements/element_file.h>
#include <tests/support/fault_backend/dom_faults.h>
#include <quorvan/elements/repartition.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

constexpr CKtZantoRepartition::eViewPoint kView{3};

// Reads the file's repartition while that call of the service fails.
CKtZantoRepartition readUntil(int call) {
  CKtZantoRepartition repartition;
  CKtFiler filer;
  filer.newFiler(kFileName);
  const DomFaults faults(call, DomFault::kFail, false);
  EXPECT_THROW(repartition.fileIn(&filer), _com_error) << call;
  return repartition;
}

TEST(ReadingOrder, ARepartitionsAxisComesBeforeItsView) {
  std::filesystem::remove(kFile);
  CKtZantoRepartition written;
  written.setAxis(CKtVect3D(1, 0, 0));
  written.setViewPoint(kView);
  CKtFiler filer;
  filer.newFiler(kFileName);
  ASSERT_EQ(written.fileOut(&filer), 1);
  ASSERT_EQ(filer.closeFiler(), 1);

  int withAxisAlone = 0;
  CKtZantoRepartition read;
  for (int call = 1; read.getViewPoint() != kView && !HasFailure(); ++call) {
    read = readUntil(call);
    const bool hasAxis = read.getAxis().X() != 0;
    withAxisAlone += hasAxis && read.getViewPoint() != kView ? 1 : 0;
    EXPECT_TRUE(hasAxis || read.getViewPoint() != kView) << call;
  }
  EXPECT_GT(withAxisAlone, 0);
}

}  // namespace
}  // namespace quorvan::test
