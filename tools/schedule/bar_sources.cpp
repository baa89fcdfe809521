#include <tools/schedule/bar_sources.h>

#include <algorithm>

#include <quorvan/text/numbers.h>

#include <tools/model/class_names.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

std::string indexesOf(const TransferFile& file, const std::vector<const Element*>& elements) {
  std::vector<std::int64_t> numbers;
  numbers.reserve(elements.size());
  for (const Element* const element : elements) {
    numbers.push_back(parseLong(file.indexOf(*element)));
  }
  std::ranges::sort(numbers);
  return runsOf(numbers);
}

}  // namespace

std::string sourceText(const TransferFile& file, const BarRow& row) {
  std::string text;
  for (const SourceElements& source : row.sources) {
    text += (text.empty() ? "" : "; ") + std::string(shortClassName(source.className)) + ' ' +
            indexesOf(file, source.elements);
  }
  if (!row.endOn.empty()) {
    text += "; end-on " + std::string(shortClassName(row.endOn.front()->className())) + ' ' +
            indexesOf(file, row.endOn);
  }
  return text;
}

}  // namespace quorvan::tool
