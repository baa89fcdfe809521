// Every field of every class with the values that are hard to carry.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

using Limits = std::numeric_limits<double>;

const std::vector<double>& hardNumbers() {
  static const std::vector<double> numbers = {0.0,           -0.0,
                                              1e-8,          -1e-8,
                                              0.00000005,    1.0 / 3,
                                              -2.00000015,   1.0 / 256,
                                              -3.0 / 256,    123456789.123456789,
                                              1e15 + 0.3,    -1e20,
                                              Limits::max(), Limits::lowest(),
                                              Limits::min(), Limits::denorm_min()};
  return numbers;
}

const std::vector<CString>& hardTexts() {
  static const std::vector<CString> texts = {
      L"",
      L" ",
      L"   two  blanks   ",
      L"caf\u00e9 \u00e0 l'\u00e9tage, \u00d8 12 \u00f8, 45\u00b0, \u00b5, \u00df, \u00ff",
      L"prix 12 \u20ac, \u0152uvre, \u2014, \u03b1",
      L"rebar \U0001F600 \U0010FFFD",
      L"\u4e2d\u6587 \u0431\u0435\u0442\u043e\u043d",
      L"a\tb\nc\rd\r\ne\t",
      L"\r\n",
      L"<&>\"' &amp; &#65; ]]>",
      L"%s %d {0} \\n",
      L"True",
      CString(L'x', 5000)};
  return texts;
}

// What a number comes back as: its seven decimals.
double throughFile(double number) {
  return std::strtod(fixed7(number).c_str(), nullptr);
}

/// A value and what reading it back gives.
struct Passage {
  Value written;
  Value read;
};

std::vector<Passage> numberPassages() {
  std::vector<Passage> passages;
  for (const double number : hardNumbers()) {
    passages.push_back({number, throughFile(number)});
  }
  return passages;
}

std::vector<Passage> pointPassages() {
  std::vector<Passage> passages;
  const auto& numbers = hardNumbers();
  for (std::size_t i = 0; i + 2 < numbers.size(); ++i) {
    const double x = numbers[i];
    const double y = numbers[i + 1];
    const double z = numbers[i + 2];
    passages.push_back(
        {CKtPnt3D(x, y, z), CKtPnt3D(throughFile(x), throughFile(y), throughFile(z))});
  }
  return passages;
}

std::vector<Passage> longPassages() {
  std::vector<Passage> passages;
  for (const long number : {0L, -1L, 7L, 65536L, 2147483647L, -2147483647L - 1}) {
    passages.push_back({number, number});
  }
  return passages;
}

std::vector<Passage> colorPassages() {
  std::vector<Passage> passages;
  for (const unsigned long color : {0UL, 1UL, 0x7FFFFFFFUL, 0x80000000UL, 0xFFFFFFFFUL}) {
    passages.push_back({color, color});
  }
  return passages;
}

std::vector<Passage> textPassages() {
  std::vector<Passage> passages;
  for (const CString& text : hardTexts()) {
    passages.push_back({text, text});
  }
  return passages;
}

std::vector<Passage> listPassages() {
  std::vector<double> read;
  for (const double number : hardNumbers()) {
    read.push_back(throughFile(number));
  }
  return {{hardNumbers(), read}, {std::vector<double>(), std::vector<double>()}};
}

std::vector<Passage> pointListPassages() {
  std::vector<CKtPnt3D> written;
  std::vector<CKtPnt3D> read;
  for (const Passage& passage : pointPassages()) {
    written.push_back(std::get<CKtPnt3D>(passage.written));
    read.push_back(std::get<CKtPnt3D>(passage.read));
  }
  return {{written, read}, {std::vector<CKtPnt3D>(), std::vector<CKtPnt3D>()}};
}

std::vector<Passage> passages(Form form) {
  switch (form) {
    case Form::kPoint:
      return pointPassages();
    case Form::kDouble:
      return numberPassages();
    case Form::kLong:
      return longPassages();
    case Form::kColor:
      return colorPassages();
    case Form::kText:
    case Form::kAdherence:
      return textPassages();
    case Form::kDoubles:
      return listPassages();
    case Form::kPoints:
    case Form::kNumberedPoints:
      return pointListPassages();
    default:
      return {};  // flags have two values; vectors have a test of their own below
  }
}

template <class Element>
class FieldValues : public testing::Test {
 protected:
  // One element for every value of every field: what is written and what reading it back gives.
  FieldValues() {
    const auto fields = ElementModel<Element>::fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
      for (const Passage& passage : passages(fields[i].form)) {
        auto values = sampleValues<Element>(0);
        values[i] = passage.written;
        m_written.push_back(values);
        values[i] = passage.read;
        m_read.push_back(values);
      }
    }
  }

  std::vector<std::vector<Value>> m_written{sampleValues<Element>(0), sampleValues<Element>(1)};
  std::vector<std::vector<Value>> m_read = m_written;
};

TYPED_TEST_SUITE(FieldValues, ElementClasses, ClassNames);

