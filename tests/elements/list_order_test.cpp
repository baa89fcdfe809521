// Lists whose entries stand in any order, repeated, with gaps, incomplete and among strangers,
// against a direct reading: number after number, the first entry of that name.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

constexpr int kElements = 300;

/// A list as it stands in a file, and what the first entry of each number holds.
struct RandomList {
  std::string entries;
  std::map<int, std::optional<double>> first;  // without a value: an entry of another kind

  [[nodiscard]] std::optional<double> at(int number) const {
    const auto found = first.find(number);
    return found == first.end() ? std::nullopt : found->second;
  }
};

class RandomLists {
 public:
  explicit RandomLists(unsigned int seed) : m_engine(seed) {}

  int below(int limit) { return static_cast<int>(m_engine() % static_cast<unsigned int>(limit)); }

  /// Entries of that stem; `item` makes one from its name and value.
  template <class Item>
  RandomList make(const std::string& stem, int count, const Item& item) {
    RandomList list;
    for (const int number : numbers(count)) {
      const double value = below(1000);
      const bool complete = below(12) != 0;
      const std::string name = numbered(stem, number);
      list.entries += complete ? item(name, value) : rawItem(name, "text=\"1\"");
      list.first.try_emplace(number, complete ? std::optional(value) : std::nullopt);
      if (below(8) == 0) {
        list.entries += item(stranger(stem), 9);
      }
    }
    return list;
  }

 private:
  // In order up to some number, then shuffled, with gaps and repetitions.
  std::vector<int> numbers(int count) {
    std::vector<int> numbers;
    for (int i = 1; i <= count + 1; ++i) {
      const int times = below(10) == 0 ? 0 : below(10) == 0 ? 2 : 1;
      numbers.insert(numbers.end(), static_cast<std::size_t>(times), i);
    }
    if (!numbers.empty() && below(3) != 0) {
      const auto inOrder = below(static_cast<int>(numbers.size()));
      std::shuffle(numbers.begin() + inOrder, numbers.end(), m_engine);
    }
    return numbers;
  }

  // Names that only look like those of entries.
  std::string stranger(const std::string& stem) {
    const std::string names[] = {stem,        stem + "01", stem + "1x",  stem + "-0", stem + "0",
                                 stem + "_1", "x" + stem,  stem + "1.0", stem + "--1"};
    return names[below(9)];
  }

  std::mt19937 m_engine;
};

std::string point(const std::string& name, double x) {
  return pointItem(name, CKtPnt3D(x, 0, 0));
}

/// Reads `kElements` elements, each made and checked by the case that belongs to it.
template <class Element, class Case, class Make, class Check>
void readAll(const Make& make, const Check& check) {
  RandomLists random(20240519);
  std::vector<Case> cases;
  std::string elements;
  for (int i = 0; i < kElements; ++i) {
    cases.push_back(make(random));
    elements += classElement(ElementModel<Element>::kClassName, i + 1, cases.back().items);
  }
  writeBytes(kFile, transferFile(elements));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kFileName), 1);
  for (const Case& one : cases) {
    SCOPED_TRACE(one.items);
    Element element;
    const int result = element.fileIn(&filer);
    check(one, element, result);
  }
}

/// One list and the count announced.
struct ListCase {
  std::string items;
  int count;
  RandomList list;
};

// The values of the entries that are there.
std::vector<double> present(const ListCase& one, bool& complete) {
  std::vector<double> values;
  for (int number = 1; number <= one.count; ++number) {
    if (const auto value = one.list.at(number)) {
      values.push_back(*value);
    } else {
      complete = false;
    }
  }
  return values;
}

std::vector<double> xs(const std::vector<CKtPnt3D>& points) {
  std::vector<double> values;
  for (const CKtPnt3D& p : points) {
    values.push_back(p.X());
  }
  return values;
}

TEST(ListOrder, OfAFilledPolygon) {
  readAll<CKtFilledPolygon, ListCase>(
      [](RandomLists& random) {
        const int count = random.below(12);
        const RandomList list = random.make("Point", count, point);
        return ListCase{listItem("Vector", count, list.entries) + longItem("Color", 1), count,
                        list};
      },
      [](const ListCase& one, const CKtFilledPolygon& polygon, int result) {
        bool complete = true;
        const auto expected = present(one, complete);
        std::vector<CKtPnt3D> points;
        polygon.getPoints(points);
        EXPECT_EQ(xs(points), expected);
        EXPECT_EQ(result, complete ? 1 : 0);
      });
}

TEST(ListOrder, OfAMesh) {
  const auto items = itemTexts<CKtZantoMesh>(sampleValues<CKtZantoMesh>(0));
  const std::string scalars = joined({items.begin(), items.end() - 1});
  readAll<CKtZantoMesh, ListCase>(
      [&](RandomLists& random) {
        const int count = random.below(12);
        const RandomList list = random.make("Point", count, point);
        return ListCase{scalars + listItem("Vector", count, list.entries), count, list};
      },
      [](const ListCase& one, const CKtZantoMesh& mesh, int result) {
        bool complete = true;
        const auto expected = present(one, complete);
        EXPECT_EQ(xs(mesh.GetPoints()), expected);
        EXPECT_EQ(result, complete ? 1 : 0);
      });
}

