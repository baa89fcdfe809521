#include <quorvan/reading/file.h>

#include <algorithm>

#include <quorvan/reading/boundary.h>
#include <quorvan/text/utf8.h>

namespace dom = quorvan::dom;
using quorvan::fail;
using quorvan::reading::guarded;

namespace {

QuorvanResult resultOf(dom::LoadFailure failure) noexcept {
  switch (failure) {
    case dom::LoadFailure::kMissing:
      return QUORVAN_NO_FILE;
    case dom::LoadFailure::kNoAccess:
      return QUORVAN_NO_ACCESS;
    case dom::LoadFailure::kNotAFile:
      return QUORVAN_NOT_A_FILE;
    case dom::LoadFailure::kEncoding:
      return QUORVAN_BAD_ENCODING;
    case dom::LoadFailure::kLimit:
      return QUORVAN_OVER_LIMIT;
    case dom::LoadFailure::kNone:
    case dom::LoadFailure::kNotWellFormed:
      break;
  }
  return QUORVAN_NOT_WELL_FORMED;
}

// Comments, a DOCTYPE and the like may stand in front of the root element.
IXMLDOMNodePtr rootOf(const IXMLDOMDocumentPtr& document) {
  IXMLDOMNodePtr node = dom::firstChild(document);
  while (node != nullptr && (dom::nodeNameIs(node, "xml") || !dom::hasAttributes(node))) {
    node = dom::nextSibling(node);
  }
  return node;
}

// Opens a new file for the caller.
template <class Argument>
int openFor(QuorvanFile** file, const Argument& argument) {
  auto opened = std::make_unique<QuorvanFile>();
  const int result = opened->open(argument);
  if (result == QUORVAN_DONE) {
    *file = opened.release();
  }
  return result;
}

}  // namespace

template <class Load>
int QuorvanFile::openBy(const Load& load) {
  const HRESULT created = dom::createDocument(m_document);
  if (created < 0 || m_document == nullptr) {
    return created == E_OUTOFMEMORY ? fail(QUORVAN_OUT_OF_MEMORY) : fail(QUORVAN_FAILED, created);
  }
  dom::LoadProblem problem;
  if (!load(problem)) {
    return fail(resultOf(problem.failure),
                {.text = problem.reason, .line = problem.line, .column = problem.column});
  }
  m_root = rootOf(m_document);
  return m_root == nullptr ? fail(QUORVAN_NOT_WELL_FORMED) : QUORVAN_DONE;
}

int QuorvanFile::open(const CString& path) {
  return openBy([&](dom::LoadProblem& problem) { return dom::load(m_document, path, problem); });
}

int QuorvanFile::open(std::string_view bytes) {
  return openBy(
      [&](dom::LoadProblem& problem) { return dom::loadBytes(m_document, bytes, problem); });
}

int QuorvanFile::next(const char* className, QuorvanElement*& element) {
  std::size_t place = element == nullptr ? 0 : element->place() + 1;
  IXMLDOMNodePtr node =
      element == nullptr ? dom::firstChild(m_root) : dom::nextSibling(element->node());
  for (; node != nullptr; node = dom::nextSibling(node)) {
    if (!dom::hasAttributes(node)) {
      continue;
    }
    if (className == nullptr || dom::nodeNameIs(node, dom::Name(std::string_view(className)))) {
      break;
    }
    ++place;
  }
  if (node == nullptr) {
    close(element);
    element = nullptr;
    return fail(QUORVAN_NO_MORE);
  }
  if (element != nullptr) {
    element->moveTo(node, place);
    return QUORVAN_DONE;
  }
  m_elements.push_back(std::make_unique<QuorvanElement>(*this, node, place));
  element = m_elements.back().get();
  return QUORVAN_DONE;
}

void QuorvanFile::close(const QuorvanElement* element) noexcept {
  const auto found = std::find_if(m_elements.rbegin(), m_elements.rend(),
                                  [&](const auto& held) { return held.get() == element; });
  if (found != m_elements.rend()) {
    std::swap(*found, m_elements.back());
    m_elements.pop_back();
  }
}

// --- the functions of read.h --------------------------------------------------------------------

int quorvanOpenFile(const wchar_t* path, QuorvanFile** file) {
  if (file == nullptr) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  *file = nullptr;
  if (path == nullptr) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&] { return openFor(file, CString(path)); });
}

int quorvanOpenFileUtf8(const char* path, QuorvanFile** file) {
  if (file == nullptr) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  *file = nullptr;
  if (path == nullptr) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&] { return openFor(file, quorvan::fromUtf8(path)); });
}

int quorvanOpenMemory(const void* bytes, std::size_t size, QuorvanFile** file) {
  if (file == nullptr) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  *file = nullptr;
  if (bytes == nullptr && size != 0) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  return guarded(
      [&] { return openFor(file, std::string_view(static_cast<const char*>(bytes), size)); });
}

void quorvanCloseFile(QuorvanFile* file) {
  delete file;
}

int quorvanNextElement(QuorvanFile* file, const char* className, QuorvanElement** element) {
  if (file == nullptr || element == nullptr ||
      (*element != nullptr && &(*element)->file() != file)) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&] { return file->next(className, *element); });
}

void quorvanCloseElement(QuorvanElement* element) {
  if (element != nullptr) {
    element->file().close(element);
  }
}
