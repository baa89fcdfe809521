// What the program writes on a drawing by itself, in the languages of its drawings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <tools/files/transfer_file.h>

namespace quorvan::tool {

enum class Language : std::uint8_t { kEnglish, kFrench };

/// French where a text of the drawing has a word that French drawings have, else English.
Language guessLanguage(const TransferFile& file);

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
  double lengthInMetres = 0.0;
};

/// As a detailer writes it: "12 HA16 e=20 L=3.20" in French, "12 H16-05-200" in English, where the
/// mark stands within.
std::string barText(const BarWords& bar, Language language);

}  // namespace quorvan::tool
