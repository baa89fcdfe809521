// What a transfer file holds, in figures.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/angle_unit.h>
#include <tools/model/extents.h>
#include <tools/model/repartition.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

struct ControlSummary {
  std::string name;
  std::string version;
  std::int64_t servicePack = 0;
  std::int64_t checkSum = 0;
};

struct ClassCount {
  std::string_view className;
  bool isKnown = true;
  std::uint64_t count = 0;
};

/// Bars and links of one diameter and grade: elements, and bars with those of the repartitions.
struct BarCount {
  double diameter = 0.0;
  std::string grade;
  std::uint64_t elements = 0;
  std::uint64_t number = 0;
};

struct SeriesSummary {
  std::string index;
  std::string className;  // of the repeated bar
  std::int64_t barIndex = 0;
  std::optional<std::int64_t> reference;  // of that bar, if it is there
  std::size_t number = 0;
  std::vector<double> spacings;
  bool isHidden = false;
};

struct FileSummary {
  std::optional<ControlSummary> control;
  std::vector<ClassCount> classes;  // in the order of their first elements
  std::vector<BarCount> bars;       // by diameter, then grade
  std::vector<std::int64_t> references;
  std::uint64_t hidden = 0;
  std::vector<SeriesSummary> repartitions;
  std::optional<Extents> extents;
  AngleGuess angles;
};

FileSummary summarize(const TransferFile& file);

}  // namespace quorvan::tool
