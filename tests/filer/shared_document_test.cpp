// Copies of a filer: they share the document and the current elements; path, counts and direction
// are each one's own.

#include <tests/filer/filer_test.h>

#include <filesystem>
#include <memory>

namespace quorvan::test {
namespace {

class SharedDocument : public FilerTest {};

TEST_F(SharedDocument, DestroyingACopySavesTheDocumentAsItIsByThen) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.endClass();
  {
    const CKtFiler copy(filer);
    filer.beginClass(L"B", 1);
    filer.endClass();
  }
  EXPECT_EQ(savedText(kPath),
            documentText("<A version=\"1\" index=\"1\"/><B version=\"1\" index=\"1\"/>"));
}

TEST_F(SharedDocument, WhatACopyWritesIsInTheDocumentOfBoth) {
  CKtFiler filer;
  filer.newFiler(kPath);
  CKtFiler copy(filer);
  copy.beginClass(L"A", 1);
  copy.writeItem(L"N", 3);
  copy.endClass();
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"><N long=\"3\"/></A>"));
}

TEST_F(SharedDocument, ACopyStaysOpenWhenTheOtherIsClosed) {
  CKtFiler filer;
  filer.newFiler(kPath);
  CKtFiler copy(filer);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(filer.beginClass(L"A", 1), 0);
  EXPECT_EQ(copy.beginClass(L"A", 1), 1);
  EXPECT_EQ(copy.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(SharedDocument, EachCopyGoesOnWithCountsOfItsOwn) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.endClass();
  CKtFiler copy(filer);
  copy.beginClass(L"A", 1);
  EXPECT_EQ(copy.endClass(), 2);
  filer.beginClass(L"A", 1);
  EXPECT_EQ(filer.endClass(), 2);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"
                                           "<A version=\"1\" index=\"2\"/>"
                                           "<A version=\"1\" index=\"2\"/>"));
}

TEST_F(SharedDocument, ACopyThatHasNotCountedYetCountsWhatTheOtherWrote) {
  CKtFiler filer;
  filer.newFiler(kPath);
  CKtFiler copy(filer);
  filer.beginClass(L"A", 1);
  filer.endClass();
  copy.beginClass(L"A", 1);
  EXPECT_EQ(copy.endClass(), 2);
}

TEST_F(SharedDocument, AScopeOpenInBothIsFiledOnce) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  CKtFiler copy(filer);
  copy.writeItem(L"N", 1);
  EXPECT_EQ(copy.endClass(), 1);
  copy.beginClass(L"B", 1);
  copy.endClass();
  filer.writeItem(L"M", 2);
  EXPECT_EQ(filer.endClass(), 1);
  filer.closeFiler();
  // Filing it again moved it behind the one that was filed meanwhile.
  EXPECT_EQ(savedText(kPath),
            documentText("<B version=\"1\" index=\"1\"/>"
                         "<A version=\"1\" index=\"1\"><N long=\"1\"/><M long=\"2\"/></A>"));
}

TEST_F(SharedDocument, ReadingOnInACopyLeavesTheOtherWhereItWas) {
  writeText(kPath, documentText("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>"
                                "<A><N long=\"3\"/></A>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A");
  CKtFiler copy(filer);
  EXPECT_EQ(itemNumber(copy), 1);
  copy.beginClass(L"A");
  copy.beginClass(L"A");
  EXPECT_EQ(itemNumber(copy), 3);
  EXPECT_EQ(copy.beginClass(L"A"), 0);
  EXPECT_EQ(itemNumber(filer), 1);
  EXPECT_EQ(filer.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(filer), 2);
}

TEST_F(SharedDocument, ItemsWrittenIntoAnElementThatIsReadAreSeenByBoth) {
  writeText(kPath, documentText("<A/>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A");
  CKtFiler copy(filer);
  EXPECT_EQ(copy.writeItem(L"N", 9), 1);
  EXPECT_EQ(itemNumber(filer), 9);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A><N long=\"9\"/></A>"));
}

