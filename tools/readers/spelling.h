// Names as languages spell them.
#pragma once

#include <string>
#include <string_view>

namespace quorvan::tool {

/// "HookLength1" as "hookLength1".
std::string camelCase(std::string_view name);

/// "HookLength1" as "hook_length1".
std::string snakeCase(std::string_view name);

/// "a line" as "A line".
std::string capitalized(std::string_view text);

}  // namespace quorvan::tool
