#include <tools/draw/scene/wording.h>

#include <tools/schedule/list_wording.h>
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

std::string twoDigits(std::int64_t mark) {
  const std::string text = std::to_string(mark);
  return text.size() < 2 ? '0' + text : text;
}

std::string lengthText(double metres) {
  // All the digits of a length that no bar has would take the room of the drawing.
  constexpr double kLongest = 1e6;
  return metres < kLongest ? fixed(metres, 2) : shortest(metres);
}

// One length, or from the shortest to the longest where they are not written alike.
std::string lengthsText(const BarWords& bar) {
  const std::string least = lengthText(bar.shortestMetres);
  const std::string most = lengthText(bar.longestMetres);
  return least == most || bar.isLengthLeast ? least : filled(kFrenchList.range, {least, most});
}

}  // namespace

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
  if (bar.longestMetres > 0.0) {
    text += (bar.isLengthLeast ? " L\u2265" : " L=") + lengthsText(bar);
  }
  return text;
}

}  // namespace quorvan::tool
