#include <tools/model/angle_unit.h>

#include <cmath>
#include <numbers>
#include <set>

#include <tools/model/item_reader.h>

namespace quorvan::tool {

namespace {

constexpr double kFullTurn = 6.2832;                    // radians, rounded upwards
constexpr double kUsualStep = std::numbers::pi / 12.0;  // 15 degrees
constexpr double kRounding = 2e-3;                      // of hosts that write 1.57

bool isUsualInRadians(double angle) {
  return std::abs(std::remainder(angle, kUsualStep)) < kRounding;
}

// For and against radians.
struct Votes {
  std::set<double> seen;  // each angle counts once, however often it comes
  int usual = 0;
  int others = 0;

  void add(double angle) {
    if (seen.insert(std::abs(angle)).second) {
      ++(isUsualInRadians(angle) ? usual : others);
    }
  }
  [[nodiscard]] bool areRadians() const { return usual > others; }
  [[nodiscard]] bool isEmpty() const { return seen.empty(); }
};

}  // namespace

std::string_view angleUnitName(AngleUnit unit) noexcept {
  return unit == AngleUnit::kRadians ? "radians" : "degrees";
}

AngleGuess guessAngleUnit(const TransferFile& file) {
  ItemReader reader(file);
  AngleGuess guess;
  Votes hooks;
  Votes texts;
  bool isBeyondATurn = false;
  for (const Element& element : file.elements()) {
    if (element.schema == nullptr) {
      continue;
    }
    const auto& schemas = element.schema->items;
    for (std::size_t i = 0; i < schemas.size(); ++i) {
      const std::string_view name = schemas[i].name;
      const bool isHook = name == "HookAngle1" || name == "HookAngle2";
      if (!isHook && name != "Angle") {
        continue;
      }
      const double angle = reader.readOne(element, i).number;
      if (angle != 0.0) {
        ++guess.angles;
        isBeyondATurn = isBeyondATurn || !(std::abs(angle) <= kFullTurn);
        (isHook ? hooks : texts).add(angle);
      }
    }
  }
  const Votes& deciding = hooks.isEmpty() ? texts : hooks;
  if (!isBeyondATurn && deciding.areRadians()) {
    guess.unit = AngleUnit::kRadians;
  }
  return guess;
}

}  // namespace quorvan::tool
