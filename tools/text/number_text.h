// Numbers in results: always with a point, never with the locale's habits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace quorvan::tool {

/// The shortest text that reads back to the same number: 12.5, 1250, -0.
std::string shortest(double value);

/// Rounded to `decimals` places, all of them written; no "-0".
std::string fixed(double value, int decimals);

/// Rounded to `decimals` places, without zeros at the end; no "-0". From 1e15 upwards as short as
/// it goes.
std::string rounded(double value, int decimals);
/// The same, behind a text that is there.
void appendRounded(std::string& out, double value, int decimals);

/// Ascending numbers, consecutive ones as "1-4"; "..." after the first `most` of these runs.
std::string runsOf(const std::vector<std::int64_t>& numbers,
                   std::size_t most = std::numeric_limits<std::size_t>::max());

}  // namespace quorvan::tool
