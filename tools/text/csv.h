// Comma-separated values: fields with a separator, a quote or a line end stand in quotes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// One line with its line end.
std::string csvLine(const std::vector<std::string>& fields, char separator = ',');

}  // namespace quorvan::tool
