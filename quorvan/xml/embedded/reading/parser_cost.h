// What the declarations of a document make the parser do beyond going through its bytes, held
// against the size of the file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include <quorvan/xml/embedded/reading/doctype.h>
#include <quorvan/xml/embedded/reading/step_budget.h>

namespace quorvan::embedded {

class ParserCost {
 public:
  /// The DOCTYPE must outlive it.
  ParserCost(const Doctype& doctype, std::uint64_t fileSize) noexcept
      : m_doctype(doctype), m_steps(fileSize) {}

  /// Takes in a start tag with so many attributes. False when the parser goes beyond the limit with
  /// those that are declared for its element.
  bool addTag(const char* name, std::size_t attributes) {
    return m_doctype.declaredAttributes.empty() || addDeclared(name, attributes);
  }

  /// Takes in a name with a prefix that stands in the file.
  void addPrefix() noexcept { ++m_prefixes; }
  /// Takes in an attribute that stands in the file.
  void addAttribute(std::string_view name, std::string_view value) noexcept {
    if (isNamespace(name)) {
      m_longestAddress = std::max<std::uint64_t>(m_longestAddress, value.size());
    }
  }

  /// Whether a name has had a prefix.
  [[nodiscard]] bool hasPrefix() const noexcept { return m_prefixes != 0; }
  /// At the end: whether it is within the limit to look into the prefixes too, which takes the
  /// address of its namespace for each.
  bool mayResolvePrefixes() noexcept {
    return m_steps.spend(m_repeatedBytes) && m_steps.spend(m_prefixes * m_longestAddress);
  }

 private:
  static bool isNamespace(std::string_view name) noexcept {
    constexpr std::string_view kName = "xmlns";
    return name.substr(0, kName.size()) == kName;
  }
  bool addDeclared(std::string_view name, std::size_t attributes);

  const Doctype& m_doctype;
  StepBudget m_steps;
  std::uint64_t m_prefixes = 0;
  std::uint64_t m_longestAddress = 0;
  std::uint64_t m_repeatedBytes = 0;  // of addresses that declarations give each element anew
};

}  // namespace quorvan::embedded
