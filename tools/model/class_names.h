// Class names as people type them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// The class that the name says in upper or lower case, with or without "CKtZanto" or "CKt" before
/// it. Raises Failure, with the names there are, for any other.
std::string fullClassName(std::string_view name);

/// The name without "CKtZanto" or "CKt".
std::string_view shortClassName(std::string_view className) noexcept;

/// The names of all element classes without "CKtZanto" or "CKt".
std::vector<std::string> shortClassNames();

}  // namespace quorvan::tool
