// Scenes as cairo paints them. Only where the build has it.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// As fine as a PNG can be that costs no more memory than a sheet of A0 usually does.
double mostDotsPerInch(const Scene& scene);

/// Raises Failure when the file cannot be written.
void writePng(const Scene& scene, double dotsPerInch, const std::filesystem::path& path);

/// The bytes of a PDF with a page each; one at least. The title is that of the first. It may have
/// any letters: those without a font are there as boxes.
std::string paintedPdf(std::span<const Scene> pages);

}  // namespace quorvan::tool
