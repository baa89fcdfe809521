#include <tools/diff/element_content.h>

#include <cmath>

#include <tools/listing/item_cells.h>
#include <tools/model/bar.h>
#include <tools/model/series_layout.h>
#include <tools/model/series_spans.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kIndexItem = "Index";
constexpr char kSeparator = '\n';

bool areNear(double a, double b, double tolerance) {
  return a == b || std::abs(a - b) <= tolerance;
}

bool areNear(const Coordinates& a, const Coordinates& b, double tolerance) {
  return areNear(a.x, b.x, tolerance) && areNear(a.y, b.y, tolerance) &&
         areNear(a.z, b.z, tolerance);
}

bool haveEqualNumbers(const Content& a, const Content& b, double tolerance) {
  if (a.discrete != b.discrete || a.numbers.size() != b.numbers.size() ||
      a.points.size() != b.points.size()) {
    return false;
  }
  for (std::size_t i = 0; i < a.numbers.size(); ++i) {
    if (!areNear(a.numbers[i], b.numbers[i], tolerance)) {
      return false;
    }
  }
  return true;
}

std::string lengthText(const Repartition& series, const Bar& bar) {
  const std::vector<double> spans = seriesSpans(series, bar);
  if (!spans.empty()) {
    return spacingText(spans);
  }
  return bar.hasLength() ? rounded(lengthOf(bar), 1) : "-";
}

void addDirection(const Coordinates& vector, std::vector<double>& numbers) {
  numbers.insert(numbers.end(), {vector.x, vector.y, vector.z});
}

}  // namespace

const Content& ContentReader::read(const Element& element) {
  m_content.discrete.assign(element.className());
  m_content.numbers.clear();
  m_content.points.clear();
  if (element.schema == nullptr) {
    return m_content;
  }
  const std::vector<ItemValue>& items = m_reader.read(element);
  const bool isSeries = element.is(items::ElementClass::kRepartition);
  for (const ItemValue& item : items) {
    m_content.discrete += kSeparator;
    if (isSeries && item.schema->name == kIndexItem) {
      m_content.discrete += repeatedBar(items);
    } else if (item.isMissing()) {
      m_content.discrete += '-';
    } else {
      add(item);
    }
  }
  return m_content;
}

void ContentReader::add(const ItemValue& item) {
  switch (item.schema->kind) {
    case items::Kind::kPoint:
      m_content.points.push_back(item.point);
      return;
    case items::Kind::kVector:
      return addDirection(item.point, m_content.numbers);
    case items::Kind::kDouble:
      m_content.numbers.push_back(item.number);
      return;
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      m_content.discrete += std::to_string(item.points.size());
      m_content.points.insert(m_content.points.end(), item.points.begin(), item.points.end());
      return;
    case items::Kind::kSegmentList:
      m_content.discrete += std::to_string(item.segments.size());
      for (const Segment& segment : item.segments) {
        m_content.points.push_back(segment.start);
        m_content.points.push_back(segment.end);
        addDirection(segment.bulge, m_content.numbers);
      }
      return;
    case items::Kind::kDoubleList:
      m_content.discrete += std::to_string(item.numbers.size());
      m_content.numbers.insert(m_content.numbers.end(), item.numbers.begin(), item.numbers.end());
      return;
    case items::Kind::kLong:
    case items::Kind::kColor:
    case items::Kind::kString:
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
    case items::Kind::kAdherence:
      m_content.discrete += itemCell(item);
  }
}

ContentReader::Texts ContentReader::texts(const Element& element) {
  Texts texts;
  if (element.schema == nullptr) {
    return texts;
  }
  const std::vector<ItemValue>& items = m_reader.read(element);
  if (element.is(items::ElementClass::kRepartition)) {
    addSeriesTexts(items, texts);
    return texts;
  }
  for (const ItemValue& item : items) {
    texts.emplace_back(displayName(*item.schema), item.isMissing() ? "-" : itemCell(item));
  }
  return texts;
}

// Number, spacing and length in the place of the lists, as people speak of a series.
void ContentReader::addSeriesTexts(const std::vector<ItemValue>& items, Texts& texts) {
  const Repartition series = toRepartition(items);
  const Bar* const bar = m_repeated.find(series);
  texts.emplace_back("number", std::to_string(series.number()));
  texts.emplace_back("spacing", spacingText(statedSpacings(series, bar)));
  texts.emplace_back("length", bar == nullptr ? "-" : lengthText(series, *bar));
  for (const ItemValue& item : items) {
    const std::string_view name = item.schema->name;
    if (name == kIndexItem) {
      texts.emplace_back("repeated bar", repeatedBar(items));
    } else if (item.schema->kind == items::Kind::kDoubleList) {
      if (name != "Positions") {
        texts.emplace_back(displayName(*item.schema), spacingText(item.numbers));
      }
    } else {
      texts.emplace_back(displayName(*item.schema), item.isMissing() ? "-" : itemCell(item));
    }
  }
}

std::string ContentReader::repeatedMark(const Element& series) {
  const Repartition repartition = toRepartition(m_reader.read(series));
  const Bar* const bar = m_repeated.find(repartition);
  return bar == nullptr ? std::string()
                        : repartition.className + kSeparator + std::to_string(bar->reference);
}

std::string ContentReader::repeatedBar(const std::vector<ItemValue>& items) {
  const Bar* const bar = m_repeated.find(toRepartition(items));
  if (bar == nullptr) {
    return "none";
  }
  return "mark " + std::to_string(bar->reference) + ", diameter " + rounded(bar->diameter, 3) +
         ' ' + bar->grade;
}

bool areEqual(const Content& a, const Content& b, double tolerance) {
  if (!haveEqualNumbers(a, b, tolerance)) {
    return false;
  }
  for (std::size_t i = 0; i < a.points.size(); ++i) {
    if (!areNear(a.points[i], b.points[i], tolerance)) {
      return false;
    }
  }
  return true;
}

bool areMoved(const Content& a, const Content& b, double tolerance, Coordinates& by) {
  if (a.points.empty() || !haveEqualNumbers(a, b, tolerance)) {
    return false;
  }
  by = {b.points.front().x - a.points.front().x, b.points.front().y - a.points.front().y,
        b.points.front().z - a.points.front().z};
  for (std::size_t i = 1; i < a.points.size(); ++i) {
    const Coordinates& point = a.points[i];
    if (!areNear({point.x + by.x, point.y + by.y, point.z + by.z}, b.points[i], tolerance)) {
      return false;
    }
  }
  return true;
}

}  // namespace quorvan::tool
