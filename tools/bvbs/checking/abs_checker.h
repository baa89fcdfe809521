// Holds bending data against its format, and each shape against the roller that is to bend it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <tools/check/finding.h>

namespace quorvan::tool::bvbs {

/// All findings in the bytes of a file, in the order of their places. The class of a finding is the
/// kind of its record, the index its mark, the item its block and field. Columns count bytes.
std::vector<Finding> checkBendingData(std::string_view bytes);

}  // namespace quorvan::tool::bvbs
