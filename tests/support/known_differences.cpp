#include <tests/support/known_differences.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <span>
#include <string_view>

#include <quorvan/text/utf8.h>

#ifdef QUORVAN_TEST_SERVICE
#include <windows.h>
#endif

namespace quorvan::test {

namespace {

// A test that fails under Wine.
struct FailingTest {
  std::string_view name;  // Suite.Test
  std::string_view reason;
};

// A difference of the bytes that Wine saves, undone before they are compared.
struct ByteDifference {
  std::string_view reason;
  std::string (*undo)(const std::string& saved);
};

constexpr FailingTest kFailingTests[] = {
    {"DomContract.TheDeclarationOfALoadedFileHasItsAttributes",
     "The declaration of a loaded file has an attribute map without attributes."},
    {"DomContract.AnInstructionWithoutDataIsSavedWithoutABlank",
     "An instruction is saved with a blank before its data, even before none."},
    {"DomContract.UndeclaredPrefixesAreNotLoaded",
     "A prefix that nothing declares is accepted and dropped."},
    {"DomProblems.ADocumentInMemoryLoadsAsFromAFile",
     "The declaration of a loaded document has an attribute map without attributes."},
    {"DomProblems.AFaultHasItsLine", "A parse error has no line and no column."},
    {"DomProblems.AFaultInAFileHasItsLine", "A parse error has no line and no column."},
    {"TypedReader.ThrowsWithTheReason", "A parse error has no line and no column."},
    {"ToolFile.SaysWhereItIsNotWellFormed", "A parse error has no line and no column."},
    {"ToolHostileFiles.AreRefusedWithTheReason", "A parse error has no place and no words."},
    {"ToolRepair.MendsNothingInAFileWhoseElementsComeOutOfEntities",
     "The node of a document type answers no question, so that the file is refused."},
    {"ToolSvg.IsWellFormed",
     "A document in a namespace without a prefix fails as if memory were short."},
    {"GoldenDocument.StaysByteForByteWhenItIsOpenedAndClosed",
     "Saved in UTF-8 and loaded as declared, every further saving spoils the letters once more."},
    {"ClassScope.ANameThatTheEncodingLacksFailsToBeSavedAndLosesNothing",
     "A character that the encoding lacks is saved as a reference, even in a name."},
};

constexpr FailingTest kCrashingTests[] = {
    {"DomContract.AnElementCreatedByAnotherDocumentIsAppendedAtOnce",
     "An attribute and an element made by two documents are freed twice."},
};

constexpr std::string_view kMadeDeclaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";
constexpr std::string_view kReadDeclaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";

std::string quoteDeclaration(const std::string& saved) {
  if (!saved.starts_with(kMadeDeclaration)) {
    return saved;
  }
  return std::string(kReadDeclaration) + saved.substr(kMadeDeclaration.size());
}

// A file that is not UTF-8 was not saved so: a test has written or put right it.
std::string encodeAsDeclared(const std::string& saved) {
  if (!saved.starts_with(kReadDeclaration)) {
    return saved;
  }
  std::string declared;
  const char* at = saved.data();
  const char* const end = at + saved.size();
  while (at != end) {
    const std::string_view rest(at, static_cast<std::size_t>(end - at));
    const char32_t code = decodeUtf8(at, end);
    if (code == kReplacementCharacter && !rest.starts_with("\xEF\xBF\xBD")) {
      return saved;
    }
    if (code <= 0xFF) {
      declared += static_cast<char>(code);
    } else {
      declared += "&#" + std::to_string(static_cast<std::uint32_t>(code)) + ';';
    }
  }
  return declared;
}

// Outside the root element line ends stand only between nodes, inside it only in text.
std::string endLinesAsWindows(const std::string& saved) {
  std::string result;
  for (const char byte : saved) {
    if (byte == '\n' && !result.ends_with('\r')) {
      result += '\r';
    }
    result += byte;
  }
  return result;
}

// In this order: a declaration that was read has double quotes.
constexpr ByteDifference kByteDifferences[] = {
    {"A document that was loaded is saved in UTF-8, whatever its declaration says.",
     encodeAsDeclared},
    {"The declaration of a document that was created keeps the quotes it was given.",
     quoteDeclaration},
    {"Lines end in LF.", endLinesAsWindows},
};

const FailingTest* findTest(std::span<const FailingTest> list, const std::string& name) {
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&name](const FailingTest& entry) { return entry.name == name; });
  return found == list.end() ? nullptr : &*found;
}

// Whether the test went as the list says.
bool isAsListed(const testing::TestInfo& test) {
  const std::string name = std::string(test.test_suite_name()) + '.' + test.name();
  if (!test.should_run()) {
    if (const FailingTest* const crashing = findTest(kCrashingTests, name)) {
      std::cout << "known difference: " << name << " is not run: " << crashing->reason << '\n';
    }
    return true;
  }
  const FailingTest* const listed = findTest(kFailingTests, name);
  if (test.result()->Skipped()) {
    return true;
  }
  if (test.result()->Failed()) {
    if (listed != nullptr) {
      std::cout << "known difference: " << name << ": " << listed->reason << '\n';
    }
    return listed != nullptr;
  }
  if (listed != nullptr) {
    std::cout << "unexpected success: " << name << " is listed as failing\n";
  }
  return listed == nullptr;
}

// Whether the suite's listed tests exist: an entry for none would stay unnoticed.
bool existAsListed(const testing::TestSuite& suite) {
  const std::string prefix = std::string(suite.name()) + '.';
  bool exist = true;
  for (const std::span<const FailingTest> list : {std::span<const FailingTest>(kFailingTests),
                                                  std::span<const FailingTest>(kCrashingTests)}) {
    for (const FailingTest& listed : list) {
      bool found = !listed.name.starts_with(prefix);
      for (int i = 0; i < suite.total_test_count(); ++i) {
        found = found || listed.name.substr(prefix.size()) == suite.GetTestInfo(i)->name();
      }
      if (!found) {
        std::cout << "unknown test: " << listed.name << " is listed as failing\n";
      }
      exist = exist && found;
    }
  }
  return exist;
}

}  // namespace

bool usesWinesDocuments() {
#ifdef QUORVAN_TEST_SERVICE
  return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
#else
  return false;
#endif
}

std::string withoutKnownDifferences(std::string saved) {
  if (usesWinesDocuments()) {
    for (const ByteDifference& difference : kByteDifferences) {
      saved = difference.undo(saved);
    }
  }
  return saved;
}

void leaveOutCrashingTests() {
  if (!usesWinesDocuments()) {
    return;
  }
  std::string filter = testing::GTEST_FLAG(filter);
  for (const FailingTest& test : kCrashingTests) {
    filter += (filter.find('-') == std::string::npos ? '-' : ':') + std::string(test.name);
  }
  testing::GTEST_FLAG(filter) = filter;
}

int judge(int result) {
  if (!usesWinesDocuments()) {
    return result;
  }
  const testing::UnitTest& unit = *testing::UnitTest::GetInstance();
  bool asListed = !unit.ad_hoc_test_result().Failed();
  for (int i = 0; i < unit.total_test_suite_count(); ++i) {
    const testing::TestSuite& suite = *unit.GetTestSuite(i);
    if (suite.ad_hoc_test_result().Failed() || (suite.should_run() && !existAsListed(suite))) {
      asListed = false;
    }
    for (int k = 0; k < suite.total_test_count(); ++k) {
      const testing::TestInfo& test = *suite.GetTestInfo(k);
      if (!isAsListed(test)) {
        asListed = false;
      }
    }
  }
  return asListed ? 0 : 1;
}

}  // namespace quorvan::test
