// The elements that are not bars: each argument has a value of its own and is found under its item.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/export/host_filing.h>
#include <tests/support/transfer_text.h>

namespace quorvan::test {
namespace {

class GraphicExports : public HostFiling {
 protected:
  GraphicExports() { start(); }

  std::vector<double> m_xs{1, 2, 3, 4, 5};
  std::vector<double> m_ys{11, 12, 13, 14, 15};
  std::vector<double> m_zs{21, 22, 23, 24, 25};
  std::vector<double> m_bxs{31, 32};
  std::vector<double> m_bys{41, 42};
  std::vector<double> m_bzs{51, 52};

  void formwork(int count) {
    exportFormwork(count, m_xs.data(), m_ys.data(), m_zs.data(), m_bxs.data(), m_bys.data(),
                   m_bzs.data());
  }
};

TEST_F(GraphicExports, Line) {
  exportLine(1, 2, 3, 4, 5, 6, 7);
  EXPECT_EQ(saveAlone(), transferFile("<CKtZantoLine version=\"1\" index=\"1\">"
                                      "<Point1 X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
                                      "<Point2 X=\"4.0000000\" Y=\"5.0000000\" Z=\"6.0000000\"/>"
                                      "<Color long=\"7\"/></CKtZantoLine>"));
}

TEST_F(GraphicExports, ALineOfNoLengthKeepsBothPoints) {
  exportLine(1, 2, 3, 1, 2, 3, 0xFFFFFFFFUL);
  EXPECT_EQ(saveAlone(), transferFile("<CKtZantoLine version=\"1\" index=\"1\">"
                                      "<Point1 X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
                                      "<Point2 X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
                                      "<Color long=\"-1\"/></CKtZantoLine>"));
}

TEST_F(GraphicExports, Circle) {
  exportCircle(1, 2, 3, 4, 5);
  EXPECT_EQ(saveAlone(), transferFile("<CKtZantoCircle version=\"1\" index=\"1\">"
                                      "<Center X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
                                      "<Radius double=\"4.0000000\"/><Color long=\"5\"/>"
                                      "</CKtZantoCircle>"));
}

TEST_F(GraphicExports, Text) {
  exportText(L"1", 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(saveAlone(), transferFile("<CKtZantoText version=\"1\" index=\"1\">"
                                      "<Contents string=\"1\"/>"
                                      "<Location X=\"2.0000000\" Y=\"3.0000000\" Z=\"4.0000000\"/>"
                                      "<Angle double=\"5.0000000\"/><JustificationX long=\"7\"/>"
                                      "<JustificationY long=\"8\"/><Color long=\"6\"/>"
                                      "<Height double=\"9.0000000\"/></CKtZantoText>"));
}

TEST_F(GraphicExports, TextWithJustificationsBeyondAnyMeaning) {
  exportText(L"\u00c9l\u00e9vation \u2014 12 \u20ac", 0, 0, 0, 0, 0, -2147483647 - 1, 2147483647,
             0);
  const std::string saved = saveAlone();
  EXPECT_NE(saved.find("<Contents string=\"\xC9l\xE9vation &#8212; 12 &#8364;\"/>"),
            std::string::npos);
  EXPECT_NE(saved.find("<JustificationX long=\"-2147483648\"/>"
                       "<JustificationY long=\"2147483647\"/>"),
            std::string::npos);
}

TEST_F(GraphicExports, Mesh) {
  exportMesh(L"1", L"2", 3, 4, 5, 2, m_xs.data(), m_ys.data(), m_zs.data());
  EXPECT_EQ(saveAlone(), transferFile("<CKtZantoMesh version=\"1\" index=\"1\"><Type string=\"2\"/>"
                                      "<Reference string=\"1\"/><Angle double=\"5.0000000\"/>"
                                      "<ExtensionX double=\"3.0000000\"/>"
                                      "<ExtensionY double=\"4.0000000\"/><Vector size=\"2\">"
                                      "<Point1 X=\"1.0000000\" Y=\"11.0000000\" Z=\"21.0000000\"/>"
                                      "<Point2 X=\"2.0000000\" Y=\"12.0000000\" Z=\"22.0000000\"/>"
                                      "</Vector></CKtZantoMesh>"));
}

TEST_F(GraphicExports, FilledPolygon) {
  exportFilledPolygon(3, m_xs.data(), m_ys.data(), m_zs.data(), 9);
  EXPECT_EQ(saveAlone(), transferFile("<CKtFilledPolygon version=\"1\" index=\"1\">"
                                      "<Vector size=\"3\">"
                                      "<Point1 X=\"1.0000000\" Y=\"11.0000000\" Z=\"21.0000000\"/>"
                                      "<Point2 X=\"2.0000000\" Y=\"12.0000000\" Z=\"22.0000000\"/>"
                                      "<Point3 X=\"3.0000000\" Y=\"13.0000000\" Z=\"23.0000000\"/>"
                                      "</Vector><Color long=\"9\"/></CKtFilledPolygon>"));
}

TEST_F(GraphicExports, Formwork) {
  formwork(4);
  EXPECT_EQ(saveAlone(), transferFile("<CKtZantoFormwork version=\"1\" index=\"1\">"
                                      "<Vector size=\"4\">"
                                      "<Point1 X=\"1.0000000\" Y=\"11.0000000\" Z=\"21.0000000\"/>"
                                      "<Point2 X=\"2.0000000\" Y=\"12.0000000\" Z=\"22.0000000\"/>"
                                      "<Bulge1 X=\"31\" Y=\"41\" Z=\"51\"/>"
                                      "<Point3 X=\"3.0000000\" Y=\"13.0000000\" Z=\"23.0000000\"/>"
                                      "<Point4 X=\"4.0000000\" Y=\"14.0000000\" Z=\"24.0000000\"/>"
                                      "<Bulge2 X=\"32\" Y=\"42\" Z=\"52\"/>"
                                      "</Vector></CKtZantoFormwork>"));
}

TEST_F(GraphicExports, OfFiveFormworkPointsTheLastIsNotUsed) {
  formwork(4);
  const std::string four = saveAlone();
  std::filesystem::remove(kDrawing);
  start();
  formwork(5);
  EXPECT_EQ(saveAlone(), four);
}

TEST_F(GraphicExports, FormworkOfOnePointHasNoSegments) {
  formwork(1);
  EXPECT_EQ(saveAlone(),
            transferFile(classElement("CKtZantoFormwork", 1, listItem("Vector", 0, ""))));
}

// Without points the arrays are not looked at.
TEST_F(GraphicExports, NoPointsAndNegativeCountsGiveElementsWithoutPoints) {
  const std::string none = listItem("Vector", 0, "");
  std::string expected;
  int index = 0;
  for (const int count : {0, -1, -2147483647 - 1}) {
    exportMesh(L"R", L"T", 1, 2, 3, count, nullptr, nullptr, nullptr);
    exportFilledPolygon(count, nullptr, nullptr, nullptr, 4);
    exportFormwork(count, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    ++index;
    expected +=
        classElement("CKtZantoMesh", index,
                     textItem("Type", L"T") + textItem("Reference", L"R") + doubleItem("Angle", 3) +
                         doubleItem("ExtensionX", 1) + doubleItem("ExtensionY", 2) + none) +
        classElement("CKtFilledPolygon", index, none + longItem("Color", 4)) +
        classElement("CKtZantoFormwork", index, none);
  }
  EXPECT_EQ(saveAlone(), transferFile(expected));
}

TEST_F(GraphicExports, NothingIsWrittenWhileStopped) {
  stopFiling();
  exportLine(1, 2, 3, 4, 5, 6, 7);
  exportCircle(1, 2, 3, 4, 5);
  exportText(L"1", 2, 3, 4, 5, 6, 7, 8, 9);
  exportMesh(L"1", L"2", 3, 4, 5, 2, m_xs.data(), m_ys.data(), m_zs.data());
  exportFilledPolygon(3, m_xs.data(), m_ys.data(), m_zs.data(), 9);
  formwork(4);
  EXPECT_EQ(saveAlone(), transferFile(""));
}

TEST_F(GraphicExports, EqualElementsAreWrittenEachTime) {
  exportLine(1, 2, 3, 4, 5, 6, 7);
  exportCircle(1, 2, 3, 4, 5);
  exportLine(1, 2, 3, 4, 5, 6, 7);
  exportCircle(1, 2, 3, 4, 5);
  saveAlone();
  EXPECT_EQ(indexes(), "CKtZantoLine 1, CKtZantoCircle 1, CKtZantoLine 2, CKtZantoCircle 2");
}

TEST_F(GraphicExports, NumbersAreFiledAsGiven) {
  exportLine(1e20, -0.0, 1e-8, 123456789.123456789, -2.00000015, 1.0 / 256, 0);
  EXPECT_NE(saveAlone().find("<Point1 X=\"100000000000000000000.0000000\" Y=\"-0.0000000\" "
                             "Z=\"0.0000000\"/><Point2 X=\"123456789.1234568\" "
                             "Y=\"-2.0000001\" Z=\"0.0039062\"/>"),
            std::string::npos);
}

}  // namespace
}  // namespace quorvan::test
