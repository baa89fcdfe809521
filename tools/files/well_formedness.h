// Where and why a file is not a well-formed document.
#pragma once

#include <filesystem>
#include <string>

#include <tools/files/position.h>

namespace quorvan::tool {

/// What keeps the document service from reading a file.
struct Refusal {
  Position position;  // line 0 where it cannot be said
  std::string reason;
};

/// Looks for the first fault of a file that the document service does not load. `bytes` is its
/// content.
Refusal findRefusal(const std::filesystem::path& path, const std::string& bytes);

}  // namespace quorvan::tool
