// DocumentMemory: what filers remember about their document instead of asking it again. Not
// installed.
//
// A document's nodes reach a caller only where a filer hands them out. As long as none was, every
// change goes through a filer, which tells it here. Once one was, for good, the document may be
// changed past the filers, and a backend that keeps no revision of its own is asked each time.
// Copies of a filer share the memory as they share the document.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <utility>

#include <quorvan/filer/child_list.h>
#include <quorvan/filer/class_counts.h>
#include <quorvan/filer/search_index.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan {

class DocumentMemory {
 public:
  /// Of a new document. Raises what asking for its revision raises.
  explicit DocumentMemory(const IXMLDOMDocumentPtr& document)
      : m_hasRevision(dom::revision(document) != 0) {}

  /// Nodes of the document are in the hands of callers from now on.
  void handOut() noexcept;

  /// Something below the root is about to change otherwise than by a new class element that is
  /// appended to it.
  void change() noexcept { forget(); }

  /// A new class element of that name has become the last child of the root.
  void take(const dom::Name& name, const IXMLDOMNodePtr& classElement) noexcept;

  /// Lets go of everything that is remembered.
  void forget() noexcept;

  /// The index for searches in `document`, whose memory this is. Null where nothing may be
  /// remembered.
  SearchIndex* index(const IXMLDOMDocumentPtr& document);

  /// Whether counts and children are to be kept: where they may be, and the backend, which keeps
  /// no revision, would have to look for them.
  [[nodiscard]] bool keepsCounts() const noexcept { return !m_hasRevision && !m_isHandedOut; }

  /// Whether a caller may have nodes of the document. As long as none has, the root is kept.
  [[nodiscard]] bool isHandedOut() const noexcept { return m_isHandedOut; }

  /// The first child of that name of a node in the document, null without one. Where
  /// counts are kept, the children of the nodes asked about last are kept, too.
  IXMLDOMNodePtr firstChildNamed(const IXMLDOMNodePtr& node, const dom::Name& name);

  /// The root element as it was kept, null without one.
  [[nodiscard]] const IXMLDOMNodePtr& root() const noexcept { return m_root; }
  void setRoot(const IXMLDOMNodePtr& root) { m_root = root; }

  /// How many children of each name the root has, as it was kept; nothing without it.
  [[nodiscard]] const std::optional<filer::ClassCounts>& counts() const noexcept {
    return m_counts;
  }
  void setCounts(filer::ClassCounts counts) { m_counts = std::move(counts); }

 private:
  bool m_hasRevision;
  bool m_isHandedOut = false;
  std::unique_ptr<SearchIndex> m_index;
  std::optional<filer::ClassCounts> m_counts;
  IXMLDOMNodePtr m_root;
  // Of a class element and of a vector in it; the one that was asked last in front.
  std::array<filer::ChildList, 2> m_children;
};

}  // namespace quorvan
