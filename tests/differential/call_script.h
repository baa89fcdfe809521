// Scripts of random calls, the same from the same seed on every system.
#pragma once

#include <cstdint>
#include <string>

namespace quorvan::test {

/// Runs the script of that seed in the current folder and returns what it did.
std::string runCallScript(std::uint64_t seed);

/// How many scripts a comparison runs: QUORVAN_CALL_SCRIPTS in the environment, or some hundreds.
int callScriptCount();

}  // namespace quorvan::test
