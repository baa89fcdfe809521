// What the handles to a document refer to: its tree, and the file operations on it.
#pragma once

#include <cstdint>
#include <string_view>

#include <quorvan/text/cstring.h>
#include <quorvan/xml/embedded/handles.h>
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

class Document {
 public:
  /// A new, empty document. Raises std::bad_alloc.
  static DocumentHandle create();

  /// The document that a handle refers to. Raises E_POINTER for a null handle.
  static Document& of(const DocumentHandle& handle) {
    if (handle.m_document == nullptr) {
      platform::raiseComError(E_POINTER);
    }
    return *handle.m_document;
  }

  [[nodiscard]] Tree& tree() const noexcept { return *m_tree; }

  /// Replaces the content by that of the file; nodes of the former content stay valid where they
  /// are held. False for a file that is missing or not well-formed, with the reason in `problem`.
  /// Whatever goes wrong, the document is empty and usable afterwards; it is unchanged when there
  /// is no memory even for an empty one.
  bool load(const CString& path, dom::LoadProblem& problem);

  /// The same with the bytes of a file.
  bool loadBytes(std::string_view bytes, dom::LoadProblem& problem);

  /// Writes the content to the file, whole or not at all. Raises E_FAIL without a root element.
  void save(const CString& path, dom::Durability durability) const;
  static void clearLeftOver(const CString& path) noexcept;

 private:
  friend class DocumentHandle;

  bool replaceBy(Tree::Owned loaded) noexcept;

  Document() : m_tree(Tree::create()) {}
  ~Document() = default;

  Tree::Owned m_tree;
  std::uint32_t m_handles = 0;
};

}  // namespace quorvan::embedded
