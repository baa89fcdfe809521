// Single points and vectors.

#include <tests/filer/filer_test.h>

#include <limits>
#include <string>

namespace quorvan::test {
namespace {

class GeometricItems : public FilerTest {
 protected:
  GeometricItems() {
    m_filer.newFiler(kPath);
    m_filer.beginClass(L"A", 1);
  }

  void load(const std::string& items) {
    writeText(kOtherPath, documentText("<R>" + items + "</R>"));
    m_filer.closeFiler();
    m_filer.newFiler(kOtherPath);
    ASSERT_EQ(m_filer.beginClass(L"R"), 1);
  }

  void expectItems(const std::string& items) {
    m_filer.closeFiler();
    EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\">" + items + "</A>"));
  }

  static void expectPoint(const CKtPnt3D& point, double x, double y, double z) {
    EXPECT_EQ(point.X(), x);
    EXPECT_EQ(point.Y(), y);
    EXPECT_EQ(point.Z(), z);
  }

  static void expectVector(const CKtVect3D& vector, double x, double y, double z) {
    EXPECT_EQ(vector.X(), x);
    EXPECT_EQ(vector.Y(), y);
    EXPECT_EQ(vector.Z(), z);
  }

  CKtFiler m_filer;
  CKtPnt3D m_point = CKtPnt3D(7, 8, 9);
  CKtVect3D m_vector = CKtVect3D(7, 8, 9);
};

TEST_F(GeometricItems, PointsAreWrittenWithSevenDecimals) {
  EXPECT_EQ(m_filer.writeItem(L"P", CKtPnt3D(1, 2.5, -3)), 1);
  EXPECT_EQ(m_filer.writeItem(L"P", CKtPnt3D(1250, -0.5, 1e-8)), 1);
  expectItems(
      "<P X=\"1.0000000\" Y=\"2.5000000\" Z=\"-3.0000000\"/>"
      "<P X=\"1250.0000000\" Y=\"-0.5000000\" Z=\"0.0000000\"/>");
}

TEST_F(GeometricItems, VectorsAreWrittenWithTheDigitsTheyNeed) {
  EXPECT_EQ(m_filer.writeItem(L"V", CKtVect3D(1, 2.5, -3)), 1);
  EXPECT_EQ(m_filer.writeItem(L"V", CKtVect3D(1.0 / 3, 0.1 + 0.2, 0)), 1);
  expectItems(
      "<V X=\"1\" Y=\"2.5\" Z=\"-3\"/>"
      "<V X=\"0.3333333333333333\" Y=\"0.30000000000000004\" Z=\"0\"/>");
}

TEST_F(GeometricItems, VectorsReadBackExactly) {
  const double values[][3] = {{1.0 / 3, 0.1 + 0.2, 1e-300},
                              {0.70710678118654752, -0.70710678118654752, 1e22},
                              {std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::denorm_min(), -123456789.123456789}};
  for (const auto& v : values) {
    m_filer.writeItem(L"V", CKtVect3D(v[0], v[1], v[2])), m_filer.endClass(),
        m_filer.beginClass(L"A", 1);
  }
  m_filer.closeFiler();
  m_filer.newFiler(kPath);
  for (const auto& v : values) {
    ASSERT_EQ(m_filer.beginClass(L"A"), 1);
    ASSERT_EQ(m_filer.readItem(L"V", &m_vector), 1);
    expectVector(m_vector, v[0], v[1], v[2]);
  }
}

TEST_F(GeometricItems, PointsReadBackAtSevenDecimals) {
  m_filer.writeItem(L"P", CKtPnt3D(1.00000004, -2.5, 1e9));
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 1);
  expectPoint(m_point, 1, -2.5, 1e9);
}

TEST_F(GeometricItems, AnOpenVectorTakesThem) {
  m_filer.beginVector(L"L", 2);
  m_filer.writeItem(L"P", CKtPnt3D(1, 2, 3));
  m_filer.writeItem(L"V", CKtVect3D(4, 5, 6));
  m_filer.endVector();
  m_filer.writeItem(L"P", CKtPnt3D(7, 8, 9));
  expectItems(
      "<L size=\"2\"><P X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
      "<V X=\"4\" Y=\"5\" Z=\"6\"/></L>"
      "<P X=\"7.0000000\" Y=\"8.0000000\" Z=\"9.0000000\"/>");
}

