#include <tools/files/document_tree.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace quorvan::tool {

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;
constexpr std::size_t kRecentNames = 512;
constexpr char kCopiedQuote = '\x01';  // may not stand in a document

bool isTagBlank(char unit) noexcept {
  return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n';
}

std::size_t recentPlace(std::string_view name) noexcept {
  if (name.empty()) {
    return 0;
  }
  const auto unit = [name](std::size_t at) {
    return std::size_t{static_cast<unsigned char>(name[at])};
  };
  return (name.size() * 61U + unit(0) * 31U + unit(name.size() / 2) * 17U + unit(name.size() - 1)) %
         kRecentNames;
}

}  // namespace

void AttributeList::Iterator::goOn() noexcept {
  const char* at = m_at;
  while (isTagBlank(*at)) {
    ++at;
  }
  if (*at == '>' || *at == '/') {
    m_at = nullptr;
    return;
  }
  const char* const name = at;
  while (*at != '=') {
    ++at;
  }
  m_attribute.name = {name, static_cast<std::size_t>(at - name)};
  const char quote = at[1];
  const char* const value = at + 2;
  for (at = value; *at != quote;) {
    ++at;
  }
  m_attribute.value = {value, static_cast<std::size_t>(at - value)};
  m_at = at + 1;
}

void TagCopy::add(std::string_view name, std::string_view value) {
  m_text.append(1, ' ').append(name).append(1, '=');
  m_text.append(1, kCopiedQuote).append(value).append(1, kCopiedQuote);
}

DocumentTree::DocumentTree(std::shared_ptr<const std::string> source, bool isSingleByte)
    : m_source(std::move(source)), m_positions(*m_source, isSingleByte) {
  // Few nodes take less of a source. Room that is not used costs nothing; to grow by steps would.
  constexpr std::size_t kLeastOfNode = 24;
  m_nodes.reserve(m_source->size() / kLeastOfNode);
}

std::optional<std::string_view> DocumentTree::attribute(const Node& node,
                                                        std::string_view name) const noexcept {
  for (const Attribute& attribute : attributes(node)) {
    if (attribute.name == name) {
      return attribute.value;
    }
  }
  return std::nullopt;
}

Position DocumentTree::position(const Node& node) const {
  if (!m_isPlaced) {
    return {};
  }
  if (node.m_isCopied == 0) {
    const auto behindName = static_cast<std::size_t>(node.m_tag - m_source->data());
    return m_positions.at(behindName - name(node).size() - 1);
  }
  std::uint64_t place = 0;
  std::memcpy(&place, node.m_tag - sizeof place, sizeof place);
  if (m_source != nullptr) {
    return m_positions.at(static_cast<std::size_t>(place));
  }
  return {static_cast<std::uint32_t>(place >> 32U), static_cast<std::uint32_t>(place)};
}

void DocumentTree::begin(std::string_view name, const char* tag) {
  append(name, tag, false);
}

void DocumentTree::begin(std::string_view name, const TagCopy& tag, std::size_t place) {
  append(name, keepTag(tag, place), true);
}

void DocumentTree::begin(std::string_view name, const TagCopy& tag, Position position) {
  append(name, keepTag(tag, std::uint64_t{position.line} << 32U | position.column), true);
}

void DocumentTree::append(std::string_view name, const char* tag, bool isCopied) {
  const auto number = static_cast<std::uint32_t>(m_nodes.size());
  if (!m_open.empty()) {
    Open& parent = m_open.back();
    if (parent.lastChild == 0) {
      m_nodes[parent.number].m_hasChildren = 1;
    } else {
      m_nodes[parent.lastChild].m_nextSibling = number;
    }
    parent.lastChild = number;
  }
  Node node;
  node.m_tag = tag;
  node.m_name = numberOf(name) & Node::kNames;
  node.m_isElement = !name.empty() && name.front() != '#' && name.front() != '?' ? 1 : 0;
  node.m_isCopied = isCopied ? 1 : 0;
  m_nodes.push_back(node);
  m_open.push_back({number, 0});
}

void DocumentTree::close() {
  m_numbers = {};
  m_recent = {};
  m_open = {};
}

std::uint32_t DocumentTree::numberOf(std::string_view name) {
  m_recent.resize(kRecentNames);
  std::uint32_t& recent = m_recent[recentPlace(name)];
  if (recent < m_names.size() && m_names[recent] == name) {
    return recent;
  }
  const auto known = m_numbers.find(name);
  if (known != m_numbers.end()) {
    return recent = known->second;
  }
  char* const kept = keep(name.size());
  std::ranges::copy(name, kept);
  recent = static_cast<std::uint32_t>(m_names.size());
  m_names.emplace_back(kept, name.size());
  m_numbers.emplace(m_names.back(), recent);
  return recent;
}

const char* DocumentTree::keepTag(const TagCopy& tag, std::uint64_t place) {
  char* const kept = keep(sizeof place + tag.m_text.size() + 1);
  std::memcpy(kept, &place, sizeof place);
  char* const text = kept + sizeof place;
  *std::ranges::copy(tag.m_text, text).out = '>';
  return text;
}

char* DocumentTree::keep(std::size_t size) {
  if (size > m_room || m_next == nullptr) {
    m_room = std::max(kBlock, size);
    m_blocks.push_back(std::make_unique_for_overwrite<char[]>(m_room));
    m_next = m_blocks.back().get();
  }
  char* const begin = m_next;
  m_next += size;
  m_room -= size;
  return begin;
}

}  // namespace quorvan::tool
