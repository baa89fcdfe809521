// References in text: "&amp;", "&#233;", "&#xE9;".
#pragma once

#include <optional>
#include <string_view>

namespace quorvan::embedded {

/// The character that the text between "&" and ";" stands for: one of the five names that need no
/// declaration, or the number of a character that XML can carry. Nothing otherwise.
std::optional<char32_t> referredCharacter(std::string_view reference) noexcept;

}  // namespace quorvan::embedded
