// Writes a mended copy of a transfer file.
#pragma once

#include <filesystem>

#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// Writes the file again as the library writes files, with everything put right whose right value
/// is certain: characters and nodes that keep readers away, types of attributes, decimal commas,
/// flags, counts, repeated items, versions and indexes (with the repartitions that refer to them),
/// equal hidden bars, numeric adherence, a missing control record. All else is copied as it stands,
/// but for comments. Raises Failure; nothing is there then that was not there before.
void writeRepaired(const TransferFile& file, const std::filesystem::path& output);

}  // namespace quorvan::tool
