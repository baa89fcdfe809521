// Element objects as values.

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

template <class Element>
class ElementValue : public testing::Test {
 protected:
  const std::vector<Value> m_values = sampleValues<Element>(0);
  const std::vector<Value> m_others = sampleValues<Element>(1);
  Element m_element = made<Element>(m_values);
};

TYPED_TEST_SUITE(ElementValue, ElementClasses, ClassNames);

TYPED_TEST(ElementValue, BeginsWithNothingSet) {
  const TypeParam element;
  const auto fields = ElementModel<TypeParam>::fields();
  for (const auto& field : fields) {
    EXPECT_EQ(field.text(field.get(element)), field.text(defaultValue(field.form)));
  }
}

// In memory that held something else before.
TYPED_TEST(ElementValue, BeginsWithNothingSetWhereverItLies) {
  alignas(TypeParam) unsigned char memory[sizeof(TypeParam)];
  std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(0xA5));
  auto* const element = new (memory) TypeParam;
  EXPECT_EQ(describe(*element), describe(TypeParam()));
  element->~TypeParam();
}

TYPED_TEST(ElementValue, AccessorsGiveWhatWasSet) {
  EXPECT_EQ(describe(this->m_element), itemTexts<TypeParam>(this->m_values));
}

TYPED_TEST(ElementValue, EachSetterTouchesItsOwnFieldOnly) {
  const auto fields = ElementModel<TypeParam>::fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    auto element = this->m_element;
    auto expected = itemTexts<TypeParam>(this->m_values);
    fields[i].set(element, this->m_others[i]);
    expected[i] = fields[i].text(this->m_others[i]);
    EXPECT_EQ(describe(element), expected);
  }
}

TYPED_TEST(ElementValue, ACopyHoldsTheSameAndIsApart) {
  TypeParam copy(this->m_element);
  EXPECT_EQ(describe(copy), itemTexts<TypeParam>(this->m_values));
  copy = made<TypeParam>(this->m_others);
  EXPECT_EQ(describe(this->m_element), itemTexts<TypeParam>(this->m_values));
  EXPECT_EQ(describe(copy), itemTexts<TypeParam>(this->m_others));
}

TYPED_TEST(ElementValue, AssignmentReplacesEveryField) {
  auto target = made<TypeParam>(this->m_others);
  TypeParam& result = (target = this->m_element);
  EXPECT_EQ(&result, &target);
  EXPECT_EQ(describe(target), itemTexts<TypeParam>(this->m_values));
  const auto fields = ElementModel<TypeParam>::fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields[i].set(target, this->m_others[i]);
  }
  EXPECT_EQ(describe(this->m_element), itemTexts<TypeParam>(this->m_values));
}

TYPED_TEST(ElementValue, AssignmentToItselfChangesNothing) {
  TypeParam& same = this->m_element;
  this->m_element = same;
  EXPECT_EQ(describe(this->m_element), itemTexts<TypeParam>(this->m_values));
}

TYPED_TEST(ElementValue, OnlyItsDestructorIsVirtual) {
  EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
  class Derived : public TypeParam {
   public:
    explicit Derived(bool& destroyed) : m_destroyed(destroyed) {}
    ~Derived() override { m_destroyed = true; }

   private:
    bool& m_destroyed;
  };
  bool destroyed = false;
  const TypeParam* const element = new Derived(destroyed);
  delete element;
  EXPECT_TRUE(destroyed);
}

}  // namespace
}  // namespace quorvan::test
