// One record of bending data, taken apart.
//
// A record is a line: its kind, then blocks. A block is a capital letter and fields; a field is a
// small letter and its value, closed by @. A block ends where an @ is followed by a capital, or by
// the end of the line.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <tools/bvbs/record_kind.h>

namespace quorvan::tool::bvbs {

/// Places are counted in bytes of the line, from 0.
struct Field {
  char letter;
  std::string_view value;
  std::size_t at;  // of the letter
};

struct Block {
  char letter;
  char direction = 0;              // x or y of a mesh's geometry
  std::size_t at = 0;              // of the letter
  std::string_view text;           // behind the letter, without the last @
  std::vector<Field> fields = {};  // none of P and C, which have no letters

  /// The first field of that letter; null without one.
  [[nodiscard]] const Field* find(char wanted) const noexcept;
};

/// What makes a record unreadable from a place on.
enum class RecordFaultKind : std::uint8_t {
  kUnknownKind,  // the line does not open with a kind and @
  kNoBlock,      // no capital where a block begins
  kFieldLetter,  // no small letter where a field begins
  kNotClosed,    // the line does not end in @
};

struct RecordFault {
  RecordFaultKind kind;
  std::size_t at;
};

struct Record {
  std::string_view line;
  const RecordKind* kind = nullptr;  // null for an unknown one
  std::vector<Block> blocks;
  std::vector<RecordFault> faults;

  /// The first block of that letter; null without one.
  [[nodiscard]] const Block* find(char letter) const noexcept;
  /// The value of a field of the header; empty without one.
  [[nodiscard]] std::string_view header(char letter) const noexcept;
};

/// The record refers to the line, which has no line end. What can be read is read, whatever is
/// wrong with the rest.
Record readRecord(std::string_view line);

/// A number as records have it: digits, a point and digits, a minus in front of them. A comma in
/// the place of the point is taken for one. Nothing for anything else, also for no text at all.
std::optional<double> numberIn(std::string_view value);

}  // namespace quorvan::tool::bvbs
