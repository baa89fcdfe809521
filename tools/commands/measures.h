// Units, rollers and other measures as they are typed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <tools/bending/bending_rules.h>
#include <tools/commands/command.h>
#include <tools/model/length_unit.h>

namespace quorvan::tool {

/// mm, cm or m; raises Failure for any other.
const LengthUnit& unitNamed(std::string_view name);

/// Adds --unit and --angles with their words. "auto" leaves the angles to be guessed.
void addUnitOptions(CLI::App& command, std::string& unit, std::string& angles, Run& run);
std::optional<AngleUnit> anglesNamed(std::string_view name);

/// So many diameters ("5d") or millimetres ("60").
struct Measure {
  double diameters = 0.0;
  double millimetres = 0.0;
};

/// Nothing for a text that is none.
std::optional<Measure> measureOf(const std::string& text);

/// The roller of a --mandrel, nothing for an empty text; raises Failure for what is no roller.
std::optional<Mandrel> mandrelOf(const std::string& text);

}  // namespace quorvan::tool
