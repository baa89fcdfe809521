// An element of an open file and its items, behind the opaque types of read.h. Not installed.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include <quorvan/elements/element_classes.h>
#include <quorvan/reading/read.h>
#include <quorvan/reading/text_store.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

/// One item of an element.
struct QuorvanItem {
  QuorvanElement* element;
  IXMLDOMNodePtr node;
  quorvan::dom::NodeName name;
  const quorvan::items::ItemSchema* schema;  // null where the class has no such item
  mutable const char* nameText = nullptr;    // once it was asked for
};

/// One element of the file, where its walk has come.
struct QuorvanElement {
 public:
  QuorvanElement(QuorvanFile& file, const IXMLDOMNodePtr& node, std::size_t place);
  QuorvanElement(const QuorvanElement&) = delete;
  QuorvanElement& operator=(const QuorvanElement&) = delete;

  /// Moves on to another element of the file; what was given of the one before is gone. When it
  /// raises, the element is where it was.
  void moveTo(const IXMLDOMNodePtr& node, std::size_t place);

  /// The first item of that name, null without one.
  [[nodiscard]] const QuorvanItem* find(std::string_view name) const noexcept;

  [[nodiscard]] QuorvanFile& file() const noexcept { return m_file; }
  [[nodiscard]] const IXMLDOMNodePtr& node() const noexcept { return m_node; }
  [[nodiscard]] std::size_t place() const noexcept { return m_place; }
  /// Null for a class that is not known.
  [[nodiscard]] const quorvan::items::ElementSchema* schema() const noexcept { return m_schema; }
  [[nodiscard]] const std::vector<QuorvanItem>& items() const noexcept { return m_items; }
  /// For texts that live as long as the element stays where it is.
  [[nodiscard]] quorvan::reading::TextStore& texts() const noexcept { return m_texts; }

 private:
  void collect(const IXMLDOMNodePtr& node, const quorvan::items::ElementSchema* schema);

  QuorvanFile& m_file;
  IXMLDOMNodePtr m_node;
  std::size_t m_place = 0;
  const quorvan::items::ElementSchema* m_schema = nullptr;
  std::vector<QuorvanItem> m_items;
  std::vector<QuorvanItem> m_collected;
  bool m_areInOrder = false;  // strictly in the order of the table, so that no name comes twice
  bool m_collectedInOrder = false;
  mutable std::size_t m_likely = 0;  // where the next item asked for probably is
  mutable quorvan::reading::TextStore m_texts;
};
