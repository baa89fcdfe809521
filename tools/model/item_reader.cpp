#include <tools/model/item_reader.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <unordered_set>
#include <utility>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/text/numbers.h>

#include <tools/model/item_text.h>
#include <tools/model/list_entries.h>
#include <tools/text/counted_noun.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

namespace {

bool isCoordinate(std::string_view attribute) {
  return std::ranges::find(filer::kCoordinateNames, attribute, &dom::Name::text) !=
         std::end(filer::kCoordinateNames);
}

std::string quoted(std::string_view name, std::string_view value) {
  return std::string(name) + "=\"" + std::string(value) + '"';
}

// The number that the library filed: it writes words for those that have no digits.
double filedNumber(std::string_view text, double number) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  return text == "inf"    ? kInfinity
         : text == "-inf" ? -kInfinity
         : text == "nan"  ? std::numeric_limits<double>::quiet_NaN()
                          : number;
}

}  // namespace

NamedChildren::NamedChildren(const DocumentTree& tree, const Node& parent)
    : m_tree(tree), m_next(tree.firstChild(parent)) {}

const Node* NamedChildren::find(std::string_view name) {
  if (m_next != nullptr && m_tree.name(*m_next) == name) {
    return std::exchange(m_next, m_tree.nextSibling(*m_next));
  }
  if (m_hasMany) {
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
  }
  std::size_t count = 0;
  for (const Node* child = m_next; child != nullptr; child = m_tree.nextSibling(*child)) {
    if (m_tree.name(*child) == name) {
      return child;
    }
    if (++count == kFewChildren) {
      break;
    }
  }
  if (count < kFewChildren) {
    return nullptr;
  }
  m_hasMany = true;
  for (const Node* child = m_next; child != nullptr; child = m_tree.nextSibling(*child)) {
    m_byName.emplace(m_tree.name(*child), child);
  }
  return find(name);
}

ItemSelection::ItemSelection(bool (*isWanted)(const items::ItemSchema& item)) {
  for (const items::ElementSchema& schema : items::allElements()) {
    std::uint32_t& wanted = m_items[static_cast<std::size_t>(schema.id)];
    for (std::size_t i = 0; i < schema.items.size(); ++i) {
      wanted |= isWanted(schema.items[i]) ? std::uint32_t{1} << i : 0U;
    }
  }
}

// The reading of one element.
class ItemReader::Reading {
 public:
  Reading(const DocumentTree& tree, const Element& element, Values values,
          std::vector<ItemProblem>* problems)
      : m_tree(tree),
        m_element(element),
        m_values(values),
        m_children(tree, *element.node),
        m_problems(problems) {}

  // Passes over an item; those that follow are found sooner.
  void pass(const items::ItemSchema& schema, ItemValue& value) {
    reset(schema, value);
    value.node = nullptr;
    m_children.find(schema.name);
  }

  void read(const items::ItemSchema& schema, ItemValue& value) {
    reset(schema, value);
    value.node = m_children.find(schema.name);
    if (value.node == nullptr) {
      if (m_problems == nullptr) {
        return;
      }
      if (!schema.optional || isRequiredList(schema)) {
        report(ProblemKind::kMissing, m_element.node, schema.name, "", "the item " + name(schema));
      }
      return;
    }
    if (isList(schema.kind)) {
      readList(schema, value);
    } else {
      readScalar(schema, value);
    }
  }

  // Children that are no items, and items that come again.
  void reportStrangers() {
    if (m_children.isExhausted()) {
      return;
    }
    std::unordered_set<std::string_view, KeyedHash> seen;
    for (const Node* child = m_tree.firstChild(*m_element.node); child != nullptr;
         child = m_tree.nextSibling(*child)) {
      const std::string_view item = m_tree.name(*child);
      if (!isItem(item)) {
        if (child->isElement()) {
          report(ProblemKind::kUnknownItem, child, item, name(item),
                 "only items of " + std::string(m_element.className()));
        }
      } else if (!seen.insert(item).second) {
        report(ProblemKind::kRepeatedItem, child, item, "a second " + name(item),
               "one item of each name");
      }
    }
  }

 private:
  static void reset(const items::ItemSchema& schema, ItemValue& value) {
    value.schema = &schema;
    value.number = 0.0;
    value.integer = 0;
    value.flag = false;
    value.text.clear();
    value.point = {};
    value.points.clear();
    value.segments.clear();
    value.numbers.clear();
  }

  // Reading goes on without a list, but an element that lost one is not whole.
  static bool isRequiredList(const items::ItemSchema& schema) { return isList(schema.kind); }

