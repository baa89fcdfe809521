// What tells one bent shape from another.
#pragma once

#include <cstdint>
#include <vector>

#include <tools/bending/bent_bar.h>

namespace quorvan::tool {

/// Equal for bars that are bent alike, from whichever end they are filed and on whichever side they
/// lie: lengths to the tenth of a millimetre, angles to the tenth of a degree.
std::vector<std::int64_t> formOf(const BentBar& bent);

}  // namespace quorvan::tool
