#include <tools/files/document_tree.h>

#include <algorithm>

namespace quorvan::tool {

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

}  // namespace

const std::string_view* DocumentTree::attribute(const Node& node,
                                                std::string_view name) const noexcept {
  for (const Attribute& attribute : attributes(node)) {
    if (attribute.name == name) {
      return &attribute.value;
    }
  }
  return nullptr;
}

std::uint32_t DocumentTree::addNode(std::string_view name, Position position) {
  Node node;
  node.name = keepOnce(name);
  node.firstAttribute = static_cast<std::uint32_t>(m_attributes.size());
  node.position = position;
  m_nodes.push_back(node);
  return static_cast<std::uint32_t>(m_nodes.size() - 1);
}

void DocumentTree::addAttribute(std::string_view name, std::string_view value) {
  m_attributes.push_back({keepOnce(name), keep(value)});
  ++m_nodes.back().attributeCount;
}

void DocumentTree::forgetPositions() noexcept {
  for (Node& node : m_nodes) {
    node.position = {};
  }
}

std::string_view DocumentTree::keep(std::string_view text) {
  if (text.empty()) {
    return {};
  }
  if (text.size() > m_room) {
    m_room = std::max(kBlock, text.size());
    m_blocks.push_back(std::make_unique<char[]>(m_room));
    m_next = m_blocks.back().get();
  }
  char* const begin = m_next;
  std::copy(text.begin(), text.end(), begin);
  m_next += text.size();
  m_room -= text.size();
  return {begin, text.size()};
}

std::string_view DocumentTree::keepOnce(std::string_view text) {
  if (const auto known = m_names.find(text); known != m_names.end()) {
    return *known;
  }
  const std::string_view kept = keep(text);
  m_names.insert(kept);
  return kept;
}

}  // namespace quorvan::tool
