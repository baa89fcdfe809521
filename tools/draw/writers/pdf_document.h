// Scenes as a PDF of few bytes, made in little time.
#pragma once

#include <optional>
#include <span>
#include <string>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// The bytes of a document with a page for each scene; one at least. The title is that of the
/// first. Nothing where a text has letters that no font has, or that are no plain outlines.
std::optional<std::string> pdfDocument(std::span<const Scene> pages);

}  // namespace quorvan::tool
