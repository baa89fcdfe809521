// The shapes of bending data on a sheet.
#pragma once

#include <vector>

#include <tools/bvbs/record.h>
#include <tools/draw/scene/scene.h>

namespace quorvan::tool::bvbs {

/// A cell for each record, in their order: mark, number, diameter and length above its shape with
/// the dimensions of the record. A shape with arcs is to scale, a sheet of a mesh as well; others
/// have their short legs longer than they are. What a record does not say is said in its place.
Scene shapeSheet(const std::vector<Record>& records);

}  // namespace quorvan::tool::bvbs
