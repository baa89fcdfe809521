#include <tools/model/item_mending.h>

#include <algorithm>
#include <cmath>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/text/numbers.h>

#include <tools/model/item_text.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kTypes[] = {filer::kDoubleKind.text(), filer::kLongKind.text(),
                                       filer::kStringKind.text()};

// The one attribute that is named for a type; nothing where there is none or more than one.
std::optional<Attribute> typedAttribute(const DocumentTree& tree, const Node& item) {
  std::optional<Attribute> typed;
  for (const Attribute& attribute : tree.attributes(item)) {
    if (std::ranges::find(kTypes, attribute.name) == std::end(kTypes)) {
      continue;
    }
    if (typed) {
      return std::nullopt;
    }
    typed = attribute;
  }
  return typed;
}

bool isRepresentable(std::string_view text) {
  return isDecimalNumber(text) && std::isfinite(parseDouble(text));
}

}  // namespace

std::string_view withoutBlanks(std::string_view text) noexcept {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) {
    return {};
  }
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::optional<std::string> rightDecimal(std::string_view text) {
  std::string number(withoutBlanks(text));
  if (const std::size_t comma = number.find(','); comma != std::string::npos) {
    number[comma] = '.';
  }
  return isRepresentable(number) ? std::optional(number) : std::nullopt;
}

std::optional<std::string> rightWhole(std::string_view text) {
  const std::string_view number = withoutBlanks(text);
  return exactLong(number) ? std::optional<std::string>(number) : std::nullopt;
}

std::optional<std::string> rightFlag(std::string_view text) {
  const std::string_view word = withoutBlanks(text);
  if (const auto flag = flagOf(word)) {
    return std::string(*flag ? items::kTrue : items::kFalse);
  }
  if (word == "1" || word == "0") {
    return std::string(word == "1" ? items::kTrue : items::kFalse);
  }
  return std::nullopt;
}

std::optional<std::string> rightString(std::string_view text) {
  return std::string(text);
}

std::optional<AttributeMend> mendText(std::string_view attribute, std::string_view text,
                                      RightText right) {
  auto value = right(text);
  if (!value) {
    return std::nullopt;
  }
  return AttributeMend{std::string(attribute), std::string(attribute), std::move(value)};
}

std::optional<AttributeMend> mendType(const DocumentTree& tree, const Node& item,
                                      std::string_view attribute, RightText right) {
  const auto typed = typedAttribute(tree, item);
  if (!typed) {
    return std::nullopt;
  }
  auto value = right(typed->value);
  if (!value) {
    return std::nullopt;
  }
  if (*value == typed->value) {
    value.reset();
  }
  return AttributeMend{std::string(typed->name), std::string(attribute), std::move(value)};
}

AttributeMend mendCount(const DocumentTree& tree, const Node& item, std::string_view attribute,
                        std::size_t count) {
  AttributeMend mend{{}, std::string(attribute), std::to_string(count)};
  if (tree.attribute(item, attribute)) {
    mend.from = attribute;
  } else if (const auto typed = typedAttribute(tree, item)) {
    mend.from = typed->name;
  }
  return mend;
}

}  // namespace quorvan::tool
