#include <gtest/gtest.h>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

TEST(DrawingControl, FilesZeroAndEmptyTextsByDefault) {
  EXPECT_EQ(savedAlone(CKtDrawingControl()),
            transferFile("<CKtDrawingControl version=\"1\" index=\"1\">"
                         "<ZantoVersion string=\"\"/><ServicePack long=\"0\"/>"
                         "<CheckSum long=\"0\"/><DrawingName string=\"\"/></CKtDrawingControl>"));
}

TEST(DrawingControl, StoresWhatItIsGiven) {
  CKtDrawingControl record;
  record.SetCheckSum(-5);
  record.SetDrawingName(L"Plan d'\u00e9tage");
  record.SetZantoVersion(L"10.2");
  record.SetServicePack(3);
  EXPECT_EQ(record.GetCheckSum(), -5);
  EXPECT_EQ(record.GetDrawingName(), L"Plan d'\u00e9tage");
  EXPECT_EQ(record.GetZantoVersion(), L"10.2");
  EXPECT_EQ(record.GetServicePack(), 3);
}

TEST(DrawingControl, ReadingWithAMissingItemFillsTheOthers) {
  CKtDrawingControl record;
  record.SetServicePack(9);
  EXPECT_EQ(readItems(textItem("ZantoVersion", L"V") + longItem("CheckSum", 7) +
                          textItem("DrawingName", L"Plan"),
                      record),
            0);
  EXPECT_EQ(record.GetZantoVersion(), L"V");
  EXPECT_EQ(record.GetServicePack(), 9);
  EXPECT_EQ(record.GetCheckSum(), 7);
  EXPECT_EQ(record.GetDrawingName(), L"Plan");
}

}  // namespace
}  // namespace quorvan::test
