// A DXF as a whole: header, tables, blocks, entities and, in version 2000, objects.
#pragma once

#include <deque>
#include <ostream>
#include <string>
#include <vector>

#include <tools/draw/dxf/dxf_options.h>
#include <tools/draw/dxf/entity_writer.h>
#include <tools/draw/dxf/group_text.h>
#include <tools/draw/dxf/layer_table.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// The name under which groups of our own go with entities.
inline constexpr std::string_view kApplicationName = "QUORVAN";

/// What the header says of the drawing, in its own unit.
struct DxfHeader {
  double unitInMetres = 0.001;
  double paper = 1.0;      // a millimetre of paper
  double lettering = 2.5;  // the usual height of texts
  SheetBox extents;        // of everything; empty without entities
  SheetBox view;           // what a program shows first; empty for everything
};

/// A block: what is in it, and its name.
struct DxfBlock {
  std::string name;
  std::uint32_t record = 0;  // handles
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
  GroupText entities;
};

class DxfFile {
 public:
  /// `scale` and `hasDashes` as for the table of layers.
  DxfFile(DxfVersion version, double scale, bool hasDashes);

  [[nodiscard]] LayerTable& layers() noexcept { return m_layers; }

  /// Writes entities, which lie the higher the later the kind.
  EntityWriter entities(Layer kind);
  /// Begins a block of that name, and writes into it. A name is given once.
  EntityWriter beginBlock(std::string name);

  /// Writes the file. The handles of the layers are given now: once only.
  void write(const DxfHeader& header, std::ostream& out);

 private:
  DxfVersion m_version;
  LayerTable m_layers;
  Handles m_handles;
  GroupText m_entities[kLayers];
  // What was written before, in pieces: nothing large has to be moved when more comes.
  std::vector<std::string> m_written[kLayers];
  std::deque<DxfBlock> m_blocks;
};

}  // namespace quorvan::tool
