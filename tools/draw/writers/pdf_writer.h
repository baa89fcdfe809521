// Scenes as PDF. Only where the build has cairo.
#pragma once

#include <filesystem>
#include <span>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// A page each; one at least. The title is that of the first. Raises Failure when the file cannot
/// be written.
void writePdf(std::span<const Scene> pages, const std::filesystem::path& path);

/// The same with one page.
void writePdf(const Scene& scene, const std::filesystem::path& path);

}  // namespace quorvan::tool
