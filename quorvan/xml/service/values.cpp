#include <quorvan/xml/service/values.h>

#include <array>
#include <cstddef>

#include <quorvan/text/numbers.h>
#include <quorvan/text/utf8.h>
#include <quorvan/xml/service/node_access.h>

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
    : AttributeCursor(*node, service::nodeType(*node)) {}

AttributeCursor::AttributeCursor(IXMLDOMNode& node, DOMNodeType type)
    : m_map(service::attributeMap(node, type)),
      m_isDeclaration(type == NODE_PROCESSING_INSTRUCTION) {}

bool AttributeCursor::next() {
  if (m_map == nullptr) {
    return false;
  }
  if (!(m_isDeclaration ? goToDeclaredName() : goToItem())) {
    m_map = nullptr;
    return false;
  }
  m_name = toUtf8(service::nodeNameText(*m_attribute).view());
  return true;
}

bool AttributeCursor::goToItem() {
  IXMLDOMNode* attribute = nullptr;
  const bool has = service::found(m_map->get_item(m_next++, &attribute));
  m_attribute.reset(attribute);
  return has && attribute != nullptr;
}

// What a declaration can hold, in its order. Wine's service finds it by name only.
bool AttributeCursor::goToDeclaredName() {
  constexpr std::array<std::wstring_view, 3> kNames = {L"version", L"encoding", L"standalone"};
  while (static_cast<std::size_t>(m_next) < kNames.size()) {
    const service::Bstr name(kNames[static_cast<std::size_t>(m_next++)]);
    IXMLDOMNode* attribute = nullptr;
    const bool has = service::found(m_map->getNamedItem(name.get(), &attribute));
    m_attribute.reset(attribute);
    if (has && attribute != nullptr) {
      return true;
    }
  }
  return false;
}

AttributeValue AttributeCursor::value() const {
  return AttributeValue(service::valueText(*m_attribute));
}

}  // namespace quorvan::dom
