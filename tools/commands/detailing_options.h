// What `quorvan check` holds the detailing of bars against.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <tools/commands/command.h>
#include <tools/detailing/detailing_limits.h>

namespace quorvan::tool {

struct DetailingArguments {
  std::vector<std::string> rules;
  std::optional<double> stock;  // m
  std::optional<double> cover;
  std::optional<double> aggregate;
  std::string mandrel;
  std::string hooks;
  std::string unit = "mm";
  std::string angles = "auto";
};

void addDetailingOptions(CLI::App& command, DetailingArguments& arguments, Run& run);

/// Nothing where no rules were asked for; raises Failure for limits without rules.
std::optional<DetailingLimits> detailingLimits(const DetailingArguments& arguments);

}  // namespace quorvan::tool
