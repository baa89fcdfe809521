#include <quorvan/platform/embedded/document_reader.h>

#include <optional>

#include <quorvan/platform/embedded/expat_reader.h>
#include <quorvan/platform/embedded/file_source.h>
#include <quorvan/platform/embedded/plain_scanner.h>

namespace quorvan::embedded {

Tree::Owned readDocument(const std::string& path) {
  std::optional<FileSource> file = FileSource::open(path);
  if (!file)
    return nullptr;
  if (Tree::Owned tree = scanPlain(*file); tree != nullptr)
    return tree;
  file->rewind();
  return readWithExpat(*file);
}

}  // namespace quorvan::embedded
