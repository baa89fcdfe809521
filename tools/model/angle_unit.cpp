#include <tools/model/angle_unit.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <vector>

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
  std::vector<double> angles;

  void add(double angle) { angles.push_back(std::abs(angle)); }

  // Each angle counts once, however often it comes.
  [[nodiscard]] bool areRadians() {
    std::ranges::sort(angles);
    angles.erase(std::unique(angles.begin(), angles.end()), angles.end());
    const auto usual = std::ranges::count_if(angles, isUsualInRadians);
    return 2 * usual > std::ssize(angles);
  }
};

bool isHookAngle(std::string_view item) {
  return item == "HookAngle1" || item == "HookAngle2";
}

bool isAngle(const items::ItemSchema& item) {
  return item.name == "Angle" || isHookAngle(item.name);
}

}  // namespace

std::string_view angleUnitName(AngleUnit unit) noexcept {
  return unit == AngleUnit::kRadians ? "radians" : "degrees";
}

AngleGuess guessAngleUnit(const TransferFile& file) {
  const ItemSelection angles(isAngle);
  ItemReader reader(file);
  AngleGuess guess;
  Votes hooks;
  Votes texts;
  bool isBeyondATurn = false;
  for (const Element& element : file.elements()) {
    if (element.schema == nullptr || angles.holdsNone(*element.schema)) {
      continue;
    }
    const std::vector<ItemValue>& items = reader.read(element, angles);
    for (std::size_t i = 0; i < items.size(); ++i) {
      const ItemValue& item = items[i];
      if (!angles.holds(*element.schema, i) || item.number == 0.0) {
        continue;
      }
      ++guess.angles;
      isBeyondATurn = isBeyondATurn || !(std::abs(item.number) <= kFullTurn);
      (isHookAngle(item.schema->name) ? hooks : texts).add(item.number);
    }
  }
  Votes& deciding = hooks.angles.empty() ? texts : hooks;
  if (!isBeyondATurn && deciding.areRadians()) {
    guess.unit = AngleUnit::kRadians;
  }
  return guess;
}

}  // namespace quorvan::tool
