#include <quorvan/xml/embedded/reading/document_reader.h>

#include <optional>

#include <quorvan/xml/embedded/files/file_source.h>
#include <quorvan/xml/embedded/reading/expat_reader.h>
#include <quorvan/xml/embedded/reading/plain_scanner.h>

namespace quorvan::embedded {

Tree::Owned readDocument(const std::string& path) {
  std::optional<FileSource> file = FileSource::open(path);
  if (!file) {
    return nullptr;
  }
  if (Tree::Owned tree = scanPlain(*file); tree != nullptr) {
    return tree;
  }
  file->rewind();
  return readWithExpat(*file);
}

}  // namespace quorvan::embedded
