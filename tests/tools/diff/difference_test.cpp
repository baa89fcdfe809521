// Which elements of two drawings belong together.
#include <tools/diff/difference.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>

namespace quorvan::tool {

namespace {

using test::barOf;
using test::circleOf;
using test::lineOf;
using test::textOf;

// Two files and what they differ by.
class Compared {
 public:
  Compared(const std::string& before, const std::string& after, double tolerance = 0.001)
      : m_before(read("before.xml", before)),
        m_after(read("after.xml", after)),
        m_differences(compareFiles(m_before, m_after, tolerance, m_console)) {}

  [[nodiscard]] const std::vector<Difference>& all() const { return m_differences; }
  [[nodiscard]] std::ptrdiff_t count(DifferenceKind kind) const {
    return std::ranges::count(m_differences, kind, &Difference::kind);
  }
  [[nodiscard]] std::size_t elementsBefore() const { return m_before.elements().size(); }
  [[nodiscard]] std::size_t elementsAfter() const { return m_after.elements().size(); }

  // "moved 0>2": the kind, then the places in both files.
  [[nodiscard]] std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const Difference& one : m_differences) {
      std::string text(differenceName(one.kind));
      text += ' ';
      text += one.before == nullptr ? "-" : std::to_string(one.before->place);
      text += '>';
      text += one.after == nullptr ? "-" : std::to_string(one.after->place);
      texts.push_back(text);
    }
    return texts;
  }

 private:
  TransferFile read(const std::string& name, const std::string& elements) {
    test::writeFile(name, test::documentOf(elements));
    return TransferFile(name, m_console);
  }

  std::ostringstream m_out;
  std::ostringstream m_err;
  Console m_console{m_out, m_err};
  TransferFile m_before;
  TransferFile m_after;
  std::vector<Difference> m_differences;
};

using Texts = std::vector<std::string>;

std::string lineAt(double x, double length = 100.0) {
  return lineOf({x, 0, 0}, {x + length, 0, 0});
}

TEST(ToolDiffPairs, AreEqualOnesFirst) {
  // The second of the one is the first of the other: nothing moved.
  EXPECT_EQ(Compared(lineAt(0) + lineAt(50), lineAt(50)).texts(), Texts{"deleted 0>-"});
  EXPECT_EQ(Compared(lineAt(50), lineAt(0) + lineAt(50)).texts(), Texts{"added ->0"});
  EXPECT_EQ(Compared(lineAt(0) + lineAt(50), lineAt(50) + lineAt(70)).texts(), Texts{"moved 0>1"});
}

TEST(ToolDiffPairs, OfMovedElementsAreTheNearest) {
  const Compared result(lineAt(0), lineAt(900) + lineAt(-30) + lineAt(50));
  EXPECT_EQ(result.texts(), (Texts{"added ->0", "added ->2", "moved 0>1"}));
  EXPECT_EQ(result.all().back().by, (Coordinates{-30, 0, 0}));
}

// Bars at even distances would find each other's neighbours instead.
TEST(ToolDiffPairs, FollowADrawingThatWasMovedAsAWhole) {
  const auto drawing = [](double by) {
    std::string elements;
    for (int i = 0; i < 9; ++i) {
      elements += lineAt(by + 10.0 * i);
    }
    return elements + circleOf({by + 3, 5, 0}, 7) + textOf({.contents = "A", .at = {by, 9, 0}}) +
           textOf({.contents = "B", .at = {by, 19, 0}});
  };
  const Compared result(drawing(0), drawing(10));
  EXPECT_EQ(result.count(DifferenceKind::kMoved), 12);
  ASSERT_EQ(result.all().size(), 12U);
  for (const Difference& one : result.all()) {
    EXPECT_EQ(one.by, (Coordinates{10, 0, 0}));
    EXPECT_EQ(one.before->place, one.after->place);
  }
}

// A frame that stays while its contents are moved has no majority.
TEST(ToolDiffPairs, StayWhereMostOfADrawingDid) {
  const std::string texts = textOf({.contents = "A", .at = {0, 9, 0}}) +
                            textOf({.contents = "B", .at = {0, 19, 0}}) +
                            textOf({.contents = "C", .at = {0, 29, 0}});
  EXPECT_EQ(Compared(texts + lineAt(0) + circleOf({5, 5, 0}, 7),
                     texts + lineAt(10) + circleOf({15, 5, 0}, 7))
                .texts(),
            (Texts{"moved 3>3", "moved 4>4"}));
}

