#include <tools/bars/bar_sources.h>

#include <algorithm>

#include <quorvan/platform/numbers.h>

#include <tools/model/class_names.h>

namespace quorvan::tool {

namespace {

// Runs of consecutive numbers as "1-4".
std::string rangesOf(const TransferFile& file, const std::vector<const Element*>& elements) {
  std::vector<std::int64_t> numbers;
  for (const Element* const element : elements)
    numbers.push_back(parseLong(file.indexOf(*element)));
  std::ranges::sort(numbers);
  std::string text;
  for (std::size_t at = 0; at < numbers.size();) {
    std::size_t end = at + 1;
    while (end < numbers.size() && numbers[end] == numbers[end - 1] + 1)
      ++end;
    text += (text.empty() ? "" : ", ") + std::to_string(numbers[at]);
    if (end - at > 1)
      text += (end - at == 2 ? ", " : "-") + std::to_string(numbers[end - 1]);
    at = end;
  }
  return text;
}

}  // namespace

std::string sourceText(const TransferFile& file, const BarRow& row) {
  std::string text;
  for (const SourceElements& source : row.sources)
    text += (text.empty() ? "" : "; ") + std::string(shortClassName(source.className)) + ' ' +
            rangesOf(file, source.elements);
  if (!row.endOn.empty())
    text += "; end-on " + std::string(shortClassName(row.endOn.front()->className())) + ' ' +
            rangesOf(file, row.endOn);
  return text;
}

}  // namespace quorvan::tool