  static std::string name(std::string_view name) { return '"' + std::string(name) + '"'; }
  static std::string name(const items::ItemSchema& schema) { return name(schema.name); }

  void report(ProblemKind kind, const Node* at, std::string_view item, std::string found,
              std::string expected, std::optional<AttributeMend> mend = std::nullopt) {
    if (m_problems != nullptr) {
      m_problems->push_back(
          {kind, at, std::string(item), std::move(found), std::move(expected), std::move(mend)});
    }
  }

  [[nodiscard]] bool isItem(std::string_view child) const {
    for (const items::ItemSchema& schema : m_element.schema->items) {
      if (schema.name == child || (schema.kind == items::Kind::kNumberedPoints &&
                                   entryNumber(child, schema.stem).has_value())) {
        return true;
      }
    }
    return false;
  }

  // The text of the attribute, nothing (and reported) when the item does not have it.
  std::optional<std::string_view> text(const Node& node, std::string_view attribute,
                                       RightText right) {
    const auto found = m_tree.attribute(node, attribute);
    if (!found && m_problems != nullptr) {
      reportNoAttribute(node, attribute, right);
    }
    return found;
  }

  void reportNoAttribute(const Node& node, std::string_view attribute, RightText right) {
    // A point that lacks one coordinate is not of another type.
    const auto others = m_tree.attributes(node);
    const bool lacksOne = isCoordinate(attribute);
    const auto first = others.begin();
    const bool isIncomplete = others.empty() || (lacksOne && isCoordinate(first->name));
    report(isIncomplete ? ProblemKind::kMissing : ProblemKind::kMistyped, &node, m_tree.name(node),
           others.empty() ? "no attribute" : quoted(first->name, first->value),
           "the attribute " + name(attribute),
           lacksOne  ? std::nullopt
           : m_count ? *m_count
                     : mendType(m_tree, node, attribute, right));
  }

  // Blanks around a number are no fault to readers.
  void reportNumber(const Node& node, std::string_view attribute, std::string_view text,
                    bool isNumber, RightText right, const char* expected) {
    if (isNumber) {
      return;
    }
    auto mend = m_count ? *m_count : mendText(attribute, text, right);
    const bool isBlank = mend && !m_count && *mend->value == withoutBlanks(text);
    std::string wanted = isBlank ? quoted(attribute, *mend->value) : std::string(expected);
    report(isBlank ? ProblemKind::kBlanks : ProblemKind::kNoNumber, &node, m_tree.name(node),
           quoted(attribute, text), std::move(wanted), std::move(mend));
  }

  void readDouble(const Node& node, std::string_view attribute, double& value) {
    const auto found = text(node, attribute, rightDecimal);
    if (!found) {
      return;
    }
    value = parseDouble(*found);
    if (m_values == Values::kAsFiled) {
      value = filedNumber(*found, value);
    }
    if (m_problems == nullptr) {
      return;
    }
    const bool isDecimal = isDecimalNumber(*found);
    reportNumber(
        node, attribute, *found, isDecimal && std::isfinite(value), rightDecimal,
        isDecimal ? "a number of 64 bits: below 1.8e308" : "a decimal number with a point");
  }

  void readLong(const Node& node, std::string_view attribute, std::int64_t& value) {
    const auto found = text(node, attribute, rightWhole);
    if (!found) {
      return;
    }
    value = parseLong(*found);
    if (m_problems != nullptr) {
      reportNumber(node, attribute, *found, exactLong(*found).has_value(), rightWhole,
                   "a whole number of 32 bits");
    }
  }

  void readFlag(const Node& node, bool& value) {
    const auto found = text(node, filer::kStringKind.text(), rightFlag);
    if (!found) {
      return;
    }
    const auto flag = flagOf(*found);
    value = flag.value_or(false);
    if (!flag && m_problems != nullptr) {
      report(ProblemKind::kNoFlag, &node, m_tree.name(node),
             quoted(filer::kStringKind.text(), *found),
             name(items::kTrue) + " or " + name(items::kFalse),
             mendText(filer::kStringKind.text(), *found, rightFlag));
    }
  }

  void readString(const Node& node, std::string& value) {
    if (const auto found = text(node, filer::kStringKind.text(), rightString)) {
      value = *found;
    }
  }

