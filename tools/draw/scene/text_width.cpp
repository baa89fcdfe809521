#include <tools/draw/scene/text_width.h>

#include <cstddef>
#include <cstdint>

#include <tools/draw/scene/lettering_metrics.h>

namespace quorvan::tool {

namespace {

// Advances of the characters from the blank to the tilde, in thousandths of the font's size:
// the wider of two common fonts.
constexpr std::uint16_t kAdvances[] = {
    318, 401, 460, 838, 636, 950, 780, 275, 390, 390, 500, 838, 318, 361,  318, 337, 636, 636, 636,
    636, 636, 636, 636, 636, 636, 636, 337, 337, 838, 838, 838, 556, 1015, 684, 686, 722, 770, 667,
    611, 778, 752, 295, 500, 667, 557, 863, 748, 787, 667, 787, 722, 667,  611, 732, 684, 989, 685,
    667, 685, 390, 337, 390, 838, 556, 500, 613, 635, 550, 635, 615, 352,  635, 634, 278, 278, 579,
    278, 974, 634, 612, 635, 635, 411, 521, 392, 634, 592, 818, 592, 592,  525, 636, 337, 636, 838};
constexpr double kOtherLetter = 720;  // accented, Greek, Cyrillic, Hebrew, Arabic: a mean
constexpr double kWide = 1000;        // those of East Asia
constexpr std::uint32_t kFirstWide = 0x1100;
constexpr std::uint32_t kLastSymbols = 0x2E7F;  // from 0x2000: dashes, arrows, signs
constexpr double kTab = 4 * 318;

double advanceOf(std::uint32_t letter) {
  if (letter == '\t') {
    return kTab;
  }
  if (letter == '\n' || letter == '\r') {
    return kAdvances[0];  // drawn as a blank
  }
  if (letter < ' ') {
    return 0.0;
  }
  if (letter - ' ' < std::size(kAdvances)) {
    return kAdvances[letter - ' '];
  }
  if (letter >= 0x300 && letter < 0x370) {
    return 0.0;  // marks over the letter before
  }
  const bool isSymbol = letter >= 0x2000 && letter <= kLastSymbols;
  return letter >= kFirstWide && !isSymbol ? kWide : kOtherLetter;
}

}  // namespace

double textWidth(std::string_view text, double capitals) noexcept {
  double width = 0.0;
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    std::uint32_t letter = lead < 0x80U   ? lead
                           : lead < 0xE0U ? lead & 0x1FU
                           : lead < 0xF0U ? lead & 0x0FU
                                          : lead & 0x07U;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) {
      letter = (letter << 6U) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
    }
    width += advanceOf(letter);
  }
  return width / 1000.0 * fontSizeOf(capitals);
}

}  // namespace quorvan::tool
