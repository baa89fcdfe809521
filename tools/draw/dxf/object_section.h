// The objects that a DXF of version 2000 has beside its entities.
#pragma once

#include <cstdint>

#include <tools/draw/dxf/group_text.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// Handles that are the same in every file.
namespace dxf_handle {
inline constexpr std::uint32_t kModelSpace = 0x1F;
inline constexpr std::uint32_t kPaperSpace = 0x22;
inline constexpr std::uint32_t kNormalPlotStyle = 0x2B;
inline constexpr std::uint32_t kModelLayout = 0x2C;
inline constexpr std::uint32_t kPaperLayout = 0x2D;
inline constexpr std::uint32_t kLast = 0x3F;  // the first free one comes next
}  // namespace dxf_handle

/// The section that names the classes of such objects as not every file has.
void writeClasses(GroupText& out);

/// The section of the objects: dictionaries, layouts, a line style. `extents` are the drawing's.
void writeObjects(const SheetBox& extents, GroupText& out);

}  // namespace quorvan::tool
