// The bar list of one or more drawings.
#pragma once

#include <cstdint>
#include <future>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/bending/bent_bar.h>
#include <tools/files/transfer_file.h>
#include <tools/schedule/left_out.h>
#include <tools/schedule/list_options.h>

namespace quorvan::tool {

inline constexpr double kSteelDensity = 7850.0;  // kg/m3

/// Elements of one class.
struct SourceElements {
  std::string_view className;
  std::vector<const Element*> elements;
};

/// What a series gives to a row.
struct SeriesShare {
  const Element* element = nullptr;
  std::uint64_t number = 0;           // of its bars that are in the row
  const Element* sameBars = nullptr;  // the series in another view that counts in its place
};

/// Bars that are alike. Lengths are in the unit of the list.
struct BarRow {
  std::size_t drawing = 0;  // place in BarList::drawings
  std::int64_t mark = 0;
  std::string grade;
  std::string adherence;
  double diameter = 0.0;  // mm
  BarShape shape = BarShape::kStraight;
  bool hasLength = true;
  bool isLowerBound = false;  // its lengths are at least these
  double shortest = 0.0;      // 0 where hasLength is false
  double longest = 0.0;
  double totalLength = 0.0;
  std::uint64_t number = 0;
  std::uint64_t drawn = 0;     // elements
  std::uint64_t repeated = 0;  // of them by series
  std::vector<SeriesShare> series;
  std::uint64_t hidden = 0;             // of the elements
  std::vector<SourceElements> sources;  // elements of the row, then their series
  std::vector<const Element*> endOn;    // bars of the mark seen end-on, which do not count
  std::vector<std::vector<const Element*>> twins;  // series that look like the same bars, counted
  // Of the longest; none where the list is of bars as filed and without shapes.
  BentBar bent;
  Cutting cutting;

  [[nodiscard]] bool varies() const noexcept { return shortest != longest; }
};

/// Bars of one diameter and grade, or of one drawing.
struct BarSum {
  double diameter = 0.0;  // mm
  std::string grade;
  std::uint64_t number = 0;
  double length = 0.0;  // m
  double mass = 0.0;    // kg
};

/// Sheets of one reference, type and size.
struct MeshRow {
  std::size_t drawing = 0;
  std::string reference;
  std::string type;
  double width = 0.0;  // in the unit of the list
  double height = 0.0;
  std::uint64_t number = 0;
  std::vector<const Element*> elements;
};

struct ListedDrawing {
  const TransferFile* file = nullptr;
  std::string name;  // in the control record
  AngleUnit angles = AngleUnit::kDegrees;
  BarSum sum;  // over all diameters and grades
};

struct BarList {
  ListOptions options;
  std::vector<ListedDrawing> drawings;
  std::vector<BarRow> rows;      // by drawing, mark, diameter, grade, adherence, shape, length
  std::vector<BarSum> sums;      // by diameter, then grade
  std::vector<MeshRow> meshes;   // by drawing, reference, type, size
  std::vector<LeftOut> leftOut;  // in the order of the files
  double mass = 0.0;             // kg
};

/// The list refers to the files.
BarList makeBarList(const std::vector<const TransferFile*>& files, const ListOptions& options);

/// The same of one file, made while something else is done with it. The file outlives the result.
std::future<BarList> beginBarList(const TransferFile& file, const ListOptions& options);

/// The diameter in mm as the list has it.
double listedDiameter(const LengthUnit& unit, double diameter) noexcept;

/// Mass in kg of so many metres of a bar of so many mm.
double massOf(double diameter, double metres) noexcept;

/// The mass of a row.
double massOf(const BarRow& row, const LengthUnit& unit) noexcept;

/// Square metres of one sheet.
double areaOf(const MeshRow& mesh, const LengthUnit& unit) noexcept;

/// The name in the last drawing control record; empty without one.
std::string drawingName(const TransferFile& file);

}  // namespace quorvan::tool
