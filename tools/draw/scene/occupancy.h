// Which parts of the sheet are taken by texts and marks already.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// An upright rectangle on the sheet.
struct SheetBox {
  PlanePoint least;
  PlanePoint most;
};

/// The boxes that a text covers, one behind the other along its base line: the box around a text
/// at an angle would cover much more. Its width is an estimate.
std::vector<SheetBox> boxesOf(const Lettering& text);

class Occupancy {
 public:
  /// Whether nothing that was taken overlaps any of the boxes.
  [[nodiscard]] bool isFree(const std::vector<SheetBox>& boxes) const;

  void take(const std::vector<SheetBox>& boxes);

 private:
  std::unordered_map<std::int64_t, std::vector<SheetBox>> m_cells;
};

}  // namespace quorvan::tool
