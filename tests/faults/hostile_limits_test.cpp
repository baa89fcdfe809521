// How large a part of a file may be: as large as the limit, and no larger.
#include <gtest/gtest.h>

#include <string>

#include <tests/faults/stage.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/filer/filer.h>
#include <quorvan/xml/embedded/reading/limits.h>

namespace quorvan::test {
namespace {

using embedded::kFreeEntityBytes;
using embedded::kMaxAttributes;
using embedded::kMaxDepth;
using embedded::kMaxEntityAmplification;

// Whether the file is taken; otherwise the filer goes on as if there were none, and replaces it.
bool isTaken(const std::string& bytes) {
  const Stage stage;
  writeBytes("limits.xml", bytes);
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(L"limits.xml"), 1);
  EXPECT_EQ(filer.closeFiler(), 1);
  EXPECT_EQ(Stage::messages(), 0);
  return fileBytes("limits.xml") != transferFile("");
}

// `make(n)` is a file with n of what is limited.
template <class Make>
void expectLimit(std::size_t limit, const Make& make) {
  for (const char* kind : {"", "<!DOCTYPE D>"}) {  // one for each reader
    EXPECT_TRUE(isTaken(kind + make(limit - 1))) << kind;
    EXPECT_TRUE(isTaken(kind + make(limit))) << kind;
    EXPECT_FALSE(isTaken(kind + make(limit + 1))) << kind;
  }
}

TEST(HostileLimits, OfDepth) {
  expectLimit(kMaxDepth, [](std::size_t depth) {
    std::string file = "<D>";
    for (std::size_t i = 1; i < depth; ++i) {
      file += "<a>";
    }
    for (std::size_t i = 1; i < depth; ++i) {
      file += "</a>";
    }
    return file + "</D>";
  });
}

TEST(HostileLimits, OfAttributes) {
  expectLimit(kMaxAttributes, [](std::size_t count) {
    std::string file = "<D><a";
    for (std::size_t i = 0; i < count; ++i) {
      file += " a" + std::to_string(i) + "=''";
    }
    return file + "/></D>";
  });
}

// An entity of so many bytes, used so often, in a file of `size` bytes, some of them blanks.
std::string usingAnEntity(std::size_t bytes, std::size_t uses, std::size_t size) {
  const std::string before = "<!DOCTYPE D [<!ENTITY e '" + std::string(bytes, 'x') + "'>]>";
  std::string after = "<D>";
  for (std::size_t i = 0; i < uses; ++i) {
    after += "&e;";
  }
  after += "</D>";
  EXPECT_LE(before.size() + after.size(), size);
  return before + std::string(size - before.size() - after.size(), ' ') + after;
}

// The entities may make up to kFreeEntityBytes of any file, itself counted in.
TEST(HostileLimits, OfWhatEntitiesMayMakeOfASmallFile) {
  constexpr std::size_t kUses = 1000;
  constexpr std::size_t kEntity = 1040;
  constexpr auto kFileSize = static_cast<std::size_t>(kFreeEntityBytes) - kUses * kEntity;
  static_assert(kFreeEntityBytes / kFileSize > 10);
  EXPECT_TRUE(isTaken(usingAnEntity(kEntity, kUses, kFileSize - 2)));
  EXPECT_TRUE(isTaken(usingAnEntity(kEntity, kUses, kFileSize - 1)));
  EXPECT_FALSE(isTaken(usingAnEntity(kEntity, kUses, kFileSize)));
  EXPECT_FALSE(isTaken(usingAnEntity(kEntity, kUses, kFileSize + 1)));
}

// Beyond that the document may be so many times as large as the file, as far as it is read by then.
TEST(HostileLimits, OfHowManyTimesItsSizeEntitiesMayMakeOfAFile) {
  constexpr std::size_t kUses = 1000;
  constexpr std::size_t kEntity = 9'000;
  constexpr auto kTimes = static_cast<std::size_t>(kMaxEntityAmplification);
  constexpr std::size_t kFileSize = kUses * kEntity / (kTimes - 1) + sizeof("</D>") - 1;
  EXPECT_TRUE(isTaken(usingAnEntity(kEntity, kUses, kFileSize + 1)));
  EXPECT_TRUE(isTaken(usingAnEntity(kEntity, kUses, kFileSize)));
  EXPECT_FALSE(isTaken(usingAnEntity(kEntity, kUses, kFileSize - 1)));
}

}  // namespace
}  // namespace quorvan::test
