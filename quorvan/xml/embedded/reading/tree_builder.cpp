#include <quorvan/xml/embedded/reading/tree_builder.h>

#include <quorvan/xml/embedded/tree/instruction.h>
#include <quorvan/xml/embedded/tree/value_text.h>

namespace quorvan::embedded {

void TreeBuilder::addDeclaration(const Declaration& declaration) {
  appendNode(createDeclaration(m_tree, declaration));
}

void TreeBuilder::closeElement() {
  flushText();
  if (m_hasSpace) {
    m_tree.nodes().node(m_parent).set(NodeFlag::kSpaceAtEnd);
  }
  m_hasSpace = false;
  if (!m_preserving.empty() && m_preserving.back().depth == m_depth) {
    m_preserving.pop_back();
  }
  m_parent = m_tree.parent(m_parent);
  --m_depth;
}

void TreeBuilder::preserveSpace(bool preserves) {
  m_preserving.push_back({m_depth, preserves});
}

void TreeBuilder::addNode(NodeType type, NameId name, std::string_view text) {
  flushText();
  const Ref ref = m_tree.nodes().create(type, name);
  m_tree.nodes().put(ref, kNoName, {text, isPlain(text)});
  appendNode(ref);
}

void TreeBuilder::makeText() {
  if (!preservesSpace() && isWhiteSpace(m_text)) {
    m_hasSpace = true;
  } else {
    const Ref ref = m_tree.nodes().create(NodeType::kText, kTextName);
    m_tree.nodes().put(ref, kNoName, {m_text, isPlain(m_text)});
    appendNode(ref);
  }
  m_text.clear();
}

}  // namespace quorvan::embedded
