// How far a file may go before it is refused like one that is not well-formed. No drawing comes
// near these; they bound what a hostile file can make its reader do.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvan::embedded {

/// Elements open at the same time, the root element included.
inline constexpr std::size_t kMaxDepth = 10000;

/// Attributes of one element.
inline constexpr std::size_t kMaxAttributes = 10000;

/// Entities that stand in each other's text, from the outermost to the innermost. The parser calls
/// itself for each; the entities in use need not be known before to their declarations.
inline constexpr unsigned kMaxEntityNesting = 32;

/// How many times its size a file may grow by the entities it declares, once it has grown beyond
/// kFreeEntityBytes.
inline constexpr float kMaxEntityAmplification = 10.0F;
inline constexpr unsigned long long kFreeEntityBytes = 1024ULL * 1024ULL;

/// The steps that declarations may make the parser take: so many, and so many more for each byte
/// of the file. A step is one look at a declared attribute, for which it goes over all that are
/// declared for an element at each one declared, and at each start tag and each attribute in it;
/// or one byte of a namespace address, which it takes in full for each name with a prefix.
inline constexpr std::uint64_t kFreeSteps = 1024ULL * 1024ULL;
inline constexpr std::uint64_t kStepsPerByte = 32;

}  // namespace quorvan::embedded
