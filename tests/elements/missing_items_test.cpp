// What becomes of the fields and of the result when items are missing or of the wrong kind.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include <tests/elements/reading_cases.h>

namespace quorvan::test {
namespace {

/// What a field holds after reading an element without its item, and the result.
struct Outcome {
  Value value;
  int result;
};

// The value of the item of the same kind that is read before it, through the buffer they share.
template <class Element>
const Value* readBefore(std::size_t missing, const std::vector<Value>& file) {
  const auto fields = ElementModel<Element>::fields();
  for (std::size_t i = missing; i-- > 0;) {
    if (fields[i].whenMissing == fields[missing].whenMissing) {
      return &file[i];
    }
  }
  return nullptr;
}

template <class Element>
Outcome outcomeWithout(std::size_t missing, const std::vector<Value>& file,
                       const std::vector<Value>& before) {
  const auto field = ElementModel<Element>::fields()[missing];
  const Value* const previous = readBefore<Element>(missing, file);
  switch (field.whenMissing) {
    case WhenMissing::kFails:
      return {before[missing], 0};
    case WhenMissing::kKeeps:
      return {before[missing], 1};
    case WhenMissing::kRepeatsFlag:
      return {previous == nullptr ? Value(false) : *previous, 0};
    case WhenMissing::kEmpties:
      return {defaultValue(field.form), 1};
    case WhenMissing::kEmptiesAndFails:
      return {defaultValue(field.form), 0};
    case WhenMissing::kRepeatsNumber:
      break;
  }
  const long number = previous == nullptr ? 0 : bufferedNumber(*previous);
  if (field.form == Form::kColor) {
    return {static_cast<unsigned long>(static_cast<std::uint32_t>(number)), 0};
  }
  return {number, 0};
}

// The items of other kinds than the item's own; for a text that may be a number neither.
std::vector<std::string> mistyped(Form form, const std::string& name) {
  switch (form) {
    case Form::kDouble:
      return {rawItem(name, "long=\"7\""), rawItem(name, "string=\"7\""), rawItem(name, "")};
    case Form::kLong:
    case Form::kColor:
    case Form::kSide:
    case Form::kNumberedPoints:
      return {rawItem(name, "double=\"7\""), rawItem(name, "string=\"7\""),
              rawItem(name, "Long=\"7\"")};
    case Form::kText:
    case Form::kFlag:
      return {rawItem(name, "long=\"1\""), rawItem(name, "double=\"1\""),
              rawItem(name, "value=\"True\"")};
    case Form::kAdherence:
      return {rawItem(name, "double=\"1\""), rawItem(name, "text=\"Dx\"")};
    case Form::kPoint:
    case Form::kVector:
      return {rawItem(name, "x=\"1\" y=\"2\" z=\"3\""), rawItem(name, "Y=\"2\" Z=\"3\""),
              rawItem(name, "double=\"1\"")};
    default:
      return {rawItem(name, "count=\"3\""), rawItem(name, "string=\"3\""), rawItem(name, "")};
  }
}

template <class Element>
class MissingItems : public testing::Test {
 protected:
  // An element in which `standIn` takes the place of item i, read over an element with other values
  // in every field.
  void addWithout(std::size_t i, const std::string& standIn, int set) {
    const auto file = sampleValues<Element>(set);
    const auto before = sampleValues<Element>(1 - set);
    const Outcome outcome = outcomeWithout<Element>(i, file, before);
    auto items = itemTexts<Element>(file);
    items[i] = standIn;
    auto expected = file;
    expected[i] = outcome.value;
    m_cases.add(joined(items), made<Element>(before), outcome.result, itemTexts<Element>(expected));
  }

