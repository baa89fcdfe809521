// The box around a drawing.
#pragma once

#include <optional>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

struct Extents {
  Coordinates least;
  Coordinates most;

  explicit Extents(const Coordinates& point) : least(point), most(point) {}
  void include(const Coordinates& point);
};

/// Takes the points of an element in: circles in full, arcs up to their apex. A point without a
/// finite place has no part.
void includeElement(std::optional<Extents>& extents, const std::vector<ItemValue>& items);

/// The box around all points of the elements, circles included in full; arcs up to their apex. A
/// repartition without a line of its own has no place. Nothing for a file without points.
std::optional<Extents> extentsOf(const TransferFile& file);

}  // namespace quorvan::tool
