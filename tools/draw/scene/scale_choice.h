// The scale that a drawing was made for.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// What a drawing says of its scale, in millimetres of what it shows.
struct ScaleHints {
  std::vector<double> textHeights;   // above 0
  std::vector<double> statedScales;  // 25 for a text that says "1:25"
  std::optional<SheetBox> frame;     // the drawing's own
};

/// The scale in a text like "Scale 1:25", "Ech. 1/50"; nothing for any other text, as for
/// "slope 1:50".
std::optional<double> statedScale(std::string_view text);

/// The height of most of the lettering; nothing without texts.
std::optional<double> usualHeight(const ScaleHints& hints);

/// The usual scale at which the lettering is as high on paper as lettering is: the one that a text
/// states, else one at which the drawing's frame is a usual sheet, else that which gives letters of
/// nearly 2.5 mm. Nothing where there is none.
std::optional<double> chooseScale(const ScaleHints& hints);

/// The first usual scale that is not below `least`.
double usualScale(double least) noexcept;

}  // namespace quorvan::tool
