// Errors that pass through the export of a hidden bar: the scratch file is gone afterwards, the
// drawing is as it was, and the next export works.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <tests/export/host_filing.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

namespace fs = std::filesystem;

class HiddenBarErrors : public HostFiling {
 protected:
  static void pin(bool hidden, long reference = 1) {
    exportPin(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, L"S", L"A", reference, 12, hidden);
  }

  static std::string pinItems(const std::string& adherence, bool hidden = true) {
    return pointItem("Point1", {1, 2, 3}) + pointItem("Point2", {4, 5, 6}) +
           doubleItem("HookLength1", 7) + doubleItem("HookLength2", 8) +
           doubleItem("HookAngle1", 9) + doubleItem("HookAngle2", 10) +
           textItem("SteelGrade", L"S") + adherence + doubleItem("Diameter", 12) +
           longItem("Reference", 1) + flagItem("Hidden", hidden);
  }

  static void expectRaised(HRESULT expected) {
    try {
      pin(true);
      ADD_FAILURE() << "nothing raised";
    } catch (const _com_error& error) {
      EXPECT_EQ(error.Error(), expected);
    }
    EXPECT_FALSE(fs::exists(kScratch));
  }
};

// A bar of an older file holds its bond class as a number, which is no text to compare with.
TEST_F(HiddenBarErrors, ABarOfAnOlderFileCannotBeComparedWith) {
  const std::string older = classElement("CKtZantoPin", 1, pinItems(longItem("Adherence", 1)));
  writeBytes(kDrawing, transferFile(older));
  start();
  expectRaised(E_POINTER);
  exportLine(1, 2, 3, 4, 5, 6, 7);
  pin(false);
  EXPECT_EQ(
      saveAlone(),
      transferFile(older +
                   classElement("CKtZantoLine", 1,
                                pointItem("Point1", {1, 2, 3}) + pointItem("Point2", {4, 5, 6}) +
                                    longItem("Color", 7)) +
                   classElement("CKtZantoPin", 2, pinItems(textItem("Adherence", L"A"), false))));
}

// Items before the one that cannot be compared tell the bars apart already.
TEST_F(HiddenBarErrors, ABarOfAnOlderFileThatDiffersBeforeIsPassedOver) {
  writeBytes(kDrawing,
             transferFile(classElement("CKtZantoPin", 1,
                                       pointItem("Point1", {9, 9, 9}) + longItem("Adherence", 1))));
  start();
  pin(true);
  pin(true);
  saveAlone();
  EXPECT_EQ(indexes(), "CKtZantoPin 1, CKtZantoPin 2");
}

TEST_F(HiddenBarErrors, AnEqualBarBeforeTheOneThatCannotBeComparedIsFound) {
  writeBytes(kDrawing,
             transferFile(classElement("CKtZantoPin", 1, pinItems(textItem("Adherence", L"A"))) +
                          classElement("CKtZantoPin", 2, pinItems(longItem("Adherence", 1)))));
  start();
  pin(true);
  saveAlone();
  EXPECT_EQ(indexes(), "CKtZantoPin 1, CKtZantoPin 2");
}

TEST_F(HiddenBarErrors, OtherHiddenBarsAreExportedAfterAnError) {
  writeBytes(kDrawing,
             transferFile(classElement("CKtZantoPin", 1, pinItems(longItem("Adherence", 1)))));
  start();
  for (int i = 0; i < 3; ++i) {
    expectRaised(E_POINTER);
    exportStirrup(1, 2, 3, 4, 5, 6, 7, 8, L"S", L"A", 1, 12, true);
  }
  saveAlone();
  EXPECT_EQ(indexes(), "CKtZantoPin 1, CKtZantoStirrup 1");
}

// --- a folder in which no scratch file can be written --------------------------------------------

// A folder of that name keeps even the superuser from writing the file.
class UnwritableScratch : public HiddenBarErrors {
 protected:
  UnwritableScratch() {
    start();
    exportLine(1, 2, 3, 4, 5, 6, 7);
    pin(false);
    fs::create_directories(fs::path(kScratch) / "occupied");
  }

  const MessageLog m_log;
};

TEST_F(UnwritableScratch, RaisesAndLosesNothing) {
  EXPECT_THROW(pin(true), _com_error);
  EXPECT_TRUE(fs::is_directory(kScratch));
  saveAlone();
  const auto elements = savedElements(kDrawing);
  ASSERT_EQ(elements.size(), 2U);
  EXPECT_EQ(elements[0].name, "CKtZantoLine");
  EXPECT_EQ(elements[0].children.size(), 3U);
  EXPECT_EQ(elements[1].name, "CKtZantoPin");
  EXPECT_EQ(elements[1].children.size(), 11U);
}

TEST_F(UnwritableScratch, DoesNotKeepOtherElementsFromBeingExported) {
  EXPECT_THROW(pin(true), _com_error);
  exportCircle(1, 2, 3, 4, 5);
  pin(false);
  end();
  std::string names;
  for (const SavedElement& element : savedElements(kDrawing)) {
    names += element.name + ' ';
  }
  EXPECT_EQ(names, "CKtZantoLine CKtZantoPin CKtZantoCircle CKtZantoPin CKtDrawingControl ");
}

TEST_F(UnwritableScratch, OnceWritableTheNextHiddenBarIsWrittenOnce) {
  EXPECT_THROW(pin(true), _com_error);
  EXPECT_THROW(pin(true), _com_error);
  fs::remove_all(kScratch);
  pin(true);
  pin(true);
  EXPECT_FALSE(fs::exists(kScratch));
  saveAlone();
  const auto pins = savedElements(kDrawing, "CKtZantoPin");
  ASSERT_EQ(pins.size(), 2U);
  EXPECT_EQ(pins[0].child("Hidden").attribute("string"), "False");
  EXPECT_EQ(pins[1].child("Hidden").attribute("string"), "True");
}

}  // namespace
}  // namespace quorvan::test
