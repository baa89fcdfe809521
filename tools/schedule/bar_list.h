// The bar list of a drawing.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/bar.h>

namespace quorvan::tool {

/// The unit of the lengths in a drawing.
struct LengthUnit {
  std::string_view name;
  double inMetres;
  int decimals;  // of lengths in lists
};

inline constexpr LengthUnit kLengthUnits[] = {{"mm", 0.001, 0}, {"cm", 0.01, 1}, {"m", 1.0, 3}};

inline constexpr double kSteelDensity = 7850.0;  // kg/m3

/// Elements of one class.
struct SourceElements {
  std::string_view className;
  std::vector<const Element*> elements;
};

/// Bars that are alike.
struct BarRow {
  std::int64_t mark = 0;
  std::string grade;
  std::string adherence;
  double diameter = 0.0;
  BarShape shape = BarShape::kStraight;
  std::uint64_t drawn = 0;           // bars that are elements of their own
  std::uint64_t inRepartitions = 0;  // bars of the repartitions that point to one of these
  double length = 0.0;               // 0 where hasLength is false
  bool hasLength = true;
  std::uint64_t hidden = 0;             // of the elements
  std::vector<SourceElements> sources;  // elements of the row, then its repartitions
  std::vector<const Element*> endOn;    // bars of the mark seen end-on, which do not count

  /// Elements and repartitions are two views of the same bars: the larger number holds.
  [[nodiscard]] std::uint64_t number() const noexcept { return std::max(drawn, inRepartitions); }
  [[nodiscard]] double totalLength() const noexcept {
    return static_cast<double>(number()) * length;
  }
};

/// Rows of one diameter and grade.
struct BarSum {
  double diameter = 0.0;
  std::string grade;
  std::uint64_t number = 0;
  double length = 0.0;
  double mass = 0.0;  // kg
};

struct BarList {
  std::vector<BarRow> rows;  // by mark, then diameter, grade, shape, length
  std::vector<BarSum> sums;  // by diameter, then grade
  double mass = 0.0;         // kg
  std::uint64_t meshes = 0;  // sheets, which are not in the list
};

/// How lengths and numbers come about, a sentence each.
inline constexpr std::string_view kLengthConvention =
    "Length: along the centre line as drawn, with the hooks in full and no deduction for bends. "
    "U bar: the third leg equals the first. Rectangular frame: the four sides. Circular frame: the "
    "circle and its overlap. Stirrup: twice its long axis. Links: their hook at both ends.";
inline constexpr std::string_view kNumberConvention =
    "Number: the elements, hidden ones included, or the bars of the repartitions that point to "
    "them where these are more. Bars seen end-on count only where the mark has no other element; "
    "their length is not in the file.";

BarList makeBarList(const TransferFile& file, const LengthUnit& unit);

/// Mass in kg of `length` of a bar, both in the unit.
double massOf(double diameter, double length, const LengthUnit& unit) noexcept;

}  // namespace quorvan::tool
