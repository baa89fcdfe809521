// The language of a drawing.
#pragma once

#include <tools/draw/scene/wording.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// By the texts of the drawing. How bars are written tells before any words do: "HA12", "e=20" in
/// French, "H16-05-200" in English; then the language that has more of the words. French where both
/// have as many, English where neither has any.
Language guessLanguage(const TransferFile& file);

}  // namespace quorvan::tool
