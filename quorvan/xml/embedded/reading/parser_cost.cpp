#include <quorvan/xml/embedded/reading/parser_cost.h>

namespace quorvan::embedded {

bool ParserCost::addDeclared(std::string_view name, std::size_t attributes) {
  const auto found = m_doctype.declaredAttributes.find(name);
  if (found == m_doctype.declaredAttributes.end()) {
    return true;
  }
  const DeclaredAttributes& declared = found->second;
  m_prefixes += declared.prefixes;
  m_repeatedBytes += declared.addressBytes;
  m_longestAddress = std::max<std::uint64_t>(m_longestAddress, declared.longestAddress);
  return m_steps.spend(declared.count * (std::uint64_t{attributes} + 1));
}

}  // namespace quorvan::embedded
