// The five items that every bar and link ends with.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

template <class Bar>
class BarAttributes : public testing::Test {
 protected:
  // Reads a complete bar whose item `name` is `item`.
  int readWith(const std::string& name, const std::string& item, Bar& bar) {
    const auto fields = ElementModel<Bar>::fields();
    auto items = itemTexts<Bar>(sampleValues<Bar>(0));
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i].name == name) {
        items[i] = item;
      }
    }
    return readItems(joined(items), bar);
  }

  int readAdherence(const std::string& attributes) {
    m_bar.setAdherence(L"before");
    return readWith("Adherence", rawItem("Adherence", attributes), m_bar);
  }

  Bar m_bar;
};

TYPED_TEST_SUITE(BarAttributes, BarClasses, ClassNames);

TYPED_TEST(BarAttributes, AreTheLastItems) {
  const std::string saved = savedAlone(made<TypeParam>(sampleValues<TypeParam>(0)));
  std::size_t last = 0;
  for (const char* const name : {"SteelGrade", "Adherence", "Diameter", "Reference", "Hidden"}) {
    const std::size_t place = saved.find('<' + std::string(name) + ' ');
    ASSERT_NE(place, std::string::npos) << name;
    EXPECT_GT(place, last) << name;
    last = place;
  }
  EXPECT_EQ(saved.find('<', last + 1), saved.find("</CKtZanto"));
}

TYPED_TEST(BarAttributes, AnAdherenceFiledAsANumberIsGivenItsName) {
  EXPECT_EQ(this->readAdherence("long=\"0\""), 1);
  EXPECT_EQ(this->m_bar.getAdherence(), L"Ha");
  EXPECT_EQ(this->readAdherence("long=\"1\""), 1);
  EXPECT_EQ(this->m_bar.getAdherence(), L"Dx");
  for (const char* const other : {"7", "2", "-1", "4294967297"}) {
    EXPECT_EQ(this->readAdherence("long=\"" + std::string(other) + '"'), 1);
    EXPECT_EQ(this->m_bar.getAdherence(), L"") << other;
  }
}

TYPED_TEST(BarAttributes, AnAdherenceNumberIsReadLikeAnyNumber) {
  for (const char* const zero : {"", "Dx", "x1", "0x1"}) {
    EXPECT_EQ(this->readAdherence("long=\"" + std::string(zero) + '"'), 1);
    EXPECT_EQ(this->m_bar.getAdherence(), L"Ha") << zero;
  }
  EXPECT_EQ(this->readAdherence("long=\" +1st\""), 1);
  EXPECT_EQ(this->m_bar.getAdherence(), L"Dx");
}

TYPED_TEST(BarAttributes, AnAdherenceFiledAsTextIsTakenAsItStands) {
  for (const auto& [attributes, expected] :
       {std::pair("string=\"HA\"", L"HA"), std::pair("string=\"\"", L""),
        std::pair("string=\"0\"", L"0"), std::pair("string=\"1\" double=\"0\"", L"1")}) {
    EXPECT_EQ(this->readAdherence(attributes), 1);
    EXPECT_EQ(this->m_bar.getAdherence(), expected);
  }
}

TYPED_TEST(BarAttributes, AnAdherenceOfBothKindsIsReadAsTheNumber) {
  EXPECT_EQ(this->readAdherence("string=\"Text\" long=\"1\""), 1);
  EXPECT_EQ(this->m_bar.getAdherence(), L"Dx");
}

TYPED_TEST(BarAttributes, AnAdherenceThatCameAsANumberIsFiledAsText) {
  this->readAdherence("long=\"1\"");
  EXPECT_NE(savedAlone(this->m_bar).find("<Adherence string=\"Dx\"/>"), std::string::npos);
}

TYPED_TEST(BarAttributes, HiddenIsSetByTrueInAnyCase) {
  for (const char* const text : {"True", "true", "TRUE", "tRuE"}) {
    this->m_bar.setHidden(false);
    EXPECT_EQ(this->readWith("Hidden", rawItem("Hidden", "string=\"" + std::string(text) + '"'),
                             this->m_bar),
              1);
    EXPECT_TRUE(this->m_bar.getHidden()) << text;
  }
}

