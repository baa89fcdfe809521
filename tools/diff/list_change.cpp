#include <tools/diff/list_change.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include <tools/schedule/bar_list.h>
#include <tools/text/counted_noun.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr const char* kArrow = " \u2192 ";
constexpr double kLeastMass = 0.05;  // kg

// The bars of a mark.
struct MarkSum {
  std::uint64_t number = 0;
  double mass = 0.0;  // kg
  std::set<double> diameters;
  std::set<std::string> lengths;
};

std::string joined(const std::set<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) {
    all += (all.empty() ? "" : ", ") + text;
  }
  return all;
}

std::string diametersOf(const MarkSum& sum) {
  std::set<std::string> texts;
  for (const double diameter : sum.diameters) {
    texts.insert(rounded(diameter, 2));
  }
  return joined(texts);
}

std::map<std::int64_t, MarkSum> sumsOf(const BarList& list, const LengthUnit& unit) {
  std::map<std::int64_t, MarkSum> sums;
  for (const BarRow& row : list.rows) {
    MarkSum& sum = sums[row.mark];
    sum.number += row.number;
    sum.mass += row.hasLength ? massOf(row, unit) : 0.0;
    sum.diameters.insert(row.diameter);
    if (row.hasLength) {
      const std::string shortest = rounded(row.shortest, unit.decimals);
      sum.lengths.insert(row.varies() ? shortest + " to " + rounded(row.longest, unit.decimals)
                                      : shortest);
    }
  }
  return sums;
}

std::string bars(std::uint64_t number) {
  return counted(number, "bar");
}

std::string gain(double mass) {
  return (mass < 0.0 ? "\u2212" : "+") + fixed(std::abs(mass), 1) + " kg";
}

// What became of a mark that is in both lists; empty where nothing did.
std::string changeOf(const MarkSum& before, const MarkSum& after) {
  std::string text;
  const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
  if (before.number != after.number) {
    add(std::to_string(before.number) + kArrow + bars(after.number));
  }
  if (before.diameters != after.diameters) {
    add("diameter " + diametersOf(before) + kArrow + diametersOf(after));
  }
  if (before.lengths != after.lengths) {
    add("length " + joined(before.lengths) + kArrow + joined(after.lengths));
  }
  if (std::abs(after.mass - before.mass) >= kLeastMass) {
    add(gain(after.mass - before.mass));
  }
  return text;
}

}  // namespace

std::vector<std::string> listChanges(const TransferFile& before, const TransferFile& after,
                                     const LengthUnit& unit) {
  ListOptions options;
  options.unit = &unit;
  const BarList old = makeBarList({&before}, options);
  const BarList now = makeBarList({&after}, options);
  const auto oldSums = sumsOf(old, unit);
  const auto newSums = sumsOf(now, unit);
  std::map<std::int64_t, std::string> changes;
  for (const auto& [mark, sum] : oldSums) {
    const auto found = newSums.find(mark);
    changes[mark] = found == newSums.end() ? "gone, " + bars(sum.number) + ", " + gain(-sum.mass)
                                           : changeOf(sum, found->second);
  }
  for (const auto& [mark, sum] : newSums) {
    if (!oldSums.contains(mark)) {
      changes[mark] =
          "new, " + bars(sum.number) + ", diameter " + diametersOf(sum) + ", " + gain(sum.mass);
    }
  }
  std::vector<std::string> lines;
  for (const auto& [mark, change] : changes) {
    if (!change.empty()) {
      lines.push_back("mark " + std::to_string(mark) + ": " + change);
    }
  }
  if (std::abs(now.mass - old.mass) >= kLeastMass) {
    lines.push_back("all bars: " + fixed(old.mass, 1) + kArrow + fixed(now.mass, 1) + " kg");
  }
  return lines;
}

}  // namespace quorvan::tool
