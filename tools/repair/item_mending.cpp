#include <tools/repair/item_mending.h>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/text/numbers.h>

#include <tools/model/item_text.h>

namespace quorvan::tool {

namespace {

std::string_view attributeNameOf(items::Kind kind) {
  switch (kind) {
    case items::Kind::kDouble:
      return "double";
    case items::Kind::kLong:
    case items::Kind::kColor:
    case items::Kind::kNumericFlag:
      return "long";
    case items::Kind::kString:
    case items::Kind::kFlag:
    case items::Kind::kAdherence:
      return "string";
    default:
      return {};
  }
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) {
    return {};
  }
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::optional<std::string> flagText(std::string_view text) {
  const std::string_view word = trimmed(text);
  const auto flag = flagOf(word);
  if (flag) {
    return *flag ? "True" : "False";
  }
  if (word == "1" || word == "0") {
    return word == "1" ? "True" : "False";
  }
  return std::nullopt;
}

// What the text is as a value of the kind, if that is certain.
std::optional<std::string> valueAs(items::Kind kind, std::string_view text) {
  const std::string_view number = trimmed(text);
  switch (kind) {
    case items::Kind::kDouble:
      if (isDecimalNumber(number)) {
        return std::string(number);
      }
      return withPoint(number);
    case items::Kind::kLong:
    case items::Kind::kColor:
    case items::Kind::kNumericFlag:
      if (exactLong(number)) {
        return std::string(number);
      }
      return std::nullopt;
    case items::Kind::kFlag:
      return flagText(text);
    default:
      return std::string(text);
  }
}

}  // namespace

std::optional<MendedAttribute> mend(const DocumentTree& tree, const Node& item,
                                    const items::ItemSchema& schema) {
  const std::string_view name = attributeNameOf(schema.kind);
  const auto attributes = tree.attributes(item);
  if (name.empty() || attributes.empty()) {
    return std::nullopt;
  }
  const std::string_view* const right = tree.attribute(item, name);
  if (schema.kind == items::Kind::kAdherence && tree.attribute(item, "long") != nullptr) {
    return MendedAttribute{
        name, std::string(items::adherenceOf(parseLong(*tree.attribute(item, "long"))))};
  }
  const std::string_view text = right == nullptr ? attributes.front().value : *right;
  auto value = valueAs(schema.kind, text);
  if (!value || (right != nullptr && *value == text)) {
    return std::nullopt;
  }
  return MendedAttribute{name, std::move(*value)};
}

std::optional<std::string> withPoint(std::string_view text) {
  std::string number(text);
  const std::size_t comma = number.find(',');
  if (comma == std::string::npos) {
    return std::nullopt;
  }
  number[comma] = '.';
  if (!isDecimalNumber(number)) {
    return std::nullopt;
  }
  return number;
}

}  // namespace quorvan::tool
