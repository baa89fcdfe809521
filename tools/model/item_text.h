// The texts in which items hold their values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvan::tool {

/// Whether the text is a decimal number from its first to its last character.
bool isWholeNumber(std::string_view text) noexcept;
bool isDecimalNumber(std::string_view text) noexcept;

/// The 32-bit number that the text holds and nothing else; nothing otherwise.
std::optional<std::int32_t> exactLong(std::string_view text) noexcept;

/// The flag that the text says in upper or lower case; nothing when it says neither.
std::optional<bool> flagOf(std::string_view text) noexcept;

/// The number at the end of a name that begins with `stem`: digits without leading zeros, from 1.
std::optional<std::uint32_t> entryNumber(std::string_view name, std::string_view stem) noexcept;

}  // namespace quorvan::tool
