// What the library saved, as a test compares it.
#pragma once

#include <filesystem>
#include <string>

namespace quorvan::test {

/// The bytes of a file; empty when there is none.
std::string fileBytes(const std::filesystem::path& path);

/// The bytes of a file that the document service saved, without the differences that are known
/// of Wine's (known_differences.h). For comparing with golden bytes.
std::string savedBytes(const std::filesystem::path& path);

}  // namespace quorvan::test
