// The library's own string table. Internal; one source for each system.
#pragma once

#include <string_view>

namespace quorvan::platform {

/// The French text of that number, which lives as long as the library; empty without such an
/// entry.
std::wstring_view findString(int number) noexcept;

}  // namespace quorvan::platform
