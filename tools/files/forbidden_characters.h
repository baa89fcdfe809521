// Characters that XML forbids, which a file may hold all the same.
#pragma once

#include <string>
#include <vector>

#include <tools/files/document_tree.h>
#include <tools/files/source_text.h>

namespace quorvan::tool {

/// A file's bytes with each such character, written out or as a reference, replaced by a reference
/// to U+FFFD, and the places where they stood.
struct CleanedSource {
  std::string bytes;
  std::vector<Position> places;
};

/// Of UTF-16, where nobody writes them by mistake, nothing is replaced.
CleanedSource withoutForbiddenCharacters(const std::string& bytes, const SourceEncoding& encoding);

}  // namespace quorvan::tool
