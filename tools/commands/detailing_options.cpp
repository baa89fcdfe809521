#include <tools/commands/detailing_options.h>

#include <algorithm>

#include <CLI/CLI.hpp>

#include <tools/commands/measures.h>

namespace quorvan::tool {

namespace {

constexpr double kLongestStock = 100.0;    // m
constexpr double kGreatestLimit = 1000.0;  // mm
constexpr double kMillimetres = 1000.0;    // of a metre

void refuseWithoutRules(const DetailingArguments& arguments) {
  const bool isAny = arguments.stock || arguments.cover || arguments.aggregate ||
                     !arguments.mandrel.empty() || !arguments.hooks.empty() ||
                     arguments.unit != "mm" || arguments.angles != "auto";
  if (isAny) {
    throw Failure(
        "--stock, --cover, --aggregate, --mandrel, --hooks, --unit and --angles are for rules of "
        "detailing: --rules ec2 or bs8666");
  }
}

}  // namespace

void addDetailingOptions(CLI::App& command, DetailingArguments& arguments, Run& run) {
  oneOf(command.add_option("--rules", arguments.rules,
                           "Hold the detailing of bars against ec2 (EN 1992-1-1), bs8666, or both: "
                           "ec2,bs8666"),
        {"ec2", "bs8666"}, run)
      ->delimiter(',')
      ->allow_extra_args(false);
  command
      .add_option("--stock", arguments.stock,
                  "Length of the longest bars that can be had, in m; 12 unless given")
      ->check(CLI::Range(0.1, kLongestStock));
  command.add_option("--cover", arguments.cover, "Least concrete cover, in mm")
      ->check(CLI::Range(0.0, kGreatestLimit));
  command.add_option("--aggregate", arguments.aggregate, "Greatest size of the aggregate, in mm")
      ->check(CLI::Range(0.0, kGreatestLimit));
  command.add_option("--mandrel", arguments.mandrel,
                     "Diameter of the bending roller: 5d, or 60 for mm; the least that is allowed "
                     "unless given");
  oneOf(command.add_option("--hooks", arguments.hooks,
                           "From where a hook is measured: corner, or its straight part alone; "
                           "either unless given"),
        {"corner", "straight"}, run);
  addUnitOptions(command, arguments.unit, arguments.angles, run);
}

std::optional<DetailingLimits> detailingLimits(const DetailingArguments& arguments) {
  if (arguments.rules.empty()) {
    refuseWithoutRules(arguments);
    return std::nullopt;
  }
  const auto has = [&arguments](const char* rules) {
    return std::ranges::find(arguments.rules, rules) != arguments.rules.end();
  };
  DetailingLimits limits;
  limits.hasEurocode2 = has("ec2");
  limits.hasBs8666 = has("bs8666");
  if (arguments.stock) {
    limits.stock = *arguments.stock * kMillimetres;
  }
  limits.cover = arguments.cover;
  limits.aggregate = arguments.aggregate;
  limits.mandrel = mandrelOf(arguments.mandrel);
  if (!arguments.hooks.empty()) {
    limits.hooks = arguments.hooks == "straight" ? HookMeaning::kStraight : HookMeaning::kCorner;
  }
  limits.unit = &unitNamed(arguments.unit);
  limits.angles = anglesNamed(arguments.angles);
  return limits;
}

}  // namespace quorvan::tool
