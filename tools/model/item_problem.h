// What can be wrong with an item of an element.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <tools/files/document_tree.h>
#include <tools/model/item_mending.h>

namespace quorvan::tool {

enum class ProblemKind : std::uint8_t {
  kMissing,           // no such item, or no such attribute or entry in it
  kMistyped,          // the attribute of another type stands in its place
  kNoNumber,          // the text is no number, or one beyond its range
  kBlanks,            // blanks around a number, over which readers pass
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
  std::optional<AttributeMend> mend;  // where the right attribute is certain
};

}  // namespace quorvan::tool
