#include <quorvan/filer/search_index.h>

#include <algorithm>
#include <functional>

#include <quorvan/filer/descendants.h>

namespace quorvan {

namespace {

// Separates values in a key: a character that no value carries.
constexpr char kSeparator = '\x01';

// The key of the values in `text` as far as the attribute at `position`.
std::uint64_t keyOf(const std::string& text, std::size_t position) {
  return std::hash<std::string_view>{}(text) ^ (0x9E3779B97F4A7C15ULL * (position + 1));
}

}  // namespace

SearchIndex::Search SearchIndex::search(const IXMLDOMNodePtr& root, const dom::Name& className,
                                        const IXMLDOMNodePtr& patternClass) {
  try {
    const Pattern pattern = readPattern(patternClass);
    ClassEntry& entry = m_classes[std::string(className.text())];
    takeInElements(entry, root, className);
    Table& table = tableFor(entry, pattern);
    while (table.nextInChain.size() < entry.elements.size()) {
      indexElement(table, entry.elements[table.nextInChain.size()]);
    }
    return {entry, table, pattern};
  } catch (...) {
    // An element may be half taken in: no revision of a document is 0, so the next search makes
    // a new index.
    m_revision = 0;
    throw;
  }
}

SearchIndex::Pattern SearchIndex::readPattern(const IXMLDOMNodePtr& patternClass) {
  Pattern pattern;
  for (IXMLDOMNodePtr item = dom::firstChild(patternClass); item != nullptr && pattern.canMatch;
       item = dom::nextSibling(item)) {
    pattern.canMatch = appendItem(item, pattern);
  }
  pattern.form += pattern.canMatch ? '+' : '-';
  return pattern;
}

// Takes one item into the pattern. False when the item, whatever the document holds, never matches.
bool SearchIndex::appendItem(const IXMLDOMNodePtr& item, Pattern& pattern) {
  if (!dom::hasAttributes(item)) {
    return false;
  }
  const dom::NodeName name = dom::nodeName(item);
  PatternItem& added = pattern.items.emplace_back();
  added.name = name.view().text();
  pattern.form.append(added.name).push_back(kSeparator);
  dom::AttributeCursor attributes(item);
  while (attributes.next()) {
    added.attributes.emplace_back(attributes.name().text());
    pattern.form.append("@").append(added.attributes.back()).push_back(kSeparator);
    attributes.value().appendTo(pattern.values.emplace_back());
  }
  return filer::descendantsHaveAttributes(item);
}

void SearchIndex::takeInElements(ClassEntry& entry, const IXMLDOMNodePtr& root,
                                 const dom::Name& className) {
  IXMLDOMNodePtr element = entry.elements.empty()
                               ? dom::firstChildNamed(root, className)
                               : dom::nextSiblingNamed(entry.elements.back(), className);
  while (element != nullptr) {
    entry.elements.push_back(element);
    element = dom::nextSiblingNamed(element, className);
  }
}

SearchIndex::Table& SearchIndex::tableFor(ClassEntry& entry, const Pattern& pattern) {
  const auto found =
      std::find_if(entry.tables.begin(), entry.tables.end(),
                   [&](const Table& table) { return table.pattern.form == pattern.form; });
  if (found != entry.tables.end()) {
    return *found;
  }
  Table& table = entry.tables.emplace_back();
  table.pattern = pattern;
  return table;
}

// Compares the element with an imagined pattern of its own values, as far as that goes: to a
// missing item (it can neither match nor raise), to a missing attribute (it raises for a pattern
// with the same values in front), or to the end (it matches a pattern with the same values).
void SearchIndex::indexElement(Table& table, const IXMLDOMNodePtr& element) {
  const std::size_t place = table.nextInChain.size();
  table.nextInChain.push_back(kNone);
  std::string values;
  std::size_t position = 0;
  for (const PatternItem& item : table.pattern.items) {
    const IXMLDOMNodePtr child = dom::firstChildNamed(element, dom::Name(item.name));
    if (child == nullptr || !dom::hasAttributes(child)) {
      return;
    }
    for (const std::string& name : item.attributes) {
      dom::AttributeValue value;
      if (!dom::attribute(child, dom::Name(name), value)) {
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
  if (table.pattern.canMatch) {
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
  std::string values;
  auto gap = table.gaps.begin();
  for (std::size_t position = 0; position < pattern.values.size(); ++position) {
    if (gap != table.gaps.end() && *gap == position) {
      addCandidates(keyOf(values, position));
      ++gap;
    }
    values.append(pattern.values[position]).push_back(kSeparator);
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
