// Texts of the drawing that are the mark of a bar.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <tools/draw/labels/bars_by_mark.h>
#include <tools/draw/scene/plane_point.h>
#include <tools/draw/scene/sheet.h>
#include <tools/files/transfer_file.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

/// What a text says of a bar.
struct MarkText {
  std::optional<std::int64_t> mark = {};
  bool isBareNumber = false;            // a mark only within a circle
  std::optional<double> diameter = {};  // in mm, of "3 HA 12"
  // 200 of "3 H12-200": the mark, where there is such a bar.
  std::optional<std::int64_t> behind = {};
};

/// A mark that is written as one: "(3)" at the head of a text or anywhere in one that has a bar,
/// "rep. 3", "n° 3", "pos. 3", "mark 3" anywhere, "H12-03". A number before the bar is how many
/// there are then; without such a mark, as in "3 HA 12", it is the mark. And a number alone.
/// Nothing for any other text.
std::optional<MarkText> markIn(std::string_view text);

class MarkTexts {
 public:
  /// Collects the texts on the sheet that can be marks of these bars; numbers alone where a circle
  /// is round them.
  MarkTexts(const TransferFile& file, const Sheet& sheet, const BarsByMark& bars);

  /// Whether such a text stands near the line from `from` to `to` of a bar of that mark and of that
  /// diameter in mm: within thirty times its height.
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
