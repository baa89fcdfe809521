#include <quorvan/platform/string_table.h>

namespace quorvan::platform {

namespace {

struct Entry {
  int number;
  std::wstring_view text;
};

#define QUORVAN_WIDE(text) L##text
#define QUORVAN_PROMPT(number, text) {number, QUORVAN_WIDE(text)},
constexpr Entry kEntries[] = {
#include <quorvan/resources/prompts.inc>
};
#undef QUORVAN_PROMPT
#undef QUORVAN_WIDE

}  // namespace

std::wstring_view findString(int number) noexcept {
  for (const Entry& entry : kEntries) {
    if (entry.number == number) {
      return entry.text;
    }
  }
  return {};
}

}  // namespace quorvan::platform
