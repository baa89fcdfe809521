// A file of bending data: its name, its bytes, its lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool::bvbs {

/// Whether the name has the ending of bending data: ".abs", in capitals or not.
bool isBendingDataName(std::string_view name);

/// The bytes of the file. Raises Unreadable.
std::string bendingDataBytes(const std::string& name);

/// A line of bending data without its end.
struct DataLine {
  std::uint32_t number;  // from 1
  std::string_view text;
  bool hasReturn;  // ends in CRLF, or closes the file
};

/// The lines that are not empty.
std::vector<DataLine> linesOf(std::string_view bytes);

}  // namespace quorvan::tool::bvbs
