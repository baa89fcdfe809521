// The bending data of a job: a record for each shape of a mark.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <tools/bvbs/writing/shape_geometry.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool::bvbs {

/// What the length in a header is: the sum of the legs as written, or what is cut, along the centre
/// line. Programs in the field write either.
enum class CutLength : std::uint8_t { kLegs, kAxis };

struct BendingDataOptions {
  std::string project;
  std::string index;  // of the drawings: their revision
  CutLength cutLength = CutLength::kLegs;
  ObtuseLegs obtuse = ObtuseLegs::kOutermost;
  bool transliterates = false;
};

/// What whoever bends from the data should know. A warning where a bar has no record or no shape.
struct BendingRemark {
  bool isWarning = true;
  std::size_t drawing = 0;  // place in the list's drawings
  std::string subject;      // "mark 8, Stirrup 1"; empty for the data as a whole
  std::string text;
};

struct BendingData {
  std::vector<std::string> records;  // without line ends
  std::vector<BendingRemark> remarks;
};

/// How a list must be made for bending data: bars of one length a row, apart by their shape, and
/// nothing rounded but by the records. The other options stay as they are.
ListOptions listOptionsForBending(ListOptions options);

/// The records of a list that was made so. Nothing is guessed: what the drawing does not say has no
/// record, or a header alone, and a remark.
BendingData makeBendingData(const BarList& list, const BendingDataOptions& options);

}  // namespace quorvan::tool::bvbs
