// Makes the scene of a transfer file.
#pragma once

#include <cstdint>

#include <tools/console/console.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/scene.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

struct SceneResult {
  Scene scene;
  std::uint64_t leftOut = 0;  // elements whose coordinates are beyond what can be drawn
};

SceneResult buildScene(const TransferFile& file, const DrawOptions& options, Console& console);

}  // namespace quorvan::tool
