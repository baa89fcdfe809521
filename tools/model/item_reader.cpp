#include <tools/model/item_reader.h>

#include <string>
#include <unordered_set>

#include <quorvan/filer/vocabulary.h>

#include <tools/model/item_text.h>
#include <tools/model/list_reader.h>
#include <tools/model/named_children.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

ItemSelection::ItemSelection(bool (*isWanted)(const items::ItemSchema& item)) {
  for (const items::ElementSchema& schema : items::allElements()) {
    std::uint32_t& wanted = m_items[static_cast<std::size_t>(schema.id)];
    for (std::size_t i = 0; i < schema.items.size(); ++i) {
      wanted |= isWanted(schema.items[i]) ? std::uint32_t{1} << i : 0U;
    }
  }
}

// The reading of one element.
class ItemReader::Reading {
 public:
  Reading(const DocumentTree& tree, const Element& element, Values values,
          std::vector<ItemProblem>* problems)
      : m_tree(tree),
        m_element(element),
        m_children(tree, *element.node),
        m_attributes(tree, values, problems) {}

  // Passes over an item; those that follow are found sooner.
  void pass(const items::ItemSchema& schema, ItemValue& value) {
    reset(schema, value);
    value.node = nullptr;
    m_children.find(schema.name);
  }

  void read(const items::ItemSchema& schema, ItemValue& value) {
    reset(schema, value);
    value.node = m_children.find(schema.name);
    if (value.node == nullptr) {
      if (m_attributes.reports() && (!schema.optional || isRequiredList(schema))) {
        m_attributes.report(ProblemKind::kMissing, m_element.node, schema.name, "",
                            "the item " + quoted(schema.name));
      }
      return;
    }
    if (isList(schema.kind)) {
      ListReader(m_attributes, *m_element.node).read(schema, value);
    } else {
      readScalar(schema, value);
    }
  }

  // Children that are no items, and items that come again.
  void reportStrangers() {
    if (m_children.isExhausted()) {
      return;
    }
    std::unordered_set<std::string_view, KeyedHash> seen;
    for (const Node* child = m_tree.firstChild(*m_element.node); child != nullptr;
         child = m_tree.nextSibling(*child)) {
      const std::string_view item = m_tree.name(*child);
      if (!isItem(item)) {
        if (child->isElement()) {
          m_attributes.report(ProblemKind::kUnknownItem, child, item, quoted(item),
                              "only items of " + std::string(m_element.className()));
        }
      } else if (!seen.insert(item).second) {
        m_attributes.report(ProblemKind::kRepeatedItem, child, item, "a second " + quoted(item),
                            "one item of each name");
      }
    }
  }

 private:
  static void reset(const items::ItemSchema& schema, ItemValue& value) {
    value.schema = &schema;
    value.number = 0.0;
    value.integer = 0;
    value.flag = false;
    value.text.clear();
    value.point = {};
    value.points.clear();
    value.segments.clear();
    value.numbers.clear();
  }

  // Reading goes on without a list, but an element that lost one is not whole.
  static bool isRequiredList(const items::ItemSchema& schema) { return isList(schema.kind); }

  [[nodiscard]] bool isItem(std::string_view child) const {
    for (const items::ItemSchema& schema : m_element.schema->items) {
      if (schema.name == child || (schema.kind == items::Kind::kNumberedPoints &&
                                   entryNumber(child, schema.stem).has_value())) {
        return true;
      }
    }
    return false;
  }

  void readScalar(const items::ItemSchema& schema, ItemValue& value) {
    switch (schema.kind) {
      case items::Kind::kPoint:
      case items::Kind::kVector:
        return m_attributes.readPoint(*value.node, value.point);
      case items::Kind::kDouble:
        return m_attributes.readDouble(*value.node, filer::kDoubleKind.text(), value.number);
      case items::Kind::kLong:
        return m_attributes.readLong(*value.node, filer::kLongKind.text(), value.integer);
      case items::Kind::kColor:
        m_attributes.readLong(*value.node, filer::kLongKind.text(), value.integer);
        value.integer = static_cast<std::uint32_t>(value.integer);
        return;
      case items::Kind::kNumericFlag:
        m_attributes.readLong(*value.node, filer::kLongKind.text(), value.integer);
        value.flag = value.integer != 0;
        return;
      case items::Kind::kFlag:
        return m_attributes.readFlag(*value.node, value.flag);
      case items::Kind::kAdherence:
        return m_attributes.readAdherence(*value.node, value.text);
      case items::Kind::kString:
        return m_attributes.readString(*value.node, value.text);
      case items::Kind::kPointList:
      case items::Kind::kSegmentList:
      case items::Kind::kDoubleList:
      case items::Kind::kNumberedPoints:
        return;  // no scalars
    }
  }

  const DocumentTree& m_tree;
  const Element& m_element;
  NamedChildren m_children;
  AttributeReader m_attributes;
};

const std::vector<ItemValue>& ItemReader::read(const Element& element,
                                               std::vector<ItemProblem>* problems,
                                               Strangers strangers) {
  m_items.resize(element.schema->items.size());
  Reading reading(m_tree, element, m_values, problems);
  for (std::size_t i = 0; i < m_items.size(); ++i) {
    reading.read(element.schema->items[i], m_items[i]);
  }
  if (problems != nullptr && strangers == Strangers::kReported) {
    reading.reportStrangers();
  }
  return m_items;
}

const std::vector<ItemValue>& ItemReader::read(const Element& element,
                                               const ItemSelection& selection) {
  m_items.resize(element.schema->items.size());
  Reading reading(m_tree, element, m_values, nullptr);
  for (std::size_t i = 0; i < m_items.size(); ++i) {
    const items::ItemSchema& schema = element.schema->items[i];
    if (selection.holds(*element.schema, i)) {
      reading.read(schema, m_items[i]);
    } else {
      reading.pass(schema, m_items[i]);
    }
  }
  return m_items;
}

const ItemValue& ItemReader::readOne(const Element& element, std::size_t place) {
  m_items.resize(element.schema->items.size());
  Reading(m_tree, element, m_values, nullptr).read(element.schema->items[place], m_items[place]);
  return m_items[place];
}

}  // namespace quorvan::tool
