// Which parts of a drawing belong together, and which lie so far off that the sheet would show
// nothing else but the way to them.
#pragma once

#include <cstdint>
#include <vector>

#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// What one element covers.
struct ElementBox {
  std::uint32_t element;
  SheetBox box;
};

struct Belonging {
  SheetBox box = SheetBox::none();      // of what belongs together
  std::vector<std::uint32_t> outliers;  // the other elements, in their order
};

/// An element is an outlier where it is much larger than all the others together, or where it is
/// one of a few that lie many times the size of the rest away from it. What surrounds the rest, as
/// a frame does, belongs to it; so does a view that holds a tenth of the elements, wherever it
/// lies.
Belonging belongsTogether(std::vector<ElementBox> boxes);

}  // namespace quorvan::tool
