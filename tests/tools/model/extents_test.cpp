#include <tools/model/extents.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include <quorvan/elements/element_classes.h>

#include <tests/tools/item_samples.h>
#include <tests/tools/loaded_file.h>
#include <tools/model/description.h>

namespace {

using quorvan::test::elementText;
using quorvan::test::loadedElements;
using quorvan::tool::Coordinates;
using quorvan::tool::Extents;
using quorvan::tool::placeText;
namespace items = quorvan::items;

// "(0, 0, 0)-(1, 2, 3)", or "none".
std::string boxAround(const std::string& elements) {
  const auto extents = extentsOf(loadedElements(elements).file());
  return extents ? placeText(extents->least) + '-' + placeText(extents->most) : "none";
}

std::string pointNamed(const std::string& name, double x, double y, double z) {
  return '<' + name + " X='" + std::to_string(x) + "' Y='" + std::to_string(y) + "' Z='" +
         std::to_string(z) + "'/>";
}

std::string lineBetween(const Coordinates& from, const Coordinates& to) {
  return "<CKtZantoLine>" + pointNamed("Point1", from.x, from.y, from.z) +
         pointNamed("Point2", to.x, to.y, to.z) + "</CKtZantoLine>";
}

TEST(ToolExtents, AreOfAPointAtFirst) {
  const Extents extents(Coordinates{1, 2, 3});
  EXPECT_EQ(extents.least, (Coordinates{1, 2, 3}));
  EXPECT_EQ(extents.most, (Coordinates{1, 2, 3}));
}

TEST(ToolExtents, GrowToWhatTheyInclude) {
  Extents extents(Coordinates{1, 2, 3});
  extents.include({-1, 5, 3});
  EXPECT_EQ(extents.least, (Coordinates{-1, 2, 3}));
  EXPECT_EQ(extents.most, (Coordinates{1, 5, 3}));
  extents.include({0, 3, 3});
  EXPECT_EQ(extents.least, (Coordinates{-1, 2, 3})) << "a point inside";
}

TEST(ToolExtents, AreNoneWithoutPoints) {
  EXPECT_EQ(boxAround(""), "none");
  EXPECT_EQ(boxAround("<CKtZantoLine/>"), "none");
  EXPECT_EQ(boxAround("<CKtDrawingControl/>"), "none");
  EXPECT_EQ(boxAround("<Unknown>" + pointNamed("Point1", 1, 2, 3) + "</Unknown>"), "none");
}

TEST(ToolExtents, GoRoundAllPointsOfAllElements) {
  EXPECT_EQ(boxAround(lineBetween({0, 5, 1}, {10, -5, 2})), "(0, -5, 1)-(10, 5, 2)");
  EXPECT_EQ(boxAround(lineBetween({0, 0, 0}, {1, 1, 0}) + lineBetween({7, 8, 9}, {1, 1, 0})),
            "(0, 0, 0)-(7, 8, 9)");
}

TEST(ToolExtents, DoNotReachToTheOriginForAPointThatIsMissing) {
  EXPECT_EQ(boxAround("<CKtZantoLine>" + pointNamed("Point1", 5, 6, 7) + "</CKtZantoLine>"),
            "(5, 6, 7)-(5, 6, 7)");
}

TEST(ToolExtents, IncludeCirclesInFull) {
  const std::string center = pointNamed("Center", 10, 20, 3);
  EXPECT_EQ(boxAround("<CKtZantoCircle>" + center + "<Radius double='5'/></CKtZantoCircle>"),
            "(5, 15, 3)-(15, 25, 3)");
  EXPECT_EQ(boxAround("<CKtZantoFrameCirc>" + center + pointNamed("StartPoint", 15, 20, 3) +
                      "<FrameRadius double='5'/></CKtZantoFrameCirc>"),
            "(5, 15, 3)-(15, 25, 3)");
  EXPECT_EQ(boxAround("<CKtZantoCircle><Radius double='5'/></CKtZantoCircle>"), "none");
}

TEST(ToolExtents, IncludeArcsUpToTheirApex) {
  const std::string formwork = "<CKtZantoFormwork><Vector size='2'>" +
                               pointNamed("Point1", 0, 0, 0) + pointNamed("Point2", 10, 0, 0) +
                               pointNamed("Bulge1", 0, 5, 0) + "</Vector></CKtZantoFormwork>";
  EXPECT_EQ(boxAround(formwork), "(0, 0, 0)-(10, 5, 0)");
}

TEST(ToolExtents, LeaveOutPointsBeyondReckoning) {
  const std::string huge(400, '9');
  EXPECT_EQ(boxAround("<CKtZantoLine><Point1 X='" + huge + "' Y='0' Z='0'/>" +
                      pointNamed("Point2", 1, 2, 3) + "</CKtZantoLine>"),
            "(1, 2, 3)-(1, 2, 3)");
  EXPECT_EQ(boxAround("<CKtZantoCircle>" + pointNamed("Center", 1, 2, 3) + "<Radius double='" +
                      huge + "'/></CKtZantoCircle>"),
            "none");
}

std::string seriesWith(int bars, int positions) {
  const auto list = [](const std::string& name, const std::string& stem, int count) {
    std::string text = '<' + name + " size='" + std::to_string(count) + "'>";
    for (int i = 1; i <= count; ++i) {
      text += '<' + stem + std::to_string(i) + " double='100'/>";
    }
    return text + "</" + name + '>';
  };
  return "<CKtZantoRepartition>" + pointNamed("Point1", 1, 1, 0) + pointNamed("Point2", 9, 1, 0) +
         pointNamed("Bulge", 50, 50, 50) + list("AxisDistancesTop", "DistanceTop", bars) +
         list("AxisDistancesBottom", "DistanceBottom", bars) +
         list("Positions", "Positions", positions) + "</CKtZantoRepartition>";
}

TEST(ToolExtents, IncludeARepartitionOnlyWithALineOfItsOwn) {
  EXPECT_EQ(boxAround(seriesWith(3, 2)), "(1, 1, 0)-(9, 1, 0)");
  EXPECT_EQ(boxAround(seriesWith(0, 3)), "none");
  EXPECT_EQ(boxAround(seriesWith(3, 3)), "none");
}

TEST(ToolExtents, HoldEveryElementOfAnyDrawingWhateverTheirOrder) {
  std::mt19937 random(35);
  for (int round = 0; round < 20; ++round) {
    std::vector<std::string> elements;
    for (const items::ElementSchema& schema : items::allElements()) {
      elements.push_back(elementText(schema, quorvan::test::randomItems(schema, random)));
    }
    std::string all;
    for (const std::string& element : elements) {
      all += element;
    }
    const auto whole = extentsOf(loadedElements(all).file());
    ASSERT_TRUE(whole.has_value());
    for (const std::string& element : elements) {
      const auto one = extentsOf(loadedElements(element).file());
      if (!one) {
        continue;
      }
      Extents both = *whole;
      both.include(one->least);
      both.include(one->most);
      EXPECT_EQ(both.least, whole->least) << element;
      EXPECT_EQ(both.most, whole->most) << element;
    }
    const std::string before = boxAround(all);
    std::shuffle(elements.begin(), elements.end(), random);
    all.clear();
    for (const std::string& element : elements) {
      all += element;
    }
    EXPECT_EQ(boxAround(all), before);
  }
}

}  // namespace
