// The types of the operations that are more than a getter and a setter of one field: programs that
// were built against the headers take the addresses and the results as they are.

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

#include <tests/elements/element_models.h>

namespace quorvan::test {
namespace {

using PointList = std::vector<CKtPnt3D>;
using BulgeList = std::vector<CKtVect3D>;
using DoubleList = std::vector<double>;

/// Whether the operation can be called with these arguments and gives just this result.
template <class Result, class Operation, class... Arguments>
constexpr bool kGives = std::is_same_v<std::invoke_result_t<Operation, Arguments...>, Result>;

template <class Element>
class MemberTypes : public testing::Test {};

TYPED_TEST_SUITE(MemberTypes, ElementClasses, ClassNames);

TYPED_TEST(MemberTypes, OfFiling) {
  EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::fileOut), int (TypeParam::*)(CKtFiler*)>));
  EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::fileIn), int (TypeParam::*)(CKtFiler*)>));
}

// Values that can be derived from.
TYPED_TEST(MemberTypes, OfTheClassItself) {
  EXPECT_TRUE(std::is_nothrow_destructible_v<TypeParam>);
  EXPECT_TRUE(std::is_default_constructible_v<TypeParam>);
  EXPECT_TRUE((std::is_constructible_v<TypeParam, const TypeParam&>));
  EXPECT_TRUE(
      (std::is_same_v<decltype(std::declval<TypeParam&>() = std::declval<const TypeParam&>()),
                      TypeParam&>));
  EXPECT_TRUE(std::is_polymorphic_v<TypeParam>);
}

TEST(ListMemberTypes, OfAFilledPolygon) {
  using E = CKtFilledPolygon;
  EXPECT_TRUE((kGives<void, decltype(&E::addPoint), E&, CKtPnt3D>));
  EXPECT_TRUE((kGives<CKtPnt3D, decltype(&E::getPointAt), const E&, unsigned int>));
  EXPECT_TRUE((kGives<bool, decltype(&E::setPointAt), E&, unsigned int, const CKtPnt3D&>));
  EXPECT_TRUE((kGives<void, decltype(&E::getPoints), E&, PointList&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setPoints), E&, const PointList&>));
  EXPECT_TRUE((kGives<unsigned int, decltype(&E::getNbPoints), const E&>));
}

TEST(ListMemberTypes, OfAMesh) {
  using E = CKtZantoMesh;
  EXPECT_TRUE((kGives<PointList, decltype(&E::GetPoints), E&>));
  EXPECT_TRUE((kGives<void, decltype(&E::SetPoints), E&, PointList>));
  EXPECT_TRUE((kGives<int, decltype(&E::GetNbPoints), const E&>));
  EXPECT_TRUE((kGives<CKtPnt3D, decltype(&E::GetPointAt), E&, int>));
  EXPECT_TRUE((kGives<void, decltype(&E::SetPointAt), E&, int, CKtPnt3D>));
}

TEST(ListMemberTypes, OfAFormwork) {
  using E = CKtZantoFormwork;
  EXPECT_TRUE((kGives<unsigned int, decltype(&E::getNbPoints), const E&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setNbPoints), E&, unsigned int>));
  EXPECT_TRUE((kGives<void, decltype(&E::addElement), E&, CKtPnt3D, CKtPnt3D, CKtVect3D>));
  EXPECT_TRUE((kGives<CKtPnt3D, decltype(&E::getPointAt), E&, unsigned int>));
  EXPECT_TRUE((kGives<bool, decltype(&E::setPointAt), E&, unsigned int, const CKtPnt3D&>));
  EXPECT_TRUE((kGives<CKtVect3D, decltype(&E::getBulgeAt), E&, unsigned int>));
  EXPECT_TRUE((kGives<bool, decltype(&E::setBulgeAt), E&, unsigned int, const CKtVect3D&>));
  EXPECT_TRUE((kGives<void, decltype(&E::getPoints), E&, PointList&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setPoints), E&, const PointList&>));
  EXPECT_TRUE((kGives<void, decltype(&E::getBulges), E&, BulgeList&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setBulges), E&, const BulgeList&>));
}

TEST(ListMemberTypes, OfAPolygonBar) {
  using E = CKtZantoPolygonBar;
  EXPECT_TRUE((kGives<long, decltype(&E::getNoPoints), const E&>));
  EXPECT_TRUE((kGives<CKtPnt3D, decltype(&E::getPoint), E&, int>));
  EXPECT_TRUE((kGives<void, decltype(&E::setPoint), E&, int, CKtPnt3D>));
  EXPECT_TRUE((kGives<void, decltype(&E::addPoint), E&, CKtPnt3D>));
  EXPECT_TRUE((kGives<void, decltype(&E::deletePoints), E&>));
}

TEST(ListMemberTypes, OfARepartition) {
  using E = CKtZantoRepartition;
  EXPECT_TRUE((kGives<void, decltype(&E::getAxisDistancesTop), E&, DoubleList&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setAxisDistancesTop), E&, DoubleList>));
  EXPECT_TRUE((kGives<void, decltype(&E::insertDistanceTop), E&, double>));
  EXPECT_TRUE((kGives<void, decltype(&E::getAxisDistancesBottom), E&, DoubleList&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setAxisDistancesBottom), E&, DoubleList>));
  EXPECT_TRUE((kGives<void, decltype(&E::insertDistanceBottom), E&, double>));
  EXPECT_TRUE((kGives<void, decltype(&E::getPositions), E&, DoubleList&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setPositions), E&, DoubleList>));
  EXPECT_TRUE((kGives<void, decltype(&E::insertPosition), E&, double>));
  EXPECT_TRUE((kGives<int, decltype(&E::getIndex), const E&>));
  EXPECT_TRUE((kGives<void, decltype(&E::setIndex), E&, int>));
}

TEST(EnumerationTypes, Have32Bits) {
  EXPECT_EQ(sizeof(CKtZantoText::eJustification), 4U);
  EXPECT_EQ(sizeof(CKtZantoRepartition::eViewPoint), 4U);
}

}  // namespace
}  // namespace quorvan::test
