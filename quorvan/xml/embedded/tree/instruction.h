// Makes processing instructions, the XML declaration among them.
#pragma once

#include <string_view>

#include <quorvan/xml/embedded/tree/declaration.h>
#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::embedded {

/// A new XML declaration without parent, of parts that were looked at.
Ref createDeclaration(Tree& tree, const Declaration& declaration);

/// A new instruction without parent; target "xml" makes the declaration. Raises E_FAIL for a
/// target that XML cannot carry, for data that ends the instruction, and for a declaration that
/// no file may begin with.
Ref createInstruction(Tree& tree, const dom::Name& target, std::string_view data);

/// Gives the declaration one of its parts. Raises E_FAIL for what may not stand in one.
void putDeclarationPart(Tree& tree, Ref declaration, const dom::Name& name, std::string_view text);

}  // namespace quorvan::embedded
