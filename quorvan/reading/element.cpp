#include <quorvan/reading/element.h>

#include <quorvan/elements/items/numbered_items.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/reading/boundary.h>

namespace dom = quorvan::dom;
namespace items = quorvan::items;

namespace {

// Goes through the items of a class in the order of its table.
class TableWalk {
 public:
  explicit TableWalk(const items::ElementSchema* schema) : m_isInOrder(schema != nullptr) {
    if (schema != nullptr) {
      m_items = schema->items;
    }
  }

  // The item of that name, null without one.
  const items::ItemSchema* find(std::string_view name) {
    for (std::size_t i = m_next; m_isInOrder && i < m_items.size(); ++i) {
      if (m_items[i].name == name) {
        m_next = i + 1;
        return &m_items[i];
      }
    }
    m_isInOrder = false;
    for (const items::ItemSchema& item : m_items) {
      if (item.name == name) {
        return &item;
      }
    }
    return nullptr;
  }

  // Whether every item asked for so far came behind the one before.
  [[nodiscard]] bool isInOrder() const noexcept { return m_isInOrder; }

 private:
  std::span<const items::ItemSchema> m_items;
  std::size_t m_next = 0;
  bool m_isInOrder;
};

// Recognises the points that stand in order behind their number.
class PointsBehind {
 public:
  void begin(std::string_view stem) noexcept {
    m_stem = stem;
    m_next = 1;
  }
  bool takes(std::string_view name) noexcept {
    if (m_next == 0 || items::numberBehind(m_stem, name) != m_next) {
      return false;
    }
    ++m_next;
    return true;
  }

 private:
  std::string_view m_stem;
  std::uint32_t m_next = 0;
};

std::int32_t numberOf(const QuorvanElement* element, const dom::Name& attribute) {
  std::int32_t number = 0;
  quorvan::reading::guarded([&] {
    dom::AttributeValue value;
    if (element != nullptr && dom::attribute(element->node(), attribute, value)) {
      number = value.toLong();
    }
    return QUORVAN_DONE;
  });
  return number;
}

// The text, kept with the element; empty where that fails.
const char* keptText(const QuorvanElement& element, const dom::NodeName& name) {
  const char* text = "";
  quorvan::reading::guarded([&] {
    text = element.texts().keep(name.view().text());
    return QUORVAN_DONE;
  });
  return text;
}

}  // namespace

QuorvanElement::QuorvanElement(QuorvanFile& file, const IXMLDOMNodePtr& node, std::size_t place)
    : m_file(file) {
  moveTo(node, place);
}

void QuorvanElement::moveTo(const IXMLDOMNodePtr& node, std::size_t place) {
  const items::ElementSchema* const schema =
      m_schema != nullptr && dom::nodeNameIs(node, dom::Name(m_schema->className))
          ? m_schema
          : items::findElement(dom::nodeName(node).view().text());
  collect(node, schema);
  m_items.swap(m_collected);
  m_areInOrder = m_collectedInOrder;
  m_node = node;
  m_place = place;
  m_schema = schema;
  m_likely = 0;
  m_texts.clear();
}

void QuorvanElement::collect(const IXMLDOMNodePtr& node, const items::ElementSchema* schema) {
  m_collected.clear();
  TableWalk table(schema);
  PointsBehind points;
  for (IXMLDOMNodePtr child = dom::firstChild(node); child != nullptr;) {
    IXMLDOMNodePtr next = dom::nextSibling(child);
    if (dom::hasAttributes(child)) {
      dom::NodeName name = dom::nodeName(child);
      const std::string_view text = name.view().text();
      if (!points.takes(text)) {
        const items::ItemSchema* const item = table.find(text);
        if (item != nullptr && item->kind == items::Kind::kNumberedPoints) {
          points.begin(item->stem);
        }
        // A name of the system's service is a text of its own.
        // NOLINTNEXTLINE(performance-move-const-arg)
        m_collected.push_back({this, std::move(child), std::move(name), item});
      }
    }
    child = std::move(next);
  }
  m_collectedInOrder = table.isInOrder();
}

const QuorvanItem* QuorvanElement::find(std::string_view name) const noexcept {
  // Where no name comes twice, any of that name is the first, and the search may begin anywhere.
  const std::size_t count = m_items.size();
  const std::size_t begin = m_areInOrder && m_likely < count ? m_likely : 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = begin + i < count ? begin + i : begin + i - count;
    if (m_items[at].name.view().text() == name) {
      m_likely = at + 1;
      return &m_items[at];
    }
  }
  return nullptr;
}

// --- the functions of read.h --------------------------------------------------------------------

const char* quorvanElementClass(const QuorvanElement* element) {
  if (element == nullptr) {
    return "";
  }
  if (element->schema() != nullptr) {
    return element->schema()->className.data();
  }
  const char* text = "";
  quorvan::reading::guarded([&] {
    text = keptText(*element, dom::nodeName(element->node()));
    return QUORVAN_DONE;
  });
  return text;
}

int quorvanElementClassNumber(const QuorvanElement* element) {
  return element == nullptr || element->schema() == nullptr
             ? -1
             : static_cast<int>(element->schema()->id);
}

std::int32_t quorvanElementVersion(const QuorvanElement* element) {
  return numberOf(element, quorvan::filer::kVersionName);
}

std::int32_t quorvanElementIndex(const QuorvanElement* element) {
  return numberOf(element, quorvan::filer::kIndexName);
}

std::size_t quorvanElementPlace(const QuorvanElement* element) {
  return element == nullptr ? 0 : element->place();
}

std::size_t quorvanItemCount(const QuorvanElement* element) {
  return element == nullptr ? 0 : element->items().size();
}

const QuorvanItem* quorvanItemAt(const QuorvanElement* element, std::size_t number) {
  return element == nullptr || number >= element->items().size() ? nullptr
                                                                 : &element->items()[number];
}

const QuorvanItem* quorvanItem(const QuorvanElement* element, const char* name) {
  return element == nullptr || name == nullptr ? nullptr : element->find(name);
}

const char* quorvanItemName(const QuorvanItem* item) {
  if (item == nullptr) {
    return "";
  }
  if (item->schema != nullptr) {
    return item->schema->name.data();
  }
  if (item->nameText == nullptr || *item->nameText == '\0') {
    item->nameText = keptText(*item->element, item->name);
  }
  return item->nameText;
}
