// Pictures as files, in the form that their name says.
#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include <tools/console/console.h>
#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// What was asked for.
struct PictureFile {
  const std::string& name;  // that of the file, or of the standard output
  std::optional<double> dotsPerInch;
};

/// ".svg", ".html" and so on; ".svg" for the standard output.
std::string formOf(const std::string& output);

/// Writes the scene to the path as SVG, PNG or PDF. Raises Failure for any other form, and where it
/// cannot be written; says where a PNG is coarser than usual.
void writeScene(const Scene& scene, const PictureFile& picture, const std::filesystem::path& path,
                Console& console);

/// Raises Failure, in that name, where not all was written.
void closeWritten(std::ofstream& out, const std::string& name);

}  // namespace quorvan::tool
