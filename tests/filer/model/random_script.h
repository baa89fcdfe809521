// Random documents and random scripts of calls. A seed always gives the same one.
#pragma once

#include <cstdint>
#include <random>

#include <tests/filer/model/script.h>

namespace quorvan::test::model {

/// Calls of every kind in any order, also wrong ones.
Script randomCalls(std::uint32_t seed);

/// Searches for patterns made from the elements of the documents searched, among calls that
/// change the documents, the counts and the current elements.
Script randomSearches(std::uint32_t seed);

}  // namespace quorvan::test::model
