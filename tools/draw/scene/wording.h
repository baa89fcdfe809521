// What the program writes on a drawing by itself, in the languages of its drawings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvan::tool {

enum class Language : std::uint8_t { kEnglish, kFrench };

/// The fixed words, one table a language.
struct Wording {
  std::string_view formwork, mesh, bar, link, endOn, repartition, hidden;
  std::string_view drawing, noRecord, file, producedBy, checkSum, scale;
};
const Wording& wordingOf(Language language) noexcept;

/// What is known of the bars of a mark; 0 and empty for what is not.
struct BarWords {
  std::int64_t mark = 0;
  std::uint64_t number = 0;
  bool isSmooth = false;
  double diameter = 0.0;
  std::string spacingInMillimetres;
  std::string spacingInCentimetres;
  double shortestMetres = 0.0;
  double longestMetres = 0.0;
  bool isLengthLeast = false;  // they are at least so long
};

/// As a detailer writes it: "12 HA16 e=20 L=3.20" in French, or "L=1.00 à 3.85" of bars whose
/// lengths differ; "12 H16-05-200" in English, where the mark stands within.
std::string barText(const BarWords& bar, Language language);

}  // namespace quorvan::tool
