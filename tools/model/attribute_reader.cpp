#include <tools/model/attribute_reader.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/text/numbers.h>

#include <tools/model/item_text.h>

namespace quorvan::tool {

namespace {

bool isCoordinate(std::string_view attribute) {
  return std::ranges::find(filer::kCoordinateNames, attribute, &dom::Name::text) !=
         std::end(filer::kCoordinateNames);
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

std::string quoted(std::string_view name) {
  return '"' + std::string(name) + '"';
}

std::string quoted(std::string_view name, std::string_view value) {
  return std::string(name) + "=\"" + std::string(value) + '"';
}

void AttributeReader::report(ProblemKind kind, const Node* at, std::string_view item,
                             std::string found, std::string expected,
                             std::optional<AttributeMend> mend) {
  if (m_problems != nullptr) {
    m_problems->push_back(
        {kind, at, std::string(item), std::move(found), std::move(expected), std::move(mend)});
  }
}

// The text of the attribute, nothing (and reported) when the item does not have it.
std::optional<std::string_view> AttributeReader::text(const Node& node, std::string_view attribute,
                                                      RightText right) {
  const auto found = m_tree.attribute(node, attribute);
  if (!found && m_problems != nullptr) {
    reportNoAttribute(node, attribute, right);
  }
  return found;
}

void AttributeReader::reportNoAttribute(const Node& node, std::string_view attribute,
                                        RightText right) {
  // A point that lacks one coordinate is not of another type.
  const auto others = m_tree.attributes(node);
  const bool lacksOne = isCoordinate(attribute);
  const auto first = others.begin();
  const bool isIncomplete = others.empty() || (lacksOne && isCoordinate(first->name));
  report(isIncomplete ? ProblemKind::kMissing : ProblemKind::kMistyped, &node, m_tree.name(node),
         others.empty() ? "no attribute" : quoted(first->name, first->value),
         "the attribute " + quoted(attribute),
         lacksOne  ? std::nullopt
         : m_count ? *m_count
                   : mendType(m_tree, node, attribute, right));
}

// Blanks around a number are no fault to readers.
void AttributeReader::reportNumber(const Node& node, std::string_view attribute,
                                   std::string_view text, bool isNumber, RightText right,
                                   const char* expected) {
  if (isNumber) {
    return;
  }
  auto mend = m_count ? *m_count : mendText(attribute, text, right);
  const bool isBlank = mend && !m_count && *mend->value == withoutBlanks(text);
  std::string wanted = isBlank ? quoted(attribute, *mend->value) : std::string(expected);
  report(isBlank ? ProblemKind::kBlanks : ProblemKind::kNoNumber, &node, m_tree.name(node),
         quoted(attribute, text), std::move(wanted), std::move(mend));
}

void AttributeReader::readDouble(const Node& node, std::string_view attribute, double& value) {
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
  reportNumber(node, attribute, *found, isDecimal && std::isfinite(value), rightDecimal,
               isDecimal ? "a number of 64 bits: below 1.8e308" : "a decimal number with a point");
}

void AttributeReader::readLong(const Node& node, std::string_view attribute, std::int64_t& value) {
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

void AttributeReader::readFlag(const Node& node, bool& value) {
  const auto found = text(node, filer::kStringKind.text(), rightFlag);
  if (!found) {
    return;
  }
  const auto flag = flagOf(*found);
  value = flag.value_or(false);
  if (!flag && m_problems != nullptr) {
    report(ProblemKind::kNoFlag, &node, m_tree.name(node),
           quoted(filer::kStringKind.text(), *found),
           quoted(items::kTrue) + " or " + quoted(items::kFalse),
           mendText(filer::kStringKind.text(), *found, rightFlag));
  }
}

void AttributeReader::readString(const Node& node, std::string& value) {
  if (const auto found = text(node, filer::kStringKind.text(), rightString)) {
    value = *found;
  }
}

void AttributeReader::readAdherence(const Node& node, std::string& value) {
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
bool AttributeReader::readOrdered(const Node& node, Coordinates& point) const {
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

void AttributeReader::readPoint(const Node& node, Coordinates& point) {
  if (m_problems == nullptr && readOrdered(node, point)) {
    return;
  }
  readDouble(node, filer::kX.text(), point.x);
  readDouble(node, filer::kY.text(), point.y);
  readDouble(node, filer::kZ.text(), point.z);
}

void AttributeReader::readCount(const Node& node, std::string_view attribute,
                                std::optional<AttributeMend> mend, std::int64_t& count) {
  m_count.emplace(std::move(mend));
  readLong(node, attribute, count);
  m_count.reset();
}

}  // namespace quorvan::tool
