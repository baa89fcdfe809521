#include <tools/draw/scene/wording.h>

#include <algorithm>

#include <tools/model/item_reader.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr Wording kEnglishWords{"formwork",
                                "mesh",
                                "bar",
                                "link",
                                "bar seen end-on",
                                "repartition",
                                "hidden",
                                "Drawing",
                                "no drawing control record",
                                "File",
                                "Produced by",
                                "Check sum",
                                "Scale, unit"};
constexpr Wording kFrenchWords{"coffrage",
                               "treillis",
                               "barre",
                               "cadre",
                               "barre vue en bout",
                               "r\u00E9partition",
                               "cach\u00E9",
                               "Plan",
                               "sans fiche de contr\u00F4le",
                               "Fichier",
                               "Produit par",
                               "Somme de contr\u00F4le",
                               "\u00C9chelle, unit\u00E9"};

// In lower case, and without what takes an accent: "élévation" is "l" and "vation".
constexpr std::string_view kFrenchStems[] = {
    "coupe ",      "poutre",  "dalle",    "poteau",       "semelle",     "cadre",
    "trier",       "chelle ", "enrobage", "nomenclature", "ferraillage", "coffrage",
    "rep\u00E8re", "vue en ", "paisseur", "b\u00E9ton",   "attentes",    "armatures"};

std::string lowered(std::string_view text) {
  std::string out(text);
  std::ranges::transform(out, out.begin(), [](char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
  });
  return out;
}

std::string twoDigits(std::int64_t mark) {
  const std::string text = std::to_string(mark);
  return text.size() < 2 ? '0' + text : text;
}

}  // namespace

Language guessLanguage(const TransferFile& file) {
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (!element.is(items::ElementClass::kText)) {
      continue;
    }
    const std::string text = lowered(findItem(reader.read(element), "Contents")->text);
    if (std::ranges::any_of(kFrenchStems, [&](std::string_view stem) {
          return text.find(stem) != std::string::npos;
        })) {
      return Language::kFrench;
    }
  }
  return Language::kEnglish;
}

const Wording& wordingOf(Language language) noexcept {
  return language == Language::kFrench ? kFrenchWords : kEnglishWords;
}

std::string barText(const BarWords& bar, Language language) {
  const std::string number = bar.number == 0 ? "" : std::to_string(bar.number) + ' ';
  const std::string diameter = rounded(bar.diameter, 2);
  if (language == Language::kEnglish) {
    return number + (bar.isSmooth ? 'R' : 'H') + diameter + '-' + twoDigits(bar.mark) +
           (bar.spacingInMillimetres.empty() ? "" : "-" + bar.spacingInMillimetres);
  }
  std::string text = number + (bar.isSmooth ? "Dx" : "HA") + diameter;
  if (!bar.spacingInCentimetres.empty()) {
    text += " e=" + bar.spacingInCentimetres;
  }
  if (bar.lengthInMetres > 0.0) {
    // All the digits of a length that no bar has would take the room of the drawing.
    constexpr double kLongest = 1e6;
    text += " L=" + (bar.lengthInMetres < kLongest ? fixed(bar.lengthInMetres, 2)
                                                   : shortest(bar.lengthInMetres));
  }
  return text;
}

}  // namespace quorvan::tool
