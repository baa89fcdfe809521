// Items named by a stem and a number: which ones a list of them finds, and in which order.

#include <quorvan/elements/items/numbered_items.h>

#include <tests/filer/filer_test.h>

#include <cstdint>
#include <string>
#include <vector>

#include <quorvan/filer/item_access.h>

namespace quorvan::test {
namespace {

class NumberedItems : public FilerTest {
 protected:
  void load(const std::string& items) {
    writeText(kPath, documentText("<A>" + items + "</A>"));
    m_filer.newFiler(kPath);
    ASSERT_EQ(m_filer.beginClass(L"A"), 1);
  }

  // The numbers found, each with the "long" of the element found for it.
  [[nodiscard]] std::string found(std::uint32_t first, std::uint32_t last) const {
    std::string text;
    for (const items::NumberedItem& item :
         items::numberedChildren(ItemAccess::scope(m_filer), "Point", first, last)) {
      dom::AttributeValue value;
      text += std::to_string(item.number) + ':';
      text += dom::attribute(item.node, "long", value) ? std::to_string(value.toLong()) : "-";
      text += ' ';
    }
    return text;
  }

  CKtFiler m_filer;
};

TEST_F(NumberedItems, AreFoundInAscendingOrderOfTheirNumbers) {
  load("<Point10 long=\"10\"/><Point2 long=\"2\"/><Other/><Point1 long=\"1\"/>");
  EXPECT_EQ(found(1, 10), "1:1 2:2 10:10 ");
}

TEST_F(NumberedItems, OutsideTheRangeAreLeftOut) {
  load("<Point0 long=\"0\"/><Point1 long=\"1\"/><Point2 long=\"2\"/><Point3 long=\"3\"/>");
  EXPECT_EQ(found(2, 2), "2:2 ");
  EXPECT_EQ(found(1, 0), "");
  EXPECT_EQ(found(0, 9), "1:1 2:2 3:3 ");
}

TEST_F(NumberedItems, OfANumberTheFirstIsFound) {
  load("<Point2 long=\"21\"/><Point1 long=\"11\"/><Point2 long=\"22\"/><Point1 long=\"12\"/>");
  EXPECT_EQ(found(1, 2), "1:11 2:21 ");
}

TEST_F(NumberedItems, ANumberCountsOnlyAsItIsPrinted) {
  load(
      "<Point01 long=\"1\"/><Point long=\"2\"/><Point1x long=\"3\"/><Point1.0 long=\"4\"/>"
      "<point1 long=\"5\"/><Points1 long=\"6\"/><Point-0 long=\"7\"/><Point-05 long=\"7\"/>"
      "<Point99999999999 long=\"8\"/>");
  EXPECT_EQ(found(0, 0xFFFFFFFFU), "");
}

TEST_F(NumberedItems, NumbersBeyondThirtyOneBitsStandAsNegativeOnes) {
  load("<Point-1 long=\"1\"/><Point2147483647 long=\"2\"/><Point-2147483648 long=\"3\"/>");
  EXPECT_EQ(found(1, 0xFFFFFFFFU), "2147483647:2 2147483648:3 4294967295:1 ");
}

TEST_F(NumberedItems, NodesOfAnyKindAreFoundByTheirNames) {
  load("<?Point1 data?><Point1 long=\"1\"/>text<!--c-->");
  EXPECT_EQ(found(1, 1), "1:- ");
}

TEST_F(NumberedItems, AnAbsurdRangeCostsNoMoreThanTheItemsThereAre) {
  load("<Point7 long=\"7\"/>");
  EXPECT_EQ(found(1, 0xFFFFFFFFU), "7:7 ");
}

// --- items in the order they are filed in ----------------------------------------------------

TEST_F(NumberedItems, InOrderAreFollowedAsLongAsTheOrderIsKept) {
  load("<NoPoints long=\"3\"/><Point1 long=\"1\"/><Point2 long=\"2\"/><Point4 long=\"4\"/>");
  items::ItemsInOrder items(ItemAccess::scope(m_filer));
  EXPECT_FALSE(items.next("Point", 1));
  EXPECT_TRUE(items.next("NoPoints"));
  EXPECT_TRUE(items.next("Point", 1));
  EXPECT_TRUE(items.next("Point", 2));
  EXPECT_EQ(quorvan::nodeName(items.item()), L"Point2");
  EXPECT_FALSE(items.next("Point", 3));
  EXPECT_EQ(quorvan::nodeName(items.item()), L"Point2");
  EXPECT_TRUE(items.next("Point", 4));
  EXPECT_FALSE(items.next("Point", 5));
}

TEST_F(NumberedItems, InOrderEndWithTheChildren) {
  load("");
  items::ItemsInOrder items(ItemAccess::scope(m_filer));
  EXPECT_FALSE(items.next("Point", 1));
  EXPECT_EQ(items.item(), nullptr);
}

}  // namespace
}  // namespace quorvan::test
