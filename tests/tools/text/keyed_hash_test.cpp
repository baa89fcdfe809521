#include <gtest/gtest.h>

#include <set>
#include <string>

#include <tools/text/keyed_hash.h>

namespace {

using quorvan::tool::KeyedHash;

TEST(ToolKeyedHash, TellsTextsAndNumbersApart) {
  std::set<std::size_t> hashes;
  std::string text = "x";
  for (int i = 0; i < 1000; ++i) {
    hashes.insert(KeyedHash()(std::string_view(text)));
    hashes.insert(KeyedHash()(std::int64_t{i}));
    text += '\0';
  }
  EXPECT_EQ(hashes.size(), 2000U);
}

TEST(ToolKeyedHash, IsTheSameForTheSameKey) {
  const std::string text = "CKtZantoLine";
  EXPECT_EQ(KeyedHash()(std::string_view(text)), KeyedHash()(std::string_view("CKtZantoLine")));
}

}  // namespace
