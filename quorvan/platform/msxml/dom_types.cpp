#include <quorvan/platform/msxml/dom_types.h>

#include <array>
#include <cstddef>

#include <quorvan/platform/msxml/node_access.h>
#include <quorvan/platform/numbers.h>
#include <quorvan/platform/utf8.h>

namespace quorvan::dom {

double AttributeValue::toDouble() const noexcept {
  return parseDouble(m_text.view());
}

std::int32_t AttributeValue::toLong() const noexcept {
  return parseLong(m_text.view());
}

CString AttributeValue::toText() const {
  return CString(m_text.view());
}

void AttributeValue::appendTo(std::string& utf8) const {
  appendUtf8(utf8, m_text.view());
}

AttributeCursor::AttributeCursor(const IXMLDOMNodePtr& node)
    : m_map(msxml::attributeMap(*node)),
      m_isDeclaration(msxml::nodeType(*node) == NODE_PROCESSING_INSTRUCTION) {}

bool AttributeCursor::next() {
  if (m_map == nullptr)
    return false;
  if (!(m_isDeclaration ? goToDeclaredName() : goToItem())) {
    m_map = nullptr;
    return false;
  }
  m_name = toUtf8(msxml::nodeNameText(*m_attribute).view());
  return true;
}

bool AttributeCursor::goToItem() {
  IXMLDOMNode* attribute = nullptr;
  const bool has = msxml::found(m_map->get_item(m_next++, &attribute));
  m_attribute.reset(attribute);
  return has && attribute != nullptr;
}

// What a declaration can hold, in its order. Wine's service finds it by name only.
bool AttributeCursor::goToDeclaredName() {
  constexpr std::array<std::wstring_view, 3> kNames = {L"version", L"encoding", L"standalone"};
  while (static_cast<std::size_t>(m_next) < kNames.size()) {
    const msxml::Bstr name(kNames[static_cast<std::size_t>(m_next++)]);
    IXMLDOMNode* attribute = nullptr;
    const bool has = msxml::found(m_map->getNamedItem(name.get(), &attribute));
    m_attribute.reset(attribute);
    if (has && attribute != nullptr)
      return true;
  }
  return false;
}

AttributeValue AttributeCursor::value() const {
  return AttributeValue(msxml::valueText(*m_attribute));
}

}  // namespace quorvan::dom
