// Starting, suspending and ending a filing, in the intended order and in others.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <tests/export/host_filing.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/platform/com_error.h>

namespace quorvan::test {
namespace {

class Lifecycle : public HostFiling {
 protected:
  static void line() { exportLine(1, 2, 3, 4, 5, 6, 7); }

  // One frame of a series of its own that needs no geometry.
  static void push(long reference = 1) {
    pushRepartitionFrameRect(1, 2, 3, 4, 5, 6, L"CKtZantoStraightBar", 0, 0, L"S", L"A", reference,
                             8, false, 0, 1, 0);
  }

  static std::string lineElement(int index) {
    return classElement(
        "CKtZantoLine", index,
        pointItem("Point1", {1, 2, 3}) + pointItem("Point2", {4, 5, 6}) + longItem("Color", 7));
  }
};

TEST_F(Lifecycle, AnEmptyFilingHoldsTheControlRecordAlone) {
  start();
  endFiling(L"V", 2, L"Plan", 7);
  EXPECT_EQ(savedBytes(kDrawing),
            transferFile("<CKtDrawingControl version=\"1\" index=\"1\"><ZantoVersion string=\"V\"/>"
                         "<ServicePack long=\"2\"/><CheckSum long=\"7\"/>"
                         "<DrawingName string=\"Plan\"/></CKtDrawingControl>"));
}

TEST_F(Lifecycle, TheControlRecordIsTheLastElement) {
  start();
  line();
  push();
  line();
  end();
  EXPECT_EQ(indexes(),
            "CKtZantoLine 1, CKtZantoLine 2, CKtZantoRepartition 1, CKtDrawingControl 1");
}

TEST_F(Lifecycle, AControlRecordIsWrittenAtOnceWhenAskedFor) {
  start();
  exportDrawingControl(L"Version", -2, 2147483647, L"Name \u00e9");
  line();
  EXPECT_EQ(saveAlone(),
            transferFile("<CKtDrawingControl version=\"1\" index=\"1\">"
                         "<ZantoVersion string=\"Version\"/><ServicePack long=\"-2\"/>"
                         "<CheckSum long=\"2147483647\"/><DrawingName string=\"Name \xe9\"/>"
                         "</CKtDrawingControl>" +
                         lineElement(1)));
}

TEST_F(Lifecycle, NothingIsOnDiskBeforeTheEnd) {
  start();
  line();
  EXPECT_FALSE(std::filesystem::exists(kDrawing));
  end();
  EXPECT_TRUE(std::filesystem::exists(kDrawing));
}

// --- stopping -----------------------------------------------------------------------------------

TEST_F(Lifecycle, StoppedAtTheEndTheFileIsClosedWithoutRepartitionsAndControlRecord) {
  start();
  line();
  push();
  stopFiling();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(lineElement(1)));
}

TEST_F(Lifecycle, FramesPushedBeforeAFilingThatEndsStoppedAreGone) {
  start();
  push();
  stopFiling();
  end();
  std::filesystem::remove(kDrawing);
  start();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(controlRecord()));
}

TEST_F(Lifecycle, WhatIsExportedWhileStoppedIsDropped) {
  start();
  line();
  stopFiling();
  line();
  exportDrawingControl(L"", 0, 0, L"");
  push();
  restartFiling();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(lineElement(1) + controlRecord()));
}

TEST_F(Lifecycle, FramesPushedBeforeAStopAreWrittenAfterARestart) {
  start();
  push();
  stopFiling();
  push(2);
  restartFiling();
  end();
  EXPECT_EQ(indexes(), "CKtZantoRepartition 1, CKtDrawingControl 1");
}

TEST_F(Lifecycle, OneRestartUndoesAnyNumberOfStops) {
  start();
  stopFiling();
  stopFiling();
  restartFiling();
  line();
  restartFiling();
  line();
  EXPECT_EQ(saveAlone(), transferFile(lineElement(1) + lineElement(2)));
}

TEST_F(Lifecycle, StartingSwitchesWritingOn) {
  stopFiling();
  start();
  line();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(lineElement(1) + controlRecord()));
}

TEST_F(Lifecycle, EndingDoesNotSwitchWritingOn) {
  start();
  stopFiling();
  end();
  push();
  restartFiling();
  std::filesystem::remove(kDrawing);
  start();
  end();
  EXPECT_EQ(indexes(), "CKtDrawingControl 1");
}

// --- files that are there already ---------------------------------------------------------------

TEST_F(Lifecycle, AnExistingDrawingIsContinued) {
  start();
  line();
  end();
  start();
  line();
  line();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(lineElement(1) + controlRecord(1) + lineElement(2) +
                                               lineElement(3) + controlRecord(2)));
}

TEST_F(Lifecycle, AFileThatDoesNotParseIsReplaced) {
  const MessageLog log;
  writeBytes(kDrawing, "<Document><CKtZantoLine></Document>");
  start();
  EXPECT_EQ(fileBytes(kDrawing), "<Document><CKtZantoLine></Document>");
  line();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(lineElement(1) + controlRecord()));
  EXPECT_TRUE(MessageLog::messages().empty());
}