TEST(ListOrder, OfARepartition) {
  auto items = itemTexts<CKtZantoRepartition>(sampleValues<CKtZantoRepartition>(0));
  readAll<CKtZantoRepartition, ListCase>(
      [&](RandomLists& random) {
        const int count = random.below(12);
        const RandomList list = random.make("DistanceTop", count, doubleItem);
        items[5] = listItem("AxisDistancesTop", count, list.entries);
        return ListCase{joined(items), count, list};
      },
      [](const ListCase& one, const CKtZantoRepartition& repartition, int result) {
        std::vector<double> expected;
        bool complete = true;
        double last = 0;
        for (int number = 1; number <= one.count; ++number) {
          const auto value = one.list.at(number);
          complete = complete && value.has_value();
          last = value.value_or(last);
          expected.push_back(last);
        }
        std::vector<double> values;
        repartition.getAxisDistancesTop(values);
        EXPECT_EQ(values, expected);
        EXPECT_EQ(result, complete ? 1 : 0);
      });
}

TEST(ListOrder, OfAPolygonBar) {
  auto items = itemTexts<CKtZantoPolygonBar>(sampleValues<CKtZantoPolygonBar>(0));
  readAll<CKtZantoPolygonBar, ListCase>(
      [&](RandomLists& random) {
        const int count = random.below(12);
        const RandomList list = random.make("Point", count, point);
        const bool numberFirst = random.below(2) == 0;
        items[0] = (numberFirst ? longItem("NoPoints", count) : "") + list.entries +
                   (numberFirst ? "" : longItem("NoPoints", count));
        return ListCase{joined(items), count, list};
      },
      [](const ListCase& one, const CKtZantoPolygonBar& bar, int result) {
        bool complete = true;
        ASSERT_EQ(bar.getNoPoints(), one.count);
        for (int number = 1; number <= one.count; ++number) {
          const auto value = one.list.at(number);
          complete = complete && value.has_value();
          EXPECT_EQ(bar.getPoint(number - 1).X(), value.value_or(0)) << number;
        }
        EXPECT_EQ(result, complete ? 1 : 0);
      });
}

/// The points and the bulges of a formwork, mixed.
struct SegmentCase {
  std::string items;
  int count;
  RandomList points;
  RandomList bulges;
};

std::vector<double> presentUpTo(int last, const RandomList& list, bool& complete) {
  return present({"", last, list}, complete);
}

TEST(ListOrder, OfAFormwork) {
  const auto bulge = [](const std::string& name, double x) {
    return vectorItem(name, CKtVect3D(x, 0, 0));
  };
  readAll<CKtZantoFormwork, SegmentCase>(
      [&](RandomLists& random) {
        const int count = random.below(16);
        const RandomList points = random.make("Point", count, point);
        const RandomList bulges = random.make("Bulge", count / 2, bulge);
        const std::string entries = random.below(2) == 0 ? points.entries + bulges.entries
                                                         : bulges.entries + points.entries;
        return SegmentCase{listItem("Vector", count, entries), count, points, bulges};
      },
      [](const SegmentCase& one, const CKtZantoFormwork& formwork, int result) {
        bool complete = true;
        const auto expectedPoints = presentUpTo(one.count / 2 * 2, one.points, complete);
        const auto expectedBulges = presentUpTo(one.count / 2, one.bulges, complete);
        std::vector<CKtPnt3D> points;
        std::vector<CKtVect3D> bulges;
        formwork.getPoints(points);
        formwork.getBulges(bulges);
        EXPECT_EQ(xs(points), expectedPoints);
        ASSERT_EQ(bulges.size(), expectedBulges.size());
        for (std::size_t i = 0; i < bulges.size(); ++i) {
          EXPECT_EQ(bulges[i].X(), expectedBulges[i]);
        }
        EXPECT_EQ(result, complete ? 1 : 0);
      });
}

// Segment by segment, as they are filed, with one entry moved, repeated or taken away.
TEST(ListOrder, OfAFormworkFiledInOrder) {
  std::vector<std::string> entries;
  for (int k = 1; k <= 3; ++k) {
    entries.push_back(point(numbered("Point", 2 * k - 1), 2 * k - 1));
    entries.push_back(point(numbered("Point", 2 * k), 2 * k));
    entries.push_back(vectorItem(numbered("Bulge", k), CKtVect3D(k, 0, 0)));
  }
  for (std::size_t from = 0; from < entries.size(); ++from) {
    auto moved = entries;
    std::rotate(moved.begin(), moved.begin() + static_cast<std::ptrdiff_t>(from), moved.end());
    moved.insert(moved.begin() + 4, entries[from]);
    CKtZantoFormwork formwork;
    EXPECT_EQ(readItems(listItem("Vector", 6, joined(moved)), formwork), 1);
    std::vector<CKtPnt3D> points;
    formwork.getPoints(points);
    EXPECT_EQ(xs(points), (std::vector<double>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(formwork.getBulgeAt(0).X() + 10 * formwork.getBulgeAt(1).X() +
                  100 * formwork.getBulgeAt(2).X(),
              321.0);
  }
}

}  // namespace
}  // namespace quorvan::test
