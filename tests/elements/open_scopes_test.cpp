// Elements filed while the caller has scopes of its own open.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

TEST(OpenScopes, AClassScopeIsClosedBeforeAnElementIsWritten) {
  std::filesystem::remove(kFile);
  CKtFiler filer;
  filer.newFiler(kFileName);
  filer.beginClass(L"Host", 1);
  filer.writeItem(L"Own", 1.0);
  CKtDrawingControl record;
  EXPECT_EQ(record.fileOut(&filer), 1);
  filer.closeFiler();
  EXPECT_EQ(savedBytes(kFile), transferFile(classElement("Host", 1, doubleItem("Own", 1)) +
                                            classElement("CKtDrawingControl", 1,
                                                         joined(describe(CKtDrawingControl())))));
}

// Items go into an open vector scope; an element with a list of its own closes it.
TEST(OpenScopes, AnOpenVectorTakesTheItemsUntilTheNextList) {
  std::filesystem::remove(kFile);
  CKtFiler filer;
  filer.newFiler(kFileName);
  filer.beginClass(L"Host", 1);
  filer.beginVector(L"Open", 3L);
  CKtZantoLine line;
  CKtZantoMesh mesh;
  EXPECT_EQ(line.fileOut(&filer), 1);
  EXPECT_EQ(mesh.fileOut(&filer), 1);
  filer.closeFiler();
  auto meshItems = describe(mesh);
  const std::string list = meshItems.back();
  meshItems.pop_back();
  EXPECT_EQ(
      savedBytes(kFile),
      transferFile(
          classElement("Host", 1, "") + classElement("CKtZantoLine", 1, "") +
          classElement("CKtZantoMesh", 1,
                       listItem("Open", 3, joined(describe(line)) + joined(meshItems)) + list)));
}

TEST(OpenScopes, AnOpenVectorIsReadInTheElementsPlace) {
  const auto values = sampleValues<CKtZantoPolygonBar>(0);
  const auto others = sampleValues<CKtZantoPolygonBar>(1);
  writeBytes(
      kFile,
      transferFile(
          classElement("Host", 1,
                       listItem("Inner", 1, joined(itemTexts<CKtZantoPolygonBar>(values)))) +
          classElement("CKtZantoPolygonBar", 1, joined(itemTexts<CKtZantoPolygonBar>(others)))));
  CKtFiler filer;
  filer.newFiler(kFileName);
  long size = 0;
  ASSERT_EQ(filer.beginClass(L"Host"), 1);
  ASSERT_EQ(filer.beginVector(L"Inner", &size), 1);
  CKtZantoPolygonBar bar;
  EXPECT_EQ(bar.fileIn(&filer), 1);
  EXPECT_EQ(describe(bar), itemTexts<CKtZantoPolygonBar>(values));
}

TEST(OpenScopes, ReadingLeavesTheElementCurrent) {
  writeBytes(kFile, transferFile(classElement("CKtZantoCircle", 5,
                                              pointItem("Center", {1, 2, 3}) +
                                                  doubleItem("Radius", 4) + longItem("Color", 5)) +
                                 classElement("CKtZantoCircle", 6, "")));
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoCircle circle;
  EXPECT_EQ(circle.fileIn(&filer), 1);
  double radius = 0;
  EXPECT_EQ(filer.readItem(L"Radius", &radius), 1);
  EXPECT_EQ(radius, 4.0);
  EXPECT_EQ(filer.getLastUsedIndex(), 2);
}

TEST(OpenScopes, AListThatWasReadIsClosedAgain) {
  CKtZantoMesh mesh;
  mesh.SetPoints({{1, 1, 1}});
  mesh.SetType(L"T");
  writeAlone(mesh);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoMesh read;
  EXPECT_EQ(read.fileIn(&filer), 1);
  EXPECT_EQ(filer.endVector(), 0);
  CString type;
  EXPECT_EQ(filer.readItem(L"Type", &type), 1);
  EXPECT_EQ(type, L"T");
}

}  // namespace
}  // namespace quorvan::test
