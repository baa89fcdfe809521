// Records of bending data for tests, closed with the right checksum.
#pragma once

#include <string>
#include <string_view>

namespace quorvan::test {

/// The record from its kind to its last block, closed by its checksum and a line end.
std::string sealedRecord(std::string_view blocks);

/// What checking these bytes finds, as "908 H p, 910 H i"; empty where it finds nothing.
std::string bendingFindings(std::string_view bytes);

}  // namespace quorvan::test
