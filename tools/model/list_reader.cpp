#include <tools/model/list_reader.h>

#include <cstddef>
#include <string>
#include <string_view>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/filer/vocabulary.h>

#include <tools/model/list_entries.h>
#include <tools/text/counted_noun.h>

namespace quorvan::tool {

namespace {

std::string_view countName(bool isNumbered) {
  return isNumbered ? filer::kLongKind.text() : filer::kSizeName.text();
}

// Whether the count is what 16 bits leave of the number of entries.
bool isWrapped(std::int64_t count, std::size_t held) {
  return held > kLargestSize &&
         count == static_cast<std::int16_t>(static_cast<std::uint16_t>(held));
}

std::string entriesFound(std::string_view attribute, std::string_view announced, std::size_t held) {
  return quoted(attribute, announced) + " over " + std::to_string(held) +
         (held == 1 ? " entry" : " entries");
}

std::string countExpected(const items::ItemSchema& schema, const ListEntries& entries) {
  const std::size_t held = entries.all().size();
  if (held == 0) {
    return "0";
  }
  const std::string stem(schema.stem);
  return std::to_string(held) + ", " + stem + "1 to " + stem + std::to_string(held);
}

}  // namespace

// A list, and how many entries it says that it has; `mend` puts that right, if it is certain.
struct ListReader::Announced {
  const items::ItemSchema& schema;
  const Node& node;
  std::int64_t count;
  const std::optional<AttributeMend>& mend;
};

void ListReader::read(const items::ItemSchema& schema, ItemValue& value) {
  const bool isNumbered = schema.kind == items::Kind::kNumberedPoints;
  const std::string_view attribute = countName(isNumbered);
  const Node& parent = isNumbered ? m_element : *value.node;
  const bool hasSegments = schema.kind == items::Kind::kSegmentList;
  const DocumentTree& tree = m_attributes.tree();
  ListEntries entries(tree, parent, schema.stem);
  ListEntries bulges(tree, parent, hasSegments ? items::kBulgeStem : std::string_view());
  const std::size_t held = entries.all().size();
  std::optional<AttributeMend> mend;
  if (m_attributes.reports() && entries.isGapless() && (isNumbered || held <= kLargestSize)) {
    mend = mendCount(tree, *value.node, attribute, held);
  }
  std::int64_t count = 0;
  m_attributes.readCount(*value.node, attribute, mend, count);
  if (m_attributes.reports()) {
    checkCount({schema, *value.node, count, mend}, entries, hasSegments ? &bulges : nullptr);
  }
  if (m_attributes.values() == Values::kAsFiled && !isNumbered && isWrapped(count, held)) {
    count = static_cast<std::int64_t>(held);
  }
  entries.limit(count);
  bulges.limit(count / 2);
  if (hasSegments) {
    readSegments(entries, bulges, value.segments);
  } else if (schema.kind == items::Kind::kDoubleList) {
    readNumbers(entries, value.numbers);
  } else {
    readPoints(entries, value.points);
  }
}

void ListReader::checkCount(const Announced& list, const ListEntries& entries,
                            const ListEntries* bulges) {
  const Node& node = list.node;
  const std::string_view item = m_attributes.tree().name(node);
  const bool isNumbered = list.schema.kind == items::Kind::kNumberedPoints;
  const std::string_view attribute = countName(isNumbered);
  const std::size_t held = entries.all().size();
  const auto announced = m_attributes.tree().attribute(node, attribute);
  if (!announced) {
    return;
  }
  if (!isNumbered && held > kLargestSize) {
    m_attributes.report(ProblemKind::kCountOutOfRange, &node, item,
                        entriesFound(attribute, *announced, held),
                        "at most " + std::to_string(kLargestSize) + " entries");
  } else if (list.count < 0 || static_cast<std::size_t>(list.count) != held ||
             !entries.isGapless()) {
    m_attributes.report(ProblemKind::kCountDisagrees, &node, item,
                        entriesFound(attribute, *announced, held),
                        countExpected(list.schema, entries), list.mend);
  } else if (bulges != nullptr && held % 2 != 0) {
    m_attributes.report(ProblemKind::kOddCount, &node, item,
                        entriesFound(attribute, *announced, held), "two points a segment");
  } else if (bulges != nullptr && (bulges->all().size() != held / 2 || !bulges->isGapless())) {
    m_attributes.report(ProblemKind::kCountDisagrees, &node, item,
                        counted(held, "point") + " and " + counted(bulges->all().size(), "bulge"),
                        "Bulge1 to Bulge" + std::to_string(held / 2));
  }
}

void ListReader::readPoints(const ListEntries& entries, std::vector<Coordinates>& points) {
  for (const ListEntry& entry : entries.all()) {
    m_attributes.readPoint(*entry.node, points.emplace_back());
  }
}

void ListReader::readNumbers(const ListEntries& entries, std::vector<double>& numbers) {
  for (const ListEntry& entry : entries.all()) {
    m_attributes.readDouble(*entry.node, filer::kDoubleKind.text(), numbers.emplace_back(0.0));
  }
}

void ListReader::readSegments(const ListEntries& points, const ListEntries& bulges,
                              std::vector<Segment>& segments) {
  for (const ListEntry& entry : points.all()) {
    const std::size_t segment = (entry.number - 1) / 2;
    if (segment > segments.size()) {
      break;  // what follows a gap belongs to no segment
    }
    if (segment == segments.size()) {
      segments.emplace_back();
    }
    m_attributes.readPoint(*entry.node,
                           entry.number % 2 == 1 ? segments[segment].start : segments[segment].end);
  }
  for (const ListEntry& entry : bulges.all()) {
    if (entry.number <= segments.size()) {
      m_attributes.readPoint(*entry.node, segments[entry.number - 1].bulge);
    }
  }
}

}  // namespace quorvan::tool
