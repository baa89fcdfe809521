// Reads a file into a tree.
#pragma once

#include <quorvan/xml/embedded/files/file_source.h>
#include <quorvan/xml/embedded/tree/tree.h>
#include <quorvan/xml/load_problem.h>

namespace quorvan::embedded {

/// The document in the file. Null when there is no such file or it is not a well-formed document,
/// with the reason in `problem`; raises when reading failed half-way, or memory ran out.
Tree::Owned readDocument(const SystemPath& path, dom::LoadProblem& problem);

/// The document from where the file stands to its end.
Tree::Owned readDocument(FileSource& file, dom::LoadProblem& problem);

}  // namespace quorvan::embedded
