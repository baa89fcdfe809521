// Any bytes as a file, by both readers: the scanner of the plain form leaves the file to expat or
// makes the same tree.
#include <optional>
#include <string>

#include <fuzz/memory_files.h>
#include <fuzz/same_tree.h>
#include <fuzz/target.h>
#include <quorvan/xml/embedded/files/file_source.h>
#include <quorvan/xml/embedded/reading/expat_reader.h>
#include <quorvan/xml/embedded/reading/plain_scanner.h>

namespace embedded = quorvan::embedded;
using quorvan::fuzz::require;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quorvan::fuzz::MemoryFiles files;
  files.put("file.xml", std::string(data, data + size));
  quorvan::dom::LoadProblem problem;
  std::optional<embedded::FileSource> source = embedded::FileSource::open("file.xml", problem);
  require(source.has_value(), "the file opens");
  const embedded::Tree::Owned scanned = embedded::scanPlain(*source);
  source->rewind();
  const embedded::Tree::Owned parsed = embedded::readWithExpat(*source, problem);
  if (scanned != nullptr) {
    require(parsed != nullptr, "expat takes what the scanner takes");
    require(quorvan::fuzz::isSameTree(*scanned, *parsed), "both readers make the same tree");
  }
  return 0;
}
