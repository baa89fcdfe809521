// Texts of the drawing that are the mark of a bar.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <tools/draw/scene/plane_point.h>
#include <tools/draw/scene/sheet.h>
#include <tools/files/transfer_file.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

/// What a text says of a bar.
struct MarkText {
  std::int64_t mark = 0;
  bool isBareNumber = false;       // a mark only within a circle
  std::optional<double> diameter;  // of "3 HA 12"
};

/// "(3)" at the head of a text, "rep. 3", "n° 3", "pos. 3", "mark 3" anywhere in it, "3 HA 12" at
/// its head, and a number alone. Nothing for any other text.
std::optional<MarkText> markIn(std::string_view text);

class MarkTexts {
 public:
  /// Collects the texts on the sheet that can be marks; numbers alone where a circle is round them.
  MarkTexts(const TransferFile& file, const Sheet& sheet);

  /// Whether such a text stands near the line from `from` to `to` of a bar of that mark: within
  /// thirty times its height.
  [[nodiscard]] bool name(std::int64_t mark, double diameter, PlanePoint from, PlanePoint to) const;

  [[nodiscard]] bool has(std::int64_t mark) const { return m_places.contains(mark); }

 private:
  struct Place {
    PlanePoint center;
    double height;
    std::optional<double> diameter;
  };

  std::unordered_map<std::int64_t, std::vector<Place>, KeyedHash> m_places;
};

}  // namespace quorvan::tool
