// What the labels of a drawing say is what its bar list says.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <regex>
#include <set>
#include <tuple>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/schedule/listed_bars.h>
#include <tools/model/item_reader.h>
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
      const double high = y + 200.0 + below(3000);
      const int count = 2 + below(6);
      test::SeriesParts series = test::uprightBars(x + 9000, y, high, count, 200);
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

bool contains(const std::vector<const Element*>& some, const Element& element) {
  return std::ranges::find(some, &element) != some.end();
}

std::string adherenceOf(const TransferFile& file, const Element& element) {
  const auto shape = barShapeOf(element);
  return shape ? toBar(*shape, ItemReader(file).read(element)).adherence : std::string();
}

// What the element is counted under; a bar seen end-on, whose adherence the list passes over, among
// those of its own where there are any.
LabelSteel listedSteel(const test::ListedBars& listed, const Element& element) {
  for (const BarRow& row : listed.list().rows) {
    if (contains(row.endOn, element)) {
      LabelSteel own = steelOf(row);
      std::get<3>(own) = adherenceOf(listed.file(), element);
      const bool isThere =
          std::ranges::find(listed.list().rows, own, steelOf) != listed.list().rows.end();
      return isThere ? own : steelOf(row);
    }
    for (const SourceElements& source : row.sources) {
      if (contains(source.elements, element)) {
        return steelOf(row);
      }
    }
  }
  ADD_FAILURE() << "not in the list";
  return {};
}

std::vector<const BarRow*> rowsLike(const test::ListedBars& listed, const Element& element) {
  const LabelSteel steel = listedSteel(listed, element);
  std::vector<const BarRow*> rows;
  for (const BarRow& row : listed.list().rows) {
    if (steelOf(row) == steel) {
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
    const std::vector<const BarRow*> rows = rowsLike(listed, element);
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
