// The typed view: every class as a struct, walked and visited; errors as values and as exceptions.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include <tests/elements/element_models.h>
#include <tests/reading/reading_file.h>
#include <quorvan/elements/element_classes.h>
#include <quorvan/reading/reader.h>

namespace quorvan::test {
namespace {

using drawing::Element;

// The struct of each element class.
template <class Class>
struct StructOf;
#define QUORVAN_STRUCT(name, type) \
  template <>                      \
  struct StructOf<type> {          \
    using Type = drawing::name;    \
  };
QUORVAN_ELEMENT_CLASSES(QUORVAN_STRUCT)
#undef QUORVAN_STRUCT

// Values of the structs' members as the tests' tables have them.
Value valueOf(double value) {
  return value;
}
Value valueOf(std::int32_t value) {
  return static_cast<long>(value);
}
Value valueOf(std::uint32_t value) {
  return static_cast<unsigned long>(value);
}
Value valueOf(bool value) {
  return value;
}
Value valueOf(const std::string& value) {
  return CString(value.c_str());
}
Value valueOf(const drawing::Point& value) {
  return CKtPnt3D(value.x, value.y, value.z);
}
Value valueOf(const drawing::Vector& value) {
  return CKtVect3D(value.x, value.y, value.z);
}
Value valueOf(const std::vector<double>& values) {
  return values;
}
std::vector<CKtPnt3D> pointsOf(const std::vector<drawing::Point>& points) {
  std::vector<CKtPnt3D> all;
  for (const drawing::Point& point : points) {
    all.emplace_back(point.x, point.y, point.z);
  }
  return all;
}
Value valueOf(const std::vector<drawing::Point>& points) {
  return pointsOf(points);
}
Value valueOf(const std::vector<drawing::Point>& points,
              const std::vector<drawing::Vector>& bulges) {
  Segments segments{pointsOf(points), {}};
  for (const drawing::Vector& bulge : bulges) {
    segments.bulges.emplace_back(bulge.x, bulge.y, bulge.z);
  }
  return segments;
}

template <class Class>
class TypedElements : public testing::Test {};

TYPED_TEST_SUITE(TypedElements, ElementClasses, ClassNames);

TYPED_TEST(TypedElements, HoldEveryItem) {
  using Struct = typename StructOf<TypeParam>::Type;
  const auto fields = ElementModel<TypeParam>::fields();
  for (int set = 0; set < 3; ++set) {
    const auto texts = itemTexts<TypeParam>(sampleValues<TypeParam>(set));
    Reader reader = Reader::ofBytes(
        transferFile(classElement(ElementModel<TypeParam>::kClassName, 4, joined(texts))));
    int elements = 0;
    for (Struct value : reader.elements<Struct>()) {
      ++elements;
      EXPECT_EQ(value.version, 1);
      EXPECT_EQ(value.index, 4);
      EXPECT_TRUE(value.problems.empty());
      std::size_t item = 0;
      eachItem(value, [&](const std::string& name, const auto&... members) {
        ASSERT_LT(item, fields.size());
        EXPECT_EQ(name, fields[item].name);
        EXPECT_EQ(fields[item].text(valueOf(members...)), texts[item]) << name;
        ++item;
      });
      EXPECT_EQ(item, fields.size());
    }
    EXPECT_EQ(elements, 1);
  }
}

TYPED_TEST(TypedElements, ListWhatIsMissing) {
  using Struct = typename StructOf<TypeParam>::Type;
  Reader reader =
      Reader::ofBytes(transferFile(classElement(ElementModel<TypeParam>::kClassName, 1, "")));
  for (const Struct& value : reader.elements<Struct>()) {
    std::vector<std::string> expected;
    for (int i = 0; i < quorvanClassCount(); ++i) {
      for (int item = 0; quorvanClassName(i) == std::string(Struct::kClassName) &&
                         item < quorvanClassItemCount(i);
           ++item) {
        if (quorvanClassItemIsOptional(i, item) == 0) {
          expected.emplace_back(quorvanClassItemName(i, item));
        }
      }
    }
    std::vector<std::string> found;
    for (const drawing::Problem& problem : value.problems) {
      EXPECT_EQ(problem.reason, QUORVAN_NO_ITEM);
      found.emplace_back(problem.item);
    }
    EXPECT_EQ(found, expected);
  }
}

TYPED_TEST(TypedElements, StandInTheOrderOfTheClassNumbers) {
  using Struct = typename StructOf<TypeParam>::Type;
  const std::size_t number = Element(Struct()).index();
  EXPECT_STREQ(quorvanClassName(static_cast<int>(number)), Struct::kClassName);
}

const std::string kMixed =
    transferFile(classElement("CKtZantoLine", 1, longItem("Color", 1)) + "<Foreign index=\"9\"/>" +
                 classElement("CKtZantoText", 1, textItem("Contents", L"\u00e9")) +
                 classElement("CKtZantoLine", 2, longItem("Color", 2)));

TEST(TypedReader, VisitsAllInTheOrderOfTheFile) {
  Reader reader = Reader::ofBytes(kMixed);
  std::string seen;
  visit(
      reader,
      [&](const drawing::Line& line) { seen += "line " + std::to_string(line.color) + "; "; },
      [&](const drawing::Other& other) { seen += other.className + "; "; },
      [&](const drawing::Text& text) { seen += text.contents + "; "; },
      [&](const auto& /*rest*/) { seen += "?; "; });
  EXPECT_EQ(seen, "line 1; Foreign; \xC3\xA9; line 2; ");
}

TEST(TypedReader, WalksOneClassWithItsPlaces) {
  Reader reader = Reader::ofBytes(kMixed);
  std::vector<std::size_t> places;
  for (const drawing::Line& line : reader.elements<drawing::Line>()) {
    places.push_back(line.place);
  }
  EXPECT_EQ(places, (std::vector<std::size_t>{0, 3}));
}

TEST(TypedReader, NamesWhatIsOfAnotherKind) {
  Reader reader = Reader::ofBytes(transferFile(classElement(
      "CKtZantoCircle", 1,
      pointItem("Center", {1, 2, 3}) + textItem("Radius", L"wide") + longItem("Color", 1))));
  for (const drawing::Circle& circle : reader.elements<drawing::Circle>()) {
    EXPECT_EQ(circle.center.y, 2);
    ASSERT_EQ(circle.problems.size(), 1U);
    EXPECT_STREQ(circle.problems[0].item, "Radius");
    EXPECT_EQ(circle.problems[0].reason, QUORVAN_OTHER_KIND);
  }
}

TEST(TypedReader, ThrowsWithTheReason) {
  try {
    Reader::ofBytes("<a>\n<b></a>");
    ADD_FAILURE() << "nothing thrown";
  } catch (const ReadError& error) {
    EXPECT_EQ(error.failure().result, QUORVAN_NOT_WELL_FORMED);
    EXPECT_EQ(error.failure().line, 2);
    EXPECT_NE(std::string(error.what()), "");
  }
  EXPECT_THROW(Reader("missing.xml"), ReadError);
}

TEST(TypedReader, GivesTheReasonAsAValue) {
  ReadFailure failure;
  EXPECT_FALSE(Reader::open("missing.xml", failure).has_value());
  EXPECT_EQ(failure.result, QUORVAN_NO_FILE);
  EXPECT_FALSE(Reader::openBytes("<a>", failure).has_value());
  EXPECT_EQ(failure.result, QUORVAN_NOT_WELL_FORMED);
  std::optional<Reader> reader = Reader::openBytes(kMixed, failure);
  ASSERT_TRUE(reader.has_value());
  EXPECT_EQ(failure.result, QUORVAN_DONE);
  int elements = 0;
  for (const Element& element : reader->elements()) {
    static_cast<void>(element);
    ++elements;
  }
  EXPECT_EQ(elements, 4);
  EXPECT_EQ(reader->failure().result, QUORVAN_DONE);
}

TEST(TypedReader, MayBeLeftInTheMiddle) {
  Reader reader = Reader::ofBytes(kMixed);
  for (const Element& element : reader.elements()) {
    EXPECT_EQ(element.index(), 0U);
    break;
  }
}

}  // namespace
}  // namespace quorvan::test
