// The part of `quorvan draw` that writes a DXF.
#pragma once

#include <filesystem>

#include <tools/console/console.h>
#include <tools/draw/dxf/dxf_options.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// Writes the DXF, and names on the console what did not go into it as it is. Raises Failure where
/// the file cannot be written.
void drawDxf(const TransferFile& file, const DrawOptions& options, const DxfOptions& dxf,
             const std::filesystem::path& path, Console& console);

}  // namespace quorvan::tool