  void readAdherence(const Node& node, std::string& value) {
    constexpr std::string_view kText = filer::kStringKind.text();
    constexpr std::string_view kCode = filer::kLongKind.text();
    if (const auto code = m_tree.attribute(node, kCode)) {
      value = items::adherenceOf(parseLong(*code));
      if (m_problems == nullptr) {
        return;
      }
      // With a text beside it, it is not certain which of the two is meant.
      const bool isCertain = !m_tree.attribute(node, kText);
      report(ProblemKind::kNumericAdherence, &node, m_tree.name(node), quoted(kCode, *code),
             quoted(kText, value),
             isCertain ? std::optional(AttributeMend{std::string(kCode), std::string(kText), value})
                       : std::nullopt);
    } else if (const auto found = text(node, kText, rightString)) {
      value = *found;
    }
  }

  // The coordinates of a point whose attributes are just X, Y and Z, as hosts write them; gives
  // whether they are.
  bool readOrdered(const Node& node, Coordinates& point) const {
    auto attribute = m_tree.attributes(node).begin();
    double* const values[] = {&point.x, &point.y, &point.z};
    for (std::size_t i = 0; i < std::size(values); ++i, ++attribute) {
      if (attribute == AttributeList::Iterator() ||
          attribute->name != filer::kCoordinateNames[i].text()) {
        return false;
      }
      const double number = parseDouble(attribute->value);
      *values[i] = m_values == Values::kAsFiled ? filedNumber(attribute->value, number) : number;
    }
    return true;
  }

  void readPoint(const Node& node, Coordinates& point) {
    if (m_problems == nullptr && readOrdered(node, point)) {
      return;
    }
    readDouble(node, filer::kX.text(), point.x);
    readDouble(node, filer::kY.text(), point.y);
    readDouble(node, filer::kZ.text(), point.z);
  }

  void readScalar(const items::ItemSchema& schema, ItemValue& value) {
    switch (schema.kind) {
      case items::Kind::kPoint:
      case items::Kind::kVector:
        return readPoint(*value.node, value.point);
      case items::Kind::kDouble:
        return readDouble(*value.node, filer::kDoubleKind.text(), value.number);
      case items::Kind::kLong:
        return readLong(*value.node, filer::kLongKind.text(), value.integer);
      case items::Kind::kColor:
        readLong(*value.node, filer::kLongKind.text(), value.integer);
        value.integer = static_cast<std::uint32_t>(value.integer);
        return;
      case items::Kind::kNumericFlag:
        readLong(*value.node, filer::kLongKind.text(), value.integer);
        value.flag = value.integer != 0;
        return;
      case items::Kind::kFlag:
        return readFlag(*value.node, value.flag);
      case items::Kind::kAdherence:
        return readAdherence(*value.node, value.text);
      case items::Kind::kString:
        return readString(*value.node, value.text);
      case items::Kind::kPointList:
      case items::Kind::kSegmentList:
      case items::Kind::kDoubleList:
      case items::Kind::kNumberedPoints:
        return;  // no scalars
    }
  }

