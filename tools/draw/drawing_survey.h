// What a drawing covers, before there is a sheet.
#pragma once

#include <vector>

#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/outliers.h>
#include <tools/draw/scene/sheet.h>
#include <tools/files/transfer_file.h>
#include <tools/model/repeated_bars.h>

namespace quorvan::tool {

struct DrawingSurvey {
  SheetContents contents;               // what is to be on the sheet
  std::vector<std::uint32_t> outliers;  // elements that are not, in their order
  bool hasBars = false;
};

/// Draws everything in millimetres of what is shown, hooks, bars of repartitions and texts as they
/// are, and keeps the boxes: nothing can be drawn that was not measured.
DrawingSurvey survey(const TransferFile& file, const DrawOptions& options, AngleUnit angles,
                     RepeatedBars& repeated);

}  // namespace quorvan::tool
