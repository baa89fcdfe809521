// A scene as arrays of numbers, which a page paints on a canvas: far smaller and faster than as
// many nodes of a document.
#pragma once

#include <ostream>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// Writes one object in JSON that can stand in a script. Places are thousandths of a millimetre of
/// the sheet, y downwards, as in the SVG. "shapes" and "bodies" are packed numbers in base64, for
/// each shape in the order in which it is painted:
/// - style times 8, twice the kind (0 a path, 1 a circle, 2 a text), 1 where it is hidden;
/// - how far its element's place is from that of the shape before, from 1 upwards; 0 for no
/// element;
/// - how far its origin is from that of the shape before: signed, x and y;
/// - a path: which of the bodies it has; a circle: its radius;
/// - a text: which of the texts, size of the font, angle clockwise in thousandths of a degree and
///   signed, 0, 1 or 2 for left, centre or right.
/// A body is runs of steps, the number of them times 8 and their kind, to the end 0: 0 lines, by
/// signed ways; 1 and 2 arcs against the clock and with it, by the ways to centre and end; 3 full
/// circles, by the way to the centre; 4 moves; 5 ways back to the beginning.
/// "grid" says in the same manner which shapes lie in which cell.
void writePackedPicture(const Scene& scene, std::ostream& out);

}  // namespace quorvan::tool
