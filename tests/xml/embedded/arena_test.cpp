#include <gtest/gtest.h>

#include <cstdint>
#include <new>

#include <quorvan/xml/embedded/tree/arena.h>

namespace quorvan::test {
namespace {

using embedded::Arena;
using embedded::Ref;

std::uint32_t& wordAt(const Arena& arena, Ref ref) {
  return *static_cast<std::uint32_t*>(arena.at(ref));
}

TEST(ArenaMemory, ComesInOneRowUpToTheLargestSize) {
  Arena arena;
  const Ref small = arena.allocate(1);
  wordAt(arena, small) = 1;
  const Ref large = arena.allocate(Arena::kMaxAllocation);
  wordAt(arena, large) = 2;
  wordAt(arena, large + Arena::kMaxAllocation - 1) = 3;
  EXPECT_EQ(wordAt(arena, small), 1U);
  EXPECT_EQ(wordAt(arena, large), 2U);
}

TEST(ArenaMemory, IsNotGivenBeyondTheLargestSize) {
  Arena arena;
  const Ref top = arena.top();
  EXPECT_THROW(static_cast<void>(arena.allocate(Arena::kMaxAllocation + 1)), std::bad_alloc);
  EXPECT_THROW(static_cast<void>(arena.allocate(UINT32_MAX)), std::bad_alloc);
  EXPECT_EQ(arena.top(), top);
  EXPECT_EQ(arena.allocate(1), top);
}

}  // namespace
}  // namespace quorvan::test
