// The right texts of items, where they are certain.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <tools/files/document_tree.h>

namespace quorvan::tool {

/// What puts an attribute right.
struct AttributeMend {
  std::string from;  // the attribute in whose place it goes; empty for a new one
  std::string name;
  std::optional<std::string> value;  // none: the text of the old one as it stands
};

/// What a text that is meant for a value of some kind should be, itself if it is right; nothing
/// where that is not certain.
using RightText = std::optional<std::string> (*)(std::string_view text);

std::optional<std::string> rightDecimal(std::string_view text);
std::optional<std::string> rightWhole(std::string_view text);
std::optional<std::string> rightFlag(std::string_view text);
std::optional<std::string> rightString(std::string_view text);

/// Puts the text of an attribute right.
std::optional<AttributeMend> mendText(std::string_view attribute, std::string_view text,
                                      RightText right);

/// Gives the one attribute of an item that has the name of another type the name of its own.
std::optional<AttributeMend> mendType(const DocumentTree& tree, const Node& item,
                                      std::string_view attribute, RightText right);

/// The attribute of an item, of whatever type, that a count is to take the place of.
AttributeMend mendCount(const DocumentTree& tree, const Node& item, std::string_view attribute,
                        std::size_t count);

/// The text without the blanks around it.
std::string_view withoutBlanks(std::string_view text) noexcept;

}  // namespace quorvan::tool
