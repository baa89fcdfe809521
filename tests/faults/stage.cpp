#include <tests/faults/stage.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include <tests/support/saved_elements.h>
#include <tests/support/transfer_text.h>
#include <quorvan/export/export.h>
#include <quorvan/platform/com_error.h>
#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::test {

namespace {

int shown = 0;

int countMessage(const wchar_t* /*text*/, unsigned int /*type*/, unsigned int /*helpContext*/) {
  ++shown;
  return 1;
}

std::string formerElements() {
  const std::string list =
      listItem("List", 2, pointItem("point", {1, 2, 3}) + pointItem("point", {4, 5, 6}));
  const std::string scope = listItem("Scope", 1, longItem("Inner", 5));
  return classElement("Former", 1,
                      longItem("Long", 1) + doubleItem("Double", 2.5) + textItem("Text", L"one") +
                          pointItem("Point", {1, 2, 3}) + vectorItem("Vector", {1, 2, 3}) + list +
                          scope) +
         classElement("Former", 2, longItem("Long", 2));
}

void expectFormerElements(const std::vector<SavedElement>& elements) {
  std::size_t whole = 0;
  for (const SavedElement& element : elements) {
    if (whole < 2 && element.name == "Former" &&
        element.attribute("index") == std::to_string(whole + 1)) {
      ++whole;
      EXPECT_EQ(element.child("Long").attribute("long"), std::to_string(whole));
      EXPECT_EQ(element.children.size(), whole == 1 ? 7U : 1U);
    }
  }
  EXPECT_EQ(whole, 2U);
}

// A test saves thousands of times, and none of it has to survive a power failure.
const embedded::FileCalls& callsThatDoNotWait() {
  static const embedded::FileCalls calls = [] {
    embedded::FileCalls table = embedded::systemFileCalls();
#ifdef _WIN32
    table.flushFileBuffers = [](HANDLE) -> BOOL { return TRUE; };
#else
    table.fsync = [](int) { return 0; };
#endif
    return table;
  }();
  return calls;
}

}  // namespace

bool wantsLongTests() {
  const char* const wanted = std::getenv("QUORVAN_LONG_TESTS");
  return wanted != nullptr && std::string_view(wanted) != "0";
}

Stage::Stage() : m_formerHook(setMessageBoxHook(&countMessage)) {
  shown = 0;
  embedded::setFileCalls(callsThatDoNotWait());
  writeBytes(kStageFile, formerFile());
  filer.newFiler(kStagePath);
}

Stage::~Stage() {
  // Not saved once more: every test has looked at its file by now.
  filer = CKtFiler();
  pattern.reset();
  embedded::setFileCalls(embedded::systemFileCalls());
  setMessageBoxHook(m_formerHook);
}

int Stage::messages() {
  return shown;
}

std::string Stage::formerFile() {
  return transferFile(formerElements());
}

void Stage::expectUsable() {
  // The class element of a scope that a fault left open may be gone; that is no new fault.
  try {
    filer.endVector();
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), E_POINTER);
  }
  if (filer.beginClass(L"After", 1) == 0) {
    ASSERT_EQ(filer.newFiler(kStagePath), 1);
    ASSERT_EQ(filer.beginClass(L"After", 1), 1);
  }
  EXPECT_EQ(filer.writeItem(L"Long", 7), 1);
  EXPECT_EQ(filer.writeItem(L"Point", CKtPnt3D(7, 8, 9)), 1);
  EXPECT_EQ(filer.endClass(), 1);
  ASSERT_EQ(filer.closeFiler(), 1);
  const std::vector<SavedElement> elements = savedElements(kStageFile);
  expectFormerElements(elements);
  ASSERT_FALSE(elements.empty());
  EXPECT_EQ(elements.back().name, "After");
  EXPECT_EQ(elements.back().child("Long").attribute("long"), "7");
  EXPECT_EQ(elements.back().child("Point").attribute("Z"), "9.0000000");
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    EXPECT_EQ(entry.path().filename().string().find("quorvan-new"), std::string::npos);
  }
}

void exportHiddenBar() {
  exportBarStraight(0, 0, 0, 100, 0, 0, 10, 10, true, false, 90, 90, L"B500", L"Ha", 1, 12, true);
}

}  // namespace quorvan::test
