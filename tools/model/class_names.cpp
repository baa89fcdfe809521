#include <tools/model/class_names.h>

#include <algorithm>

#include <quorvan/elements/element_classes.h>

#include <tools/console/console.h>

namespace quorvan::tool {

namespace {

char lower(char unit) {
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

bool sameLetters(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace

std::string fullClassName(std::string_view name) {
  std::string known;
  for (const items::ElementSchema& element : items::allElements()) {
    const std::string_view shortName = shortClassName(element.className);
    if (sameLetters(name, element.className) || sameLetters(name, shortName)) {
      return std::string(element.className);
    }
    known += (known.empty() ? "" : ", ") + std::string(shortName);
  }
  throw Failure('"' + std::string(name) + "\" is not an element class; there are " + known);
}

std::string_view shortClassName(std::string_view className) noexcept {
  for (const std::string_view prefix : {"CKtZanto", "CKt"}) {
    if (className.starts_with(prefix)) {
      return className.substr(prefix.size());
    }
  }
  return className;
}

std::vector<std::string> shortClassNames() {
  std::vector<std::string> result;
  for (const items::ElementSchema& element : items::allElements()) {
    result.emplace_back(shortClassName(element.className));
  }
  return result;
}

}  // namespace quorvan::tool
