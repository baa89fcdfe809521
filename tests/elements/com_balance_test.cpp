// Some classes read with a filer of their own beside the one that they are given; its
// initialisation of COM has to be undone with the call.

#include <gtest/gtest.h>

#include <type_traits>

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

// The bars and links keep a filer of their own while they read, but the rectangular frame.
template <class Element>
constexpr bool kReadsWithItsOwnFiler =
    std::is_same_v<Element, CKtZantoStraightBar> || std::is_same_v<Element, CKtZantoLBar> ||
    std::is_same_v<Element, CKtZantoUBar> || std::is_same_v<Element, CKtZantoPin> ||
    std::is_same_v<Element, CKtZantoPointBar> || std::is_same_v<Element, CKtZantoPolygonBar> ||
    std::is_same_v<Element, CKtZantoFrameCirc> || std::is_same_v<Element, CKtZantoStirrup>;

TYPED_TEST(ComBalance, ReadingInitialisesOnceWhereItKeepsItsOwnFiler) {
  TypeParam element;
  writeAlone(element);
  CKtFiler filer;
  filer.newFiler(kFileName);
  for (const int result : {1, 0}) {
    const unsigned int before = platform::comInitializations();
    EXPECT_EQ(element.fileIn(&filer), result);
    EXPECT_EQ(platform::comInitializations() - before, kReadsWithItsOwnFiler<TypeParam> ? 1U : 0U);
  }
}

TYPED_TEST(ComBalance, WritingInitialisesNothing) {
  TypeParam element;
  CKtFiler filer;
  filer.newFiler(kFileName);
  const unsigned int before = platform::comInitializations();
  EXPECT_EQ(element.fileOut(&filer), 1);
  EXPECT_EQ(platform::comInitializations(), before);
}

}  // namespace
}  // namespace quorvan::test
