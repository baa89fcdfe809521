// Writes a tree as the bytes of a file.
//
// The declaration is written anew with double quotes; CR LF follows each child of the document;
// nothing stands between the tags of created content. Where white space stood in a loaded file,
// there is one line break and a tab a level. A character that the encoding lacks becomes a decimal
// reference, or a question mark where references mean nothing (comments, instructions).
#pragma once

#include <quorvan/xml/embedded/tree/encoding.h>
#include <quorvan/xml/embedded/tree/tree.h>
#include <quorvan/xml/embedded/writing/block_buffer.h>

namespace quorvan::embedded {

/// The encoding that the document's declaration names, UTF-8 without one. Raises E_FAIL for an
/// encoding that is not known here.
Encoding declaredEncoding(const Tree& tree);

/// Writes the whole document. Raises the service's error for a bad encoding (0xC00CE029) for a name
/// that the encoding cannot carry, and what the target raises.
void writeDocument(const Tree& tree, Encoding encoding, BlockTarget& target);

}  // namespace quorvan::embedded