  void readList(const items::ItemSchema& schema, ItemValue& value) {
    const bool isNumbered = schema.kind == items::Kind::kNumberedPoints;
    const std::string_view attribute = countName(isNumbered);
    const Node& parent = isNumbered ? *m_element.node : *value.node;
    const bool hasSegments = schema.kind == items::Kind::kSegmentList;
    ListEntries entries(m_tree, parent, schema.stem);
    ListEntries bulges(m_tree, parent, hasSegments ? items::kBulgeStem : std::string_view());
    const std::size_t held = entries.all().size();
    if (m_problems != nullptr) {
      m_count.emplace();
    }
    if (m_count && entries.isGapless() && (isNumbered || held <= kLargestSize)) {
      *m_count = mendCount(m_tree, *value.node, attribute, held);
    }
    std::int64_t count = 0;
    readLong(*value.node, attribute, count);
    checkCount(schema, *value.node, count, entries, hasSegments ? &bulges : nullptr);
    m_count.reset();
    if (m_values == Values::kAsFiled && !isNumbered && isWrapped(count, held)) {
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

  static std::string_view countName(bool isNumbered) {
    return isNumbered ? filer::kLongKind.text() : filer::kSizeName.text();
  }

  // Whether the count is what 16 bits leave of the number of entries.
  static bool isWrapped(std::int64_t count, std::size_t held) {
    return held > kLargestSize &&
           count == static_cast<std::int16_t>(static_cast<std::uint16_t>(held));
  }

  void checkCount(const items::ItemSchema& schema, const Node& node, std::int64_t count,
                  const ListEntries& entries, const ListEntries* bulges) {
    if (m_problems == nullptr) {
      return;
    }
    const bool isNumbered = schema.kind == items::Kind::kNumberedPoints;
    const std::string_view attribute = countName(isNumbered);
    const std::size_t held = entries.all().size();
    const auto announced = m_tree.attribute(node, attribute);
    if (!announced) {
      return;
    }
    if (!isNumbered && held > kLargestSize) {
      report(ProblemKind::kCountOutOfRange, &node, m_tree.name(node),
             entriesFound(attribute, *announced, held),
             "at most " + std::to_string(kLargestSize) + " entries");
    } else if (count < 0 || static_cast<std::size_t>(count) != held || !entries.isGapless()) {
      report(ProblemKind::kCountDisagrees, &node, m_tree.name(node),
             entriesFound(attribute, *announced, held), countExpected(schema, entries), *m_count);
    } else if (bulges != nullptr && held % 2 != 0) {
      report(ProblemKind::kOddCount, &node, m_tree.name(node),
             entriesFound(attribute, *announced, held), "two points a segment");
    } else if (bulges != nullptr && (bulges->all().size() != held / 2 || !bulges->isGapless())) {
      report(ProblemKind::kCountDisagrees, &node, m_tree.name(node),
             counted(held, "point") + " and " + counted(bulges->all().size(), "bulge"),
             "Bulge1 to Bulge" + std::to_string(held / 2));
    }
  }

  static std::string entriesFound(std::string_view attribute, std::string_view announced,
                                  std::size_t held) {
    return quoted(attribute, announced) + " over " + std::to_string(held) +
           (held == 1 ? " entry" : " entries");
  }

  static std::string countExpected(const items::ItemSchema& schema, const ListEntries& entries) {
    const std::size_t held = entries.all().size();
    if (held == 0) {
      return "0";
    }
    const std::string stem(schema.stem);
    return std::to_string(held) + ", " + stem + "1 to " + stem + std::to_string(held);
  }

  void readPoints(const ListEntries& entries, std::vector<Coordinates>& points) {
    for (const ListEntry& entry : entries.all()) {
      readPoint(*entry.node, points.emplace_back());
    }
  }

  void readNumbers(const ListEntries& entries, std::vector<double>& numbers) {
    for (const ListEntry& entry : entries.all()) {
      readDouble(*entry.node, filer::kDoubleKind.text(), numbers.emplace_back(0.0));
    }
  }

  void readSegments(const ListEntries& points, const ListEntries& bulges,
                    std::vector<Segment>& segments) {
    for (const ListEntry& entry : points.all()) {
      const std::size_t segment = (entry.number - 1) / 2;
      if (segment > segments.size()) {
        break;  // what follows a gap belongs to no segment
      }
      if (segment == segments.size()) {
        segments.emplace_back();
      }
      readPoint(*entry.node,
                entry.number % 2 == 1 ? segments[segment].start : segments[segment].end);
    }
    for (const ListEntry& entry : bulges.all()) {
      if (entry.number <= segments.size()) {
        readPoint(*entry.node, segments[entry.number - 1].bulge);
      }
    }
  }

  const DocumentTree& m_tree;
  const Element& m_element;
  Values m_values;
  NamedChildren m_children;
  std::vector<ItemProblem>* m_problems;
  // While the count of a list is read: what puts it right, if that is certain.
  std::optional<std::optional<AttributeMend>> m_count;
};

const std::vector<ItemValue>& ItemReader::read(const Element& element,
                                               std::vector<ItemProblem>* problems,
                                               Strangers strangers) {
  m_items.resize(element.schema->items.size());
  Reading reading(m_tree, element, m_values, problems);
  for (std::size_t i = 0; i < m_items.size(); ++i) {
    reading.read(element.schema->items[i], m_items[i]);
  }
  if (problems != nullptr && strangers == Strangers::kReported) {
    reading.reportStrangers();
  }
  return m_items;
}

const std::vector<ItemValue>& ItemReader::read(const Element& element,
                                               const ItemSelection& selection) {
  m_items.resize(element.schema->items.size());
  Reading reading(m_tree, element, m_values, nullptr);
  for (std::size_t i = 0; i < m_items.size(); ++i) {
    const items::ItemSchema& schema = element.schema->items[i];
    if (selection.holds(*element.schema, i)) {
      reading.read(schema, m_items[i]);
    } else {
      reading.pass(schema, m_items[i]);
    }
  }
  return m_items;
}

const ItemValue& ItemReader::readOne(const Element& element, std::size_t place) {
  m_items.resize(element.schema->items.size());
  Reading(m_tree, element, m_values, nullptr).read(element.schema->items[place], m_items[place]);
  return m_items[place];
}

}  // namespace quorvan::tool
