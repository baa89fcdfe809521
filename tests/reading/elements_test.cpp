// Walking through the elements of a drawing.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include <tests/reading/reading_file.h>

namespace quorvan::test {
namespace {

const std::string kThree = classElement("CKtZantoLine", 1, longItem("Color", 1)) +
                           "<!--between--><Foreign version=\"7\" index=\"-3\"><A long=\"5\"/>"
                           "</Foreign>" +
                           classElement("CKtZantoLine", 2, longItem("Color", 2));

std::string walked(QuorvanFile* file, const char* className) {
  std::string names;
  QuorvanElement* element = nullptr;
  while (quorvanNextElement(file, className, &element) == QUORVAN_DONE) {
    names += std::string(quorvanElementClass(element)) + " " +
             std::to_string(quorvanElementVersion(element)) + " " +
             std::to_string(quorvanElementIndex(element)) + " at " +
             std::to_string(quorvanElementPlace(element)) + "; ";
  }
  EXPECT_EQ(quorvanLastError(), QUORVAN_NO_MORE);
  EXPECT_EQ(element, nullptr);
  return names;
}

TEST(ReadingElements, ComeInTheOrderOfTheFileUnknownOnesIncluded) {
  const ReadingFile file(kThree);
  EXPECT_EQ(walked(file.get(), nullptr),
            "CKtZantoLine 1 1 at 0; Foreign 7 -3 at 1; CKtZantoLine 1 2 at 2; ");
}

TEST(ReadingElements, ComeOfOneClassWhenAskedFor) {
  const ReadingFile file(kThree);
  EXPECT_EQ(walked(file.get(), "CKtZantoLine"), "CKtZantoLine 1 1 at 0; CKtZantoLine 1 2 at 2; ");
  EXPECT_EQ(walked(file.get(), "Foreign"), "Foreign 7 -3 at 1; ");
  EXPECT_EQ(walked(file.get(), "CKtZantoMesh"), "");
}

TEST(ReadingElements, OfAClassThatIsNotKnownHaveNoNumber) {
  const ReadingFile file(kThree);
  QuorvanElement* element = nullptr;
  ASSERT_EQ(quorvanNextElement(file.get(), nullptr, &element), QUORVAN_DONE);
  EXPECT_STREQ(quorvanClassName(quorvanElementClassNumber(element)), "CKtZantoLine");
  ASSERT_EQ(quorvanNextElement(file.get(), nullptr, &element), QUORVAN_DONE);
  EXPECT_EQ(quorvanElementClassNumber(element), -1);
  std::int32_t number = 0;
  EXPECT_EQ(quorvanReadLong(quorvanItem(element, "A"), &number), QUORVAN_DONE);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(quorvanItemKind(quorvanItem(element, "A")), QUORVAN_KIND_LONG);
}

TEST(ReadingElements, AreReachedByTwoWalksAtATime) {
  const ReadingFile file(kThree);
  QuorvanElement* one = nullptr;
  QuorvanElement* other = nullptr;
  ASSERT_EQ(quorvanNextElement(file.get(), nullptr, &one), QUORVAN_DONE);
  ASSERT_EQ(quorvanNextElement(file.get(), "CKtZantoLine", &other), QUORVAN_DONE);
  ASSERT_EQ(quorvanNextElement(file.get(), "CKtZantoLine", &other), QUORVAN_DONE);
  std::int32_t color = 0;
  EXPECT_EQ(quorvanReadLong(quorvanItem(one, "Color"), &color), QUORVAN_DONE);
  EXPECT_EQ(color, 1);
  EXPECT_EQ(quorvanReadLong(quorvanItem(other, "Color"), &color), QUORVAN_DONE);
  EXPECT_EQ(color, 2);
  quorvanCloseElement(one);
  EXPECT_EQ(quorvanReadLong(quorvanItem(other, "Color"), &color), QUORVAN_DONE);
}

TEST(ReadingElements, WithoutIndexOrVersionHaveZeroes) {
  const ReadingFile file("<CKtZantoLine index=\"x\"/>");
  QuorvanElement* const element = file.first();
  EXPECT_EQ(quorvanElementVersion(element), 0);
  EXPECT_EQ(quorvanElementIndex(element), 0);
  EXPECT_EQ(quorvanItemCount(element), 0U);
}

TEST(ReadingElements, ANullHandleIsAnsweredNotFollowed) {
  const ReadingFile file(kThree);
  QuorvanElement* element = nullptr;
  EXPECT_EQ(quorvanNextElement(nullptr, nullptr, &element), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanNextElement(file.get(), nullptr, nullptr), QUORVAN_BAD_ARGUMENT);
  quorvanCloseElement(nullptr);
  quorvanCloseFile(nullptr);
  EXPECT_STREQ(quorvanElementClass(nullptr), "");
  EXPECT_EQ(quorvanElementClassNumber(nullptr), -1);
  EXPECT_EQ(quorvanElementVersion(nullptr), 0);
  EXPECT_EQ(quorvanElementPlace(nullptr), 0U);
  EXPECT_EQ(quorvanItemCount(nullptr), 0U);
  EXPECT_EQ(quorvanItemAt(nullptr, 0), nullptr);
  EXPECT_EQ(quorvanItem(nullptr, "A"), nullptr);
  EXPECT_STREQ(quorvanItemName(nullptr), "");
  EXPECT_EQ(quorvanItemKind(nullptr), QUORVAN_KIND_NONE);
  QuorvanElement* const first = file.first();
  EXPECT_EQ(quorvanItem(first, nullptr), nullptr);
  EXPECT_EQ(quorvanItemAt(first, 1), nullptr);
}

TEST(ReadingElements, AnElementOfAnotherFileIsRefused) {
  const ReadingFile one(kThree);
  const ReadingFile other(kThree);
  QuorvanElement* element = one.first();
  EXPECT_EQ(quorvanNextElement(other.get(), nullptr, &element), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanElementPlace(element), 0U);
}

TEST(ReadingElements, OfAFileEachAreReadByThreadsSideBySide) {
  std::vector<std::thread> threads;
  std::vector<int> sums(4);
  for (std::size_t i = 0; i < sums.size(); ++i) {
    threads.emplace_back([&sums, i] {
      for (int round = 0; round < 50; ++round) {
        const ReadingFile file(kThree);
        QuorvanElement* element = nullptr;
        std::int32_t color = 0;
        while (quorvanNextElement(file.get(), "CKtZantoLine", &element) == QUORVAN_DONE) {
          quorvanReadLong(quorvanItem(element, "Color"), &color);
          sums[i] += color;
        }
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(sums, std::vector<int>(4, 150));
}

}  // namespace
}  // namespace quorvan::test
