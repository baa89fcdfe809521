#include <quorvan/xml/embedded/reading/document_reader.h>

#include <optional>

#include <quorvan/xml/embedded/reading/expat_reader.h>
#include <quorvan/xml/embedded/reading/plain_scanner.h>

namespace quorvan::embedded {

Tree::Owned readDocument(const SystemPath& path, dom::LoadProblem& problem) {
  std::optional<FileSource> file = FileSource::open(path, problem);
  return file ? readDocument(*file, problem) : nullptr;
}

Tree::Owned readDocument(FileSource& file, dom::LoadProblem& problem) {
  if (Tree::Owned tree = scanPlain(file); tree != nullptr) {
    return tree;
  }
  file.rewind();
  return readWithExpat(file, problem);
}

}  // namespace quorvan::embedded
