#include <gtest/gtest.h>

#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

CKtZantoMesh sheet() {
  CKtZantoMesh mesh;
  mesh.SetType(L"ST 25 C");
  mesh.SetReference(L"12a");
  mesh.SetAngle(90);
  mesh.SetExtX(6000);
  mesh.SetExtY(2400);
  mesh.SetPoints({{0, 0, 0}, {6000, 0, 0}, {6000, 2400, 0}});
  return mesh;
}

void expectMarker(const CKtPnt3D& point) {
  EXPECT_EQ(point.X(), 666.0);
  EXPECT_EQ(point.Y(), 0.0);
  EXPECT_EQ(point.Z(), 0.0);
}

TEST(Mesh, GivesTheMarkerPointOutOfRange) {
  const CKtZantoMesh mesh = sheet();
  EXPECT_EQ(mesh.GetNbPoints(), 3);
  expectMarker(mesh.GetPointAt(-1));
  expectMarker(mesh.GetPointAt(3));
  expectMarker(mesh.GetPointAt(2147483647));
  expectMarker(mesh.GetPointAt(-2147483647 - 1));
  expectMarker(CKtZantoMesh().GetPointAt(0));
  EXPECT_EQ(mesh.GetPointAt(2) == CKtPnt3D(6000, 2400, 0), 1);
}

TEST(Mesh, SetPointAtOutOfRangeDoesNothing) {
  CKtZantoMesh mesh = sheet();
  mesh.SetPointAt(-1, CKtPnt3D(9, 9, 9));
  mesh.SetPointAt(3, CKtPnt3D(9, 9, 9));
  EXPECT_EQ(describe(mesh), describe(sheet()));
  mesh.SetPointAt(0, CKtPnt3D(1, 1, 1));
  EXPECT_EQ(mesh.GetPointAt(0) == CKtPnt3D(1, 1, 1), 1);
  EXPECT_EQ(mesh.GetNbPoints(), 3);
}

TEST(Mesh, FilesTypeBeforeReference) {
  EXPECT_EQ(savedAlone(sheet()),
            transferFile("<CKtZantoMesh version=\"1\" index=\"1\"><Type string=\"ST 25 C\"/>"
                         "<Reference string=\"12a\"/><Angle double=\"90.0000000\"/>"
                         "<ExtensionX double=\"6000.0000000\"/>"
                         "<ExtensionY double=\"2400.0000000\"/><Vector size=\"3\">"
                         "<Point1 X=\"0.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Point2 X=\"6000.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Point3 X=\"6000.0000000\" Y=\"2400.0000000\" Z=\"0.0000000\"/>"
                         "</Vector></CKtZantoMesh>"));
}

TEST(Mesh, WithoutPointsFilesAnEmptyList) {
  CKtZantoMesh mesh;
  EXPECT_NE(savedAlone(mesh).find("<Vector size=\"0\"/></CKtZantoMesh>"), std::string::npos);
}

TEST(Mesh, AMissingPointIsLeftOut) {
  CKtZantoMesh mesh = sheet();
  EXPECT_EQ(
      readItems(textItem("Type", L"T") + textItem("Reference", L"R") + doubleItem("Angle", 1) +
                    doubleItem("ExtensionX", 2) + doubleItem("ExtensionY", 3) +
                    listItem("Vector", 3,
                             pointItem("Point3", {3, 3, 3}) + pointItem("Point1", {1, 1, 1})),
                mesh),
      0);
  EXPECT_EQ(mesh.GetNbPoints(), 2);
  EXPECT_EQ(pointEntries("P", mesh.GetPoints()), pointEntries("P", {{1, 1, 1}, {3, 3, 3}}));
}

TEST(Mesh, WithoutItsListKeepsTheResultOfTheItemsBeforeIt) {
  CKtZantoMesh mesh = sheet();
  EXPECT_EQ(readItems(textItem("Type", L"T"), mesh), 0);
  EXPECT_EQ(mesh.GetNbPoints(), 0);
  EXPECT_EQ(mesh.GetType(), L"T");
  EXPECT_EQ(mesh.GetReference(), L"12a");
}

TEST(Mesh, ANegativeSizeAnnouncesNoPoints) {
  CKtZantoMesh mesh = sheet();
  auto items = itemTexts<CKtZantoMesh>(sampleValues<CKtZantoMesh>(0));
  items.back() = listItem("Vector", -1, pointItem("Point1", {1, 1, 1}));
  EXPECT_EQ(readItems(joined(items), mesh), 1);
  EXPECT_EQ(mesh.GetNbPoints(), 0);
}

}  // namespace
}  // namespace quorvan::test
