// What of a shape lies on the sheet: the rest is cut off before it is painted, so that a shape
// costs no more than the sheet that it goes over.
#pragma once

#include <optional>
#include <utility>

#include <tools/draw/scene/path.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// The part of a line within the box; nothing where none is.
std::optional<std::pair<PlanePoint, PlanePoint>> clippedLine(PlanePoint from, PlanePoint to,
                                                             const SheetBox& box);

/// The parts of a path that is stroked, itself where all of it lies within the box.
Path clippedStroke(const Path& path, const SheetBox& box);

/// The same of a path of lines that is filled: its outline may run along the sides of the box.
Path clippedFill(const Path& path, const SheetBox& box);

}  // namespace quorvan::tool
