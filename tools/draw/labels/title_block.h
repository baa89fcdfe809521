// The strip along the lower edge of the sheet: what the control record says, and the scale.
#pragma once

#include <tools/draw/shapes/shape_sink.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

void drawTitleBlock(const TransferFile& file, const DrawOptions& options, ShapeSink& sink);

/// The name of the drawing, else that of the file.
std::string titleOf(const TransferFile& file);

}  // namespace quorvan::tool
