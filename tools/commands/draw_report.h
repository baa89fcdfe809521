// What there is to say of a drawing once it is drawn.
#pragma once

#include <tools/console/console.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene_builder.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// Warns of what is left out, and notes what is drawn otherwise than the file has it.
void reportDrawn(const TransferFile& file, const SceneResult& result, const DrawOptions& options,
                 Console& console);

/// Notes a scale that a text states and the sheet does not have: lengths may be in another unit.
void reportScale(const TransferFile& file, const SceneResult& result, Console& console);

}  // namespace quorvan::tool
