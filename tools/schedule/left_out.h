// What a drawing holds and the sums of its bar list do not.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/bar.h>
#include <tools/model/item_problem.h>

namespace quorvan::tool {

enum class LeftOutReason : std::uint8_t {
  kBarNotThere,   // a series of a bar that is not in the file
  kNoBars,        // a series without bars
  kSeenEndOn,     // the length is not in the file
  kWidthUnknown,  // of a stirrup: counts with a length that is too short
  kItemUnread,    // an item that the length or the diameter needs is missing or no number
  kNoLength,      // no length above 0 that can be reckoned with
  kNoDiameter,    // no diameter above 0 that can be reckoned with
  kMesh,          // sheets have a list of their own
};

struct LeftOut {
  std::size_t drawing = 0;
  const Element* element = nullptr;
  std::uint64_t number = 0;  // of bars or sheets
  LeftOutReason reason = LeftOutReason::kNoLength;
  std::string item = {};  // that could not be read
};

/// The item among the problems that the length or diameter of a bar hangs on; empty without one.
std::string unreadItem(const std::vector<ItemProblem>& problems);

/// Whether a bar is longer or thicker than anything: its sums would be no numbers.
bool isReckonable(double metres) noexcept;

}  // namespace quorvan::tool
