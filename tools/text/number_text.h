// Numbers in results: always with a point, never with the locale's habits.
#pragma once

#include <string>

namespace quorvan::tool {

/// The shortest text that reads back to the same number: 12.5, 1250, -0.
std::string shortest(double value);

/// Rounded to `decimals` places, all of them written; no "-0".
std::string fixed(double value, int decimals);

/// Rounded to `decimals` places, without zeros at the end; no "-0".
std::string rounded(double value, int decimals);

}  // namespace quorvan::tool
