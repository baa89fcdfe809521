// The library against the model, call by call, in random scripts. A script that makes a difference
// is shrunk and printed. The long form, with QUORVAN_LONG_TESTS=1 in the
// environment, runs fifty times as many.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

#include <tests/filer/model/random_script.h>
#include <tests/filer/model/script.h>

namespace quorvan::test::model {
namespace {

std::uint32_t scriptCount() {
  const char* const isLong = std::getenv("QUORVAN_LONG_TESTS");
#if defined(__SANITIZE_ADDRESS__) || defined(_WIN32)
  constexpr bool isSlow = true;
#else
  constexpr bool isSlow = false;
#endif
  const std::uint32_t shortCount = isSlow ? 50 : 600;
  return isLong == nullptr || *isLong == '\0' ? shortCount : 50 * shortCount;
}

void expectSame(Script (*compose)(std::uint32_t seed), std::uint32_t firstSeed) {
  for (std::uint32_t seed = firstSeed; seed < firstSeed + scriptCount(); ++seed) {
    const Script script = compose(seed);
    const std::string found = difference(script);
    ASSERT_TRUE(found.empty()) << "seed " << seed << ": " << found << "\nshrunk:\n"
                               << shrunk(script);
  }
}

class FilerModelTest : public testing::TestWithParam<std::uint32_t> {};

TEST_P(FilerModelTest, CallsInAnyOrderGiveWhatTheModelGives) {
  expectSame(randomCalls, GetParam());
}

class SearchModelTest : public testing::TestWithParam<std::uint32_t> {};

TEST_P(SearchModelTest, SearchesFindAndLeaveWhatAPlainWalkDoes) {
  expectSame(randomSearches, GetParam());
}

constexpr std::uint32_t kFirstSeeds[] = {1'000'000, 2'000'000, 3'000'000, 4'000'000};

INSTANTIATE_TEST_SUITE_P(Random, FilerModelTest, testing::ValuesIn(kFirstSeeds));
INSTANTIATE_TEST_SUITE_P(Random, SearchModelTest, testing::ValuesIn(kFirstSeeds));

}  // namespace
}  // namespace quorvan::test::model
