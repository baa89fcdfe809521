#include <tools/schedule/row_texts.h>

#include <algorithm>

#include <quorvan/text/numbers.h>

#include <tools/model/class_names.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

std::string nameOf(const TransferFile& file, const Element& element) {
  return std::string(shortClassName(element.className())) + ' ' +
         std::string(file.indexOf(element));
}

std::string namesOf(const TransferFile& file, const std::vector<const Element*>& elements) {
  return std::string(shortClassName(elements.front()->className())) + ' ' +
         indexesOf(file, elements);
}

}  // namespace

std::string indexesOf(const TransferFile& file, const std::vector<const Element*>& elements) {
  std::vector<std::int64_t> numbers;
  numbers.reserve(elements.size());
  for (const Element* const element : elements) {
    numbers.push_back(parseLong(file.indexOf(*element)));
  }
  std::ranges::sort(numbers);
  return runsOf(numbers);
}

std::string sourceText(const TransferFile& file, const BarRow& row, const ListWording& words) {
  std::string text;
  for (const SourceElements& source : row.sources) {
    text += (text.empty() ? "" : "; ") + namesOf(file, source.elements);
  }
  if (!row.endOn.empty()) {
    text += "; " + filled(words.remarks.endOn, {namesOf(file, row.endOn)});
  }
  return text;
}

std::string explanationOf(const TransferFile& file, const BarRow& row, const ListWording& words) {
  std::string text = filled(words.explanations.drawn, {std::to_string(row.drawn)});
  std::string shares;
  for (const SeriesShare& share : row.series) {
    if (share.sameBars == nullptr) {
      shares += shares.empty() ? "" : ", ";
      shares += filled(words.explanations.share,
                       {nameOf(file, *share.element), std::to_string(share.number)});
    }
  }
  if (!shares.empty()) {
    text += ", " + filled(words.explanations.repeated, {std::to_string(row.repeated), shares});
  }
  for (const SeriesShare& share : row.series) {
    if (share.sameBars != nullptr) {
      text += "; " + filled(words.remarks.sameBars,
                            {nameOf(file, *share.element), nameOf(file, *share.sameBars)});
    }
  }
  return filled(words.explanations.result, {text, std::to_string(row.number)});
}

std::vector<std::string> remarksOn(const TransferFile& file, const BarRow& row,
                                   const ListWording& words) {
  std::vector<std::string> remarks;
  for (const std::vector<const Element*>& twins : row.twins) {
    remarks.push_back(filled(words.remarks.twins, {namesOf(file, twins)}));
  }
  for (const SeriesShare& share : row.series) {
    if (share.sameBars != nullptr) {
      remarks.push_back(filled(words.remarks.sameBars,
                               {nameOf(file, *share.element), nameOf(file, *share.sameBars)}));
    }
  }
  if (row.isLowerBound) {
    remarks.emplace_back(words.remarks.lowerBound);
  }
  if (!row.bent.fits && !row.cutting.dimensions.empty()) {
    remarks.emplace_back(words.remarks.tooShort);
  }
  return remarks;
}

}  // namespace quorvan::tool
