// The twins of the flat functions: they do what the functions do, tell what happened, and let
// nothing out.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <tests/export/host_filing.h>
#include <tests/support/saved_file.h>
#include <quorvan/errors/message_hook.h>
#include <quorvan/export/checked.h>

namespace quorvan::test {
namespace {

// A value for a parameter of each type.
// NOLINTBEGIN(google-explicit-constructor): it stands for any of them.
struct Any {
  operator double() const { return 1.5; }
  operator long() const { return 3; }
  operator unsigned long() const { return 4; }
  operator int() const { return 2; }
  operator bool() const { return true; }
  operator unsigned char() const { return 255; }
  operator const wchar_t*() const { return L"CKtZantoStirrup"; }
  operator double*() const { return kNumbers; }
  operator const double*() const { return kNumbers; }
  operator const wchar_t**() const { return &kName; }

  static inline double kNumbers[4] = {1, 2, 3, 4};
  static inline const wchar_t* kName = nullptr;
};
// NOLINTEND(google-explicit-constructor)

// Gives each parameter a value of its type.
template <class Result, class... Parameters>
Result call(Result (*function)(Parameters...)) {
  return function(static_cast<Parameters>(Any())...);
}

class CheckedFunctions : public HostFiling {
 protected:
  static void startChecked() { ASSERT_EQ(startFilingChecked(kDrawingName), QUORVAN_DONE); }
  static int endChecked() { return endFilingChecked(L"1.0", 0, L"Drawing", 0); }

  // The bytes that a filing with this one call leaves.
  template <class Call>
  static std::string filed(const Call& call) {
    start();
    call();
    call();
    end();
    const std::string bytes = savedBytes(kDrawing);
    std::filesystem::remove(kDrawing);
    return bytes;
  }

