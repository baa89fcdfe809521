// Makes a DXF of a transfer file.
#pragma once

#include <cstdint>
#include <ostream>
#include <vector>

#include <tools/console/console.h>
#include <tools/draw/dxf/dxf_options.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// Elements that did not go into the DXF as they are, by their places in the file.
struct DxfLosses {
  std::vector<std::uint32_t> leftOut;    // coordinates beyond what a DXF can hold, or none at all
  std::vector<std::uint32_t> cut;        // texts longer than a line can be
  std::vector<std::uint32_t> escaped;    // texts with characters that the code page lacks
  std::vector<std::uint32_t> broken;     // texts with line ends or other control characters
  std::vector<std::uint32_t> intricate;  // fills of which R12 has the outline alone
  std::uint64_t withoutHeight = 0;       // texts without a height, which got one
};

/// Writes what the file has, and nothing of a sheet: every element where it is, in the drawing's
/// own unit, on layers by kind and diameter, with class, index and mark behind it. Of the options,
/// plane, unit, window, colours, angles, hidden bars and layers count; the scale, given or the
/// drawing's own, gives the length of dashes and of the strokes across dimension lines.
DxfLosses writeDxf(const TransferFile& file, const DrawOptions& options, const DxfOptions& dxf,
                   Console& console, std::ostream& out);

}  // namespace quorvan::tool
