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

TEST(HostileLimits, OfHowDeepEntitiesAreNested) {
  const auto chain = [](std::size_t length) {
    std::string file = "<!DOCTYPE D [<!ENTITY e1 'x'>";
    for (std::size_t i = 2; i <= length; ++i) {
      file += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
    }
    return file + "]><D>&e" + std::to_string(length) + ";</D>";
  };
  EXPECT_TRUE(isTaken(chain(embedded::kMaxEntityNesting - 1)));
  EXPECT_TRUE(isTaken(chain(embedded::kMaxEntityNesting)));
  EXPECT_FALSE(isTaken(chain(embedded::kMaxEntityNesting + 1)));
}

// So many attributes declared for one element, and so many elements of it, in a file of `size`
// bytes, some of them blanks. Each declaration counts those before and itself, each tag all.
std::string withDeclared(std::size_t attributes, std::size_t elements, std::size_t size) {
  std::string file = "<!DOCTYPE D [";
  for (std::size_t i = 0; i < attributes; ++i) {
    file += "<!ATTLIST a b" + std::to_string(i) + " CDATA #IMPLIED>";
  }
  file += "]><D>";
  for (std::size_t i = 0; i < elements; ++i) {
    file += "<a/>";
  }
  EXPECT_LE(file.size() + 4, size);
  return file + std::string(size - file.size() - 4, ' ') + "</D>";
}

TEST(HostileLimits, OfWhatDeclaredAttributesMayCost) {
  constexpr std::size_t kAttributes = 1000;
  constexpr std::size_t kElements = 4000;
  constexpr auto kFileSize = static_cast<std::size_t>(
      (kAttributes * kElements - embedded::kFreeSteps + embedded::kStepsPerByte - 1) /
      embedded::kStepsPerByte);
  EXPECT_TRUE(isTaken(withDeclared(kAttributes, kElements, kFileSize)));
  EXPECT_FALSE(isTaken(withDeclared(kAttributes, kElements, kFileSize - 1)));
  // Declaring 2,000 takes 2,001,000 steps.
  constexpr std::size_t kMany = 2000;
  constexpr std::size_t kStepsOfMany = kMany * (kMany + 1) / 2;
  static_assert(kStepsOfMany > embedded::kFreeSteps + embedded::kStepsPerByte * 20'000);
  EXPECT_TRUE(isTaken(withDeclared(kMany, 0, 80'000)));
}

std::string withAddress(std::size_t length, std::size_t names, std::size_t size) {
  std::string file = "<D xmlns:p='" + std::string(length, 'n') + "'>";
  for (std::size_t i = 0; i < names; ++i) {
    file += "<p:a/>";
  }
  EXPECT_LE(file.size() + 4, size);
  return file + std::string(size - file.size() - 4, ' ') + "</D>";
}

// The declaration of the prefix is a name with a prefix too.
TEST(HostileLimits, OfWhatNamespaceAddressesMayCost) {
  constexpr std::size_t kLength = 1000;
  constexpr std::size_t kNames = 5000;
  constexpr auto kFileSize = static_cast<std::size_t>(
      (kLength * (kNames + 1) - embedded::kFreeSteps + embedded::kStepsPerByte - 1) /
      embedded::kStepsPerByte);
  EXPECT_TRUE(isTaken(withAddress(kLength, kNames, kFileSize)));
  EXPECT_FALSE(isTaken(withAddress(kLength, kNames, kFileSize - 1)));
}

}  // namespace
}  // namespace quorvan::test
