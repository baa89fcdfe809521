// What a DXF has around its entities.
#pragma once

#include <cstdint>
#include <deque>

#include <tools/draw/dxf/dxf_file.h>
#include <tools/draw/dxf/object_section.h>

namespace quorvan::tool {

/// Everything around the entities, section by section.
class DxfStructure {
 public:
  /// What the structure speaks of lives as long as it is used. `firstLayer` is the handle of the
  /// first layer; the others follow it, and after them comes the first handle that is free.
  DxfStructure(DxfVersion version, const DxfHeader& header, const LayerTable& layers,
               const std::deque<DxfBlock>& blocks, std::uint32_t firstLayer)
      : m_version(version),
        m_header(header),
        m_layers(layers),
        m_blocks(blocks),
        m_firstLayer(firstLayer) {}

  /// From the beginning up to the first entity.
  [[nodiscard]] GroupText beforeEntities() const;
  /// From the last entity to the end.
  [[nodiscard]] GroupText afterEntities() const;

 private:
  [[nodiscard]] bool isR12() const noexcept { return m_version == DxfVersion::kR12; }
  void writeHeader(GroupText& out) const;
  void writeTables(GroupText& out) const;
  void beginTable(std::string_view name, std::uint32_t handle, std::size_t count,
                  GroupText& out) const;
  void beginRecord(std::string_view type, std::uint32_t handle, std::uint32_t table,
                   std::string_view subclass, std::string_view name, GroupText& out) const;
  void writeViewport(GroupText& out) const;
  void writeLineTypes(GroupText& out) const;
  void writeLayers(GroupText& out) const;
  void writeTextStyle(GroupText& out) const;
  void writeApplications(GroupText& out) const;
  void writeDimensionStyle(GroupText& out) const;
  void writeBlockRecords(GroupText& out) const;
  void writeBlocks(GroupText& out) const;
  void writeBlock(const DxfBlock& block, GroupText& out) const;

  DxfVersion m_version;
  const DxfHeader& m_header;
  const LayerTable& m_layers;
  const std::deque<DxfBlock>& m_blocks;
  std::uint32_t m_firstLayer;
};

}  // namespace quorvan::tool