TEST(ToolDiffPairs, OfMovedElementsAreAlikeInEverythingElse) {
  EXPECT_EQ(Compared(lineAt(0), lineAt(500, 101)).texts(), (Texts{"deleted 0>-", "added ->0"}));
  EXPECT_EQ(Compared(lineAt(0), lineOf({500, 0, 0}, {600, 0, 0}, 3)).texts(),
            (Texts{"deleted 0>-", "added ->0"}));
  EXPECT_EQ(Compared(lineAt(0), lineOf({0, 500, 0}, {100, 500, 0})).texts(), Texts{"moved 0>0"});
  EXPECT_EQ(Compared(lineAt(0), lineOf({0, 0, 40}, {100, 0, 40})).texts(), Texts{"moved 0>0"});
}

TEST(ToolDiffPairs, AtOnePlaceAreChangedElements) {
  const Compared result(circleOf({5, 5, 0}, 10, 1), circleOf({5, 5, 0}, 12, 3));
  ASSERT_EQ(result.texts(), Texts{"changed 0>0"});
  const std::vector<ItemChange>& items = result.all()[0].items;
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].item, "Radius");
  EXPECT_EQ(items[0].before, "10");
  EXPECT_EQ(items[0].after, "12");
  EXPECT_EQ(items[1].item, "Color");
  EXPECT_EQ(items[1].before, "1");
  EXPECT_EQ(items[1].after, "3");
}

TEST(ToolDiffPairs, AreOfOneClass) {
  EXPECT_EQ(Compared(lineOf({5, 5, 0}, {5, 5, 0}), circleOf({5, 5, 0}, 0)).texts(),
            (Texts{"deleted 0>-", "added ->0"}));
  const test::BarParts pin{.className = "Pin", .points = {{0, 0, 0}, {9, 0, 0}}, .mark = 4};
  test::BarParts straight = pin;
  straight.className = "StraightBar";
  EXPECT_EQ(Compared(barOf(pin), barOf(straight)).texts(), (Texts{"deleted 0>-", "added ->0"}));
}

TEST(ToolDiffPairs, ElsewhereAreKnownByMarkReferenceOrContents) {
  const auto bar = [](double x, double length, long mark) {
    return barOf({.points = {{x, 0, 0}, {x + length, 0, 0}}, .mark = mark});
  };
  EXPECT_EQ(Compared(bar(0, 100, 4), bar(50, 200, 4)).texts(), Texts{"changed 0>0"});
  EXPECT_EQ(Compared(bar(0, 100, 4), bar(50, 200, 5)).texts(), (Texts{"deleted 0>-", "added ->0"}));
  const auto text = [](double x, double height, const std::string& contents) {
    return textOf({.contents = contents, .at = {x, 0, 0}, .height = height});
  };
  EXPECT_EQ(Compared(text(0, 50, "A"), text(9, 60, "A")).texts(), Texts{"changed 0>0"});
  EXPECT_EQ(Compared(text(0, 50, "A"), text(9, 60, "B")).texts(),
            (Texts{"deleted 0>-", "added ->0"}));
  const auto mesh = [](double x, const std::string& type) {
    return test::meshOf("T1", type, {{x, 0, 0}, {x + 10, 0, 0}, {x + 10, 20, 0}});
  };
  EXPECT_EQ(Compared(mesh(0, "ST 25"), mesh(40, "ST 35")).texts(), Texts{"changed 0>0"});
  EXPECT_EQ(Compared(circleOf({0, 0, 0}, 1), circleOf({9, 0, 0}, 2)).texts(),
            (Texts{"deleted 0>-", "added ->0"}));
}

// Of several bars of one mark that of which least changed.
TEST(ToolDiffPairs, OfChangedElementsHaveTheFewestChanges) {
  const auto bar = [](double x, double y, double diameter, const std::string& grade) {
    return barOf({.points = {{x, y, 0}, {x + 100, 2 * y, 0}},
                  .diameter = diameter,
                  .mark = 4,
                  .grade = grade});
  };
  const Compared result(bar(0, 0, 10, "B500B"),
                        bar(50, 60, 12, "B500A") + bar(50, 60, 10, "B500B"));
  EXPECT_EQ(result.texts(), (Texts{"added ->0", "changed 0>1"}));
  EXPECT_EQ(result.all().back().items.size(), 2U);
}

TEST(ToolDiffPairs, AtOnePlaceComeBeforeThoseOfOneMark) {
  const auto bar = [](double x, double length) {
    return barOf({.points = {{x, 0, 0}, {x + length, 0, 0}}, .mark = 4});
  };
  EXPECT_EQ(Compared(bar(0, 100) + bar(500, 100), bar(500, 150) + bar(700, 175)).texts(),
            (Texts{"changed 0>1", "changed 1>0"}));
}

TEST(ToolDiffPairs, OfTheControlRecordAreTheOnlyOnes) {
  const Compared result(test::controlOf("A", "1", 2, 3), test::controlOf("B", "1", 2, 4));
  ASSERT_EQ(result.texts(), Texts{"changed 0>0"});
  EXPECT_EQ(result.all()[0].items.size(), 2U);
}

