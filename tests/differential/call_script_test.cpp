// The same random scripts of calls on both document services.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <tests/differential/call_script.h>
#include <tests/support/saved_file.h>

namespace quorvan::test {
namespace {

// What stands around a place in a text.
std::string around(const std::string& text, std::size_t place) {
  constexpr std::size_t kBefore = 80;
  constexpr std::size_t kLength = 200;
  return text.substr(place > kBefore ? place - kBefore : 0, kLength);
}

// The first place in which the two differ, with the calls just before.
std::string firstDifference(const std::string& recorded, const std::string& here) {
  const auto place = static_cast<std::size_t>(
      std::mismatch(recorded.begin(), recorded.end(), here.begin(), here.end()).first -
      recorded.begin());
  if (place == recorded.size() && place == here.size()) {
    return "none";
  }
  return "\n  recorded " + around(recorded, place) + "\n  here     " + around(here, place);
}

TEST(CallScripts, DoTheSameEachTime) {
  EXPECT_EQ(firstDifference(runCallScript(1), runCallScript(1)), "none");
}

TEST(CallScripts, DoWhatTheOtherDocumentServiceRecorded) {
  const char* const folder = std::getenv("QUORVAN_CALL_RECORDS");
  if (folder == nullptr) {
    GTEST_SKIP() << "records are made by the build with the other service";
  }
  int different = 0;
  for (int seed = 0; seed < callScriptCount() && different < 3; ++seed) {
    const std::string recorded = fileBytes(std::string(folder) + '/' + std::to_string(seed));
    ASSERT_FALSE(recorded.empty()) << "no record of script " << seed << " in " << folder;
    const std::string difference =
        firstDifference(recorded, runCallScript(static_cast<std::uint64_t>(seed)));
    EXPECT_EQ(difference, "none") << "script " << seed;
    if (difference != "none") {
      ++different;
    }
  }
}

}  // namespace
}  // namespace quorvan::test
