#include <tools/draw/dxf/dxf_file.h>

#include <tools/draw/dxf/fixed_handles.h>
#include <tools/draw/dxf/structure.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kPiece = 1U << 18U;

}  // namespace

DxfFile::DxfFile(DxfVersion version, double scale, bool hasDashes)
    : m_version(version), m_layers(scale, hasDashes), m_handles(kLastFixedHandle) {}

EntityWriter DxfFile::entities(Layer kind) {
  const auto place = static_cast<std::size_t>(kind);
  GroupText& out = m_entities[place];
  if (out.bytes().size() > kPiece) {
    m_written[place].push_back(out.take());
  }
  return {m_version, m_handles, record_handle::kModelSpace, out};
}

EntityWriter DxfFile::beginBlock(std::string name) {
  DxfBlock& block = m_blocks.emplace_back();
  block.name = std::move(name);
  block.record = m_handles.next();
  block.begin = m_handles.next();
  block.end = m_handles.next();
  return {m_version, m_handles, block.record, block.entities};
}

void DxfFile::write(const DxfHeader& header, std::ostream& out) {
  const DxfStructure structure(m_version, header, m_layers, m_blocks, m_handles.last() + 1);
  const auto put = [&out](const std::string& bytes) {
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  };
  put(structure.beforeEntities().bytes());
  for (std::size_t kind = 0; kind < kLayers; ++kind) {
    for (const std::string& piece : m_written[kind]) {
      put(piece);
    }
    put(m_entities[kind].bytes());
  }
  put(structure.afterEntities().bytes());
}

}  // namespace quorvan::tool