TYPED_TEST(BarAttributes, HiddenIsClearedByAnyOtherText) {
  for (const char* const text :
       {"False", "1", "yes", "", " True", "True ", "Vrai", "Tru", "Truer"}) {
    this->m_bar.setHidden(true);
    EXPECT_EQ(this->readWith("Hidden", rawItem("Hidden", "string=\"" + std::string(text) + '"'),
                             this->m_bar),
              1);
    EXPECT_FALSE(this->m_bar.getHidden()) << text;
  }
}

TYPED_TEST(BarAttributes, HiddenKeepsItsValueWhenItIsMissing) {
  for (const bool before : {true, false}) {
    this->m_bar.setHidden(before);
    EXPECT_EQ(this->readWith("Hidden", "", this->m_bar), 1);
    EXPECT_EQ(this->m_bar.getHidden(), before);
  }
}

TYPED_TEST(BarAttributes, TheReferenceIsANumberOf32Bits) {
  for (const auto& [text, expected] :
       {std::pair("2147483648", 2147483647L), std::pair("-2147483649", -2147483647L - 1),
        std::pair("12abc", 12L), std::pair("none", 0L)}) {
    EXPECT_EQ(this->readWith("Reference", rawItem("Reference", "long=\"" + std::string(text) + '"'),
                             this->m_bar),
              1);
    EXPECT_EQ(this->m_bar.getReference(), expected);
  }
}

TEST(PointBar, FilesExactlySixItems) {
  CKtZantoPointBar bar;
  bar.setPoint1(CKtPnt3D(1, 2.5, -3));
  bar.setSteelGrade(L"B500B");
  bar.setAdherence(L"Ha");
  bar.setDiameter(16);
  bar.setReference(-12);
  bar.setHidden(true);
  EXPECT_EQ(savedAlone(bar),
            transferFile("<CKtZantoPointBar version=\"1\" index=\"1\">"
                         "<Point1 X=\"1.0000000\" Y=\"2.5000000\" Z=\"-3.0000000\"/>"
                         "<SteelGrade string=\"B500B\"/><Adherence string=\"Ha\"/>"
                         "<Diameter double=\"16.0000000\"/><Reference long=\"-12\"/>"
                         "<Hidden string=\"True\"/></CKtZantoPointBar>"));
}

TEST(FrameRect, FilesExactlyTenItems) {
  CKtZantoFrameRect frame;
  frame.setPoint1(CKtPnt3D(1, 2, 3));
  frame.setPoint2(CKtPnt3D(4, 5, 6));
  frame.setPoint3(CKtPnt3D(7, 8, 9));
  frame.setHookLength1(10);
  frame.setHookAngle1(135);
  EXPECT_EQ(savedAlone(frame),
            transferFile("<CKtZantoFrameRect version=\"1\" index=\"1\">"
                         "<Point1 X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
                         "<Point2 X=\"4.0000000\" Y=\"5.0000000\" Z=\"6.0000000\"/>"
                         "<Point3 X=\"7.0000000\" Y=\"8.0000000\" Z=\"9.0000000\"/>"
                         "<HookLength1 double=\"10.0000000\"/>"
                         "<HookAngle1 double=\"135.0000000\"/>"
                         "<SteelGrade string=\"\"/><Adherence string=\"\"/>"
                         "<Diameter double=\"0.0000000\"/><Reference long=\"0\"/>"
                         "<Hidden string=\"False\"/></CKtZantoFrameRect>"));
}

TEST(FrameCirc, FilesCenterBeforeStartAndRadiusBeforeRecoverLength) {
  CKtZantoFrameCirc frame;
  frame.setCenter(CKtPnt3D(1, 2, 3));
  frame.setStartPoint(CKtPnt3D(4, 5, 6));
  frame.setFrameRadius(250);
  frame.setRecoverLength(30);
  EXPECT_NE(savedAlone(frame).find("<Center X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
                                   "<StartPoint X=\"4.0000000\" Y=\"5.0000000\" Z=\"6.0000000\"/>"
                                   "<FrameRadius double=\"250.0000000\"/>"
                                   "<RecoverLength double=\"30.0000000\"/>"
                                   "<HookLength1 "),
            std::string::npos);
}

}  // namespace
}  // namespace quorvan::test