TEST(ToolDiffTolerance, IsTheMostThatCountsAsEqual) {
  const auto circle = [](double x, double radius) { return circleOf({x, 0, 0}, radius); };
  EXPECT_TRUE(Compared(circle(0, 10), circle(0.5, 10.5), 0.5).all().empty());
  EXPECT_EQ(Compared(circle(0, 10), circle(0.5, 10.625), 0.5).texts(), Texts{"changed 0>0"});
  EXPECT_EQ(Compared(circle(0, 10), circle(0.625, 10), 0.5).texts(), Texts{"moved 0>0"});
  EXPECT_TRUE(Compared(circle(1e15, 10), circle(1e15, 10), 0.0).all().empty());
  EXPECT_EQ(Compared(circle(0, 10), circle(0.125, 10), 0.0).texts(), Texts{"moved 0>0"});
}

TEST(ToolDiffOrder, IsByKindThenByPlace) {
  const std::string before = lineAt(0) + circleOf({0, 500, 0}, 5) + lineAt(0, 70) +
                             circleOf({0, 900, 0}, 7) + circleOf({300, 0, 0}, 3);
  const std::string after =
      circleOf({0, 900, 0}, 8) + circleOf({0, 500, 0}, 6) + circleOf({300, 44, 0}, 3) +
      textOf({.contents = "new", .at = {0, 0, 0}}) + textOf({.contents = "newer", .at = {0, 0, 0}});
  EXPECT_EQ(Compared(before, after).texts(),
            (Texts{"deleted 0>-", "deleted 2>-", "added ->3", "added ->4", "moved 4>2",
                   "changed 1>1", "changed 3>0"}));
}

TEST(ToolDiffNames, AreThoseOfTheReport) {
  EXPECT_EQ(differenceName(DifferenceKind::kDeleted), "deleted");
  EXPECT_EQ(differenceName(DifferenceKind::kAdded), "added");
  EXPECT_EQ(differenceName(DifferenceKind::kMoved), "moved");
  EXPECT_EQ(differenceName(DifferenceKind::kChanged), "changed");
}

// Drawings by chance, element by element.
class RandomElements {
 public:
  explicit RandomElements(unsigned seed) : m_random(seed) {}

  std::size_t below(std::size_t most) { return m_random() % most; }
  double number() { return static_cast<double>(m_random() % 80001) / 8.0 - 5000.0; }

  // An element that moves by the vector with all its points.
  std::string element(const Coordinates& by, double extra = 0.0) {
    const auto point = [&] {
      return Coordinates{number() + by.x, number() + by.y, number() + by.z};
    };
    switch (below(6)) {
      case 0: {
        const Coordinates from = point();
        return lineOf(from, point(), 3);
      }
      case 1: {
        const Coordinates center = point();
        return circleOf(center, number() + extra, 3);
      }
      case 2: {
        const Coordinates at = point();
        return textOf(
            {.contents = "text " + std::to_string(below(4)), .at = at, .height = number() + extra});
      }
      case 3: {
        const Coordinates from = point();
        const Coordinates to = point();
        return barOf({.points = {from, to},
                      .hookLength1 = number() + extra,
                      .mark = static_cast<long>(below(5))});
      }
      case 4: {
        const Coordinates one = point();
        const Coordinates two = point();
        return test::fillOf({one, two, point()});
      }
      default: {
        const Coordinates one = point();
        const Coordinates two = point();
        return test::formworkOf({{one, two, {0, 7.5 + extra, 0}}});
      }
    }
  }

 private:
  std::mt19937 m_random;
};

std::vector<std::string> elementsOf(unsigned seed, std::size_t count, const Coordinates& by = {},
                                    double extra = 0.0) {
  RandomElements random(seed);
  std::vector<std::string> elements;
  for (std::size_t i = 0; i < count; ++i) {
    elements.push_back(random.element(by, extra));
  }
  return elements;
}

std::string joined(const std::vector<std::string>& elements) {
  std::string all;
  for (const std::string& one : elements) {
    all += one;
  }
  return all;
}

TEST(ToolDiffRandom, FindsNothingInAnotherOrder) {
  for (unsigned seed = 1; seed <= 8; ++seed) {
    std::vector<std::string> elements = elementsOf(seed, 40);
    elements.push_back(elements[3]);
    const std::string before = joined(elements);
    std::mt19937 random(seed);
    std::ranges::shuffle(elements, random);
    EXPECT_TRUE(Compared(before, joined(elements), 0.0).all().empty()) << seed;
  }
}

