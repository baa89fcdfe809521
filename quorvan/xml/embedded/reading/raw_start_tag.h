// A start tag as it stands in the file, for what the parser does not tell: it turns tabs and line
// ends in attribute values into blanks, and leaves out references that it may not resolve.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <quorvan/xml/embedded/reading/entity_graph.h>

namespace quorvan::embedded {

/// An attribute value between its quotes.
class RawValue {
 public:
  explicit RawValue(std::string_view text) noexcept : m_text(text) {}

  /// Whether every entity that it refers to is known: needs no declaration, or has one with all
  /// that it is made of.
  [[nodiscard]] bool isKnown(const EntityGraph& entities) const;

  /// The value with tabs and line ends (as LF) kept. Nothing unless `parsed`, which the parser
  /// made of it, is the same but for blanks in their place.
  [[nodiscard]] std::optional<std::string> keepingSpace(std::string_view parsed) const;

 private:
  std::string_view m_text;
};

/// Takes a well-formed start tag (UTF-8) apart.
class RawStartTag {
 public:
  explicit RawStartTag(std::string_view tag) noexcept : m_rest(tag) {}

  /// The value of the next attribute. Nothing when there is no other.
  std::optional<RawValue> next() noexcept;

 private:
  std::string_view m_rest;
};

}  // namespace quorvan::embedded
