// The handles that are the same in every DXF of version 2000.
#pragma once

#include <cstdint>

namespace quorvan::tool {

/// Tables.
namespace table_handle {
inline constexpr std::uint32_t kViewports = 0x1;
inline constexpr std::uint32_t kLineTypes = 0x2;
inline constexpr std::uint32_t kLayers = 0x3;
inline constexpr std::uint32_t kStyles = 0x4;
inline constexpr std::uint32_t kViews = 0x5;
inline constexpr std::uint32_t kCoordinateSystems = 0x6;
inline constexpr std::uint32_t kApplications = 0x7;
inline constexpr std::uint32_t kDimensionStyles = 0x8;
inline constexpr std::uint32_t kBlockRecords = 0x9;
}  // namespace table_handle

/// Records of tables; the model and paper spaces are records of blocks.
namespace record_handle {
inline constexpr std::uint32_t kModelSpace = 0x1F;
inline constexpr std::uint32_t kPaperSpace = 0x22;
inline constexpr std::uint32_t kViewport = 0x10;
inline constexpr std::uint32_t kByBlock = 0x11;
inline constexpr std::uint32_t kByLayer = 0x12;
inline constexpr std::uint32_t kContinuous = 0x13;
inline constexpr std::uint32_t kDashed = 0x14;
inline constexpr std::uint32_t kLayerZero = 0x15;
inline constexpr std::uint32_t kStyle = 0x16;
inline constexpr std::uint32_t kHostApplication = 0x17;
inline constexpr std::uint32_t kOurApplication = 0x18;
inline constexpr std::uint32_t kDimensionStyle = 0x19;
inline constexpr std::uint32_t kModelBegin = 0x20;
inline constexpr std::uint32_t kModelEnd = 0x21;
inline constexpr std::uint32_t kPaperBegin = 0x23;
inline constexpr std::uint32_t kPaperEnd = 0x24;
}  // namespace record_handle

/// Objects.
namespace object_handle {
inline constexpr std::uint32_t kRoot = 0x25;
inline constexpr std::uint32_t kGroups = 0x26;
inline constexpr std::uint32_t kLayouts = 0x27;
inline constexpr std::uint32_t kLineStyles = 0x28;
inline constexpr std::uint32_t kPlotSettings = 0x29;
inline constexpr std::uint32_t kPlotStyles = 0x2A;
inline constexpr std::uint32_t kLineStyle = 0x2E;
inline constexpr std::uint32_t kNormalPlotStyle = 0x2B;
inline constexpr std::uint32_t kModelLayout = 0x2C;
inline constexpr std::uint32_t kPaperLayout = 0x2D;
}  // namespace object_handle

/// The first that is free comes next.
inline constexpr std::uint32_t kLastFixedHandle = 0x3F;

}  // namespace quorvan::tool
