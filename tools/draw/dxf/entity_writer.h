// Writes entities, as the version of the DXF wants them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <tools/draw/dxf/bulge_path.h>
#include <tools/draw/dxf/dxf_options.h>
#include <tools/draw/dxf/fill_pieces.h>
#include <tools/draw/dxf/group_text.h>
#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// A colour that is the layer's.
inline constexpr int kByLayer = 256;

/// What every entity has.
struct EntityLook {
  std::string_view layer;
  int color = kByLayer;
  std::string_view data;  // groups that go behind it: what it belongs to
};

/// Gives numbers to what is in the file; none is given twice.
class Handles {
 public:
  /// The first `given` are taken.
  explicit Handles(std::uint32_t given) : m_last(given) {}
  std::uint32_t next() noexcept { return ++m_last; }
  [[nodiscard]] std::uint32_t last() const noexcept { return m_last; }

 private:
  std::uint32_t m_last;
};

class EntityWriter {
 public:
  /// Writes to `out` what belongs to the block record of the handle `owner`.
  EntityWriter(DxfVersion version, Handles& handles, std::uint32_t owner, GroupText& out)
      : m_version(version), m_handles(handles), m_owner(owner), m_out(out) {}

  void point(const EntityLook& look, PlanePoint at);
  void line(const EntityLook& look, PlanePoint from, PlanePoint to);
  void circle(const EntityLook& look, PlanePoint center, double radius);
  /// An arc, or a line where the way is one.
  void way(const EntityLook& look, const BulgeWay& way);
  void polyline(const EntityLook& look, const BulgePath& path, double width);
  /// `text` is in the file's code page; `begin` is where its base line begins.
  void text(const EntityLook& look, const Lettering& lettering, std::string_view text,
            PlanePoint begin);
  void insert(const EntityLook& look, std::string_view block, PlanePoint at);
  /// R12.
  void solid(const EntityLook& look, const FillPiece& piece);
  /// 2000.
  void hatch(const EntityLook& look, const BulgePath& outline);
  /// A disc: R12 a closed polyline as wide as to cover it, 2000 a hatch.
  void disc(const EntityLook& look, PlanePoint center, double radius);

 private:
  [[nodiscard]] bool isR12() const noexcept { return m_version == DxfVersion::kR12; }
  void begin(std::string_view type, std::string_view subclass, const EntityLook& look);
  void head(std::string_view type, const EntityLook& look);
  void subclass(std::string_view name);
  void oldPolyline(const EntityLook& look, const BulgePath& path, double width);

  DxfVersion m_version;
  Handles& m_handles;
  std::uint32_t m_owner;
  GroupText& m_out;
};

}  // namespace quorvan::tool
