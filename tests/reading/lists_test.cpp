// Lists that are not as the library files them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/reading/reading_file.h>

namespace quorvan::test {
namespace {

std::string point(int number, double x) {
  return pointItem(numbered("Point", number), {x, 0, 0});
}

struct Found {
  int result;
  std::vector<double> xs;
};

Found xsOf(const std::string& items, const char* item = "Vector",
           const char* className = "CKtZantoMesh") {
  const ReadingElement element(items, className);
  std::size_t count = 0;
  std::vector<double> numbers(30);
  Found found{quorvanReadPoints(element.item(item), numbers.data(), 10, &count), {}};
  for (std::size_t i = 0; i < std::min<std::size_t>(count, 10); ++i) {
    found.xs.push_back(numbers[3 * i]);
  }
  return found;
}

using Xs = std::vector<double>;

TEST(ReadingLists, OutOfOrderComeInTheOrderOfTheirNumbers) {
  const Found found = xsOf(listItem("Vector", 3, point(2, 2) + point(3, 3) + point(1, 1)));
  EXPECT_EQ(found.result, QUORVAN_DONE);
  EXPECT_EQ(found.xs, (Xs{1, 2, 3}));
}

TEST(ReadingLists, TheFirstOfANumberCounts) {
  const Found found = xsOf(listItem("Vector", 2, point(1, 1) + point(1, 9) + point(2, 2)));
  EXPECT_EQ(found.result, QUORVAN_DONE);
  EXPECT_EQ(found.xs, (Xs{1, 2}));
}

TEST(ReadingLists, WithAGapAreIncomplete) {
  const Found found = xsOf(listItem("Vector", 3, point(1, 1) + point(3, 3)));
  EXPECT_EQ(found.result, QUORVAN_INCOMPLETE);
  EXPECT_EQ(found.xs, (Xs{1, 3}));
}

TEST(ReadingLists, WithFewerThanAnnouncedAreIncomplete) {
  EXPECT_EQ(xsOf(listItem("Vector", 3, point(1, 1))).result, QUORVAN_INCOMPLETE);
  EXPECT_EQ(xsOf(listItem("Vector", 1, point(1, 1) + point(2, 2))).result, QUORVAN_INCOMPLETE);
  EXPECT_EQ(xsOf(listItem("Vector", 2147483647, point(1, 1))).result, QUORVAN_INCOMPLETE);
}

TEST(ReadingLists, WithAnEntryOfAnotherKindAreIncomplete) {
  const Found found =
      xsOf(listItem("Vector", 3, point(1, 1) + rawItem("Point2", "X=\"2\" Y=\"2\"") + point(3, 3)));
  EXPECT_EQ(found.result, QUORVAN_INCOMPLETE);
  EXPECT_EQ(found.xs, (Xs{1, 3}));
}

TEST(ReadingLists, BeyondSixteenBitsAreWhole) {
  std::string entries;
  for (int i = 1; i <= 40000; ++i) {
    entries += point(i, i);
  }
  const ReadingElement element(listItem("Vector", 40000 - 65536, entries));
  std::size_t count = 0;
  EXPECT_EQ(quorvanReadPoints(element.item("Vector"), nullptr, 0, &count), QUORVAN_DONE);
  EXPECT_EQ(count, 40000U);
  std::int32_t announced = 0;
  EXPECT_EQ(quorvanReadSize(element.item("Vector"), &announced), QUORVAN_DONE);
  EXPECT_EQ(announced, -25536);
}

TEST(ReadingLists, LongerThanTheArrayFillItAndSayHowManyThereAre) {
  const ReadingElement element(listItem("Vector", 3, point(1, 1) + point(2, 2) + point(3, 3)));
  double xyz[7] = {-1, -1, -1, -1, -1, -1, -1};
  std::size_t count = 0;
  EXPECT_EQ(quorvanReadPoints(element.item("Vector"), xyz, 2, &count), QUORVAN_NO_ROOM);
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(xyz[3], 2);
  EXPECT_EQ(xyz[6], -1);
}

TEST(ReadingLists, OfAPolygonBarAreItsNumberedPoints) {
  const std::string items =
      longItem("NoPoints", 2) + point(1, 1) + point(2, 2) + doubleItem("HookLength1", 5);
  EXPECT_EQ(xsOf(items, "NoPoints", "CKtZantoPolygonBar").xs, (Xs{1, 2}));
  const ReadingElement element(items, "CKtZantoPolygonBar");
  EXPECT_EQ(quorvanItemCount(element.get()), 2U);
  EXPECT_STREQ(quorvanItemName(quorvanItemAt(element.get(), 1)), "HookLength1");
}

TEST(ReadingLists, OfAPolygonBarCountWithThirtyTwoBits) {
  const std::string items = longItem("NoPoints", -1) + point(1, 1);
  EXPECT_EQ(xsOf(items, "NoPoints", "CKtZantoPolygonBar").result, QUORVAN_INCOMPLETE);
}

TEST(ReadingLists, OfSegmentsMayStandInAnyOrder) {
  const std::string entries = vectorItem("Bulge1", {7, 0, 0}) + point(2, 2) + point(1, 1);
  const ReadingElement element(listItem("Vector", 2, entries), "CKtZantoFormwork");
  double xyz[6] = {};
  std::size_t count = 0;
  EXPECT_EQ(quorvanReadPoints(element.item("Vector"), xyz, 2, &count), QUORVAN_DONE);
  EXPECT_EQ(count, 2U);
  EXPECT_EQ(xyz[0], 1);
  EXPECT_EQ(quorvanReadBulges(element.item("Vector"), xyz, 2, &count), QUORVAN_DONE);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(xyz[0], 7);
}

TEST(ReadingLists, WithoutABulgeAreIncompleteInTheBulgesAlone) {
  const ReadingElement element(listItem("Vector", 2, point(1, 1) + point(2, 2)),
                               "CKtZantoFormwork");
  std::size_t count = 0;
  EXPECT_EQ(quorvanReadPoints(element.item("Vector"), nullptr, 0, &count), QUORVAN_DONE);
  EXPECT_EQ(quorvanReadBulges(element.item("Vector"), nullptr, 0, &count), QUORVAN_INCOMPLETE);
  EXPECT_EQ(count, 0U);
}

TEST(ReadingLists, OfClassesThatAreNotKnownAreReadAsTheyStand) {
  const ReadingElement element(
      listItem("Outline", 2, pointItem("point", {1, 0, 0}) + pointItem("point", {2, 0, 0})) +
          listItem("Steps", 2, doubleItem("a", 4) + doubleItem("b", 5)),
      "Foreign");
  EXPECT_EQ(quorvanItemKind(element.item("Outline")), QUORVAN_KIND_LIST);
  double numbers[6] = {};
  std::size_t count = 0;
  EXPECT_EQ(quorvanReadPoints(element.item("Outline"), numbers, 2, &count), QUORVAN_DONE);
  EXPECT_EQ(count, 2U);
  EXPECT_EQ(numbers[3], 2);
  EXPECT_EQ(quorvanReadDoubles(element.item("Steps"), numbers, 6, &count), QUORVAN_DONE);
  EXPECT_EQ(count, 2U);
  EXPECT_EQ(numbers[1], 5);
}

TEST(ReadingLists, OfAnotherKindAreRefused) {
  const ReadingElement element(listItem("Vector", 1, point(1, 1)));
  std::size_t count = 8;
  double number = 0;
  EXPECT_EQ(quorvanReadDoubles(element.item("Vector"), &number, 1, &count), QUORVAN_OTHER_KIND);
  EXPECT_EQ(quorvanReadBulges(element.item("Vector"), &number, 1, &count), QUORVAN_OTHER_KIND);
  EXPECT_EQ(quorvanReadPoints(element.item("Vector"), nullptr, 0, nullptr), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanReadPoints(nullptr, nullptr, 0, &count), QUORVAN_NO_ITEM);
  EXPECT_EQ(count, 8U);
}

}  // namespace
}  // namespace quorvan::test
