#include <tools/readers/spelling.h>

#include <tools/text/ascii_letters.h>

namespace quorvan::tool {

namespace {

bool isCapital(char unit) {
  return asciiLower(unit) != unit;
}

}  // namespace

std::string camelCase(std::string_view name) {
  std::string spelled(name);
  spelled.front() = asciiLower(spelled.front());
  return spelled;
}

std::string snakeCase(std::string_view name) {
  std::string spelled;
  for (const char unit : name) {
    if (isCapital(unit) && !spelled.empty()) {
      spelled += '_';
    }
    spelled += asciiLower(unit);
  }
  return spelled;
}

std::string capitalized(std::string_view text) {
  std::string spelled(text);
  spelled.front() = asciiUpper(spelled.front());
  return spelled;
}

}  // namespace quorvan::tool
