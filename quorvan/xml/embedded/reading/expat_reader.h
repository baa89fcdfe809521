// Reads any XML file into a tree, with expat.
#pragma once

#include <quorvan/xml/embedded/files/file_source.h>
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

/// The document in the file, which stands at its beginning. Null when it is not well-formed, is not
/// XML 1.0, is in an encoding not known here, uses a namespace prefix that it does not declare, or
/// goes beyond limits.h; `problem` then says which. Raises what reading raises, and std::bad_alloc.
Tree::Owned readWithExpat(FileSource& file, dom::LoadProblem& problem);

}  // namespace quorvan::embedded