  static int pushChecked(const wchar_t* className) {
    return pushRepartitionFrameRectChecked(0, 0, 0, 0, 9, 0, className, 0, 0, L"S", L"A", 1, 8, 0,
                                           0, 2, 0);
  }
};

TEST_F(CheckedFunctions, FileWhatTheFunctionsFile) {
  const std::string empty = filed([] {});
#define QUORVAN_TWIN(name, when, parameters, arguments)                                        \
  if (std::string(#when) == "IN_FILING" && std::string(#name) != "endFiling") {                \
    const std::string expected = filed([] { call(name); });                                    \
    EXPECT_NE(expected, empty) << #name;                                                       \
    EXPECT_EQ(filed([] { EXPECT_EQ(call(name##Checked), QUORVAN_DONE); }), expected) << #name; \
  }
  QUORVAN_FLAT_FUNCTIONS(QUORVAN_TWIN)
#undef QUORVAN_TWIN
}

TEST_F(CheckedFunctions, MakeAWholeDrawingByThemselves) {
  startChecked();
  EXPECT_EQ(exportLineChecked(1, 2, 3, 4, 5, 6, 7), QUORVAN_DONE);
  EXPECT_EQ(stopFilingChecked(), QUORVAN_DONE);
  EXPECT_EQ(exportLineChecked(1, 2, 3, 4, 5, 6, 7), QUORVAN_DONE);
  EXPECT_EQ(restartFilingChecked(), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_EQ(indexes(), "CKtZantoLine 1, CKtDrawingControl 1");
}

TEST_F(CheckedFunctions, AreRefusedWithoutAFiling) {
#define QUORVAN_TWIN(name, when, parameters, arguments)         \
  if (std::string(#when) == "IN_FILING") {                      \
    EXPECT_EQ(call(name##Checked), QUORVAN_NO_FILING) << #name; \
    EXPECT_EQ(quorvanLastError(), QUORVAN_NO_FILING) << #name;  \
  }
  QUORVAN_FLAT_FUNCTIONS(QUORVAN_TWIN)
#undef QUORVAN_TWIN
  startChecked();
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_NO_FILING);
}

TEST_F(CheckedFunctions, AMissingFolderIsToldAndNothingIsLost) {
  std::filesystem::remove_all("missing");
  ASSERT_EQ(startFilingChecked(L"missing/drawing.xml"), QUORVAN_DONE);
  EXPECT_EQ(exportLineChecked(1, 2, 3, 4, 5, 6, 7), QUORVAN_DONE);
  const int result = endChecked();
#ifdef _WIN32
  EXPECT_TRUE(result == QUORVAN_NO_FOLDER || result == QUORVAN_NOT_SAVED) << result;
#else
  EXPECT_EQ(result, QUORVAN_NO_FOLDER);
#endif
  std::filesystem::create_directory("missing");
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_NE(fileBytes("missing/drawing.xml").find("CKtZantoLine"), std::string::npos);
  std::filesystem::remove_all("missing");
}

TEST_F(CheckedFunctions, ASeriesOfOneFrameIsToldAndTheRestCanBeSaved) {
  startChecked();
  EXPECT_EQ(exportLineChecked(1, 2, 3, 4, 5, 6, 7), QUORVAN_DONE);
  EXPECT_EQ(pushChecked(L"CKtZantoStirrup"), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_BAD_SERIES);
  EXPECT_EQ(endChecked(), QUORVAN_BAD_SERIES);
  EXPECT_EQ(stopFilingChecked(), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_EQ(indexes(), "CKtZantoLine 1");
}

TEST_F(CheckedFunctions, ASeriesOfNoBarsIsTold) {
  startChecked();
  EXPECT_EQ(exportMeshChecked(L"12", L"T", 1, 2, 3, 0, nullptr, nullptr, nullptr), QUORVAN_DONE);
  EXPECT_EQ(pushChecked(L"no name"), QUORVAN_DONE);
  EXPECT_EQ(pushRepartitionFrameRectChecked(5, 0, 0, 5, 9, 0, L"no name", 0, 0, L"S", L"A", 1, 8, 0,
                                            0, 2, 0),
            QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_BAD_SERIES);
}

TEST_F(CheckedFunctions, AScratchFileThatCannotBeWrittenIsTold) {
  std::filesystem::create_directory(kScratch);
  std::filesystem::create_directory(std::filesystem::path(kScratch) / "held");
  startChecked();
  const auto hidden = [] {
    return exportStirrupChecked(1, 2, 3, 4, 5, 6, 7, 8, L"S", L"A", 9, 10, 1);
  };
  const int result = hidden();
#ifdef _WIN32
  EXPECT_NE(result, QUORVAN_DONE);
#else
  EXPECT_EQ(result, QUORVAN_NO_SCRATCH_FILE);
#endif
  std::filesystem::remove_all(kScratch);
  EXPECT_EQ(hidden(), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_EQ(indexes(), "CKtZantoStirrup 1, CKtDrawingControl 1");
}

TEST_F(CheckedFunctions, NullArraysAreRefusedAndFileNothing) {
  double xs[4] = {1, 2, 3, 4};
  startChecked();
  EXPECT_EQ(exportMeshChecked(L"12", L"T", 1, 2, 3, 4, xs, nullptr, xs), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(exportFilledPolygonChecked(4, xs, xs, nullptr, 1), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(exportFormworkChecked(4, xs, xs, xs, nullptr, xs, xs), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(exportBarPolygonChecked(4, nullptr, xs, xs, 0, 0, 0, 0, 0, L"S", L"A", 1, 8, 0),
            QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(exportFilledPolygonChecked(0, nullptr, nullptr, nullptr, 1), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_EQ(indexes(), "CKtFilledPolygon 1, CKtDrawingControl 1");
}

TEST_F(CheckedFunctions, NullPathsAndClassNamesAreRefused) {
  EXPECT_EQ(startFilingChecked(nullptr), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(startFilingChecked(L""), QUORVAN_BAD_ARGUMENT);
  startChecked();
  EXPECT_EQ(pushChecked(nullptr), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(pushChecked(L""), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(getModulePromptsProjectNameChecked(nullptr), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_EQ(indexes(), "CKtDrawingControl 1");
}

TEST_F(CheckedFunctions, OtherNullTextsAreEmptyOnes) {
  const std::string expected = filed([] { exportText(L"", 1, 2, 3, 4, 5, 6, 7, 8); });
  EXPECT_EQ(
      filed([] { EXPECT_EQ(exportTextChecked(nullptr, 1, 2, 3, 4, 5, 6, 7, 8), QUORVAN_DONE); }),
      expected);
  startChecked();
  EXPECT_EQ(endFilingChecked(nullptr, 0, nullptr, 0), QUORVAN_DONE);
}

TEST_F(CheckedFunctions, AFilingThatIsGivenUpLeavesNothingBehind) {
  start();
  exportLine(1, 2, 3, 4, 5, 6, 7);
  end();
  const std::string before = fileBytes(kDrawing);
  startChecked();
  EXPECT_EQ(exportLineChecked(1, 2, 3, 4, 5, 6, 7), QUORVAN_DONE);
  EXPECT_EQ(pushChecked(L"CKtZantoStirrup"), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_BAD_SERIES);
  EXPECT_EQ(stopFilingChecked(), QUORVAN_DONE);
  EXPECT_EQ(quorvanAbandonFiling(), QUORVAN_DONE);
  EXPECT_EQ(fileBytes(kDrawing), before);
  EXPECT_EQ(quorvanAbandonFiling(), QUORVAN_NO_FILING);
  // Neither frames nor counts nor the stop go over to the next.
  std::filesystem::remove(kDrawing);
  startChecked();
  EXPECT_EQ(exportLineChecked(1, 2, 3, 4, 5, 6, 7), QUORVAN_DONE);
  EXPECT_EQ(endChecked(), QUORVAN_DONE);
  EXPECT_EQ(indexes(), "CKtZantoLine 1, CKtDrawingControl 1");
}

TEST_F(CheckedFunctions, GiveTheProjectName) {
  const wchar_t* name = nullptr;
  EXPECT_EQ(getModulePromptsProjectNameChecked(&name), QUORVAN_DONE);
  EXPECT_STREQ(name, L"QUORVAN");
}

// --- what callers of the functions themselves may hand over -------------------------------------

// The functions as a caller sees them whose Booleans are bytes of any value.
using PolygonWithBytes = void (*)(int, double*, double*, double*, double, double, unsigned char,
                                  double, double, const wchar_t*, const wchar_t*, long, double,
                                  unsigned char);

TEST_F(CheckedFunctions, AFlagIsFiledAs0Or1WhateverTheByte) {
  double xs[2] = {1, 2};
  const std::string set =
      filed([&] { exportBarPolygon(2, xs, xs, xs, 1, 2, true, 3, 4, L"S", L"A", 1, 8, false); });
  const auto withBytes =
      reinterpret_cast<PolygonWithBytes>(reinterpret_cast<void*>(&exportBarPolygon));
  for (const int value : {1, 2, 128, 254, 255}) {
    const auto byte = static_cast<unsigned char>(value);
    EXPECT_EQ(filed([&] { withBytes(2, xs, xs, xs, 1, 2, byte, 3, 4, L"S", L"A", 1, 8, 0); }), set)
        << value;
    EXPECT_EQ(filed([&] {
                exportBarPolygonChecked(2, xs, xs, xs, 1, 2, byte, 3, 4, L"S", L"A", 1, 8, 0);
              }),
              set)
        << value;
  }
}

TEST_F(CheckedFunctions, ANullArrayGivenToTheFunctionsFilesNothing) {
  double xs[4] = {1, 2, 3, 4};
  start();
  exportMesh(L"12", L"T", 1, 2, 3, 4, xs, nullptr, xs);
  exportFilledPolygon(4, xs, xs, nullptr, 1);
  exportFormwork(4, xs, xs, xs, xs, xs, nullptr);
  exportBarPolygon(4, nullptr, xs, xs, 0, 0, false, 0, 0, L"S", L"A", 1, 8, false);
  end();
  EXPECT_EQ(indexes(), "CKtDrawingControl 1");
}

}  // namespace
}  // namespace quorvan::test
