// Whether two boxes share more than an edge.
#pragma once

#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

inline bool overlap(const SheetBox& one, const SheetBox& other) {
  return one.least.x < other.most.x && other.least.x < one.most.x && one.least.y < other.most.y &&
         other.least.y < one.most.y;
}

}  // namespace quorvan::tool