TYPED_TEST(FieldValues, ComeBackFromTheFile) {
  std::filesystem::remove(kFile);
  std::string expected;
  {
    CKtFiler filer;
    ASSERT_EQ(filer.newFiler(kFileName), 1);
    for (std::size_t i = 0; i < this->m_written.size(); ++i) {
      auto element = made<TypeParam>(this->m_written[i]);
      ASSERT_EQ(element.fileOut(&filer), 1);
      expected += classElement(ElementModel<TypeParam>::kClassName, static_cast<int>(i + 1),
                               joined(itemTexts<TypeParam>(this->m_written[i])));
    }
  }
  EXPECT_EQ(savedBytes(kFile), transferFile(expected));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kFileName), 1);
  for (const std::vector<Value>& values : this->m_read) {
    TypeParam read;
    EXPECT_EQ(read.fileIn(&filer), 1);
    EXPECT_EQ(describe(read), itemTexts<TypeParam>(values));
  }
}

// The text above would not show the difference between a number and its seven decimals.
TEST(FieldValue, ANumberComesBackWithSevenDecimals) {
  CKtZantoCircle circle;
  circle.SetRadius(1.0 / 3);
  circle.SetCenter(CKtPnt3D(-2.0 / 3, 1e-8, 1e300));
  writeAlone(circle);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoCircle read;
  read.fileIn(&filer);
  EXPECT_EQ(read.GetRadius(), 0.3333333);
  EXPECT_EQ(read.GetCenter().X(), -0.6666667);
  EXPECT_EQ(read.GetCenter().Y(), 0.0);
  EXPECT_EQ(read.GetCenter().Z(), 1e300);
}

TEST(FieldValue, AVectorComesBackExactly) {
  CKtZantoRepartition repartition;
  for (const double number : hardNumbers()) {
    repartition.setBulge(CKtVect3D(number, -number, number / 7));
    repartition.setAxis(CKtVect3D(1, number, 2));
    ASSERT_EQ(writeAlone(repartition), 1);
    CKtFiler filer;
    filer.newFiler(kFileName);
    CKtZantoRepartition read;
    EXPECT_EQ(read.fileIn(&filer), 1);
    EXPECT_EQ(read.getBulge().X(), number);
    EXPECT_EQ(std::signbit(read.getBulge().X()), std::signbit(number));
    EXPECT_EQ(read.getBulge().Y(), -number);
    EXPECT_EQ(read.getBulge().Z(), number / 7);
    EXPECT_EQ(read.getAxis().Y(), number);
  }
}

TEST(FieldValue, ATextKeepsWhatXmlCannotCarryAsReplacements) {
  CKtZantoText text;
  text.SetContents(L"a\u0001b\u001fc\uffffd");
  text.SetColor(3);
  writeAlone(text);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoText read;
  EXPECT_EQ(read.fileIn(&filer), 1);
  EXPECT_EQ(read.GetContents(), L"a\ufffdb\ufffdc\ufffdd");
  EXPECT_EQ(read.GetColor(), 3UL);
}

TEST(FieldValue, NumbersThatAreNoneReadAsZero) {
  CKtZantoCircle circle;
  circle.SetRadius(Limits::infinity());
  circle.SetCenter(CKtPnt3D(Limits::quiet_NaN(), -Limits::infinity(), 5));
  EXPECT_EQ(writeAlone(circle), 1);
  CKtFiler filer;
  filer.newFiler(kFileName);
  EXPECT_EQ(circle.fileIn(&filer), 1);
  EXPECT_EQ(circle.GetRadius(), 0.0);
  EXPECT_EQ(describe(circle)[0], pointItem("Center", CKtPnt3D(0, 0, 5)));
}

TEST(FieldValue, ALongIsFiledWithItsLow32Bits) {
  constexpr long kBeyond = sizeof(long) > 4 ? static_cast<long>(0x500000007LL) : 7;
  CKtZantoPointBar bar;
  bar.setReference(kBeyond);
  CKtDrawingControl record;
  record.SetCheckSum(kBeyond);
  record.SetServicePack(kBeyond);
  CKtZantoLine line;
  line.SetColor(static_cast<unsigned long>(kBeyond));
  EXPECT_NE(savedAlone(bar).find(longItem("Reference", 7)), std::string::npos);
  EXPECT_NE(savedAlone(record).find(longItem("ServicePack", 7) + longItem("CheckSum", 7)),
            std::string::npos);
  EXPECT_NE(savedAlone(line).find(longItem("Color", 7)), std::string::npos);
}

TEST(FieldValue, AColorIsFiledAsASignedNumber) {
  CKtZantoLine line;
  line.SetColor(0xFFFFFFFFUL);
  EXPECT_NE(savedAlone(line).find("<Color long=\"-1\"/>"), std::string::npos);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoLine read;
  EXPECT_EQ(read.fileIn(&filer), 1);
  EXPECT_EQ(read.GetColor(), 0xFFFFFFFFUL);
}

}  // namespace
}  // namespace quorvan::test
