// What covers which part of the sheet, so that what is added finds room.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include <tools/draw/scene/scene.h>
#include <tools/draw/scene/sheet_box.h>

namespace quorvan::tool {

/// A fine grid over the sheet. What lies beside the sheet is taken.
class Occupancy {
 public:
  enum class Kind : std::uint8_t { kText = 1, kLine = 2, kConcrete = 4 };

  /// What it costs to cover a cell of a text.
  static constexpr double kTextCost = 20.0;

  Occupancy(double width, double height);

  void take(const SheetBox& box, Kind kind);
  void take(const Lettering& text);
  /// The lines and arcs of the path, with pens of that width.
  void take(const Path& path, Kind kind, double width = 0.0);
  /// The inside of the outline.
  void fill(const std::vector<PlanePoint>& outline, Kind kind);

  /// 0 where nothing is covered; else the more, the worse it is to cover: texts count most, then
  /// lines, then concrete. Of a box that costs `most` or more, any number from there on.
  [[nodiscard]] double cost(const SheetBox& box,
                            double most = std::numeric_limits<double>::infinity()) const;
  [[nodiscard]] double cost(const Lettering& text) const;
  /// Of a thin line, which may cross others and concrete, but no text.
  [[nodiscard]] double cost(PlanePoint from, PlanePoint to) const;

 private:
  [[nodiscard]] int column(double x) const;
  [[nodiscard]] int row(double y) const;
  [[nodiscard]] double costAt(int x, int y) const;
  void takeAt(int x, int y, Kind kind);
  void takeCells(int left, int right, int low, int high, Kind kind);
  template <class Call>
  void alongArc(PlanePoint from, const PathStep& arc, Call call) const;
  template <class Call>
  void along(PlanePoint from, PlanePoint to, Call call) const;
  template <class Call>
  void along(const Path& path, Call call) const;
  template <class Call>
  void over(const Lettering& text, Call call) const;

  double m_cell = 0.5;  // mm
  int m_columns = 1;
  int m_rows = 1;
  std::vector<std::uint8_t> m_cells;
};

}  // namespace quorvan::tool
