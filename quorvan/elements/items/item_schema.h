// What the items of an element class are, for whoever lists, checks or documents them. Not
// installed.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace quorvan::items {

/// The kinds of items, by what stands in the file and how it is read.
enum class Kind {
  kPoint,           // "X", "Y", "Z" with seven decimals
  kVector,          // "X", "Y", "Z" with the shortest digits
  kDouble,          // "double"
  kLong,            // "long"
  kColor,           // "long" of an unsigned 32-bit number
  kString,          // "string"
  kFlag,            // "string" holding "True" or "False"
  kNumericFlag,     // "long" holding 0 or 1
  kAdherence,       // "string", in older files "long"
  kPointList,       // a vector of the points stem1, stem2 ...
  kSegmentList,     // a vector of Point1, Point2, Bulge1, Point3 ...
  kDoubleList,      // a vector of the doubles stem1, stem2 ...
  kNumberedPoints,  // "long" count, then the points stem1, stem2 ... beside it
};

/// One item of an element class.
struct ItemSchema {
  std::string_view name;
  Kind kind;
  bool optional = false;       // its absence does not make reading fail
  std::string_view stem = {};  // of the entries, for lists
};

/// Whether no two items bear the same name.
consteval bool namesDiffer(std::span<const ItemSchema> items) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (std::size_t k = i + 1; k < items.size(); ++k) {
      if (items[i].name == items[k].name) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace quorvan::items
