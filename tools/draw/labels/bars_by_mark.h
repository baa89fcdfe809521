// What the bar list says of the bars of a mark.
#pragma once

#include <cstdint>
#include <string_view>
#include <tuple>
#include <vector>

#include <tools/model/bar.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

/// Bars of one mark and steel, whatever their shapes and lengths.
struct MarkedBars {
  std::int64_t mark = 0;
  double diameter = 0.0;  // mm
  std::string_view grade;
  std::string_view adherence;
  std::uint64_t number = 0;
  bool isLowerBound = false;    // its lengths are at least these
  double shortestMetres = 0.0;  // 0 where the bars are seen end-on alone
  double longestMetres = 0.0;
};

class BarsByMark {
 public:
  BarsByMark() = default;
  /// Of the list of one drawing, to which this refers.
  explicit BarsByMark(const BarList& list);

  /// The bars that the bar is counted among; null for one that is not in the list.
  [[nodiscard]] const MarkedBars* find(const Bar& bar) const;

  /// Whether there is a bar of that mark and, to the nearest whole one, of that diameter in mm.
  [[nodiscard]] bool has(std::int64_t mark, double diameter) const;

 private:
  using Steel = std::tuple<std::int64_t, double, std::string_view, std::string_view>;

  static Steel steelOf(const MarkedBars& bars) {
    return {bars.mark, bars.diameter, bars.grade, bars.adherence};
  }

  [[nodiscard]] double metresOf(double length) const {
    return m_unit->millimetres(length) / 1000.0;
  }

  const LengthUnit* m_unit = kLengthUnits;
  std::vector<MarkedBars> m_bars;  // by Steel
};

}  // namespace quorvan::tool
