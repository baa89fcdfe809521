// The objects that a DXF of version 2000 has beside its entities.
#pragma once

#include <tools/draw/dxf/group_text.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// The section that names the classes of such objects as not every file has.
void writeClasses(GroupText& out);

/// The section of the objects: dictionaries, layouts, a line style. `extents` are the drawing's.
void writeObjects(const SheetBox& extents, GroupText& out);

}  // namespace quorvan::tool