TEST_F(GeometricItems, AnOpenVectorHidesThoseOfTheClass) {
  load("<P X=\"1\" Y=\"2\" Z=\"3\"/><L size=\"1\"><V X=\"4\" Y=\"5\" Z=\"6\"/></L>");
  long count = 0;
  m_filer.beginVector(L"L", &count);
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 0);
  EXPECT_EQ(m_filer.readItem(L"V", &m_vector), 1);
  m_filer.endVector();
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 1);
  expectPoint(m_point, 1, 2, 3);
  expectVector(m_vector, 4, 5, 6);
}

TEST_F(GeometricItems, WithNothingOpenTheyAreDropped) {
  m_filer.endClass();
  EXPECT_EQ(m_filer.writeItem(L"P", CKtPnt3D(1, 2, 3)), 0);
  EXPECT_EQ(m_filer.writeItem(L"V", CKtVect3D(1, 2, 3)), 0);
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 0);
  EXPECT_EQ(m_filer.readItem(L"V", &m_vector), 0);
  expectPoint(m_point, 7, 8, 9);
  expectVector(m_vector, 7, 8, 9);
}

TEST_F(GeometricItems, WritingOneWithoutADocumentRaises) {
  CKtFiler closed;
  EXPECT_EQ(raised([&] { closed.writeItem(L"P", CKtPnt3D(1, 2, 3)); }), E_POINTER);
  EXPECT_EQ(raised([&] { closed.writeItem(L"V", CKtVect3D(1, 2, 3)); }), E_POINTER);
}

TEST_F(GeometricItems, ANameThatXmlCannotCarryIsRefused) {
  EXPECT_EQ(raised([&] { m_filer.writeItem(L"1", CKtPnt3D(1, 2, 3)); }), E_FAIL);
  EXPECT_EQ(raised([&] { m_filer.writeItem(L"1", CKtVect3D(1, 2, 3)); }), E_FAIL);
}

TEST_F(GeometricItems, PointsAndVectorsReadEachOther) {
  load("<P X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/><V X=\"4\" Y=\"5e1\" Z=\"-6\"/>");
  EXPECT_EQ(m_filer.readItem(L"P", &m_vector), 1);
  EXPECT_EQ(m_filer.readItem(L"V", &m_point), 1);
  expectVector(m_vector, 1, 2, 3);
  expectPoint(m_point, 4, 50, -6);
}

TEST_F(GeometricItems, AMissingCoordinateLeavesTheOnesBehindItAlone) {
  load("<P/><PX Y=\"2\" Z=\"3\"/><PY X=\"1\" Z=\"3\"/><PZ X=\"1\" Y=\"2\"/>");
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 0);
  expectPoint(m_point, 7, 8, 9);
  EXPECT_EQ(m_filer.readItem(L"PX", &m_point), 0);
  expectPoint(m_point, 7, 8, 9);
  EXPECT_EQ(m_filer.readItem(L"PY", &m_point), 0);
  expectPoint(m_point, 1, 8, 9);
  EXPECT_EQ(m_filer.readItem(L"PZ", &m_point), 0);
  expectPoint(m_point, 1, 2, 9);
  EXPECT_EQ(m_filer.readItem(L"P", &m_vector), 0);
  EXPECT_EQ(m_filer.readItem(L"PX", &m_vector), 0);
  expectVector(m_vector, 7, 8, 9);
  EXPECT_EQ(m_filer.readItem(L"PY", &m_vector), 0);
  expectVector(m_vector, 1, 8, 9);
  EXPECT_EQ(m_filer.readItem(L"PZ", &m_vector), 0);
  expectVector(m_vector, 1, 2, 9);
}

TEST_F(GeometricItems, CoordinateNamesAreCaseSensitive) {
  load("<P x=\"1\" y=\"2\" z=\"3\"/>");
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 0);
  expectPoint(m_point, 7, 8, 9);
}

TEST_F(GeometricItems, CoordinatesThatAreNoNumbersReadAsZero) {
  load("<P X=\"\" Y=\"wide\" Z=\" 1.5mm\"/>");
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 1);
  expectPoint(m_point, 0, 0, 1.5);
}

TEST_F(GeometricItems, OneThatIsMissingOrNoElementReadsAsMissing) {
  load("<?P X=\"1\" Y=\"2\" Z=\"3\"?>");
  EXPECT_EQ(m_filer.readItem(L"P", &m_point), 0);
  EXPECT_EQ(m_filer.readItem(L"Q", &m_point), 0);
  EXPECT_EQ(m_filer.readItem(L"Q", &m_vector), 0);
  expectPoint(m_point, 7, 8, 9);
}

}  // namespace
}  // namespace quorvan::test
