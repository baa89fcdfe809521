#include <tools/commands/measures.h>

#include <CLI/CLI.hpp>

#include <algorithm>

#include <quorvan/text/numbers.h>

namespace quorvan::tool {

const LengthUnit& unitNamed(std::string_view name) {
  for (const LengthUnit& unit : kLengthUnits) {
    if (unit.name == name) {
      return unit;
    }
  }
  throw Failure('"' + std::string(name) + "\" is not a unit; there are mm, cm, m");
}

std::optional<Measure> measureOf(const std::string& text) {
  const bool isInDiameters = text.ends_with('d');
  const std::string digits = isInDiameters ? text.substr(0, text.size() - 1) : text;
  const bool isNumber = !digits.empty() && digits.size() < 10 &&
                        digits.find_first_not_of("0123456789.") == std::string::npos &&
                        std::ranges::count(digits, '.') <= 1 && digits != ".";
  if (!isNumber) {
    return std::nullopt;
  }
  const double value = parseDouble(digits);
  return isInDiameters ? Measure{value, 0.0} : Measure{0.0, value};
}

void addUnitOptions(CLI::App& command, std::string& unit, std::string& angles, Run& run) {
  run.words[command.add_option("--unit", unit, "Unit of the drawing's lengths: mm, cm or m")
                ->capture_default_str()] = {"mm", "cm", "m"};
  oneOf(command.add_option("--angles", angles, "What angles are: auto, deg, rad"),
        {"auto", "deg", "rad"}, run)
      ->capture_default_str();
}

std::optional<AngleUnit> anglesNamed(std::string_view name) {
  if (name == "auto") {
    return std::nullopt;
  }
  return name == "rad" ? AngleUnit::kRadians : AngleUnit::kDegrees;
}

std::optional<Mandrel> mandrelOf(const std::string& text) {
  if (text.empty()) {
    return std::nullopt;
  }
  const auto measure = measureOf(text);
  if (!measure || measure->diameters + measure->millimetres <= 0.0) {
    throw Failure('"' + text + "\" is no roller; give its diameter as 5d or, in mm, as 60");
  }
  return Mandrel{measure->diameters, measure->millimetres};
}

}  // namespace quorvan::tool