TEST(ToolDiffRandom, FindsWhatIsMissingOnEitherSide) {
  for (unsigned seed = 1; seed <= 8; ++seed) {
    const std::vector<std::string> elements = elementsOf(seed, 40);
    std::vector<std::string> fewer;
    std::vector<std::string> expectedDeleted;
    std::vector<std::string> expectedAdded;
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (i % 7 == seed % 7) {
        expectedDeleted.push_back("deleted " + std::to_string(i) + ">-");
        expectedAdded.push_back("added ->" + std::to_string(i));
      } else {
        fewer.push_back(elements[i]);
      }
    }
    EXPECT_EQ(Compared(joined(elements), joined(fewer)).texts(), expectedDeleted) << seed;
    EXPECT_EQ(Compared(joined(fewer), joined(elements)).texts(), expectedAdded) << seed;
  }
}

TEST(ToolDiffRandom, FindsOneVectorWhereEverythingMoved) {
  const Coordinates by{12.5, -2000, 0.125};
  for (unsigned seed = 1; seed <= 8; ++seed) {
    const Compared result(joined(elementsOf(seed, 40)), joined(elementsOf(seed, 40, by)));
    ASSERT_EQ(result.count(DifferenceKind::kMoved), 40) << seed;
    for (const Difference& one : result.all()) {
      EXPECT_NEAR(one.by.x, by.x, 1e-6);
      EXPECT_NEAR(one.by.y, by.y, 1e-6);
      EXPECT_NEAR(one.by.z, by.z, 1e-6);
      EXPECT_EQ(one.before->place, one.after->place);
    }
  }
}

// Whatever was done to a drawing: each element stands in one difference at most, and those that
// stand in none are equally many on both sides.
TEST(ToolDiffRandom, AccountsForEveryElementOnce) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    RandomElements random(seed + 100);
    const std::vector<std::string> before = elementsOf(seed, 30);
    const std::vector<std::string> moved = elementsOf(seed, 30, {0, 40, 0});
    const std::vector<std::string> changed = elementsOf(seed, 30, {}, 3.0);
    std::vector<std::string> after;
    for (std::size_t i = 0; i < before.size(); ++i) {
      const std::size_t what = random.below(5);
      if (what != 0) {
        after.push_back(what == 1 ? moved[i] : what == 2 ? changed[i] : before[i]);
      }
      if (random.below(6) == 0) {
        after.push_back(random.element({}));
      }
    }
    const Compared result(joined(before), joined(after));
    std::set<const Element*> seen;
    for (const Difference& one : result.all()) {
      EXPECT_EQ(one.before == nullptr, one.kind == DifferenceKind::kAdded);
      EXPECT_EQ(one.after == nullptr, one.kind == DifferenceKind::kDeleted);
      EXPECT_EQ(one.items.empty(), one.kind != DifferenceKind::kChanged);
      for (const Element* const element : {one.before, one.after}) {
        EXPECT_TRUE(element == nullptr || seen.insert(element).second) << "twice, seed " << seed;
      }
    }
    const auto paired =
        result.count(DifferenceKind::kMoved) + result.count(DifferenceKind::kChanged);
    const auto equalBefore = static_cast<std::ptrdiff_t>(result.elementsBefore()) -
                             result.count(DifferenceKind::kDeleted) - paired;
    const auto equalAfter = static_cast<std::ptrdiff_t>(result.elementsAfter()) -
                            result.count(DifferenceKind::kAdded) - paired;
    EXPECT_EQ(equalBefore, equalAfter) << seed;
    EXPECT_GT(equalBefore, 0) << seed;
    // Seen from the other side, what was deleted was added.
    const Compared mirrored(joined(after), joined(before));
    EXPECT_EQ(mirrored.count(DifferenceKind::kDeleted), result.count(DifferenceKind::kAdded));
    EXPECT_EQ(mirrored.count(DifferenceKind::kAdded), result.count(DifferenceKind::kDeleted));
  }
}

// A change within the tolerance is none, and one beyond it is told, wherever it is.
TEST(ToolDiffRandom, TellsTheToleranceFromBothSides) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    const std::string before = joined(elementsOf(seed, 25));
    const std::string after = joined(elementsOf(seed, 25, {0.25, 0.25, 0.25}, 0.25));
    EXPECT_TRUE(Compared(before, after, 0.2501).all().empty()) << seed;
    const Compared beyond(before, after, 0.2499);
    EXPECT_EQ(beyond.count(DifferenceKind::kDeleted) + beyond.count(DifferenceKind::kMoved) +
                  beyond.count(DifferenceKind::kChanged),
              25)
        << seed;
  }
}

// A thousand equal lines moved together are still told one by one, and quickly.
TEST(ToolDiffRandom, TellsManyEqualElements) {
  std::string before;
  std::string after;
  for (int i = 0; i < 1000; ++i) {
    before += lineAt(0);
    after += lineAt(25);
  }
  const Compared result(before, after);
  EXPECT_EQ(result.count(DifferenceKind::kMoved), 1000);
}

}  // namespace

}  // namespace quorvan::tool
