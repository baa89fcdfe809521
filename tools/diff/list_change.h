// What a revision changes in the bar list.
#pragma once

#include <string>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/length_unit.h>

namespace quorvan::tool {

/// A line for each mark whose bars are not the same: "mark 10: 18 → 19 bars, +0.4 kg"; then one for
/// the mass of all, where that is another. In the order of the marks; lengths are in the unit.
std::vector<std::string> listChanges(const TransferFile& before, const TransferFile& after,
                                     const LengthUnit& unit);

}  // namespace quorvan::tool
