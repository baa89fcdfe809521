#include <quorvan/filer/search_index.h>

#include <algorithm>
#include <functional>

#include <quorvan/filer/child_list.h>
#include <quorvan/filer/descendants.h>

namespace quorvan {

namespace {

// Separates values in a key: a character that no value carries.
constexpr char kSeparator = '\x01';

// The key of the values in `text` as far as the attribute at `position`.
std::uint64_t keyOf(std::string_view text, std::size_t position) {
  return std::hash<std::string_view>{}(text) ^ (0x9E3779B97F4A7C15ULL * (position + 1));
}

}  // namespace

SearchIndex::Search SearchIndex::search(const IXMLDOMNodePtr& root, const dom::Name& className,
                                        const IXMLDOMNodePtr& patternClass) {
  try {
    readPattern(patternClass);
    ClassEntry& entry = entryFor(className);
    if (!entry.isListed) {
      listElements(entry, root, className);
    }
    Table& table = tableFor(entry, patternClass);
    while (table.nextInChain.size() < entry.elements.size()) {
      indexElement(table, entry.elements[table.nextInChain.size()]);
    }
    return {entry, table, m_pattern};
  } catch (...) {
    // An element may be half taken in: no revision of a document is 0, so the next search makes
    // a new index.
    m_revision = 0;
    throw;
  }
}

void SearchIndex::readPattern(const IXMLDOMNodePtr& patternClass) {
  m_pattern.form.clear();
  m_pattern.values.clear();
  m_pattern.ends.clear();
  m_pattern.canMatch = true;
  for (IXMLDOMNodePtr item = dom::firstChild(patternClass); item != nullptr && m_pattern.canMatch;
       item = dom::nextSibling(item)) {
    m_pattern.canMatch = appendItem(item);
  }
  m_pattern.form += m_pattern.canMatch ? '+' : '-';
}

// Takes one item into the pattern. False when the item, whatever the document holds, never matches.
bool SearchIndex::appendItem(const IXMLDOMNodePtr& item) {
  if (!dom::hasAttributes(item)) {
    return false;
  }
  const dom::NodeName name = dom::nodeName(item);
  m_pattern.form.append(name.view().text()).push_back(kSeparator);
  dom::AttributeCursor attributes(item);
  while (attributes.next()) {
    m_pattern.form.append("@").append(attributes.name().text()).push_back(kSeparator);
    attributes.value().appendTo(m_pattern.values);
    m_pattern.values.push_back(kSeparator);
    m_pattern.ends.push_back(m_pattern.values.size());
  }
  return filer::descendantsHaveAttributes(item);
}

SearchIndex::ClassEntry& SearchIndex::entryFor(const dom::Name& className) {
  const auto found = m_classes.find(className.text());
  return found != m_classes.end() ? found->second : m_classes[std::string(className.text())];
}

void SearchIndex::listElements(ClassEntry& entry, const IXMLDOMNodePtr& root,
                               const dom::Name& className) {
  for (IXMLDOMNodePtr element = dom::firstChildNamed(root, className); element != nullptr;
       element = dom::nextSiblingNamed(element, className)) {
    entry.elements.push_back(element);
  }
  entry.isListed = true;
}

void SearchIndex::take(const dom::Name& name, const IXMLDOMNodePtr& classElement) {
  const auto entry = m_classes.find(name.text());
  if (entry != m_classes.end()) {
    entry->second.elements.push_back(classElement);
  }
}

// The table for the form of the pattern that was read last, which is that of `patternClass`.
SearchIndex::Table& SearchIndex::tableFor(ClassEntry& entry, const IXMLDOMNodePtr& patternClass) {
  const auto found = std::find_if(entry.tables.begin(), entry.tables.end(),
                                  [&](const Table& table) { return table.form == m_pattern.form; });
  if (found != entry.tables.end()) {
    return *found;
  }
  Table table;
  table.form = m_pattern.form;
  table.canMatch = m_pattern.canMatch;
  for (IXMLDOMNodePtr item = dom::firstChild(patternClass);
       item != nullptr && dom::hasAttributes(item); item = dom::nextSibling(item)) {
    Item& added = table.items.emplace_back(Item{KnownName(dom::nodeName(item)), {}});
    dom::AttributeCursor attributes(item);
    while (attributes.next()) {
      added.attributes.emplace_back(attributes.name());
    }
    if (!filer::descendantsHaveAttributes(item)) {
      break;
    }
  }
  return entry.tables.emplace_back(std::move(table));
}

// Compares the element with an imagined pattern of its own values, as far as that goes: to a
// missing item (it can neither match nor raise), to a missing attribute (it raises for a pattern
// with the same values in front), or to the end (it matches a pattern with the same values).
void SearchIndex::indexElement(Table& table, const IXMLDOMNodePtr& element) {
  const std::size_t place = table.nextInChain.size();
  table.nextInChain.push_back(kNone);
  std::string& values = m_values;
  values.clear();
  std::size_t position = 0;
  filer::ChildList children(element);
  for (const Item& item : table.items) {
    const IXMLDOMNodePtr child = m_findsChildren ? dom::firstChildNamed(element, item.name.name())
                                                 : children.first(item.name.name());
    if (child == nullptr || !dom::hasAttributes(child)) {
      return;
    }
    for (const KnownName& attribute : item.attributes) {
      dom::AttributeValue value;
      if (!dom::attribute(child, attribute.name(), value)) {
        const auto gap = std::lower_bound(table.gaps.begin(), table.gaps.end(), position);
        if (gap == table.gaps.end() || *gap != position) {
          table.gaps.insert(gap, position);
        }
        link(table, keyOf(values, position), place);
        return;
      }
      value.appendTo(values);
      values.push_back(kSeparator);
      ++position;
    }
  }
  if (table.canMatch) {
    link(table, keyOf(values, kNone), place);
  }
}

void SearchIndex::link(Table& table, std::uint64_t key, std::size_t element) {
  const auto [chain, isNew] = table.chains.try_emplace(key, Chain{element, element});
  if (!isNew) {
    table.nextInChain[chain->second.last] = element;
    chain->second.last = element;
  }
}

SearchIndex::Search::Search(const ClassEntry& entry, const Table& table, const Pattern& pattern)
    : m_entry(&entry), m_table(&table) {
  const std::string_view values = pattern.values;
  for (const std::size_t gap : table.gaps) {
    if (gap < pattern.ends.size()) {
      addCandidates(keyOf(values.substr(0, gap == 0 ? 0 : pattern.ends[gap - 1]), gap));
    }
  }
  if (pattern.canMatch) {
    addCandidates(keyOf(values, kNone));
  }
}

void SearchIndex::Search::addCandidates(std::uint64_t key) {
  const auto chain = m_table->chains.find(key);
  if (chain != m_table->chains.end()) {
    m_heads.push_back(chain->second.first);
  }
}

bool SearchIndex::Search::next() {
  const std::size_t count = m_entry->elements.size();
  if (m_passed == count) {
    return false;
  }
  std::size_t nearest = count - 1;
  for (std::size_t& head : m_heads) {
    while (head != kNone && head < m_passed) {
      head = m_table->nextInChain[head];
    }
    if (head != kNone) {
      nearest = std::min(nearest, head);
    }
  }
  m_passed = nearest + 1;
  return true;
}

}  // namespace quorvan
