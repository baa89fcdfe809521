// How this program lays JSON out.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace quorvan::tool {

using Json = nlohmann::ordered_json;

/// On one line, with a blank behind colons and commas; numbers as short as they go.
std::string inlineJson(const Json& value);

/// Indented; arrays of plain values stand on one line, and so do short objects that hold no other.
/// Ends with a line end.
std::string indentedJson(const Json& value);

}  // namespace quorvan::tool
