// Writes a source again with its edits.
#pragma once

#include <string>
#include <string_view>

#include <tools/repair/source_edits.h>

namespace quorvan::tool {

/// The text with the edits; everything else is copied as it stands. `text` comes from plainText()
/// and is the one that the edits were made for.
std::string rewritten(std::string_view text, bool isSingleByte, const SourceEdits& edits);

}  // namespace quorvan::tool
