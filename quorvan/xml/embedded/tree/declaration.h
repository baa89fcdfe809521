// The XML declaration: what stands between "<?xml" and "?>".
#pragma once

#include <optional>
#include <string_view>

namespace quorvan::embedded {

/// The parts of a declaration; those that it does not have are empty.
struct Declaration {
  std::string_view version;
  std::string_view encoding;
  std::string_view standalone;
};

/// Takes the data of a declaration apart; the parts refer to it. Nothing when it is not one that
/// may stand in a file: version 1.0, then an encoding name, then standalone with yes or no, in
/// this order, the last two as far as they are there.
std::optional<Declaration> parseDeclaration(std::string_view data) noexcept;

/// Whether the text may stand as the named part ("version", "encoding", "standalone").
bool isDeclarationPart(std::string_view name, std::string_view text) noexcept;

}  // namespace quorvan::embedded
