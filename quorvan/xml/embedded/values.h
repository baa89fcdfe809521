// The value types behind the contract of dom.h, over the embedded document: views into its tree.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <quorvan/text/cstring.h>
#include <quorvan/xml/embedded/tree/name_table.h>
#include <quorvan/xml/embedded/tree/value_list.h>
#include <quorvan/xml/handles.h>
#include <quorvan/xml/name.h>

namespace quorvan::dom {

/// The value of an attribute, as UTF-8 in the tree.
class AttributeValue {
 public:
  AttributeValue() noexcept = default;
  explicit AttributeValue(std::string_view utf8) noexcept : m_text(utf8) {}

  [[nodiscard]] double toDouble() const noexcept;
  [[nodiscard]] std::int32_t toLong() const noexcept;
  [[nodiscard]] CString toText() const;
  void appendTo(std::string& utf8) const { utf8.append(m_text); }

  friend bool operator==(const AttributeValue& a, const AttributeValue& b) noexcept {
    return a.m_text == b.m_text;
  }

 private:
  std::string_view m_text;
};

/// Walks the attributes of a node in their order.
class AttributeCursor {
 public:
  explicit AttributeCursor(const IXMLDOMNodePtr& node);

  bool next() noexcept { return m_values.next(); }
  [[nodiscard]] Name name() const noexcept { return (*m_names)[m_values.name()].name(); }
  [[nodiscard]] AttributeValue value() const noexcept {
    return AttributeValue(m_values.value().text);
  }

 private:
  const embedded::NameTable* m_names;
  embedded::ValueWalk m_values;
};

/// A node's name, whose bytes lie in its tree: a node that moves to another document leaves them
/// behind.
class NodeName {
 public:
  explicit NodeName(const Name& name) noexcept : m_name(name) {}

  [[nodiscard]] Name view() const noexcept { return m_name; }
  operator Name() const noexcept { return m_name; }  // NOLINT(google-explicit-constructor)

 private:
  Name m_name;
};

}  // namespace quorvan::dom
