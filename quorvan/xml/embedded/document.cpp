#include <quorvan/xml/embedded/document.h>

#include <new>
#include <utility>

#include <quorvan/xml/embedded/files/file_calls.h>
#include <quorvan/xml/embedded/files/file_replacement.h>
#include <quorvan/xml/embedded/reading/document_reader.h>
#include <quorvan/xml/embedded/writing/document_writer.h>

namespace quorvan::embedded {

namespace {

class FileTarget final : public BlockTarget {
 public:
  explicit FileTarget(FileReplacement& file) noexcept : m_file(file) {}
  void write(std::string_view bytes) override { m_file.write(bytes); }

 private:
  FileReplacement& m_file;
};

}  // namespace

void DocumentHandle::retain(Document* document) noexcept {
  ++document->m_handles;
}

void DocumentHandle::release(Document* document) noexcept {
  if (--document->m_handles == 0) {
    delete document;
  }
}

DocumentHandle Document::create() {
  DocumentHandle handle;
  handle.m_document = new Document;
  handle.m_document->m_handles = 1;
  return handle;
}

bool Document::load(const CString& path, dom::LoadProblem& problem) {
  const SystemPath file = systemPath(path);
  m_tree = Tree::create();
  if (file.empty()) {
    problem.failure = dom::LoadFailure::kMissing;
    return false;
  }
  return replaceBy(readDocument(file, problem));
}

bool Document::loadBytes(std::string_view bytes, dom::LoadProblem& problem) {
  m_tree = Tree::create();
  FileSource source = FileSource::ofBytes(bytes);
  return replaceBy(readDocument(source, problem));
}

bool Document::replaceBy(Tree::Owned loaded) noexcept {
  if (loaded == nullptr) {
    return false;
  }
  m_tree = std::move(loaded);
  return true;
}

void Document::save(const CString& path, dom::Durability durability) const {
  if (m_tree->root() == 0) {
    platform::raiseComError(E_FAIL);
  }
  const Encoding encoding = declaredEncoding(*m_tree);
  const SystemPath target = systemPath(path);
  if (target.empty()) {
    platform::raiseComError(E_INVALIDARG);
  }
  FileReplacement file(target, durability);
  FileTarget blocks(file);
  writeDocument(*m_tree, encoding, blocks);
  file.commit();
}

void Document::clearLeftOver(const CString& path) noexcept {
  try {
    const SystemPath target = systemPath(path);
    if (!target.empty()) {
      FileReplacement::clearLeftOver(target);
    }
  } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): it stays for the next time
  }
}

}  // namespace quorvan::embedded
