// The documents name every twin and every result, as the lists have them.
#include <gtest/gtest.h>

#include <string>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <quorvan/export/checked.h>

namespace quorvan::test {
namespace {

// Whatever the checkout makes of line ends.
std::string documentText(const char* name) {
  std::string text = fileBytes(dataPath(std::string("../docs/") + name));
  std::erase(text, '\r');
  return text;
}

std::string withoutParentheses(const std::string& text) {
  return text.substr(1, text.size() - 2);
}

TEST(DocumentedFunctions, EveryTwinStandsInTheTableWithItsArguments) {
  std::string expected = "| function | needs a filing | arguments |\n|---|---|---|\n";
#define QUORVAN_TWIN(name, when, parameters, arguments)                                \
  expected += "| `" #name "Checked` | " +                                              \
              std::string(std::string(#when) == "IN_FILING" ? "yes" : "no") + " | `" + \
              withoutParentheses(#parameters) + "` |\n";
  QUORVAN_FLAT_FUNCTIONS(QUORVAN_TWIN)
#undef QUORVAN_TWIN
  const std::string document = documentText("flat-functions.md");
  const std::size_t begin = document.find("| function |");
  ASSERT_NE(begin, std::string::npos);
  EXPECT_EQ(document.substr(begin, expected.size()), expected);
}

TEST(DocumentedFunctions, EveryResultStandsInATableWithItsNumber) {
  const std::string document = documentText("flat-functions.md");
#define QUORVAN_RESULT(name, number, text) \
  EXPECT_NE(document.find("| " #number " | `" #name "` | " text " |"), std::string::npos) << #name;
  QUORVAN_RESULTS(QUORVAN_RESULT)
#undef QUORVAN_RESULT
}

}  // namespace
}  // namespace quorvan::test