TEST_F(Lifecycle, FilingsOneAfterAnotherAreApart) {
  start();
  line();
  line();
  end();
  const std::string first = fileBytes(kDrawing);
  startFiling(L"second.xml");
  line();
  end();
  EXPECT_EQ(savedBytes("second.xml"), transferFile(lineElement(1) + controlRecord()));
  EXPECT_EQ(fileBytes(kDrawing), first);
  std::filesystem::remove("second.xml");
}

// --- other orders -------------------------------------------------------------------------------

TEST_F(Lifecycle, ASecondStartDropsTheFirstDrawingAndKeepsItsCounts) {
  start();
  line();
  line();
  startFiling(L"second.xml");
  line();
  end();
  EXPECT_FALSE(std::filesystem::exists(kDrawing));
  EXPECT_EQ(savedBytes("second.xml"), transferFile(lineElement(3) + controlRecord()));
  std::filesystem::remove("second.xml");
}

// The counts of the first drawing stand for those of the second, which are not taken.
TEST_F(Lifecycle, ASecondStartOnAnExistingDrawingKeepsTheCountsOfTheFirst) {
  writeBytes("second.xml", transferFile(classElement("CKtZantoLine", 1, "") +
                                        classElement("CKtZantoLine", 2, "") +
                                        classElement("CKtZantoCircle", 1, "")));
  start();
  line();
  startFiling(L"second.xml");
  line();
  exportCircle(1, 2, 3, 4, 5);
  end();
  EXPECT_EQ(savedIndexes("second.xml"),
            "CKtZantoLine 1, CKtZantoLine 2, CKtZantoCircle 1, CKtZantoLine 2, CKtZantoCircle 1, "
            "CKtDrawingControl 1");
  std::filesystem::remove("second.xml");
}

TEST_F(Lifecycle, ASecondStartKeepsThePushedFrames) {
  start();
  push();
  start();
  end();
  EXPECT_EQ(indexes(), "CKtZantoRepartition 1, CKtDrawingControl 1");
}

TEST_F(Lifecycle, WithoutAStartNothingIsWritten) {
  line();
  exportDrawingControl(L"", 0, 0, L"");
  end();
  EXPECT_FALSE(std::filesystem::exists(kDrawing));
  start();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(controlRecord()));
}

TEST_F(Lifecycle, EndingTwiceWritesOnce) {
  start();
  line();
  end();
  std::filesystem::remove(kDrawing);
  end();
  EXPECT_FALSE(std::filesystem::exists(kDrawing));
}

TEST_F(Lifecycle, ExportsAfterTheEndAreLost) {
  start();
  line();
  end();
  const std::string saved = fileBytes(kDrawing);
  line();
  exportPointBar(1, 2, 3, L"S", L"A", 1, 8, true);
  EXPECT_EQ(fileBytes(kDrawing), saved);
  startFiling(L"second.xml");
  end();
  EXPECT_EQ(savedBytes("second.xml"), transferFile(controlRecord()));
  std::filesystem::remove("second.xml");
}

// A hidden bar is looked for, and there is no document to look in.
TEST_F(Lifecycle, AHiddenBarWithoutADrawingRaisesAndLeavesNoTrace) {
  try {
    exportPin(1, 2, 3, 4, 5, 6, 0, 0, 0, 0, L"S", L"A", 1, 8, true);
    ADD_FAILURE() << "nothing raised";
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), E_POINTER);
  }
  EXPECT_FALSE(std::filesystem::exists(kScratch));
  start();
  line();
  end();
  EXPECT_EQ(savedBytes(kDrawing), transferFile(lineElement(1) + controlRecord()));
}

TEST_F(Lifecycle, EndingWithFramesAndNoDrawingRaisesAndKeepsThem) {
  push();
  EXPECT_THROW(end(), _com_error);
  EXPECT_FALSE(std::filesystem::exists(kScratch));
  start();
  end();
  EXPECT_EQ(indexes(), "CKtZantoRepartition 1, CKtDrawingControl 1");
}

// --- a file that cannot be saved ----------------------------------------------------------------

TEST_F(Lifecycle, ADrawingThatCannotBeSavedIsHeldForAnotherEnd) {
  start();
  line();
  push();
  std::filesystem::create_directory(kDrawing);
  EXPECT_THROW(end(), _com_error);
  std::filesystem::remove(kDrawing);
  end();
  const auto elements = savedElements(kDrawing);
  ASSERT_EQ(elements.size(), 4U);
  EXPECT_EQ(elements[0].name, "CKtZantoLine");
  EXPECT_EQ(elements[1].name, "CKtZantoRepartition");
  EXPECT_EQ(elements[2].name, "CKtDrawingControl");
  EXPECT_EQ(elements[3].name, "CKtDrawingControl");  // each end writes one
}

TEST_F(Lifecycle, APathInAFolderThatIsNotThereFailsAtTheEnd) {
  startFiling(L"no-such-folder/drawing.xml");
  line();
  EXPECT_THROW(end(), _com_error);
  std::filesystem::create_directory("no-such-folder");
  stopFiling();
  end();
  EXPECT_EQ(savedIndexes("no-such-folder/drawing.xml"), "CKtZantoLine 1, CKtDrawingControl 1");
  std::filesystem::remove_all("no-such-folder");
}

}  // namespace
}  // namespace quorvan::test
