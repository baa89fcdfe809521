#include <quorvan/filer/document_memory.h>

#include <cstdint>

namespace quorvan {

namespace {

// Of a document whose backend keeps none: a change ends what was made for it.
constexpr std::uint64_t kOnlyRevision = 1;

}  // namespace

void DocumentMemory::handOut() noexcept {
  if (!m_isHandedOut) {
    m_isHandedOut = true;
    forget();
  }
}

void DocumentMemory::take(const dom::Name& name, const IXMLDOMNodePtr& classElement) noexcept {
  try {
    if (m_counts) {
      m_counts->add(name, 1);
    }
    if (m_index != nullptr) {
      m_index->take(name, classElement);
    }
  } catch (...) {
    // Without memory for it nothing is remembered; the element is in its place.
    forget();
  }
}

void DocumentMemory::forget() noexcept {
  m_index.reset();
  m_counts.reset();
  m_root = nullptr;
  m_children = {};
}

IXMLDOMNodePtr DocumentMemory::firstChildNamed(const IXMLDOMNodePtr& node, const dom::Name& name) {
  if (!keepsCounts()) {
    return dom::firstChildNamed(node, name);
  }
  if (!m_children.front().isOf(node)) {
    std::swap(m_children.front(), m_children.back());
    if (!m_children.front().isOf(node)) {
      m_children.front() = filer::ChildList(node);
    }
  }
  return m_children.front().first(name);
}

SearchIndex* DocumentMemory::index(const IXMLDOMDocumentPtr& document) {
  if (!m_hasRevision && m_isHandedOut) {
    return nullptr;
  }
  const std::uint64_t revision = m_hasRevision ? dom::revision(document) : kOnlyRevision;
  if (m_index == nullptr || m_index->revision() != revision) {
    m_index = std::make_unique<SearchIndex>(revision, m_hasRevision);
  }
  return m_index.get();
}

}  // namespace quorvan
