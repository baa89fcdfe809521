// Whether a DXF is one, for all that can be told without knowing its drawing.
#pragma once

#include <string>

namespace quorvan::fuzz {

/// Ends the process where the bytes are no DXF: groups of a code and a value of its kind, sections,
/// tables, blocks and polylines that are closed in turn, layers and blocks that are there, handles
/// that are given once and are below the first free one.
void checkDxf(const std::string& bytes);

}  // namespace quorvan::fuzz
