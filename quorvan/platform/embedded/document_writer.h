// Writes a tree as the bytes of a file.
//
// The declaration is written anew with double quotes; CR LF follows each child of the document;
// nothing stands between the tags of created content. Where white space stood in a loaded file,
// there is one line break and a tab a level. A character that the encoding lacks becomes a decimal
// reference, or a question mark where references mean nothing (comments, instructions).
#pragma once

#include <cstddef>

#include <quorvan/platform/embedded/block_buffer.h>
#include <quorvan/platform/embedded/encoding.h>
#include <quorvan/platform/embedded/tree.h>

namespace quorvan::embedded {

/// The encoding that the document's declaration names, UTF-8 without one. Raises E_FAIL for an
/// encoding that is not known here.
Encoding declaredEncoding(const Tree& tree);

class DocumentWriter {
 public:
  DocumentWriter(const Tree& tree, Encoding encoding, BlockTarget& target);

  /// Writes the whole document. Raises the service's error for a bad encoding (0xC00CE029) for a
  /// name that the encoding cannot carry, and what the target raises.
  void write();

 private:
  struct Place;

  void writeNode(Ref top);
  Ref writeEnds(Ref at, Ref top);
  void writeStartTag(Ref ref, const Node& node, std::string_view end);
  void writeAttribute(NameId name, const Value& value);
  void writeEndTag(const Node& node);
  void writeLeaf(Ref ref, const Node& node);
  void writeDeclaration(Ref ref);
  void writeLineBreak();
  void writeName(NameId name);
  void writeValue(const Value& value, const Place& place);
  void writeCharacter(char32_t character, const Place& place);

  static const Place kInAttribute;
  static const Place kInText;
  static const Place kInCData;
  static const Place kVerbatim;

  const Tree& m_tree;
  const NodeStore& m_nodes;
  const NameTable& m_names;
  Encoding m_encoding;
  BlockBuffer m_out;
  std::size_t m_depth = 0;
};

}  // namespace quorvan::embedded
