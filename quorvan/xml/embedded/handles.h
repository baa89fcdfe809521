// The handles of the embedded XML document: IXMLDOMDocumentPtr and IXMLDOMNodePtr.
//
// Small values that keep alive what they refer to. A node handle keeps the whole tree of its node,
// also after the document was let go; a node that moves to another document takes its handles
// along. All handles to one document, and to nodes that were ever moved between documents, belong
// to one thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>

#include <quorvan/api.h>

namespace quorvan::embedded {

class Document;
class NodeHandle;
class Tree;

/// What a tree knows of those who keep it alive.
struct TreeOwners {
  NodeHandle* firstHandle = nullptr;
  bool hasDocument = false;
};

/// Refers to a node, or to none.
class NodeHandle {
 public:
  NodeHandle() noexcept = default;
  NodeHandle(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor)
  NodeHandle(const NodeHandle& other) noexcept : m_tree(other.m_tree), m_node(other.m_node) {
    if (m_tree != nullptr) {
      enter();
    }
  }
  NodeHandle(NodeHandle&& other) noexcept { takeOver(other); }
  ~NodeHandle() {
    if (m_tree != nullptr) {
      leave();
    }
  }

  NodeHandle& operator=(const NodeHandle& other) noexcept {
    NodeHandle copy(other);
    return *this = static_cast<NodeHandle&&>(copy);
  }
  NodeHandle& operator=(NodeHandle&& other) noexcept {
    if (this != &other) {
      NodeHandle former(static_cast<NodeHandle&&>(*this));
      takeOver(other);
    }
    return *this;
  }
  NodeHandle& operator=(std::nullptr_t) noexcept {
    if (m_tree != nullptr) {
      leave();
    }
    m_tree = nullptr;
    return *this;
  }

  explicit operator bool() const noexcept { return m_tree != nullptr; }
  friend bool operator==(const NodeHandle& handle, std::nullptr_t) noexcept {
    return handle.m_tree == nullptr;
  }
  friend bool operator==(std::nullptr_t, const NodeHandle& handle) noexcept {
    return handle == nullptr;
  }
  friend bool operator!=(const NodeHandle& handle, std::nullptr_t) noexcept {
    return !(handle == nullptr);
  }
  friend bool operator!=(std::nullptr_t, const NodeHandle& handle) noexcept {
    return !(handle == nullptr);
  }

 private:
  friend class Tree;

  NodeHandle(TreeOwners* tree, std::uint32_t node) noexcept : m_tree(tree), m_node(node) {
    enter();
  }

  // Every handle stands in the list of its tree; m_place is what refers to it there.
  void enter() noexcept {
    m_next = m_tree->firstHandle;
    if (m_next != nullptr) {
      m_next->m_place = &m_next;
    }
    m_place = &m_tree->firstHandle;
    m_tree->firstHandle = this;
  }
  void leave() noexcept {
    *m_place = m_next;
    if (m_next != nullptr) {
      m_next->m_place = m_place;
    }
    if (m_tree->firstHandle == nullptr && !m_tree->hasDocument) {
      deleteTree(m_tree);
    }
  }
  void takeOver(NodeHandle& other) noexcept {
    m_tree = other.m_tree;
    if (m_tree == nullptr) {
      return;
    }
    m_node = other.m_node;
    m_next = other.m_next;
    m_place = other.m_place;
    *m_place = this;
    if (m_next != nullptr) {
      m_next->m_place = &m_next;
    }
    other.m_tree = nullptr;
  }
  QUORVAN_API static void deleteTree(TreeOwners* tree) noexcept;

  // A node that moves to another tree changes even the handles that their holders keep constant.
  mutable TreeOwners* m_tree = nullptr;
  mutable std::uint32_t m_node = 0;
  mutable NodeHandle* m_next = nullptr;
  mutable NodeHandle** m_place = nullptr;
};

/// Refers to a document, or to none. Copies refer to the same document.
class DocumentHandle {
 public:
  DocumentHandle() noexcept = default;
  DocumentHandle(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor)
  DocumentHandle(const DocumentHandle& other) noexcept : m_document(other.m_document) {
    if (m_document != nullptr) {
      retain(m_document);
    }
  }
  DocumentHandle(DocumentHandle&& other) noexcept : m_document(other.m_document) {
    other.m_document = nullptr;
  }
  ~DocumentHandle() {
    if (m_document != nullptr) {
      release(m_document);
    }
  }

  DocumentHandle& operator=(DocumentHandle other) noexcept {
    Document* const former = m_document;
    m_document = other.m_document;
    other.m_document = former;
    return *this;
  }

  explicit operator bool() const noexcept { return m_document != nullptr; }
  friend bool operator==(const DocumentHandle& handle, std::nullptr_t) noexcept {
    return handle.m_document == nullptr;
  }
  friend bool operator==(std::nullptr_t, const DocumentHandle& handle) noexcept {
    return handle == nullptr;
  }
  friend bool operator!=(const DocumentHandle& handle, std::nullptr_t) noexcept {
    return !(handle == nullptr);
  }
  friend bool operator!=(std::nullptr_t, const DocumentHandle& handle) noexcept {
    return !(handle == nullptr);
  }

 private:
  friend class Document;

  QUORVAN_API static void retain(Document* document) noexcept;
  QUORVAN_API static void release(Document* document) noexcept;

  Document* m_document = nullptr;
};

}  // namespace quorvan::embedded

using IXMLDOMDocumentPtr = quorvan::embedded::DocumentHandle;
using IXMLDOMNodePtr = quorvan::embedded::NodeHandle;
