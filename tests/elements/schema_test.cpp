// The library's tables of items, which its tool, its documents and its readers follow, against
// the tables of the tests.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include <tests/elements/element_models.h>
#include <quorvan/elements/element_classes.h>

namespace quorvan::test {
namespace {

using items::Kind;

Kind kindOf(Form form) {
  switch (form) {
    case Form::kPoint:
      return Kind::kPoint;
    case Form::kVector:
      return Kind::kVector;
    case Form::kDouble:
      return Kind::kDouble;
    case Form::kLong:
      return Kind::kLong;
    case Form::kColor:
      return Kind::kColor;
    case Form::kText:
      return Kind::kString;
    case Form::kAdherence:
      return Kind::kAdherence;
    case Form::kFlag:
      return Kind::kFlag;
    case Form::kSide:
      return Kind::kNumericFlag;
    case Form::kPoints:
      return Kind::kPointList;
    case Form::kSegments:
      return Kind::kSegmentList;
    case Form::kDoubles:
      return Kind::kDoubleList;
    case Form::kNumberedPoints:
      break;
  }
  return Kind::kNumberedPoints;
}

bool isOptional(WhenMissing whenMissing) {
  return whenMissing == WhenMissing::kKeeps || whenMissing == WhenMissing::kEmpties;
}

template <class Element>
class Schema : public testing::Test {};

TYPED_TEST_SUITE(Schema, ElementClasses, ClassNames);

TYPED_TEST(Schema, ListsTheItemsOfTheClass) {
  const auto* const element = items::findElement(ElementModel<TypeParam>::kClassName);
  ASSERT_NE(element, nullptr);
  const auto fields = ElementModel<TypeParam>::fields();
  ASSERT_EQ(element->items.size(), fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const items::ItemSchema& item = element->items[i];
    EXPECT_EQ(item.name, fields[i].name);
    EXPECT_EQ(item.kind, kindOf(fields[i].form)) << item.name;
    EXPECT_EQ(item.optional, isOptional(fields[i].whenMissing)) << item.name;
    const bool isList = fields[i].form >= Form::kPoints;
    EXPECT_EQ(item.stem, isList ? fields[i].stem : "") << item.name;
  }
}

TEST(ItemSchema, ListsTheSeventeenClassesOnce) {
  std::set<std::string> names;
  for (const items::ElementSchema& element : items::allElements()) {
    names.emplace(element.className);
  }
  EXPECT_EQ(items::allElements().size(), 17U);
  EXPECT_EQ(names, (std::set<std::string>{
                       "CKtDrawingControl", "CKtFilledPolygon", "CKtZantoCircle",
                       "CKtZantoFormwork", "CKtZantoFrameCirc", "CKtZantoFrameRect", "CKtZantoLBar",
                       "CKtZantoLine", "CKtZantoMesh", "CKtZantoPin", "CKtZantoPointBar",
                       "CKtZantoPolygonBar", "CKtZantoRepartition", "CKtZantoStirrup",
                       "CKtZantoStraightBar", "CKtZantoText", "CKtZantoUBar"}));
}

TEST(ItemSchema, KnowsNoOtherClass) {
  EXPECT_EQ(items::findElement("CKtZantoArc"), nullptr);
  EXPECT_EQ(items::findElement("cktzantoline"), nullptr);
  EXPECT_EQ(items::findElement(""), nullptr);
}

}  // namespace
}  // namespace quorvan::test
