// Runs for a user who writes decimal commas, in a host that has taken over the user's locale.

#include <gtest/gtest.h>
#include <windows.h>

#include <clocale>
#include <string>

#include <tests/support/saved_file.h>
#include <quorvan/export/export.h>
#include <quorvan/filer/filer.h>

namespace quorvan {
namespace {

class DecimalComma : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr);
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    wchar_t separator[4] = {};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, 4);
    ASSERT_STREQ(separator, L",");
  }
  void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

TEST_F(DecimalComma, NumbersAreWrittenWithPoints) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(CString(L"a.xml")), 1);
  ASSERT_EQ(filer.beginClass(CString(L"A"), 1), 1);
  filer.writeItem(CString(L"Radius"), 12.5);
  filer.writeItem(CString(L"Point"), CKtPnt3D(1.5, -2.25, 0.0));
  filer.writeItem(CString(L"Vector"), CKtVect3D(0.1, 1e-7, 2.5));
  filer.endClass();
  ASSERT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(test::savedBytes("a.xml"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
            "<Document><A version=\"1\" index=\"1\"><Radius double=\"12.5000000\"/>"
            "<Point X=\"1.5000000\" Y=\"-2.2500000\" Z=\"0.0000000\"/>"
            "<Vector X=\"0.1\" Y=\"1e-07\" Z=\"2.5\"/></A></Document>\r\n");
}

TEST_F(DecimalComma, NumbersAreReadWithPoints) {
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(CString(L"b.xml")), 1);
  filer.beginClass(CString(L"A"), 1);
  filer.writeItem(CString(L"Radius"), 12.5);
  filer.writeItem(CString(L"Vector"), CKtVect3D(0.1, 1e-7, 2.5));
  filer.closeFiler();
  ASSERT_EQ(filer.newFiler(CString(L"b.xml")), 1);
  ASSERT_EQ(filer.beginClass(CString(L"A")), 1);
  double radius = 0;
  CKtVect3D vector;
  EXPECT_EQ(filer.readItem(CString(L"Radius"), &radius), 1);
  EXPECT_EQ(filer.readItem(CString(L"Vector"), &vector), 1);
  EXPECT_EQ(radius, 12.5);
  EXPECT_EQ(vector.X(), 0.1);
  EXPECT_EQ(vector.Y(), 1e-7);
  EXPECT_EQ(vector.Z(), 2.5);
}

TEST_F(DecimalComma, AHostsDrawingHasPoints) {
  startFiling(L"host.xml");
  exportCircle(0.5, 1.25, 0, 12.5, 3);
  endFiling(L"2025", 1, L"B12", 42);
  const std::string saved = test::savedBytes("host.xml");
  EXPECT_NE(saved.find("X=\"0.5000000\" Y=\"1.2500000\""), std::string::npos) << saved;
  EXPECT_NE(saved.find("double=\"12.5000000\""), std::string::npos) << saved;
  EXPECT_EQ(saved.find(','), std::string::npos) << saved;
}

}  // namespace
}  // namespace quorvan
