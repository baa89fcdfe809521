// What can be wrong with an item of an element.
#pragma once

#include <cstdint>
#include <string>

#include <tools/files/document_tree.h>

namespace quorvan::tool {

enum class ProblemKind : std::uint8_t {
  kMissing,           // no such item, or no such attribute or entry in it
  kMistyped,          // the attribute of another type stands in its place
  kNoNumber,          // the text is no number, or one beyond its range
  kNoFlag,            // the text of a flag is neither True nor False
  kNumericAdherence,  // the number of older files
  kCountDisagrees,    // a count says something else than the entries
  kCountOutOfRange,   // a count that its 16 bits cannot carry
  kOddCount,          // a formwork with a point left over
  kUnknownItem,       // not an item of the class
  kRepeatedItem,      // a second item of a name, which nobody reads
};

/// Where it is and what was found and expected there.
struct ItemProblem {
  ProblemKind kind;
  const Node* at;
  std::string item;
  std::string found;
  std::string expected;
};

}  // namespace quorvan::tool
