// The tables of the known classes as a reader in any language sees them.
#include <gtest/gtest.h>

#include <tests/elements/element_models.h>
#include <quorvan/elements/element_classes.h>
#include <quorvan/reading/read.h>

namespace quorvan::test {
namespace {

TEST(ClassTables, HaveEveryClassAndEveryItem) {
  const auto classes = items::allElements();
  ASSERT_EQ(quorvanClassCount(), static_cast<int>(classes.size()));
  for (int number = 0; number < quorvanClassCount(); ++number) {
    const auto& schema = classes[static_cast<std::size_t>(number)];
    EXPECT_EQ(quorvanClassName(number), schema.className);
    ASSERT_EQ(quorvanClassItemCount(number), static_cast<int>(schema.items.size()));
    for (int item = 0; item < quorvanClassItemCount(number); ++item) {
      const auto& expected = schema.items[static_cast<std::size_t>(item)];
      EXPECT_EQ(quorvanClassItemName(number, item), expected.name);
      EXPECT_EQ(quorvanClassItemIsOptional(number, item), expected.optional ? 1 : 0);
      EXPECT_NE(quorvanClassItemKind(number, item), QUORVAN_KIND_NONE);
    }
  }
}

TEST(ClassTables, EndWhereTheyEnd) {
  for (const int number : {-1, quorvanClassCount(), 2147483647}) {
    EXPECT_STREQ(quorvanClassName(number), "");
    EXPECT_EQ(quorvanClassItemCount(number), 0);
    EXPECT_STREQ(quorvanClassItemName(number, 0), "");
    EXPECT_STREQ(quorvanClassItemName(0, number), "");
    EXPECT_EQ(quorvanClassItemKind(0, number), QUORVAN_KIND_NONE);
    EXPECT_EQ(quorvanClassItemIsOptional(0, number), 0);
  }
}

}  // namespace
}  // namespace quorvan::test
