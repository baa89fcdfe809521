// A scene as PNG or PDF. Only where the build has cairo.
#pragma once

#include <filesystem>
#include <span>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// As fine as a PNG can be that costs no more memory than a sheet of A0 usually does.
double mostDotsPerInch(const Scene& scene);

/// Raises Failure when the file cannot be written.
void writePng(const Scene& scene, double dotsPerInch, const std::filesystem::path& path);
void writePdf(const Scene& scene, const std::filesystem::path& path);

/// A page each; one at least. The title is that of the first.
void writePdf(std::span<const Scene> pages, const std::filesystem::path& path);

}  // namespace quorvan::tool