  ReadingCases<Element> m_cases;
  const std::vector<Field<Element>> m_fields = ElementModel<Element>::fields();
};

TYPED_TEST_SUITE(MissingItems, ElementClasses, ClassNames);

TYPED_TEST(MissingItems, EachInTurn) {
  for (std::size_t i = 0; i < this->m_fields.size(); ++i) {
    this->addWithout(i, "", 0);
    this->addWithout(i, "", 1);
  }
  this->m_cases.run();
}

TYPED_TEST(MissingItems, AnItemOfAnotherKindCountsAsMissing) {
  for (std::size_t i = 0; i < this->m_fields.size(); ++i) {
    for (const std::string& item : mistyped(this->m_fields[i].form, this->m_fields[i].name)) {
      this->addWithout(i, item, 0);
      this->addWithout(i, item, 1);
    }
  }
  this->m_cases.run();
}

TYPED_TEST(MissingItems, NamesAreCaseSensitive) {
  const auto items = itemTexts<TypeParam>(sampleValues<TypeParam>(0));
  for (std::size_t i = 0; i < this->m_fields.size(); ++i) {
    const std::string& name = this->m_fields[i].name;
    std::string other = name;
    other[0] = 'x';
    std::string item = items[i];
    for (const char* const before : {"<", "</"}) {
      const std::size_t place = item.find(before + name);
      if (place != std::string::npos) {
        item.replace(item.find(name, place), name.size(), other);
      }
    }
    this->addWithout(i, item, 0);
  }
  this->m_cases.run();
}

TYPED_TEST(MissingItems, AnElementWithoutAnyItemKeepsWhatItHeld) {
  auto expected = sampleValues<TypeParam>(0);
  const auto before = expected;
  int result = 1;
  for (std::size_t i = 0; i < this->m_fields.size(); ++i) {
    switch (this->m_fields[i].whenMissing) {
      case WhenMissing::kRepeatsNumber:
      case WhenMissing::kRepeatsFlag:
      case WhenMissing::kEmpties:
      case WhenMissing::kEmptiesAndFails:
        expected[i] = defaultValue(this->m_fields[i].form);
        break;
      default:
        break;
    }
    if (this->m_fields[i].whenMissing != WhenMissing::kKeeps &&
        this->m_fields[i].whenMissing != WhenMissing::kEmpties) {
      result = 0;
    }
  }
  auto element = made<TypeParam>(before);
  EXPECT_EQ(readItems("", element), result);
  EXPECT_EQ(describe(element), itemTexts<TypeParam>(expected));
}

// The classes that keep their points in lists empty them before they look for their element.
TYPED_TEST(MissingItems, WithoutItsClassElementOnlyListsAreEmptied) {
  const auto before = sampleValues<TypeParam>(0);
  auto expected = before;
  for (std::size_t i = 0; i < this->m_fields.size(); ++i) {
    if (this->m_fields[i].whenMissing == WhenMissing::kEmpties) {
      expected[i] = defaultValue(this->m_fields[i].form);
    }
  }
  auto element = made<TypeParam>(before);
  EXPECT_EQ(
      readFrom(classElement("CKtZantoOther", 1, joined(itemTexts<TypeParam>(before))), element), 0);
  EXPECT_EQ(describe(element), itemTexts<TypeParam>(expected));

  auto unread = made<TypeParam>(before);
  CKtFiler closed;
  EXPECT_EQ(unread.fileIn(&closed), 0);
  EXPECT_EQ(describe(unread), itemTexts<TypeParam>(expected));
}

// --- points and vectors ------------------------------------------------------------------------

template <class Element>
class Coordinates : public testing::Test {
 protected:
  // Item i of a complete element reads as `item`, over (7, 8, 9).
  void add(std::size_t i, const std::string& item, const CKtPnt3D& left) {
    const auto fields = ElementModel<Element>::fields();
    Element element = made<Element>(m_file);
    auto items = m_items;
    auto expected = m_items;
    if (fields[i].form == Form::kPoint) {
      fields[i].set(element, CKtPnt3D(7, 8, 9));
      expected[i] = pointItem(fields[i].name, left);
    } else {
      fields[i].set(element, CKtVect3D(7, 8, 9));
      expected[i] = vectorItem(fields[i].name, CKtVect3D(left, 0));
    }
    items[i] = item;
    const int result = fields[i].whenMissing == WhenMissing::kKeeps ? 1 : 0;
    m_cases.add(joined(items), element, result, expected);
  }

  const std::vector<Value> m_file = sampleValues<Element>(0);
  const std::vector<std::string> m_items = itemTexts<Element>(m_file);
  ReadingCases<Element> m_cases;
};

using ClassesWithPoints =
    testing::Types<CKtZantoLine, CKtZantoCircle, CKtZantoText, CKtZantoStraightBar, CKtZantoLBar,
                   CKtZantoUBar, CKtZantoPin, CKtZantoPointBar, CKtZantoFrameRect,
                   CKtZantoFrameCirc, CKtZantoStirrup, CKtZantoRepartition>;
TYPED_TEST_SUITE(Coordinates, ClassesWithPoints, ClassNames);

TYPED_TEST(Coordinates, BeforeAMissingOneAreStored) {
  const auto fields = ElementModel<TypeParam>::fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].form == Form::kPoint || fields[i].form == Form::kVector) {
      const std::string& name = fields[i].name;
      this->add(i, rawItem(name, "X=\"1\" Y=\"2\""), {1, 2, 9});
      this->add(i, rawItem(name, "Z=\"3\" X=\"1\""), {1, 8, 9});
      this->add(i, rawItem(name, "Y=\"2\" Z=\"3\""), {7, 8, 9});
    }
  }
  this->m_cases.run();
}

}  // namespace
}  // namespace quorvan::test
