#include <quorvan/xml/embedded/reading/parser_cost.h>

namespace quorvan::embedded {

bool ParserCost::addDeclared(std::string_view name, std::size_t attributes, const char** declared) {
  const auto found = m_doctype.declaredAttributes.find(name);
  if (found == m_doctype.declaredAttributes.end()) {
    return true;
  }
  if (!m_steps.spend(found->second * (std::uint64_t{attributes} + 1))) {
    return false;
  }
  for (; *declared != nullptr; declared += 2) {
    const std::string_view attribute(declared[0]);
    if (attribute.find(':') != std::string_view::npos) {
      addPrefix();
    }
    if (isNamespace(attribute)) {
      const std::string_view address(declared[1]);
      addAttribute(attribute, address);
      m_repeatedBytes += address.size();
    }
  }
  return true;
}

}  // namespace quorvan::embedded
