// Some classes read with a filer of their own beside the one that they are given; its
// initialisation of COM has to be undone with the call.

#include <gtest/gtest.h>

#include <tests/elements/element_file.h>
#include <quorvan/platform/com_balance.h>

namespace quorvan::test {
namespace {

template <class Element>
class ComBalance : public testing::Test {};

TYPED_TEST_SUITE(ComBalance, ElementClasses, ClassNames);

TYPED_TEST(ComBalance, ReadingUninitialisesWhatItInitialised) {
  TypeParam element;
  writeAlone(element);
  CKtFiler filer;
  filer.newFiler(kFileName);
  const int before = platform::comBalance();
  EXPECT_EQ(element.fileIn(&filer), 1);
  EXPECT_EQ(platform::comBalance(), before);
  EXPECT_EQ(element.fileIn(&filer), 0);
  EXPECT_EQ(platform::comBalance(), before);
}

}  // namespace
}  // namespace quorvan::test
