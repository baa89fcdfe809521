// Reads a file into a tree.
#pragma once

#include <string>

#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

/// The document in the file. Null when there is no such file or it is not a well-formed document;
/// raises when reading failed half-way, or memory ran out.
Tree::Owned readDocument(const std::string& path);

}  // namespace quorvan::embedded
