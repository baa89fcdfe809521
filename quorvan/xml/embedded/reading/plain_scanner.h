// Reads the plain form of XML that this library writes, straight into a tree and much faster than
// a general parser.
//
// The form: an optional declaration naming ISO-8859-1 or UTF-8, elements with ASCII names without
// prefix, attributes in double quotes, text, comments, and the references that need no
// declaration. It accepts nothing that expat refuses, and makes the same tree; whatever else it
// meets, well-formed or not, it leaves to expat.
#pragma once

#include <quorvan/xml/embedded/files/file_source.h>
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

/// The document from where the file stands to its end. Null when the file holds anything beyond
/// the plain form. Raises what reading raises, and std::bad_alloc.
Tree::Owned scanPlain(FileSource& file);

}  // namespace quorvan::embedded
