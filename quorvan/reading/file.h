// An open file, behind the opaque type of read.h. Not installed.
#pragma once

#include <memory>
#include <vector>

#include <quorvan/platform/com.h>
#include <quorvan/reading/element.h>
#include <quorvan/xml/dom.h>

/// A document that is read, and the elements of it that are open.
struct QuorvanFile {
 public:
  QuorvanFile() = default;
  QuorvanFile(const QuorvanFile&) = delete;
  QuorvanFile& operator=(const QuorvanFile&) = delete;

  /// Each gives a result and keeps the reason; the file is of no use after a failure.
  int open(const CString& path);
  int open(std::string_view bytes);

  /// See quorvanNextElement.
  int next(const char* className, QuorvanElement*& element);

  void close(const QuorvanElement* element) noexcept;

 private:
  // COM as long as there are nodes: it is begun first and ended last.
  struct ComUse {
    ComUse() noexcept { quorvan::platform::initializeCom(); }
    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;
    ~ComUse() { quorvan::platform::uninitializeCom(); }
  };

  template <class Load>
  int openBy(const Load& load);

  ComUse m_com;
  IXMLDOMDocumentPtr m_document;
  IXMLDOMNodePtr m_root;
  std::vector<std::unique_ptr<QuorvanElement>> m_elements;
};
