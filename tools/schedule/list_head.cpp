#include <algorithm>

#include <tools/schedule/list_tables.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

std::string numberText(double number, const ListWording& words) {
  std::string text = rounded(number, 2);
  std::ranges::replace(text, '.', words.decimalMark);
  return text;
}

// So many diameters, or so many mm.
std::string sizeText(double diameters, double millimetres, const ListWording& words) {
  return diameters > 0.0 ? numberText(diameters, words) + " d"
                         : numberText(millimetres, words) + " mm";
}

bool isNone(const Deduction& deduction) {
  return deduction.diameters == 0.0 && deduction.millimetres == 0.0;
}

void addLength(const CuttingRules& cutting, const ListWording& words,
               std::vector<std::string>& paragraphs) {
  const auto& texts = words.conventions;
  if (cutting.schedule == Schedule::kAxis) {
    paragraphs.emplace_back(texts.axis);
    return;
  }
  const bool isBritish = cutting.schedule == Schedule::kBs8666;
  paragraphs.emplace_back(isBritish ? texts.british : texts.iso);
  if (isBritish) {
    paragraphs.back() += ' ' + std::string(texts.sketchCode);
  }
  if (cutting.deduction) {
    paragraphs.push_back(
        isNone(*cutting.deduction)
            ? std::string(texts.noDeduction)
            : filled(texts.deduction, {sizeText(cutting.deduction->diameters,
                                                cutting.deduction->millimetres, words)}));
  }
}

// What the file leaves open, and how it is taken.
std::string openText(const BarList& list, const ListWording& words) {
  const auto& texts = words.conventions;
  const ListOptions& options = list.options;
  std::string text(options.bending.hooks == HookMeaning::kCorner ? texts.hooksFromCorner
                                                                 : texts.hooksStraight);
  text += ' ';
  text += options.bending.ring == RingRadius::kAxis ? texts.ringAxis : texts.ringInner;
  if (options.cutting.schedule != Schedule::kAxis) {
    const auto hasRadians = [](const ListedDrawing& drawing) {
      return drawing.angles == AngleUnit::kRadians;
    };
    const bool isAny = std::ranges::any_of(list.drawings, hasRadians);
    const bool areAll = std::ranges::all_of(list.drawings, hasRadians);
    text += ' ';
    if (areAll || !isAny) {  // those of several drawings may differ
      text += std::string(isAny ? texts.radians : texts.degrees) + ' ';
    }
    text += options.bending.mandrel
                ? filled(texts.givenRoller, {sizeText(options.bending.mandrel->diameters,
                                                      options.bending.mandrel->millimetres, words)})
                : std::string(texts.rollers);
  }
  return text;
}

}  // namespace

std::string listTitle(const BarList& list, const ListWording& words) {
  std::string files;
  for (const ListedDrawing& drawing : list.drawings) {
    files += (files.empty() ? "" : ", ") + drawing.file->name();
  }
  std::string title = filled(words.titles.list, {files});
  if (list.drawings.size() == 1 && !list.drawings.front().name.empty()) {
    title += ", " + filled(words.titles.ofDrawing, {list.drawings.front().name});
  }
  return title;
}

std::vector<std::string> conventionsOf(const BarList& list, const ListWording& words) {
  const auto& texts = words.conventions;
  const CuttingRules& cutting = list.options.cutting;
  std::vector<std::string> paragraphs;
  addLength(cutting, words, paragraphs);
  paragraphs.push_back(openText(list, words));
  if (cutting.lengthStep > 0.0 || cutting.legStep > 0.0) {
    paragraphs.push_back(
        filled(cutting.rounding == Rounding::kUp ? texts.roundedUp : texts.roundedNearest,
               {numberText(cutting.lengthStep, words), numberText(cutting.legStep, words)}));
  }
  paragraphs.emplace_back(texts.number);
  if (list.options.twins == TwinSeries::kOnce) {
    paragraphs.back() += ' ' + std::string(texts.twinsOnce);
  }
  paragraphs.push_back(filled(texts.units, {list.options.unit->name, rounded(kSteelDensity, 0)}));
  return paragraphs;
}

}  // namespace quorvan::tool
