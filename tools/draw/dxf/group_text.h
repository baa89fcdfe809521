// Groups of a DXF: a line with a code, a line with a value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <tools/draw/scene/plane_point.h>

namespace quorvan::tool {

/// Collects groups. Lines end as on Windows, where the programs are that read them.
class GroupText {
 public:
  /// The value is one line of the file's code page.
  void text(int code, std::string_view value);
  void integer(int code, std::int64_t value);
  void handle(int code, std::uint32_t value);

  /// A length, a place or an angle, to a thousand-millionth; large ones with all their digits. The
  /// value is finite.
  void number(int code, double value);
  /// The same to the twelfth decimal, for bulges: a long chord makes much of a little.
  void ratio(int code, double value);

  /// x, y and the z of the plane under the codes `code`, `code` + 10 and `code` + 20.
  void point(int code, PlanePoint value);
  /// x and y alone.
  void planePoint(int code, PlanePoint value);

  void beginSection(std::string_view name);
  void endSection() { text(0, "ENDSEC"); }
  /// What follows the type of everything in version 2000: its handle, that of what it belongs to,
  /// and the first of its subclasses, unless it has none.
  void identity(std::uint32_t handle, std::uint32_t owner, std::string_view subclass);

  /// Groups that were made before.
  void made(std::string_view groups) { m_bytes += groups; }

  [[nodiscard]] const std::string& bytes() const noexcept { return m_bytes; }
  void clear() noexcept { m_bytes.clear(); }
  /// The groups, which are let go.
  [[nodiscard]] std::string take() noexcept { return std::exchange(m_bytes, {}); }

 private:
  void decimal(int code, double value, double parts);

  std::string m_bytes;
};

}  // namespace quorvan::tool
