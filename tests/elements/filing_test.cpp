// What holds for all element classes when everything is in its place.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <tests/elements/reading_cases.h>

namespace quorvan::test {
namespace {

template <class Element>
class Filing : public testing::Test {
 protected:
  const std::vector<Value> m_values = sampleValues<Element>(0);
  const std::vector<Value> m_others = sampleValues<Element>(1);
  const std::vector<std::string> m_items = itemTexts<Element>(m_values);
  const std::vector<std::string> m_otherItems = itemTexts<Element>(m_others);
  Element m_element = made<Element>(m_others);

  void expectRead(const std::string& items) {
    EXPECT_EQ(readItems(items, m_element), 1) << items;
    EXPECT_EQ(describe(m_element), m_items) << items;
  }
};

TYPED_TEST_SUITE(Filing, ElementClasses, ClassNames);

TYPED_TEST(Filing, WritesItsItemsInTheirOrder) {
  auto element = made<TypeParam>(this->m_values);
  EXPECT_EQ(writeAlone(element), 1);
  EXPECT_EQ(savedBytes(kFile), transferFile(classElement(ElementModel<TypeParam>::kClassName, 1,
                                                         joined(this->m_items))));
}

TYPED_TEST(Filing, WritingLeavesTheElementAsItWas) {
  auto element = made<TypeParam>(this->m_values);
  writeAlone(element);
  EXPECT_EQ(describe(element), this->m_items);
}

TYPED_TEST(Filing, ReadsWhatItWrote) {
  auto element = made<TypeParam>(this->m_values);
  writeAlone(element);
  CKtFiler filer;
  filer.newFiler(kFileName);
  EXPECT_EQ(this->m_element.fileIn(&filer), 1);
  EXPECT_EQ(describe(this->m_element), this->m_items);
}

TYPED_TEST(Filing, ReadsItemsByNameInAnyOrder) {
  auto items = this->m_items;
  std::reverse(items.begin(), items.end());
  this->expectRead(joined(items));
}

TYPED_TEST(Filing, PassesOverForeignItems) {
  std::string items;
  for (const std::string& item : this->m_items) {
    items += doubleItem("Foreign", 1.0) + listItem("Unknown", 2, joined(this->m_otherItems)) + item;
  }
  this->expectRead(items);
}

TYPED_TEST(Filing, ReadsTheFirstOfRepeatedItems) {
  ReadingCases<TypeParam> cases;
  for (std::size_t i = 0; i < this->m_items.size(); ++i) {
    cases.add(joined(this->m_items) + this->m_otherItems[i], this->m_element, 1, this->m_items);
    auto expected = this->m_items;
    expected[i] = this->m_otherItems[i];
    cases.add(this->m_otherItems[i] + joined(this->m_items), this->m_element, 1, expected);
  }
  cases.run();
}

TYPED_TEST(Filing, ReadsElementAfterElementUntilNoneIsLeft) {
  const char* const name = ElementModel<TypeParam>::kClassName;
  writeBytes(kFile, transferFile(classElement(name, 1, joined(this->m_items)) +
                                 classElement("Between", 1, joined(this->m_otherItems)) +
                                 classElement(name, 2, joined(this->m_otherItems))));
  CKtFiler filer;
  filer.newFiler(kFileName);
  EXPECT_EQ(this->m_element.fileIn(&filer), 1);
  EXPECT_EQ(describe(this->m_element), this->m_items);
  EXPECT_EQ(this->m_element.fileIn(&filer), 1);
  EXPECT_EQ(describe(this->m_element), this->m_otherItems);
  EXPECT_EQ(this->m_element.fileIn(&filer), 0);
}

TYPED_TEST(Filing, DoesNotLookAtTheVersion) {
  const std::string name = ElementModel<TypeParam>::kClassName;
  for (const char* const head : {"", " version=\"2\"", " version=\"later\" index=\"-3\""}) {
    const std::string element = '<' + name + head + '>' + joined(this->m_items) + "</" + name + '>';
    EXPECT_EQ(readFrom(element, this->m_element), 1);
    EXPECT_EQ(describe(this->m_element), this->m_items);
  }
}

TYPED_TEST(Filing, NumbersTheElementsOfAFile) {
  std::filesystem::remove(kFile);
  CKtFiler filer;
  filer.newFiler(kFileName);
  auto first = made<TypeParam>(this->m_values);
  EXPECT_EQ(first.fileOut(&filer), 1);
  EXPECT_EQ(this->m_element.fileOut(&filer), 1);
  filer.closeFiler();
  const char* const name = ElementModel<TypeParam>::kClassName;
  EXPECT_EQ(savedBytes(kFile), transferFile(classElement(name, 1, joined(this->m_items)) +
                                            classElement(name, 2, joined(this->m_otherItems))));
}

TYPED_TEST(Filing, WritesNothingWithoutAnOpenFile) {
  CKtFiler filer;
  EXPECT_EQ(this->m_element.fileOut(&filer), 0);
  EXPECT_EQ(filer.endClass(), -1);
  EXPECT_EQ(filer.closeFiler(), 0);
}

}  // namespace
}  // namespace quorvan::test
