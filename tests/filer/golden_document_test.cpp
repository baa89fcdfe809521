// Whole files, byte for byte: what one small drawing looks like on disk.

#include <tests/filer/filer_test.h>

#include <vector>

namespace quorvan::test {
namespace {

class GoldenDocument : public FilerTest {};

TEST_F(GoldenDocument, OfEveryKindOfItem) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"CKtZantoCircle", 1);
  filer.writeItem(L"Radius", 12.5);
  filer.writeItem(L"Color", 3);
  filer.writeItem(L"Layer", L"B\u00E9ton & acier");
  filer.writeItem(L"Center", CKtPnt3D(1250, -0.5, 0));
  filer.writeItem(L"Normal", CKtVect3D(0, 0.5, 1));
  filer.beginVector(L"Points", 2);
  filer.writeItem(L"Point1", CKtPnt3D(0, 0, 0));
  filer.writeItem(L"Point2", CKtPnt3D(1, 2, 3));
  filer.endVector();
  filer.writeItem(L"Outline", std::vector<CKtPnt3D>{{4, 5, 6}}, 1);
  filer.writeItem(L"Directions", std::vector<CKtVect3D>{{0, 0, 1}}, 1);
  filer.endClass();
  filer.beginClass(L"CKtDrawingControl", 1);
  filer.endClass();
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
            "<Document>"
            "<CKtZantoCircle version=\"1\" index=\"1\">"
            "<Radius double=\"12.5000000\"/>"
            "<Color long=\"3\"/>"
            "<Layer string=\"B\xE9ton &amp; acier\"/>"
            "<Center X=\"1250.0000000\" Y=\"-0.5000000\" Z=\"0.0000000\"/>"
            "<Normal X=\"0\" Y=\"0.5\" Z=\"1\"/>"
            "<Points size=\"2\">"
            "<Point1 X=\"0.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
            "<Point2 X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
            "</Points>"
            "<Outline size=\"1\"><point X=\"4.0000000\" Y=\"5.0000000\" Z=\"6.0000000\"/></Outline>"
            "<Directions size=\"1\">"
            "<vectorPoints X=\"0.0000000\" Y=\"0.0000000\" Z=\"1.0000000\"/>"
            "</Directions>"
            "</CKtZantoCircle>"
            "<CKtDrawingControl version=\"1\" index=\"1\"/>"
            "</Document>\r\n");
}

TEST_F(GoldenDocument, StaysByteForByteWhenItIsOpenedAndClosed) {
  const std::string text = documentText(
      "<A version=\"1\" index=\"1\"><T string=\"\xE9 &#8364; &amp; &lt;&gt;&quot;' "
      "&#9;&#10;&#13;\"/><V size=\"0\"/></A><B/>");
  writeText(kPath, text);
  for (int times = 0; times < 3; ++times) {
    CKtFiler filer;
    ASSERT_EQ(filer.newFiler(kPath), 1);
    filer.beginClass(L"A");
    ASSERT_EQ(filer.closeFiler(), 1);
    ASSERT_EQ(savedText(kPath), text);
  }
}

TEST_F(GoldenDocument, IsExtendedBehindWhatWasThere) {
  writeText(kPath, documentText("<A version=\"1\" index=\"1\"/><!--mine-->"));
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.writeItem(L"N", 1);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/><!--mine-->"
                                           "<A version=\"1\" index=\"2\"><N long=\"1\"/></A>"));
}

}  // namespace
}  // namespace quorvan::test
