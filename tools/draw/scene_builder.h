// Makes the scene of a transfer file.
#pragma once

#include <cstdint>
#include <future>
#include <string>
#include <vector>

#include <tools/console/console.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/scene.h>
#include <tools/files/transfer_file.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

struct SceneResult {
  Scene scene;
  double unitsPerMillimetre = 1.0;      // what a millimetre of the sheet is in the drawing's unit
  double scale = 1.0;                   // of the sheet, 25 for 1:25
  std::vector<double> statedScales;     // by texts of the drawing
  std::uint64_t leftOut = 0;            // elements whose coordinates are beyond what can be drawn
  std::vector<std::uint32_t> outliers;  // elements that lie far from the others, and are not drawn
  std::uint64_t darkened = 0;           // elements whose colour would be too pale to read
  std::uint64_t withoutHeight = 0;      // texts without a height, which got one
};

/// `list` is the bar list of the file, where somebody makes it anyway: it is waited for as late as
/// can be.
SceneResult buildScene(const TransferFile& file, const DrawOptions& options, Console& console,
                       std::shared_future<BarList> list = {});

}  // namespace quorvan::tool