TEST_F(SharedDocument, AVectorOpenInBothIsOneVector) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.beginVector(L"V", 1);
  CKtFiler copy(filer);
  copy.writeItem(L"N", 4);
  EXPECT_EQ(copy.endVector(), 1);
  EXPECT_EQ(itemNumber(filer), 4);
  EXPECT_EQ(filer.endVector(), 1);
  filer.closeFiler();
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"><V size=\"1\">"
                                           "<N long=\"4\"/></V></A>"));
}

TEST_F(SharedDocument, AssignmentSharesAsCopyingDoesAndDropsWhatWasOpen) {
  CKtFiler filer;
  filer.newFiler(kPath);
  CKtFiler assigned;
  assigned.newFiler(kOtherPath);
  assigned.beginClass(L"X", 1);
  assigned = filer;
  assigned.beginClass(L"A", 1);
  EXPECT_EQ(assigned.closeFiler(), 1);
  EXPECT_FALSE(fileExists(kOtherPath));
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(SharedDocument, AssignmentTakesOverDirectionCountsAndTheElementRead) {
  writeText(kPath, documentText("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A");
  CKtFiler assigned;
  assigned = filer;
  EXPECT_EQ(assigned.getLastUsedIndex(), 2);
  EXPECT_EQ(assigned.endClass(), 0);
  EXPECT_EQ(assigned.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(assigned), 2);
  EXPECT_EQ(itemNumber(filer), 1);
}

TEST_F(SharedDocument, AssignmentTakesOverThatTheElementsAreCounted) {
  writeText(kPath, documentText("<A/><A/>"));
  CKtFiler filer;
  filer.newFiler(kPath);
  CKtFiler assigned;
  assigned = filer;
  filer.beginClass(L"A", 1);
  filer.endClass();
  assigned.beginClass(L"A", 1);
  EXPECT_EQ(assigned.endClass(), 3) << "counted again";
}

TEST_F(SharedDocument, AssignmentTakesOverTheOpenVector) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  filer.beginVector(L"V", 1);
  filer.writeItem(L"N", 4);
  CKtFiler assigned;
  assigned = filer;
  EXPECT_EQ(itemNumber(assigned), 4);
  EXPECT_EQ(assigned.endVector(), 1);
  EXPECT_EQ(assigned.endClass(), 1);
}

TEST_F(SharedDocument, AssigningAFilerToItselfChangesNothing) {
  CKtFiler filer;
  filer.newFiler(kPath);
  filer.beginClass(L"A", 1);
  const CKtFiler& same = filer;
  filer = same;
  EXPECT_EQ(filer.endClass(), 1);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\"/>"));
}

TEST_F(SharedDocument, ACopyKeepsTheElementsWhoseFilerIsGone) {
  writeText(kPath, documentText("<A><N long=\"1\"/></A><A><N long=\"2\"/></A>"));
  auto filer = std::make_unique<CKtFiler>();
  filer->newFiler(kPath);
  filer->beginClass(L"A");
  CKtFiler copy(*filer);
  filer.reset();
  EXPECT_EQ(itemNumber(copy), 1);
  EXPECT_EQ(copy.beginClass(L"A"), 1);
  EXPECT_EQ(itemNumber(copy), 2);
}

TEST_F(SharedDocument, ACopyOfAPatternFilerIsAPatternFiler) {
  CKtPatternFiler pattern;
  pattern.newFiler(kPatternPath);
  pattern.beginClass(L"A", 1);
  pattern.endClass();
  CKtPatternFiler copy(pattern);
  CKtPatternFiler assigned;
  assigned = pattern;
  CString name;
  EXPECT_EQ(copy.getClassName(name), 1);
  EXPECT_EQ(name, L"A");
  name.Empty();
  EXPECT_EQ(assigned.getClassName(name), 1);
  EXPECT_EQ(name, L"A");
}

}  // namespace
}  // namespace quorvan::test
