// Reads a file straight from its source where it has the form in which programs file drawings.
//
// The form: a declaration at most, elements no deeper than entries of lists, with ASCII names and
// few attributes in double quotes, and blanks between them. All such files are well-formed
// documents, and the document service would read the same out of them. It is asked about all
// others.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include <tools/console/progress.h>
#include <tools/files/document_tree.h>
#include <tools/files/source_text.h>

namespace quorvan::tool {

/// Depths below the root element that a tree has: class elements, items, entries of lists.
inline constexpr std::size_t kDeepestNode = 3;

/// The tree of the source; nothing where it has another form.
std::optional<DocumentTree> readPlainSource(const std::shared_ptr<const std::string>& source,
                                            const SourceEncoding& encoding, Progress& progress);

}  // namespace quorvan::tool
