// Every item of every class, read by its name and compared with what stands in the file.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/elements/element_models.h>
#include <tests/reading/reading_file.h>

namespace quorvan::test {
namespace {

using Points = std::vector<CKtPnt3D>;

template <class Geometry>
std::vector<Geometry> geometryOf(const std::vector<double>& numbers) {
  std::vector<Geometry> all;
  for (std::size_t i = 0; i + 2 < numbers.size(); i += 3) {
    all.emplace_back(numbers[i], numbers[i + 1], numbers[i + 2]);
  }
  return all;
}

// Asks how many there are, then reads them in one call.
template <class Read>
std::vector<double> numbersOf(const QuorvanItem* item, std::size_t width, const Read& read) {
  std::size_t count = 99;
  EXPECT_EQ(read(item, nullptr, 0, &count), QUORVAN_DONE) << quorvanLastErrorText();
  std::vector<double> numbers(width * count + 1, -1);
  EXPECT_EQ(read(item, numbers.data(), count, &count), QUORVAN_DONE);
  EXPECT_EQ(numbers.back(), -1) << "beyond the room given";
  numbers.pop_back();
  return numbers;
}

Points pointsOf(const QuorvanItem* item) {
  return geometryOf<CKtPnt3D>(numbersOf(item, 3, quorvanReadPoints));
}

CString wideText(const QuorvanItem* item) {
  const wchar_t* text = L"?";
  EXPECT_EQ(quorvanReadWideText(item, &text, nullptr), QUORVAN_DONE);
  return text;
}

template <class Result, class Read>
Result one(const QuorvanItem* item, const Read& read) {
  Result value{};
  EXPECT_EQ(read(item, &value), QUORVAN_DONE) << quorvanLastErrorText();
  return value;
}

struct Expected {
  QuorvanKind kind;
  Value value;
};

Expected readAs(Form form, const QuorvanItem* item) {
  switch (form) {
    case Form::kPoint:
    case Form::kVector: {
      double xyz[3] = {};
      EXPECT_EQ(quorvanReadPoint(item, xyz), QUORVAN_DONE);
      if (form == Form::kPoint) {
        return {QUORVAN_KIND_POINT, CKtPnt3D(xyz[0], xyz[1], xyz[2])};
      }
      return {QUORVAN_KIND_VECTOR, CKtVect3D(xyz[0], xyz[1], xyz[2])};
    }
    case Form::kDouble:
      return {QUORVAN_KIND_DOUBLE, one<double>(item, quorvanReadDouble)};
    case Form::kLong:
      return {QUORVAN_KIND_LONG, static_cast<long>(one<std::int32_t>(item, quorvanReadLong))};
    case Form::kColor:
      return {QUORVAN_KIND_COLOR,
              static_cast<unsigned long>(one<std::uint32_t>(item, quorvanReadColor))};
    case Form::kText:
    case Form::kAdherence:
      return {QUORVAN_KIND_TEXT, wideText(item)};
    case Form::kFlag:
    case Form::kSide:
      return {QUORVAN_KIND_FLAG, one<int>(item, quorvanReadFlag) != 0};
    case Form::kPoints:
    case Form::kNumberedPoints:
      return {QUORVAN_KIND_POINTS, pointsOf(item)};
    case Form::kSegments:
      return {
          QUORVAN_KIND_SEGMENTS,
          Segments{pointsOf(item), geometryOf<CKtVect3D>(numbersOf(item, 3, quorvanReadBulges))}};
    case Form::kDoubles:
      break;
  }
  return {QUORVAN_KIND_DOUBLES, numbersOf(item, 1, quorvanReadDoubles)};
}

template <class Element>
class ElementItems : public testing::Test {};

TYPED_TEST_SUITE(ElementItems, ElementClasses, ClassNames);

TYPED_TEST(ElementItems, AreAllReadWithTheirKinds) {
  using Model = ElementModel<TypeParam>;
  for (int set = 0; set < 3; ++set) {
    const auto texts = itemTexts<TypeParam>(sampleValues<TypeParam>(set));
    const ReadingElement element(joined(texts), Model::kClassName);
    ASSERT_NE(element.get(), nullptr);
    const auto fields = Model::fields();
    EXPECT_EQ(quorvanItemCount(element.get()), fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
      SCOPED_TRACE(fields[i].name);
      const QuorvanItem* const item = element.item(fields[i].name.c_str());
      ASSERT_NE(item, nullptr);
      EXPECT_EQ(item, quorvanItemAt(element.get(), i));
      EXPECT_EQ(quorvanItemName(item), fields[i].name);
      const Expected found = readAs(fields[i].form, item);
      EXPECT_EQ(quorvanItemKind(item), found.kind);
      EXPECT_EQ(fields[i].text(found.value), texts[i]);
    }
  }
}

TYPED_TEST(ElementItems, AreFoundInWhateverOrder) {
  using Model = ElementModel<TypeParam>;
  auto texts = itemTexts<TypeParam>(sampleValues<TypeParam>(1));
  std::reverse(texts.begin(), texts.end());
  const ReadingElement element(joined(texts), Model::kClassName);
  for (const auto& field : Model::fields()) {
    SCOPED_TRACE(field.name);
    const QuorvanItem* const item = element.item(field.name.c_str());
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(quorvanItemKind(item), readAs(field.form, item).kind);
  }
}

// What is missing and what is of another kind is said for each item by itself.
TYPED_TEST(ElementItems, AreMissedOneByOne) {
  using Model = ElementModel<TypeParam>;
  const auto fields = Model::fields();
  const auto texts = itemTexts<TypeParam>(sampleValues<TypeParam>(0));
  for (std::size_t missing = 0; missing < fields.size(); ++missing) {
    auto others = texts;
    others[missing].clear();
    const ReadingElement element(joined(others), Model::kClassName);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_EQ(element.item(fields[i].name.c_str()) == nullptr, i == missing) << fields[i].name;
    }
  }
}

TYPED_TEST(ElementItems, OfAnotherKindAreNotRead) {
  using Model = ElementModel<TypeParam>;
  for (const auto& field : Model::fields()) {
    SCOPED_TRACE(field.name);
    const ReadingElement element(rawItem(field.name, "strange=\"1\""), Model::kClassName);
    const QuorvanItem* const item = element.item(field.name.c_str());
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(quorvanItemKind(item), QUORVAN_KIND_NONE);
    double numbers[3] = {7, 8, 9};
    std::int32_t number = 5;
    int flag = 5;
    const char* text = "kept";
    std::size_t count = 6;
    EXPECT_EQ(quorvanReadDouble(item, numbers), QUORVAN_OTHER_KIND);
    EXPECT_EQ(quorvanReadPoint(item, numbers), QUORVAN_OTHER_KIND);
    EXPECT_EQ(quorvanReadLong(item, &number), QUORVAN_OTHER_KIND);
    EXPECT_EQ(quorvanReadFlag(item, &flag), QUORVAN_OTHER_KIND);
    EXPECT_EQ(quorvanReadText(item, &text, nullptr), QUORVAN_OTHER_KIND);
    EXPECT_EQ(quorvanReadPoints(item, numbers, 1, &count), QUORVAN_OTHER_KIND);
    EXPECT_EQ(quorvanReadDoubles(item, numbers, 1, &count), QUORVAN_OTHER_KIND);
    EXPECT_EQ(quorvanReadBulges(item, numbers, 1, &count), QUORVAN_OTHER_KIND);
    EXPECT_EQ(numbers[0] + numbers[1] + numbers[2], 24);
    EXPECT_EQ(number + flag, 10);
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(count, 6U);
  }
}

}  // namespace
}  // namespace quorvan::test
