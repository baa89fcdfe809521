// Why a document was not loaded.
#pragma once

#include <cstdint>
#include <string>

namespace quorvan::dom {

enum class LoadFailure : std::uint8_t {
  kNone,
  kMissing,        // there is no such file
  kNoAccess,       // it is there and may not be read
  kNotAFile,       // it is a folder, a device or a pipe
  kNotWellFormed,  // it is no well-formed document
  kEncoding,       // its encoding is not known, or its bytes do not fit it
  kLimit,          // it goes beyond what a document may ask of its reader
};

/// The first fault that was met, and where.
struct LoadProblem {
  LoadFailure failure = LoadFailure::kNone;
  std::uint64_t line = 0;    // from 1; 0 where the backend cannot say it
  std::uint64_t column = 0;  // from 1; 0 where the backend cannot say it
  std::string reason;        // in the backend's words; may be empty
};

}  // namespace quorvan::dom
