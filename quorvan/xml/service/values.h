// The value types behind the contract of dom.h, over the platform's document service.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <quorvan/text/cstring.h>
#include <quorvan/xml/handles.h>
#include <quorvan/xml/name.h>
#include <quorvan/xml/service/bstr.h>

namespace quorvan::dom {

/// The value of an attribute, as the service handed it out.
class AttributeValue {
 public:
  AttributeValue() noexcept = default;
  explicit AttributeValue(service::Bstr text) noexcept : m_text(std::move(text)) {}

  [[nodiscard]] double toDouble() const noexcept;
  [[nodiscard]] std::int32_t toLong() const noexcept;
  [[nodiscard]] CString toText() const;
  void appendTo(std::string& utf8) const;

  friend bool operator==(const AttributeValue& a, const AttributeValue& b) noexcept {
    return a.m_text.view() == b.m_text.view();
  }

 private:
  service::Bstr m_text;
};

/// Walks the attributes of a node in their order.
class AttributeCursor {
 public:
  explicit AttributeCursor(const IXMLDOMNodePtr& node);

  bool next();
  [[nodiscard]] Name name() const noexcept { return Name(m_name); }
  [[nodiscard]] AttributeValue value() const;

 private:
  AttributeCursor(IXMLDOMNode& node, DOMNodeType type);
  bool goToItem();
  bool goToDeclaredName();

  service::Owned<IXMLDOMNamedNodeMap> m_map;
  service::Owned<IXMLDOMNode> m_attribute;
  long m_next = 0;
  bool m_isDeclaration;
  std::string m_name;
};

/// A node's name.
class NodeName {
 public:
  explicit NodeName(std::string utf8) noexcept : m_text(std::move(utf8)) {}

  [[nodiscard]] Name view() const noexcept { return Name(m_text); }
  operator Name() const noexcept { return view(); }  // NOLINT(google-explicit-constructor)

 private:
  std::string m_text;
};

}  // namespace quorvan::dom
