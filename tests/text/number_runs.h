#pragma once

#include <cstdint>
#include <cstdlib>

namespace quorvan::test {

/// How many random numbers the number tests try: QUORVAN_TEST_NUMBERS asks for a longer run.
inline std::int64_t randomCount() {
  const char* const asked = std::getenv("QUORVAN_TEST_NUMBERS");
  return asked != nullptr ? std::strtoll(asked, nullptr, 10) : 1'000'000;
}

}  // namespace quorvan::test
