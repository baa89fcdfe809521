// What the labels of a drawing say is what its bar list says.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <regex>
#include <set>
#include <tuple>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/schedule/listed_bars.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

using LabelSteel = std::tuple<std::int64_t, double, std::string, std::string>;

LabelSteel steelOf(const BarRow& row) {
  return {row.mark, row.diameter, row.grade, row.adherence};
}

// A drawing whose marks are given without care: bars of several steels and lengths under one.
class CarelessDrawing {
 public:
  explicit CarelessDrawing(unsigned seed) : m_random(seed) {}

  std::string elements() {
    std::string all;
    const int count = 3 + below(8);
    for (int i = 1; i <= count; ++i) {
      all += bar(i);
    }
    return all;
  }

 private:
  int below(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most)); }

  std::string bar(int index) {
    static const char* const kClasses[] = {"StraightBar", "StraightBar", "LBar",
                                           "PointBar",    "FrameRect",   "Stirrup"};
    const double x = 100.0 * below(80);
    const double y = 1000.0 * index;
    const double length = 500.0 + below(4000);
    test::BarParts parts{.className = kClasses[below(6)],
                         .points = {{x, y, 0}, {x + length, y, 0}, {x + length, y + 300, 0}},
                         .diameter = 10.0 + 2.0 * below(2),
                         .mark = 1 + below(3),
                         .index = index,
                         .isHidden = below(5) == 0};
    parts.adherence = below(4) == 0 ? "Dx" : "Ha";
    parts.grade = below(4) == 0 ? "B500A" : "B500B";
    std::string text = test::barOf(parts);
    if (parts.className == "StraightBar" && below(2) == 0) {
      test::SeriesParts series =
          test::uprightBars(x + 9000, y, y + 200.0 + below(3000), 2 + below(6), 200);
      if (below(2) == 0) {
        for (double& top : series.top) {
          top += below(900);
        }
      }
      series.index = index;
      text += test::seriesOf(series);
    }
    return text;
  }

  std::mt19937 m_random;
};

// The rows of the steel that the element is counted under.
std::vector<const BarRow*> rowsLike(const BarList& list, const Element& element) {
  std::set<LabelSteel> steels;
  for (const BarRow& row : list.rows) {
    const auto has = [&element](const std::vector<const Element*>& some) {
      return std::ranges::find(some, &element) != some.end();
    };
    if (has(row.endOn) || std::ranges::any_of(row.sources, [&has](const SourceElements& source) {
          return has(source.elements);
        })) {
      steels.insert(steelOf(row));
    }
  }
  EXPECT_EQ(steels.size(), 1U);
  std::vector<const BarRow*> rows;
  for (const BarRow& row : list.rows) {
    if (steels.contains(steelOf(row))) {
      rows.push_back(&row);
    }
  }
  return rows;
}

// What a French label of these bars says.
std::string sayingOf(std::uint64_t number, const std::vector<const BarRow*>& rows) {
  double shortest = 1e9;
  double longest = 0.0;
  bool isLeast = false;
  for (const BarRow* const row : rows) {
    shortest = row->hasLength ? std::min(shortest, row->shortest) : shortest;
    longest = std::max(longest, row->longest);
    isLeast = isLeast || row->isLowerBound;
  }
  std::string text = std::to_string(number) + (rows.front()->adherence == "Dx" ? " Dx" : " HA") +
                     rounded(rows.front()->diameter, 2);
  if (longest > 0.0) {
    const std::string from = fixed(shortest / 1000.0, 2);
    const std::string to = fixed(longest / 1000.0, 2);
    text += isLeast      ? " L\u2265" + from
            : from == to ? " L=" + from
                         : " L=" + from + " \u00E0 " + to;
  }
  return text;
}

// The label of a series: number and lengths are those of the series alone.
void expectSeriesAsListed(const BarList& list, const Element& element, std::string text) {
  text = std::regex_replace(text, std::regex(R"(^\(\d+\) | e=[^L]*(?= L|$))"), "");
  for (const BarRow& row : list.rows) {
    for (const SeriesShare& share : row.series) {
      if (share.element == &element) {
        EXPECT_EQ(text, sayingOf(share.number, {&row}));
        return;
      }
    }
  }
  ADD_FAILURE() << text << " is not in the list";
}

void expectLabelsAsListed(const std::string& elements, Marks marks) {
  const test::ListedBars listed(elements);
  DrawOptions options;
  options.marks = marks;
  options.isWhole = true;
  options.language = Language::kFrench;
  std::set<LabelSteel> labelled;
  for (const Shape& shape : test::sceneOf(elements, options).scene.shapes) {
    const bool isBubble = std::ranges::all_of(shape.lettering.text,
                                              [](char unit) { return unit >= '0' && unit <= '9'; });
    if (shape.kind != Shape::Kind::kText || isBubble || shape.element == kNoElement ||
        (shape.layer != Layer::kMarks && shape.layer != Layer::kRepartitions)) {
      continue;
    }
    const Element& element = listed.file().elements()[shape.element];
    const std::vector<const BarRow*> rows = rowsLike(listed.list(), element);
    labelled.insert(steelOf(*rows.front()));
    if (shape.layer == Layer::kRepartitions) {
      expectSeriesAsListed(listed.list(), element, shape.lettering.text);
      continue;
    }
    std::uint64_t number = 0;
    for (const BarRow* const row : rows) {
      number += row->number;
    }
    EXPECT_EQ(shape.lettering.text, sayingOf(number, rows));
  }
  for (const BarRow& row : listed.list().rows) {
    EXPECT_TRUE(labelled.contains(steelOf(row))) << row.mark << " of " << row.diameter;
  }
}

TEST(ToolLabelsAndList, SayTheSameOfEveryBar) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(seed);
    const std::string elements = CarelessDrawing(seed).elements();
    expectLabelsAsListed(elements, seed % 2 == 0 ? Marks::kAuto : Marks::kAll);
  }
}

}  // namespace

}  // namespace quorvan::tool
