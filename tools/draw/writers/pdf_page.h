// What is painted on a page of a PDF.
#pragma once

#include <string>

#include <tools/draw/scene/scene.h>
#include <tools/draw/writers/pdf_texts.h>

namespace quorvan::tool {

inline constexpr double kPointsOfMillimetre = 72.0 / 25.4;  // a point is the unit of pages

/// The operators that paint the scene. Its texts were added before.
std::string pdfContent(const Scene& scene, const PdfTexts& texts);

}  // namespace quorvan::tool
